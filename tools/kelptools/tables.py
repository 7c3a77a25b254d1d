"""The tables of a run as they stand in their files: fixed columns, one record a line."""

from __future__ import annotations

import warnings
from dataclasses import dataclass
from pathlib import Path

import numpy as np

from .errors import KelpError, KelpWarning

DATE_WIDTH = 8


@dataclass(frozen=True)
class Table:
    """Dates as they are written, and a row of values for each; NaN where the file has asterisks."""

    path: Path
    dates: np.ndarray
    values: np.ndarray


@dataclass(frozen=True)
class InletTable:
    path: Path
    steps: np.ndarray
    dates: np.ndarray
    values: np.ndarray


INLET_COLUMNS = (
    "L_Qout", "L_Qie", "L_Attach", "L_Qba", "L_Bypass", "L_Qeb", "Ebb", "Qfe",
    "Flood", "Qce", "R_Qeb", "R_Bypass", "R_Qba", "R_Attach", "R_Qie", "R_Qout",
)  # fmt: skip


def _records(path: Path, head_lines: int, width: int, wanted: str) -> list[bytes]:
    """The records of a table, each `width` bytes. A last record cut short is left away with a warning."""
    lines = path.read_bytes().split(b"\n")
    if lines[-1] == b"":
        lines.pop()
    lines = [line.rstrip(b"\r") for line in lines]
    records = lines[head_lines:]
    while records and not records[-1].strip():
        records.pop()
    if records and len(records[-1]) < width:
        warnings.warn(
            f"{path}: the last record is cut short and left away; {len(records) - 1} whole records", KelpWarning, 4
        )
        records.pop()
    for number, record in enumerate(records, head_lines + 1):
        if len(record) != width:
            raise KelpError(f"{path}: line {number}: {len(record)} columns, not {width}: {wanted}")
    if not records:
        warnings.warn(f"{path}: no record", KelpWarning, 4)
    return records


def _columns(path: Path, records: list[bytes], start: int, width: int, count: int) -> np.ndarray:
    """`count` fields of `width` bytes from byte `start` of each record; NaN where there are asterisks."""
    if not records:
        return np.empty((0, count))
    block = b"".join(record[start : start + width * count] for record in records)
    fields = np.frombuffer(block, dtype=f"S{width}").reshape(len(records), count)
    missing = np.char.find(fields, b"*") >= 0
    if missing.any():
        fields = np.where(missing, b"nan", fields)
    try:
        return fields.astype(float)
    except ValueError:
        for number, row in enumerate(fields):
            for column, field in enumerate(row, 1):
                try:
                    float(field)
                except ValueError:
                    raise KelpError(
                        f"{path}: record {number + 1}, column {column}: {field.decode('latin-1')!r} is no number"
                    ) from None
        raise


def _whole(path: Path, records: list[bytes], start: int, name: str) -> np.ndarray:
    numbers = np.empty(len(records), dtype=np.int64)
    for place, record in enumerate(records):
        field = record[start : start + DATE_WIDTH]
        try:
            numbers[place] = int(field)
        except ValueError:
            raise KelpError(
                f"{path}: record {place + 1}: {field.decode('latin-1')!r} is no {name}"
            ) from None
    return numbers


def read_table(path: Path, columns: int, width: int) -> Table:
    wanted = f"a date and {columns} values of {width} columns; is it another configuration's table?"
    records = _records(path, 1, DATE_WIDTH + width * columns, wanted)
    return Table(
        path,
        _whole(path, records, 0, "date"),
        _columns(path, records, DATE_WIDTH, width, columns),
    )


def read_inlet_table(path: Path) -> InletTable:
    """A shoal table: step, a blank, sixteen values of 14 columns, four blanks, date."""
    width, count = 14, len(INLET_COLUMNS)
    start = DATE_WIDTH + 1
    end = start + width * count + 4
    wanted = f"a step, {count} values of {width} columns and a date"
    records = _records(path, 2, end + DATE_WIDTH, wanted)
    return InletTable(
        path,
        _whole(path, records, 0, "step number"),
        _whole(path, records, end, "date"),
        _columns(path, records, start, width, count),
    )
