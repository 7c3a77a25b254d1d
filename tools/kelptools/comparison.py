"""Two runs of one coast, brought to the same unit and the same dates, and their differences by reaches."""

from __future__ import annotations

import warnings

import numpy as np
import pandas as pd
import xarray as xr

from .errors import KelpError, KelpWarning
from .run import FEET_TO_METRES, Run

CUBIC_YARD = 0.9144**3


def in_unit(data: xr.Dataset, unit: str) -> xr.Dataset:
    """The dataset with its lengths in m or ft, and its volumes in m3 or cubic yards."""
    if data.attrs["length_unit"] == unit:
        return data
    length = FEET_TO_METRES if unit == "m" else 1 / FEET_TO_METRES
    volume = CUBIC_YARD if unit == "m" else 1 / CUBIC_YARD
    volume_unit = "m3" if unit == "m" else "yd3"
    old_volume = data.attrs["volume_unit"]
    data = data.copy()
    for name in list(data.variables):
        units = data[name].attrs.get("units")
        factors = {
            data.attrs["length_unit"]: (length, unit),
            old_volume: (volume, volume_unit),
            f"{old_volume} year-1": (volume, f"{volume_unit} year-1"),
            f"{old_volume} {data.attrs['length_unit']}-1": (volume / length, f"{volume_unit} {unit}-1"),
        }
        if units in factors:
            factor, new = factors[units]
            data[name] = (data[name].dims, data[name].values * factor, {**data[name].attrs, "units": new})
    data.attrs.update(length_unit=unit, volume_unit=volume_unit)
    return data


def record_keys(data: xr.Dataset) -> list[tuple[int, int]]:
    """Date of each record, and which of its date it is."""
    counts: dict[int, int] = {}
    keys = []
    for date in data["date"].values.tolist():
        counts[date] = counts.get(date, 0) + 1
        keys.append((date, counts[date]))
    return keys


class Pair:
    """Runs A and B. `a` and `b` are their datasets with the records that both have, in the unit of A."""

    def __init__(self, run_a: Run, run_b: Run):
        self.run_a, self.run_b = run_a, run_b
        a, b = run_a.dataset, in_unit(run_b.dataset, run_a.dataset.attrs["length_unit"])
        for data in (a, b):
            if "slo" not in data or data["slo"].shape[0] == 0:
                raise KelpError(f"{data.attrs['report']}: nothing to compare: the table slo is not there or empty")
        walls = a["x_wall"].values, b["x_wall"].values
        tolerance = 1e-3 * a["dx"].values.min()
        if walls[0].size != walls[1].size or not np.allclose(*walls, rtol=0, atol=tolerance):
            raise KelpError(
                f"the grids differ: {walls[0].size - 1} cells from {walls[0][0]:g} to {walls[0][-1]:g} and "
                f"{walls[1].size - 1} cells from {walls[1][0]:g} to {walls[1][-1]:g} {a.attrs['length_unit']}"
            )
        keys_a, keys_b = record_keys(a), {key: place for place, key in enumerate(record_keys(b))}
        both = [(place, keys_b[key]) for place, key in enumerate(keys_a) if key in keys_b]
        if not both:
            raise KelpError("the runs have no date in common")
        places = np.array(both).T
        last = a["date"].values[-1], b["date"].values[-1]
        self.a, self.b = a.isel(record=places[0]), b.isel(record=places[1])
        self.date = int(self.a["date"].values[-1])
        if last != (self.date, self.date):
            warnings.warn(f"the runs end on {last[0]} and {last[1]}; they are compared on {self.date}", KelpWarning, 2)
        if not np.allclose(self.a["slo"].values[0], self.b["slo"].values[0], atol=0.011, equal_nan=True):
            warnings.warn("the initial shorelines differ", KelpWarning, 2)
        self.name_a, self.name_b = self._names()

    def _names(self):
        for names in (
            (self.run_a.label, self.run_b.label),
            (self.run_a.report.resolve().parent.name, self.run_b.report.resolve().parent.name),
        ):
            if names[0] != names[1]:
                return names
        return "A", "B"

    @property
    def cells(self) -> int:
        return self.a.sizes["cell"]

    @property
    def structures_a(self):
        return self.run_a.structures

    @property
    def structures_b(self):
        """The structures of B in the unit of A."""
        from dataclasses import replace

        own, unit = self.run_b.dataset.attrs["length_unit"], self.a.attrs["length_unit"]
        factor = 1.0 if own == unit else FEET_TO_METRES if unit == "m" else 1 / FEET_TO_METRES
        return [replace(one, x=one.x * factor, y=one.y * factor) for one in self.run_b.structures]

    def difference(self, table: str) -> np.ndarray:
        return self.b[table].values - self.a[table].values

    def has(self, *tables: str) -> bool:
        return all(table in data and data[table].shape[0] for table in tables for data in (self.a, self.b))


