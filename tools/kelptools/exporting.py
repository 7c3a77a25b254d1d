"""NetCDF, CSV and GeoJSON of a run."""

from __future__ import annotations

import json
from pathlib import Path

import numpy as np
import pandas as pd

from .errors import KelpError
from .run import FEET_TO_METRES, Run

RECORDS_AT_A_TIME = 200


def write_netcdf(data, path: Path):
    encoding = {}
    for name, variable in data.variables.items():
        if variable.dtype.kind == "M":
            encoding[name] = {
                "units": "seconds since 1970-01-01",
                "calendar": "proleptic_gregorian",
                "dtype": "float64",
            }
        elif name in data.data_vars:
            encoding[name] = {"zlib": True, "complevel": 4, "_FillValue": np.nan}
        elif variable.dtype.kind == "f":
            encoding[name] = {"_FillValue": None}
        elif variable.dtype == np.int64:
            encoding[name] = {"dtype": "int32"}  # the conventions know no larger ones
    data.to_netcdf(path, engine="netcdf4", format="NETCDF4", encoding=encoding)


# CSV.


def heading(data, name: str) -> str:
    units = data[name].attrs["units"].replace(" year-1", "/year")
    length = data.attrs["length_unit"]
    return f"{name} ({units.replace(f' {length}-1', f'/{length}')})"


def write_csv(data, path: Path, table: str):
    writers = {"cells": cell_rows, "walls": wall_rows, "years": year_rows, "inlets": inlet_rows}
    head = True
    with open(path, "w", encoding="utf-8", newline="") as file:
        for block in writers[table](data):
            block.to_csv(file, index=False, header=head, date_format="%Y-%m-%dT%H:%M:%S", lineterminator="\n")
            head = False
    if head:
        path.unlink()
        raise KelpError(f"{data.attrs['report']}: nothing to export: no table of the kind '{table}'")


def _blocks(data, dimension, prefix, along):
    """Slices of the records, and the columns that tell record and place."""
    records, places = data.sizes.get(dimension, 0), data.sizes[along]
    for start in range(0, records, RECORDS_AT_A_TIME):
        span = slice(start, min(start + RECORDS_AT_A_TIME, records))
        count = span.stop - span.start
        position = "x_cell" if along == "cell" else "x_wall"
        columns = {
            "record": np.repeat(data[dimension].values[span], places),
            "date": np.repeat(data[f"{prefix}date"].values[span], places),
            "time": np.repeat(data[f"{prefix}time"].values[span], places),
            along: np.tile(data[along].values, count),
            f"x ({data.attrs['length_unit']})": np.tile(data[position].values, count),
        }
        yield span, columns


def cell_rows(data):
    names = [name for name in ("slo", "off", "vcc", "vcx") if name in data]
    for span, columns in _blocks(data, "record", "", "cell"):
        for name in names:
            columns[heading(data, name)] = data[name].values[span].ravel()
        if "qtr" in data:
            rates = data["qtr"].values[span]
            unit = heading(data, "qtr").removeprefix("qtr ")
            columns[f"qtr left wall {unit}"] = rates[:, :-1].ravel()
            columns[f"qtr right wall {unit}"] = rates[:, 1:].ravel()
        yield pd.DataFrame(columns)


def wall_rows(data):
    if "qtr" not in data:
        return
    for span, columns in _blocks(data, "record", "", "wall"):
        columns[heading(data, "qtr")] = data["qtr"].values[span].ravel()
        yield pd.DataFrame(columns)


def year_rows(data):
    names = [name for name in ("mqn", "mqr", "mql") if name in data]
    for span, columns in _blocks(data, "year_record", "year_", "wall"):
        kinds = np.where(data["kind"].values[span] == 1, "mean annual rate", "sum")
        columns["kind"] = np.repeat(kinds, data.sizes["wall"])
        for name in names:
            columns[heading(data, name)] = data[name].values[span].ravel()
        yield pd.DataFrame(columns)


def inlet_rows(data):
    if "inlet" not in data:
        return
    inlets, records = data.sizes["inlet"], data.sizes["inlet_record"]
    columns = {
        "inlet": np.repeat(data["inlet"].values, records),
        "record": np.tile(data["inlet_record"].values, inlets),
        "step": np.tile(data["inlet_step"].values, inlets),
        "date": np.tile(data["inlet_date"].values, inlets),
        "time": np.tile(data["inlet_time"].values, inlets),
    }
    for name in data.data_vars:
        if data[name].dims == ("inlet", "inlet_record"):
            columns[heading(data, name)] = data[name].values.ravel()
    yield pd.DataFrame(columns)


