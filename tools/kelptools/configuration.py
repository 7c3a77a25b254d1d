"""The configuration file of a run, read by the program's own rules.

A line is `KEYWORD: value`. The keyword stands before the first colon, from column 1 on, in upper or
lower case; a line with nothing behind the colon counts for nothing. Of a scalar the last line holds;
a list keyword adds an entry with each line.
"""

from __future__ import annotations

import re
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path

from .errors import KelpError

LINE_WIDTH = 255
LAST_STEP_NUMBER = 18000000
MONTH_DAYS = (31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31)


def read_text(path: Path) -> str:
    """A text file in UTF-8, with or without byte-order mark, or else in Latin-1."""
    content = path.read_bytes()
    try:
        return content.decode("utf-8-sig")
    except UnicodeDecodeError:
        return content.decode("latin-1")


@dataclass(frozen=True)
class Line:
    """A line of the file. Without a colon the keyword is empty and the whole line is the value."""

    number: int
    text: str
    keyword: str  # upper case; a blank in column 1 stays, and then it is no keyword to the program
    value: str


@dataclass(frozen=True)
class WaveFile:
    """What a WAVEID line says; 0 events is a steady wave."""

    last_cell: int
    depth: float
    events: int
    name: str
    line: Line


def parse_lines(text: str) -> list[Line]:
    lines = []
    for number, row in enumerate(re.split(r"\r\n|\n|\r", text), 1):
        row = row.replace("\t", " ")[:LINE_WIDTH].rstrip(" ")
        keyword, colon, value = row.partition(":")
        if not colon:
            keyword, value = "", row
        lines.append(Line(number, row, keyword.rstrip(" ").upper(), value.strip(" ")))
    return lines


def free_format(value: str) -> list[str | None]:
    """The items of a free-format list: blanks or commas between them, `3*0.5` repeats, `/` ends the
    list; None stands for an item left out between two commas or behind a star."""
    items: list[str | None] = []
    position, behind_value = 0, False
    while position < len(value):
        character = value[position]
        if character == " ":
            position += 1
        elif character == ",":
            if not behind_value:
                items.append(None)
            behind_value = False
            position += 1
        elif character == "/":
            break
        else:
            token = re.match(r"[^ ,/]+", value[position:]).group()
            position += len(token)
            behind_value = True
            count, star, rest = token.partition("*")
            if not star:
                items.append(token)
                continue
            if not re.fullmatch(r"\+?\d+", count) or int(count) < 1:
                raise ValueError(f"'{token}' repeats nothing")
            items.extend([rest or None] * int(count))
    return items


def _free_items(value: str, names: int) -> list[str | None]:
    """The first `names` items of a line whose last one is a name, which may hold a `/` or stand in quotes."""
    items: list[str | None] = []
    position, behind_value = 0, False
    while len(items) < names:
        while position < len(value) and value[position] == " ":
            position += 1
        if position >= len(value):
            break
        if value[position] == ",":
            if not behind_value:
                items.append(None)
            behind_value = False
            position += 1
            continue
        behind_value = True
        if value[position] in "\"'":
            closing = value.find(value[position], position + 1)
            if closing < 0:
                raise ValueError("the closing quote is missing")
            items.append(value[position + 1 : closing])
            position = closing + 1
        else:
            token = re.match(r"[^ ,]+", value[position:]).group()
            items.append(token)
            position += len(token)
    return items


def parse_real(text: str) -> float:
    """`1.5`, `1e3` or `1.5d0`; a word such as nan is no number."""
    text = re.sub("[dD]", "e", text)
    if not re.fullmatch(r"[+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?", text):
        raise ValueError(f"'{text}' is no number")
    return float(text)


def parse_whole(text: str) -> int:
    if not re.fullmatch(r"[+-]?\d+", text):
        raise ValueError(f"'{text}' is no whole number")
    return int(text)