def reach_ends(cells: int, count: int, ends: list[int] | None) -> list[int]:
    """The last cell of each reach."""
    if ends:
        if sorted(set(ends)) != ends or ends[0] < 1 or ends[-1] > cells:
            raise KelpError(f"--ends must be ascending cells from 1 to {cells}")
        return ends if ends[-1] == cells else [*ends, cells]
    if count < 1:
        raise KelpError("--reaches must be 1 or more")
    count = min(count, cells)
    return [int(end) for end in np.linspace(0, cells, count + 1).round()[1:]]


def reach_table(pair: Pair, ends: list[int]) -> pd.DataFrame:
    """A row for each reach and one for the whole coast; the names of the columns bear the units."""
    unit, volume = pair.a.attrs["length_unit"], pair.a.attrs["volume_unit"]
    walls, width = pair.a["x_wall"].values, pair.a["dx"].values
    change_a = pair.a["slo"].values[-1] - pair.a["slo"].values[0]
    change_b = pair.b["slo"].values[-1] - pair.b["slo"].values[0]
    difference = pair.difference("slo")[-1]
    volumes = [data["vcc"].values[-1] for data in (pair.a, pair.b)] if pair.has("vcc") else None

    def mean(values, span):
        there = np.isfinite(values[span])
        return np.average(values[span][there], weights=width[span][there]) if there.any() else np.nan

    def row(name, first, last):
        span = slice(first - 1, last)
        here = difference[span]
        here = here[np.isfinite(here)]
        sums = [np.nansum(values[span]) for values in volumes] if volumes else [np.nan, np.nan]
        return {
            "reach": name,
            "first cell": first,
            "last cell": last,
            f"from ({unit})": walls[first - 1],
            f"to ({unit})": walls[last],
            f"mean change A ({unit})": mean(change_a, span),
            f"mean change B ({unit})": mean(change_b, span),
            f"mean difference ({unit})": mean(difference, span),
            f"largest advance ({unit})": max(here.max(), 0.0) if here.size else np.nan,
            f"largest retreat ({unit})": min(here.min(), 0.0) if here.size else np.nan,
            f"volume change A ({volume})": sums[0],
            f"volume change B ({volume})": sums[1],
            f"volume difference ({volume})": sums[1] - sums[0],
        }

    rows, first = [], 1
    for number, last in enumerate(ends, 1):
        rows.append(row(str(number), first, last))
        first = last + 1
    rows.append(row("all", 1, pair.cells))
    return pd.DataFrame(rows)


def reach_text(pair: Pair, table: pd.DataFrame) -> str:
    unit, volume = pair.a.attrs["length_unit"], pair.a.attrs["volume_unit"]
    date = f"{pair.date:08d}"
    heads = ("reach", "cells", f"from ({unit})", f"to ({unit})", "change A", "change B", "B - A", "advance", "retreat",
             "volume A", "volume B", "B - A")  # fmt: skip
    widths = (5, 11, 10, 10, 9, 9, 9, 9, 9, 12, 12, 12)
    lines = [
        f"A: {pair.name_a}: {pair.run_a.dataset.attrs['title']}",
        f"B: {pair.name_b}: {pair.run_b.dataset.attrs['title']}",
        f"State of {date[:4]}-{date[4:6]}-{date[6:]}. Mean shoreline changes since the start, their difference, "
        f"largest advance and retreat of B against A in {unit};",
        f"volume changes since the start in {volume}.",
        "",
        " ".join(head.rjust(width) for head, width in zip(heads, widths)),
    ]
    for row in table.itertuples(index=False):
        cells = f"{row[1]}-{row[2]}"
        numbers = [f"{value:.0f}" for value in row[3:5]]
        numbers += [f"{row[5]:+.2f}", f"{row[6]:+.2f}", f"{row[7]:+.2f}", f"{row[8]:+.2f}", f"{row[9]:+.2f}"]
        numbers += [f"{value:+.0f}" for value in row[10:]]
        lines.append(" ".join(text.rjust(width) for text, width in zip([row[0], cells, *numbers], widths)))
    return "\n".join(lines)
