"""Whether a wave file fits its run."""

from __future__ import annotations

import datetime
import re
from pathlib import Path

from .configuration import free_format, parse_real, parse_whole, read_text

CALM_BELOW = 0.1
MISSING_ABOVE = 98.0
NUMBER = r"\d+\.?\d*"
PLAIN = re.compile(rf" *(\d+) +(\d+) +({NUMBER}) +({NUMBER}) +(-?{NUMBER})(?: |$)")  # a record as most files have it
MANY = 0.3  # share of angles beyond 90 degrees that looks like directions from north


def check_wave_file(check, file, path: Path, events: int, is_last: bool):
    """`events` is the number of records that holds for all files; the dates of the last one count."""
    rows = [row for row in read_text(path).replace("\t", " ").splitlines() if row.strip(" ")]
    try:
        if events == 0:
            check_steady(check, file, rows)
        else:
            check_series(check, file, rows, events, is_last)
    except ValueError as error:
        check.tell("error", file.line, f"{file.name}: {error}")


def check_steady(check, file, rows):
    if not rows:
        raise ValueError("the file is empty")
    items = free_format(rows[0])
    height, period, angle = numbers(items, 3, "record 1")
    if len(items) > 3 or len(rows) > 1:
        check.tell(
            "warning", file.line,
            f"{file.name}: with 0 records in WAVEID the waves are steady: the first three "
            "items of the file are the only height, period and angle of the run",
        )
    if is_calm(height, period, angle):
        check.tell(
            "warning", file.line,
            f"{file.name}: height {height:g}, period {period:g} and angle {angle:g} are taken "
            "as calm, and so is the whole run",
        )


def numbers(items, count: int, what: str) -> list[float]:
    if len(items) < count:
        raise ValueError(f"{what} has {len(items)} items of {count} on its line")
    return [parse_real(item or "0") for item in items[:count]]


def is_calm(height: float, period: float, angle: float) -> bool:
    low, missing = min(height, period) < CALM_BELOW, max(height, period) > MISSING_ABOVE
    return low or missing or abs(angle) > 90.0


def record_of(row: str, number: int):
    plain = PLAIN.match(row)
    if plain:
        return int(plain[1]), int(plain[2]), float(plain[3]), float(plain[4]), float(plain[5])
    items = free_format(row)
    waves = numbers(items, 5, f"record {number}")[2:]
    return parse_whole(items[0] or "0"), parse_whole(items[1] or "0"), *waves


def check_series(check, file, rows, events: int, is_last: bool):
    tell, line, name = check.tell, file.line, file.name
    stamps, low, missing, behind = [], 0, 0, 0
    for number, row in enumerate(rows, 1):
        try:
            date, clock, height, period, angle = record_of(row, number)
        except ValueError as error:
            if number > events:
                break
            raise ValueError(str(error) if "record" in str(error) else f"record {number}: {error}") from None
        stamps.append((date, clock))
        low += min(height, period) < CALM_BELOW
        missing += max(height, period) > MISSING_ABOVE
        behind += min(height, period) >= CALM_BELOW and abs(angle) > 90.0
    count = len(stamps)
    if not count:
        raise ValueError("the file is empty")
    if count < events and is_last:
        tell("error", line, f"{name} holds {count} records, and WAVEID tells {events}")
    elif count > events:
        tell(
            "warning", line,
            f"{name} holds {count} records, and WAVEID tells {events}: the dates of the others do not "
            "count",
        )
    calms = (
        (low, "below 0.1 in height or period"),
        (missing, "above 98, the marks of missing data,"),
        (behind, "with an angle beyond 90 degrees"),
    )
    for number, what in calms:
        if number:
            many = behind > MANY * count and what.endswith("degrees")
            hint = "; angles count from the shore normal, not from north" if many else ""
            level = "warning" if many else "note"
            tell(level, line, f"{name}: {number} of {count} records {what} are taken as calm{hint}")
    if count < 2:
        raise ValueError("one record is no series, whose step is that of the first two")
    check_dates(check, file, stamps)


def time_of(stamp):
    date, clock = stamp
    try:
        return datetime.datetime(date // 10000, date // 100 % 100, date % 100, clock // 100, clock % 100)
    except ValueError:
        raise ValueError(f"{date} {clock:04d} is no date YYYYMMDD and clock time HHMM") from None


def check_dates(check, file, stamps):
    tell, line, name = check.tell, file.line, file.name
    times = [time_of(stamp) for stamp in stamps]
    step = times[1] - times[0]
    if (times[0].year, times[0].month) != (times[1].year, times[1].month):
        raise ValueError("its first two records lie in different months, and the program cannot tell the wave step")
    hours = step.total_seconds() / 3600.0
    time_step = check.value("DT", "real", 0.0)
    if hours <= 0:
        raise ValueError(f"its second record lies {-hours:g} hours before the first")
    if time_step > 0:
        if time_step > hours:
            tell("error", line, f"{name}: DT {time_step:g} is longer than the wave step of {hours:g} hours")
        elif round(1000 * hours, 3) % round(1000 * time_step, 3):
            tell("error", line, f"{name}: the wave step of {hours:g} hours is no multiple of DT {time_step:g}")
    jumps = [i for i in range(1, len(times)) if times[i] - times[i - 1] != step]
    if jumps:
        earlier, later = times[jumps[0] - 1], times[jumps[0]]
        others = f", and {len(jumps) - 1} others" if len(jumps) > 1 else ""
        tell(
            "warning", line,
            f"{name}: the step is {hours:g} hours, but record {jumps[0] + 1} of {later:%Y-%m-%d %H:%M} follows "
            f"{earlier:%Y-%m-%d %H:%M}{others}; dates do not count, so that all later waves come at a wrong time",
        )
    usable = next((i for i, stamp in enumerate(stamps) if stamp[0] >= check.start), None)
    if usable is None:
        raise ValueError(f"all its records lie before the start of the run, {check.start}")
    if stamps[usable][0] > check.start and check.given("SIMDATS"):
        tell(
            "warning", line,
            f"{name} begins on {stamps[usable][0]}, and the run on {check.start}: its first record is "
            "taken for the run's first waves",
        )
    run_hours = check.hours
    if run_hours and time_step > 0:
        steps = int(run_hours / time_step + 0.5)
        needed = (steps - 1) // max(1, int(hours / time_step + 0.5)) + 1
        if needed > len(stamps) - usable:
            tell(
                "error", line,
                f"{name} ends before the run does: {needed} records are needed from {check.start} on, and "
                f"there are {len(stamps) - usable}, the last of {times[-1]:%Y-%m-%d %H:%M}",
            )