def whole_in_8_columns(value: str) -> int:
    return parse_whole(value[:8].replace(" ", ""))


def unquoted(value: str) -> str:
    """A name; in double quotes it may hold blanks."""
    if not value.startswith('"'):
        return value
    name, closing, rest = value[1:].partition('"')
    if not closing:
        raise ValueError("the closing quote is missing")
    return (name + " " + rest).rstrip(" ")


DECODERS = {
    "text": lambda value: value,
    "name": unquoted,
    "int8": whole_in_8_columns,
    "integer": lambda value: parse_whole(_first(value)),
    "real": lambda value: parse_real(_first(value)),
}


class _NoItem(Exception):
    """The value holds no item: what was there before stays."""


def _first(value: str) -> str:
    items = free_format(value)
    if not items or items[0] is None:
        raise _NoItem
    return items[0]


class Configuration:
    """A configuration and what it says. `lines` are all lines of the file, comments among them."""

    def __init__(self, path: Path, lines: list[Line]):
        self.path = path
        self.lines = lines

    # The file's own words.

    def found(self, keyword: str) -> list[Line]:
        """The lines that give this keyword a value."""
        return [line for line in self.lines if line.keyword == keyword and line.value]

    def __contains__(self, keyword: str) -> bool:
        return bool(self.found(keyword))

    def decode(self, line: Line, form: str, default=None):
        """The value of a line in a form: text, name, int8 (a whole number in 8 columns), integer, real."""
        try:
            return DECODERS[form](line.value)
        except _NoItem:
            return default
        except ValueError as error:
            raise KelpError(f"{self.path}: line {line.number}: {line.keyword}: {error}") from None

    def scalar(self, keyword: str, form: str, default):
        for line in self.found(keyword):
            default = self.decode(line, form, default)
        return default

    def text(self, keyword: str, default: str = "") -> str:
        return self.scalar(keyword, "text", default)

    def name(self, keyword: str, default: str = "") -> str:
        return self.scalar(keyword, "name", default)

    def int8(self, keyword: str, default: int = 0) -> int:
        return self.scalar(keyword, "int8", default)

    def integer(self, keyword: str, default: int = 0) -> int:
        return self.scalar(keyword, "integer", default)

    def real(self, keyword: str, default: float = 0.0) -> float:
        return self.scalar(keyword, "real", default)

    def flag(self, keyword: str, default: bool) -> bool:
        for line in self.found(keyword):
            letter = line.value[:7].upper().removeprefix(".")[:1]
            if letter not in ("T", "F"):
                raise KelpError(f"{self.path}: line {line.number}: {keyword} must be T or F")
            default = letter == "T"
        return default

    def numbers(self, keyword: str, form=parse_real) -> list:
        """A value list such as K1, or with `form=parse_whole` its end cells. Items left out are 0; a second
        line overwrites as many values as it has."""
        values: list = []
        for line in self.found(keyword):
            try:
                items = free_format(line.value)
                values.extend([0] * (len(items) - len(values)))
                for place, item in enumerate(items):
                    if item is not None:
                        values[place] = form(item)
            except ValueError as error:
                raise KelpError(f"{self.path}: line {line.number}: {keyword}: {error}") from None
        return values

    def entries(self, keyword: str, form: str) -> list:
        """The entries of a list keyword, one a line."""
        return [self.decode(line, form, 0) for line in self.found(keyword)]

    def records(self, opening: str, positional: dict[str, str], current: dict[str, str] | None = None) -> list[dict]:
        """The records that the lines of `opening` count. The n-th line of a `positional` keyword belongs
        to the n-th record, a `current` one to the record opened last; both map keywords to forms. What is
        left out is 0 or an empty name."""
        forms = {opening: "int8", **positional, **(current or {})}
        lists = {keyword: self.entries(keyword, form) for keyword, form in ({opening: "int8"} | positional).items()}
        records = [
            {
                keyword: "" if form in ("name", "text") else 0
                for keyword, form in forms.items()
            }
            for _ in lists[opening]
        ]
        for keyword, values in lists.items():
            for record, value in zip(records, values):
                record[keyword] = value
        opened = 0
        for line in self.lines:
            if not line.value:
                continue
            if line.keyword == opening:
                opened += 1
            elif line.keyword in (current or {}) and opened:
                records[opened - 1][line.keyword] = self.decode(line, forms[line.keyword], 0)
        return records

    # What it says.

    @cached_property
    def unit(self) -> str:
        """The unit of lengths, m or ft."""
        return self._unit("KELUNITS", "(ft)")

    @cached_property
    def wave_unit(self) -> str:
        return self._unit("WAVUNITS", "(m)")

    def _unit(self, keyword: str, default: str) -> str:
        text = self.text(keyword, default)[:6].lower()
        if text[1:3] == "ft":
            return "ft"
        if text[1:2] == "m":
            return "m"
        raise KelpError(f"{self.path}: {keyword} must be (ft) or (m), not '{text}'")

    @cached_property
    def cells(self) -> int:
        cells = self.integer("NX")
        if not 1 <= cells <= 4000:
            raise KelpError(f"{self.path}: NX must be 1 to 4000, not {cells}")
        return cells

    @property
    def title(self) -> str:
        return self.text("TITLE")[:64].rstrip()

    @property
    def stem(self) -> str:
        """What the names of the tables begin with: the report's name up to its first full stop."""
        name = self.name("PRFILE")
        stop = name.find(".")
        return name if stop < 0 else name[: stop + 1]

    @property
    def wave_files(self) -> list[WaveFile]:
        files = []
        for line in self.found("WAVEID"):
            try:
                items = _free_items(line.value, 4)
                if len(items) < 4 or None in items:
                    raise ValueError("a last cell, a depth, a number of events and a file name are needed")
                cell, depth, events, name = items
                files.append(WaveFile(parse_whole(cell), parse_real(depth), parse_whole(events), name, line))
            except ValueError as error:
                raise KelpError(f"{self.path}: line {line.number}: WAVEID: {error}") from None
        return files

    @property
    def steps(self) -> int | None:
        """Time steps of the run, or None when they cannot be told or the step adapts."""
        step = self.real("DT")
        start, end = self.int8("SIMDATS"), self.int8("SIMDATE")
        if step <= 0 or self.integer("DTADAPT") == 1:
            return None
        if end <= start:
            return end if end < LAST_STEP_NUMBER else None
        months = (start // 100 % 100, end // 100 % 100)
        if max(months) > 12 or min(months) < 1:
            return None
        return int(days_between(start, end) * 24 / step + 0.5)

    @property
    def steps_per_record(self) -> int | None:
        """Time steps from one row of the tables to the next, or None when the step adapts."""
        step, interval = self.real("DT"), self.real("DTSAVE")
        if step <= 0 or interval <= 0 or self.integer("DTADAPT") == 1:
            return None
        return max(1, int(interval / step + 0.5))


def days_between(start: int, end: int) -> int:
    """Days between two dates YYYYMMDD in the model's calendar: every fourth year is a leap year."""

    def days(date: int) -> int:
        year, month, day = date // 10000, date // 100 % 100, date % 100
        leap_days = (year - 1) // 4 + (1 if year % 4 == 0 and month > 2 else 0)
        return 365 * year + leap_days + sum(MONTH_DAYS[: month - 1]) + day

    return days(end) - days(start)


def read_configuration(path) -> Configuration:
    path = Path(path)
    try:
        text = read_text(path)
    except OSError as error:
        raise KelpError(f"{path}: {error.strerror}") from None
    configuration = Configuration(path, parse_lines(text))
    if not any(line.keyword == "KELPRUN" for line in configuration.lines):
        raise KelpError(f"{path}: no configuration of KelpRun: a line 'KELPRUN:' is missing")
    return configuration
