"""A configuration under check, and what was found about it."""

from __future__ import annotations

import re
from dataclasses import dataclass
from pathlib import Path

from .configuration import (
    LAST_STEP_NUMBER,
    MONTH_DAYS,
    Configuration,
    Line,
    days_between,
    parse_lines,
    parse_real,
    whole_in_8_columns,
)
from .errors import KelpError
from .keywords import keywords


@dataclass(frozen=True, order=True)
class Finding:
    line: int  # 0: the file as a whole
    level: str  # error, warning, note
    text: str


def is_number(text: str) -> bool:
    try:
        parse_real(text)
    except ValueError:
        return False
    return True


def is_date(date: int) -> bool:
    year, month, day = date // 10000, date // 100 % 100, date % 100
    if not 1 <= month <= 12:
        return False
    return 1 <= day <= MONTH_DAYS[month - 1] + (month == 2 and year % 4 == 0)


def counted(count: int, what: str) -> str:
    return f"{count} {what}{'s' * (count != 1)}"


def item_texts(value: str) -> list[str]:
    """Items of a line whose last one may be a name in quotes."""
    return [item.strip("\"'") for item in re.findall(r"\"[^\"]*\"|'[^']*'|[^ ,]+", value)]


class Context:
    """The configuration and the list of findings, which the groups of checks share."""

    def __init__(self, path: Path, text: str, folder: Path):
        self.folder = folder
        self.rows = re.split(r"\r\n|\n|\r", text)
        self.configuration = Configuration(path, parse_lines(text))
        self.lines = self.configuration.lines
        self.known = keywords()
        self.found: list[Finding] = []

    def tell(self, level: str, where, text: str):
        self.found.append(Finding(where.number if isinstance(where, Line) else where, level, text))

    # Values, or their defaults where they cannot be decoded: that is told elsewhere.

    def lines_of(self, keyword: str) -> list[Line]:
        return self.configuration.found(keyword)

    def last(self, keyword: str) -> Line | int:
        """The line that holds, 0 if there is none."""
        return (self.lines_of(keyword) or [0])[-1]

    def given(self, keyword: str) -> bool:
        return keyword in self.configuration

    def value(self, keyword: str, form: str, default=0):
        try:
            return self.configuration.scalar(keyword, form, default)
        except KelpError:
            return default

    def values(self, keyword: str, form=parse_real) -> list:
        try:
            return self.configuration.numbers(keyword, form)
        except KelpError:
            return []

    def entries(self, keyword: str) -> list[tuple[Line, int]]:
        """Whole numbers of a list keyword with their lines."""
        entries = []
        for line in self.lines_of(keyword):
            try:
                entries.append((line, whole_in_8_columns(line.value)))
            except ValueError:
                pass
        return entries

    @property
    def cells(self) -> int:
        return self.value("NX", "integer")

    @property
    def start(self) -> int:
        return self.value("SIMDATS", "int8")

    @property
    def end(self) -> int:
        return self.value("SIMDATE", "int8")

    @property
    def hours(self) -> float | None:
        """Length of the run; None where it cannot be told."""
        step = self.value("DT", "real", 0.0)
        if step <= 0:
            return None
        if self.end <= self.start:
            return self.end * step if 0 < self.end < LAST_STEP_NUMBER else None
        if not (is_date(self.start) and is_date(self.end)):
            return None
        return days_between(self.start, self.end) * 24.0
