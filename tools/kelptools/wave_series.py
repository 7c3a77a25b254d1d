"""Records at a constant step, as the model's wave file holds them."""

from __future__ import annotations

import datetime
import math
import os
import re
from collections import Counter
from dataclasses import dataclass

from .errors import KelpError
from .wave_input import Rows, Wave, show_time

CALM_BELOW = 0.1  # the model takes a record with a lower height or a shorter period as calm
RECORDS_MAX = 2_000_000
DAY = datetime.timedelta(days=1)
GAPS_SHOWN = 10
STEP_UNLESS_TOLD = {"csv": DAY}
RESAMPLE_UNLESS_TOLD = {"csv": "exact"}


@dataclass
class Series:
    """Waves at constant steps; None where there are no data. `thin` counts the means of fewer than half of
    the usual number of rows."""

    rows: Rows
    normal: float
    step: datetime.timedelta
    times: list[datetime.datetime]
    waves: list[Wave | None]
    thin: int = 0

    @property
    def hours(self) -> float:
        return self.step.total_seconds() / 3600.0

    @property
    def gaps(self) -> list[tuple[int, int]]:
        """First record and number of records of each run of records without data."""
        gaps: list[tuple[int, int]] = []
        for i, wave in enumerate(self.waves):
            if wave is None:
                if gaps and sum(gaps[-1]) == i:
                    gaps[-1] = (gaps[-1][0], gaps[-1][1] + 1)
                else:
                    gaps.append((i, 1))
        return gaps

    def angle(self, wave: Wave) -> float:
        return model_angle(self.normal, wave[2])


def model_angle(normal: float, direction: float) -> float:
    """Degrees from the shore normal, -180 to 180, as they stand in the file (two decimals)."""
    return round((normal - direction + 180.0) % 360.0 - 180.0, 2) + 0.0  # no minus zero


def calm(wave: Wave) -> bool:
    """As the model will see it in the file, where two decimals stand."""
    return round(wave[0], 2) < CALM_BELOW or round(wave[1], 2) < CALM_BELOW


def make_series(rows: Rows, args) -> Series:
    how = args.resample or RESAMPLE_UNLESS_TOLD.get(rows.format, "mean")
    step = args.step or STEP_UNLESS_TOLD.get(rows.format) or usual_step(rows)
    times = record_times(rows, step, how, args)
    thin = 0
    if how == "exact":
        waves = [rows.waves.get(time) for time in times]
    elif how == "nearest":
        waves = nearest_rows(rows, times, step)
    else:
        waves, thin = mean_rows(rows, times, step)
    lacking = [time for time, wave in zip(times, waves) if wave is None]
    if lacking and args.gaps == "stop":
        why = "lacks a value" if how == "exact" and lacking[0] in rows.waves else "is absent"
        raise KelpError(
            f"{rows.source}: the row of {show_time(lacking[0])} {why}; {len(lacking)} of {len(times)} records "
            "have none (--gaps calm makes them calm)"
        )
    return Series(rows, args.normal, step, times, waves, thin)


def usual_step(rows: Rows) -> datetime.timedelta:
    """The commonest distance of two whole rows, to the minute."""
    whole = sorted(time for time, wave in rows.waves.items() if wave)
    distances = Counter(later - earlier for earlier, later in zip(whole, whole[1:]))
    if not distances:
        raise KelpError(f"{rows.source}: only one whole row, so that --step-hours is needed")
    minutes = round(distances.most_common(1)[0][0].total_seconds() / 60)
    return datetime.timedelta(minutes=max(1, minutes))


def record_times(rows: Rows, step, how: str, args) -> list[datetime.datetime]:
    """The times of the records. With `exact` every row between the first and the last must lie on one."""
    first, last = min(rows.waves), max(rows.waves)
    start = args.start or (first if how == "exact" else round_start(first, step))
    end = args.end or last
    if end < start:
        raise KelpError(f"the end {show_time(end)} lies before the start {show_time(start)}")
    if start.second:
        raise KelpError(f"the start {start} has seconds; a record's time is hours and minutes")
    inside = [time for time in sorted(rows.waves) if start <= time <= end]
    if not inside:
        raise KelpError(
            f"{rows.source}: no row from {show_time(start)} to {show_time(end)}; its rows run from "
            f"{show_time(first)} to {show_time(last)}"
        )
    if how == "exact":
        for time in inside:
            if (time - start) % step:
                raise KelpError(
                    f"{rows.source}: the row of {show_time(time)} lies between two records, which stand every "
                    f"{step.total_seconds() / 3600.0:g} hours from {show_time(start)}; see --step-hours, --start "
                    "and --resample"
                )
    count = (end - start) // step + 1
    if count > RECORDS_MAX:
        raise KelpError(f"{count} records; KelpRun reads {RECORDS_MAX} at most")
    times = [start + step * i for i in range(count)]
    if count > 1 and (times[0].year, times[0].month) != (times[1].year, times[1].month):
        raise KelpError(
            f"the first two records, {show_time(times[0])} and {show_time(times[1])}, lie in different months, and "
            "KelpRun could not tell their distance; choose another start"
        )
    return times


