"""How far the files of two runs differ, in the order of their names:
differences.py REFERENCE_FOLDER OTHER_FOLDER. One line a file that differs; nothing where all are the same bytes, and
then the exit status is 0. scripts/same_answers calls it."""

from __future__ import annotations

import re
import sys
from itertools import zip_longest
from pathlib import Path

# A row of a table is a date of 8 columns and fields of one width, which may touch each other.
DATE = 8
WIDTHS = {".slo": 14, ".off": 14, ".vcc": 14, ".vcx": 14, ".qtr": 16, ".mqn": 16, ".mqr": 16, ".mql": 16}
NUMBER = re.compile(r"[-+]?(?:\d+\.?\d*|\.\d+)(?:[eE][-+]?\d+)?")


def pieces(line: str, width: int | None) -> tuple[list[str], list[str]]:
    """The numbers of a line as they are written, and the words around them. In a table without width the numbers are
    found by their form."""
    if width and line[:DATE].isdigit():
        fields = [line[i : i + width].strip() for i in range(DATE, len(line), width)]
        numbers = [field for field in fields if NUMBER.fullmatch(field)]
        return numbers, [line[:DATE]] + [field if field not in numbers else "" for field in fields]
    return NUMBER.findall(line), [" ".join(words.split()) for words in NUMBER.split(line)]


class Difference:
    """What differs between two texts: how many of all numbers, where the distance is largest, and the first line whose
    words differ."""

    def __init__(self, first: str, second: str, width: int | None):
        self.table = width is not None
        self.numbers = self.differing = 0
        self.largest = self.relative = self.magnitude = 0.0
        self.place = self.relative_place = ""
        self.words = 0
        lines = zip_longest(first.splitlines(), second.splitlines())
        for k, (a, b) in enumerate(lines, start=1):
            if a is None or b is None:
                self.words = self.words or k
            else:
                self.line(k, pieces(a, width), pieces(b, width))

    def line(self, k, a, b):
        if a[1] != b[1] or len(a[0]) != len(b[0]):
            self.words = self.words or k
            return
        for column, (x, y) in enumerate(zip(a[0], b[0]), start=1):
            self.number(float(x), float(y), f"line {k} number {column}")

    def number(self, x: float, y: float, place: str):
        self.numbers += 1
        self.magnitude = max(self.magnitude, abs(x))
        distance = abs(x - y)
        if distance == 0:
            return
        self.differing += 1
        if distance > self.largest:
            self.largest, self.place = distance, place
        relative = distance / max(abs(x), abs(y))
        if relative > self.relative:
            self.relative, self.relative_place = relative, place

    def __str__(self):
        told = []
        if self.differing:
            told.append(f"{self.differing} of {self.numbers} numbers, by at most {self.largest:.3g} ({self.place}); ")
            if self.table:
                told.append(f"{self.largest / self.magnitude if self.magnitude else 1:.2g} of the table's largest; ")
            told.append(f"relative to itself at most {self.relative:.2g} ({self.relative_place})")
        if self.words:
            told.append(("; " if told else "") + f"other words from line {self.words} on")
        return "".join(told) or "blanks or line ends only"


def files_below(folder: Path) -> dict[str, Path]:
    return {str(path.relative_to(folder)): path for path in sorted(folder.rglob("*")) if path.is_file()}


def compare(reference: Path, other: Path) -> list[str]:
    """One line for each file that is not the same bytes in both folders."""
    first, second = files_below(reference), files_below(other)
    told = []
    for name in sorted(first.keys() | second.keys()):
        if name not in second or name not in first:
            told.append(f"{name}: only in {reference if name in first else other}")
            continue
        a, b = first[name].read_bytes(), second[name].read_bytes()
        if a != b:
            width = WIDTHS.get(Path(name).suffix)
            told.append(f"{name}: {Difference(a.decode('latin-1'), b.decode('latin-1'), width)}")
    return told


def main() -> int:
    told = compare(Path(sys.argv[1]), Path(sys.argv[2]))
    for line in told:
        print(line)
    return 1 if told else 0


if __name__ == "__main__":
    sys.exit(main())
