"""Lines that the program reads otherwise than they look, and values that it cannot decode."""

from __future__ import annotations

import difflib
import re

from .check_context import Context, is_number, item_texts
from .configuration import (
    LINE_WIDTH,
    Configuration,
    Line,
    free_format,
    parse_real,
    parse_whole,
    unquoted,
    whole_in_8_columns,
)
from .errors import KelpError

NEAREST = 0.6  # least likeness of two keywords
COMMENT = re.compile(r"[^A-Za-z0-9\s]")  # what a comment may begin with
NEEDED = {
    "INIFILE": "the initial shoreline",
    "WAVEID": "the waves",
    "NX": "the number of cells",
    "DX": "the cell width",
    "SIMDATE": "the end of the run",
    "DT": "the time step",
    "DTSAVE": "the interval of the tables",
    "D50": "the grain size",
}


def first_items(value: str) -> list[str]:
    """The first and the second item of a free-format line as far as they are there, not their repeats."""
    return [item for item in re.split(r"[ ,]+", value.partition("/")[0], maxsplit=2)[:2] if item]


class LineChecks(Context):
    def check_lines(self):
        if not any(line.keyword == "KELPRUN" and ":" in line.text for line in self.lines):
            self.tell("error", 0, "a line 'KELPRUN:' is missing, by which the program knows its configuration")
        for line, row in zip(self.lines, self.rows):
            if ":" not in line.text:
                self.check_line_without_colon(line)
            elif line.keyword in self.known:
                if not line.value and line.keyword != "KELPRUN":
                    self.tell("warning", line, f"{line.keyword} has no value; the line is skipped")
                if len(row.rstrip()) > LINE_WIDTH:
                    self.tell("warning", line, f"{line.keyword}: the line is cut at column {LINE_WIDTH}")
            else:
                self.check_unknown(line)

    def check_line_without_colon(self, line: Line):
        words = re.split(r"[\s=;]+", line.text.strip(), maxsplit=1)
        keyword = words[0].upper()
        if keyword not in self.known or COMMENT.match(line.text.strip()):
            return
        rest = line.text.strip()[len(keyword) :].strip()
        # One word behind it, a number or a sign make it a keyword; more words are a sentence.
        if not rest or rest[0] in "=;" or is_number(rest.split()[0]) or len(rest.split()) == 1:
            self.tell("warning", line, f"no colon behind {keyword}: the line is ignored; {keyword}: is meant?")

    def check_unknown(self, line: Line):
        raw = line.text.partition(":")[0]
        bare = re.sub(r"^[\s\u00a0\u200b\ufeff]+|[\s\u00a0\u200b\ufeff]+$", "", raw).upper()
        if not bare or COMMENT.match(bare):
            return
        if bare in self.known:
            what = "a leading blank" if raw[:1].isspace() else "an invisible character"
            self.tell("warning", line, f"{bare} is hidden by {what}: the line is ignored")
            return
        words = bare.split()
        joined = re.sub(r"[\s_-]", "", bare)
        if joined in self.known:
            self.tell("warning", line, f"unknown keyword {bare}: the line is ignored; {joined} is meant?")
        elif len(words) == 1:
            near = difflib.get_close_matches(bare, list(self.known), n=1, cutoff=NEAREST)
            meant = f"; {near[0]} is the nearest known one" if near else "; begin a comment with #"
            self.tell("warning", line, f"unknown keyword {bare}: the line is ignored{meant}")
        elif len(words) == 2 and words[0] in self.known:
            self.tell("warning", line, f"unknown keyword {bare}: the line is ignored; {words[0]} is meant?")

    # Values.

    def check_values(self):
        for line in self.lines:
            keyword = self.known.get(line.keyword)
            if keyword is None or not line.value:
                continue
            try:
                getattr(self, f"check_{keyword.form}")(line, keyword)
            except ValueError as error:
                self.tell("error", line, f"{line.keyword}: {error}")

    def check_marker(self, line, keyword):
        pass

    def check_text(self, line, keyword):
        if len(line.value) > keyword.width:
            self.tell("note", line, f"{line.keyword} is cut to {keyword.width} characters")

    def check_name(self, line, keyword):
        name = unquoted(line.value)
        if " " in name and not line.value.startswith('"'):
            self.tell("note", line, f"{line.keyword}: the whole of '{name}' is the name, blanks too")

    def check_int8(self, line, keyword):
        try:
            number = whole_in_8_columns(line.value)
        except ValueError:
            raise ValueError(
                f"'{line.value[:8].rstrip()}' is no whole number; the first 8 columns must hold nothing else"
            ) from None
        if line.value[8:9].strip() and line.value[7:8].strip():
            self.tell("warning", line, f"{line.keyword}: only the first 8 columns count: {number}")
        if re.search(r"\d +\d", line.value[:8]):
            self.tell("warning", line, f"{line.keyword}: blanks within 8 columns do not count: {number} is read")

    def check_logical7(self, line, keyword):
        if line.value[:7].upper().removeprefix(".")[:1] not in ("T", "F"):
            raise ValueError(f"'{line.value[:7]}' is neither T nor F")

    def check_integer(self, line, keyword):
        self.check_item(line, parse_whole)

    def check_real(self, line, keyword):
        self.check_item(line, parse_real)

    check_real64 = check_real

    def check_item(self, line, parse):
        items = first_items(line.value)
        if not items or items[0].endswith("*"):
            self.tell("warning", line, f"{line.keyword} has no value; the line is skipped")
            return
        parse(items[0].partition("*")[2] or items[0])
        if len(items) > 1 and is_number(items[1]):
            comma = "; a comma parts two values" if re.match(r"[^ ,]+,", line.value) else ""
            self.tell("warning", line, f"{line.keyword}: only the first value counts: {items[0]}{comma}")

    def check_int_list(self, line, keyword):
        self.check_list(line, parse_whole)

    def check_real_list(self, line, keyword):
        items = self.check_list(line, parse_real)
        if line.keyword == "DX" and len(items) > 1:
            self.tell("warning", line, f"DX: only the first value counts: {items[0] or 0}; a DXFILE varies the widths")

    def check_list(self, line, parse) -> list:
        items = free_format(line.value)
        for item in items:
            if item is not None:
                parse(item)
        if any(item is None for item in items):
            self.tell("warning", line, f"{line.keyword}: a value left out between commas stays 0")
        if line.value.partition("/")[2].strip():
            self.tell("warning", line, f"{line.keyword}: what stands behind the / is not read")
        return items

    def check_items(self, line, keyword):
        if line.keyword == "WAVEID":
            try:
                Configuration(self.configuration.path, [line]).wave_files
            except KelpError as error:
                raise ValueError(str(error).rpartition("WAVEID: ")[2]) from None
            return
        wanted = {"WLFILE": 2, "TIDEFILE": 3}.get(line.keyword)
        items = item_texts(line.value)
        if wanted and len(items) < wanted:
            raise ValueError(f"{wanted} items are needed, the last one a name")
        for item in items[: (wanted or 1) - 1]:
            parse_whole(item)

    def check_repeats(self):
        for name, keyword in self.known.items():
            lines = self.lines_of(name)
            if keyword.opener or keyword.form == "marker":
                continue
            for line in lines[:-1]:
                self.tell("warning", line, f"{name} is given again in line {lines[-1].number}, and that one holds")

    def check_needed(self):
        for name, what in NEEDED.items():
            if not self.given(name):
                self.tell("error", 0, f"{name} is missing: {what}")
        for name, form in (("NX", "integer"), ("D50", "real"), ("GAMMA", "real")):
            value = self.value(name, form)
            if self.given(name) and not value > 0:
                self.tell("error", self.last(name), f"{name} must be above 0, it is {value:g}")
        if not self.given("KELUNITS"):
            self.tell("warning", 0, "KELUNITS is left out: all lengths are in feet")
        if not self.given("WAVUNITS"):
            self.tell("note", 0, "WAVUNITS is left out: wave heights are in metres")
        for name in ("KELUNITS", "WAVUNITS"):
            text = self.value(name, "text", "(m)")[:6].lower()
            if self.given(name) and text[1:3] != "ft" and text[1:2] != "m":
                self.tell("error", self.last(name), f"{name} must be (ft) or (m), with the parentheses")
        if self.value("PRFILE", "name", "") == "" and self.flag("PRTOUT"):
            self.tell("error", 0, "PRFILE is missing: the report, after which the tables are called")

    def flag(self, keyword: str) -> bool:
        try:
            return self.configuration.flag(keyword, True)
        except KelpError:
            return True