# GeoJSON.


class Frame:
    """Turns baseline coordinates into those of the file."""

    def __init__(self, data, origin=None, map_unit=None):
        unit = data.attrs["length_unit"]
        self.origin = origin
        self.unit = map_unit or unit
        self.factor = 1.0 if self.unit == unit else FEET_TO_METRES if self.unit == "m" else 1 / FEET_TO_METRES
        azimuth = np.radians(data.attrs["azimuth"])
        self.along = np.array([np.sin(azimuth), np.cos(azimuth)])
        self.seaward = np.array([-np.cos(azimuth), np.sin(azimuth)])  # 90 degrees to the left of it

    def points(self, x, y) -> np.ndarray:
        x, y = np.asarray(x, dtype=float), np.asarray(y, dtype=float)
        if self.origin is None:
            return np.column_stack((x, y))
        turned = x[:, None] * self.along + y[:, None] * self.seaward
        return np.asarray(self.origin) + self.factor * turned


def line_geometry(points: np.ndarray):
    """A line through the points, in pieces where one is missing."""
    there = np.isfinite(points).all(axis=1)
    pieces, piece = [], []
    for point, fine in zip(points.round(3).tolist(), there):
        if fine:
            piece.append(point)
        else:
            pieces.append(piece)
            piece = []
    pieces = [one for one in [*pieces, piece] if len(one) > 1]
    if not pieces:
        return None
    if len(pieces) == 1:
        return {"type": "LineString", "coordinates": pieces[0]}
    return {"type": "MultiLineString", "coordinates": pieces}


def feature(geometry, **properties):
    return {"type": "Feature", "properties": properties, "geometry": geometry}


def shoreline_features(data, frame: Frame, records: str):
    if "slo" not in data or data.sizes["record"] == 0:
        raise KelpError(f"{data.attrs['report']}: nothing to export: the table slo is not there or empty")
    last = data.sizes["record"] - 1
    chosen = range(last + 1) if records == "all" else sorted({0, last})
    x = data["x_cell"].values
    times = np.datetime_as_string(data["time"].values, unit="s")
    for record in chosen:
        y = data["slo"].values[record]
        if x.size == 1:  # a line needs two points: the ends of the only cell
            points = frame.points(data["x_wall"].values, np.repeat(y, 2))
        else:
            points = frame.points(x, y)
        name = "initial" if record == 0 else "final" if record == last else "saved"
        time = None if times[record] == "NaT" else str(times[record])
        yield feature(
            line_geometry(points), kind="shoreline", name=name, record=record + 1,
            date=int(data["date"].values[record]), time=time,
        )  # fmt: skip


def structure_features(run: Run, frame: Frame):
    shore = run.dataset["slo"].values
    for one in run.structures:
        if one.kind == "groin":
            # From the shoreline at the start to the tip.
            beside = shore[0, max(0, one.first_wall - 2) : one.first_wall]
            base = np.nanmin(beside) if np.isfinite(beside).any() else 0.0
            points = frame.points(np.repeat(one.x, 2), [min(base, one.y[0]), one.y[0]])
        elif one.kind == "inlet":
            # Across the mouth, at the height of the beach on both sides.
            cells = shore.shape[1]
            y = [shore[0, max(one.first_wall - 2, 0)], shore[0, min(one.last_wall - 1, cells - 1)]]
            points = frame.points(one.x, y)
        else:
            points = frame.points(one.x, one.y)
        yield feature(line_geometry(points), kind=one.kind, name=one.name, record=None, date=None, time=None)


def write_geojson(run: Run, path: Path, frame: Frame, records: str, crs: int | None):
    data = run.dataset
    collection = {
        "type": "FeatureCollection",
        "name": run.label,
        "title": data.attrs["title"],
        "coordinates": f"{'baseline: alongshore, seaward' if frame.origin is None else 'map: east, north'} "
        f"({data.attrs['length_unit'] if frame.origin is None else frame.unit})",
    }
    if crs:
        collection["crs"] = {"type": "name", "properties": {"name": f"urn:ogc:def:crs:EPSG::{crs}"}}
    collection["features"] = [*shoreline_features(data, frame, records), *structure_features(run, frame)]
    path.write_text(json.dumps(collection, allow_nan=False, ensure_ascii=False) + "\n", encoding="utf-8")