def round_start(first, step):
    """The last round time up to the first row: steps count from midnight, or the hour is cut."""
    midnight = first.replace(hour=0, minute=0, second=0, microsecond=0)
    if DAY % step == datetime.timedelta():
        return midnight + (first - midnight) // step * step
    return first.replace(minute=0, second=0, microsecond=0)


def nearest_rows(rows: Rows, times, step) -> list[Wave | None]:
    best: list[tuple[datetime.timedelta, Wave] | None] = [None] * len(times)
    for time, wave in rows.waves.items():
        if wave is None:
            continue
        place = (time - times[0] + step / 2) // step
        if not 0 <= place < len(times):
            continue
        distance = abs(time - times[place])
        if best[place] is None or distance < best[place][0]:
            best[place] = (distance, wave)
    return [found and found[1] for found in best]


def mean_rows(rows: Rows, times, step) -> tuple[list[Wave | None], int]:
    groups: list[list[Wave]] = [[] for _ in times]
    for time, wave in rows.waves.items():
        place = (time - times[0]) // step
        if wave is not None and 0 <= place < len(times):
            groups[place].append(wave)
    usual = Counter(len(group) for group in groups if group).most_common(1)
    usual_rows = usual[0][0] if usual else 0
    thin = sum(0 < 2 * len(group) < usual_rows for group in groups)
    return [mean_wave(group) if group else None for group in groups], thin


def mean_wave(group: list[Wave]) -> Wave:
    """The height of the mean energy; the period weighted with the energy; the direction with its flux."""
    if len(group) == 1:
        return group[0]
    energy = sum(height**2 for height, _, _ in group)
    if energy == 0.0:
        group, energy = [(1.0, period, direction) for _, period, direction in group], float(len(group))
        height = 0.0
    else:
        height = math.sqrt(energy / len(group))
    period = sum(h**2 * t for h, t, _ in group) / energy
    east = sum(h**2 * t * math.sin(math.radians(d)) for h, t, d in group)
    north = sum(h**2 * t * math.cos(math.radians(d)) for h, t, d in group)
    return height, period, math.degrees(math.atan2(east, north)) % 360.0


def write_series(series: Series, args):
    source, target = series.rows.source, args.output
    if os.path.exists(target) and os.path.samefile(source, target):
        raise KelpError(f"{target}: the wave file must not be the input itself")
    with open(target, "w", encoding="ascii", newline="\n") as file:
        for time, wave in zip(series.times, series.waves):
            height, period, angle = (wave[0], wave[1], series.angle(wave)) if wave else (0.0, 0.0, 0.0)
            file.write(f"{time:%Y%m%d %H%M} {height:6.2f} {period:6.2f} {angle:8.2f}\n")


def summary(series: Series, args) -> str:
    times = series.times
    known = [wave for wave in series.waves if wave]
    moving = [wave for wave in known if not calm(wave)]
    angles = [series.angle(wave) for wave in moving]
    behind = sum(abs(angle) > 90.0 for angle in angles)
    missing = len(times) - len(known)
    lines = [
        f"{args.output}: {len(times)} records, {show_time(times[0])} to {show_time(times[-1])}, one every "
        f"{series.hours:g} hours"
    ]
    if series.rows.place:
        lines.append(f"  point: {series.rows.place}")
    lines += gap_lines(series, missing)
    if series.thin:
        lines.append(f"  means of fewer than half of the usual number of rows: {series.thin}")
    lines.append(f"  waves from behind the shore (more than 90 degrees off the normal), calm in the model: {behind}")
    lines.append(f"  height or period below {CALM_BELOW}, calm in the model: {len(known) - len(moving)}")
    if known:
        heights = [height for height, _, _ in known]
        lines.append(
            f"  height of the {len(known)} records with data: mean {sum(heights) / len(heights):.2f}, greatest "
            f"{max(heights):.2f}"
        )
    if moving:
        right = sum(0.0 < angle <= 90.0 for angle in angles)
        left = sum(-90.0 <= angle < 0.0 for angle in angles)
        lines.append(f"  records that drive sand to the right (looking out to sea): {right}, to the left: {left}")
    return "\n".join(lines)


def gap_lines(series: Series, missing: int) -> list[str]:
    gaps = series.gaps
    if not gaps:
        return ["  made calm for want of data: 0"]
    longest = max(gaps, key=lambda gap: gap[1])
    lines = [
        f"  made calm for want of data: {missing}; longest gap {longest[1]} records from "
        f"{show_time(series.times[longest[0]])}"
    ]
    shown = sorted(sorted(gaps, key=lambda gap: -gap[1])[:GAPS_SHOWN])
    for first, length in shown:
        begin, end = show_time(series.times[first]), show_time(series.times[first + length - 1])
        lines.append(f"    {begin}" + (f" to {end}: {length} records" if length > 1 else ": 1 record"))
    if len(gaps) > len(shown):
        lines.append(f"    and {len(gaps) - len(shown)} gaps that are not longer")
    return lines


def waveid_line(series: Series, args) -> str:
    cell = "CELL" if args.cell is None else args.cell
    depth = "DEPTH" if args.depth is None else f"{args.depth:g}"
    name = os.path.basename(args.output)
    if re.search(r"[\s,;/]", name):
        name = f'"{name}"'
    return f"WAVEID: {cell} {depth} {len(series.times)} {name}"
