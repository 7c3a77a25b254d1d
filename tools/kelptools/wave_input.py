"""Waves as they were measured or hindcast: CSV, NDBC text, NetCDF."""

from __future__ import annotations

import csv
import datetime
import gzip
import io
import math
import re
from dataclasses import dataclass, field
from pathlib import Path

from .errors import KelpError

MISSING_ABOVE = 98.0  # 99 and 999 are the usual marks of a missing height or period
EMPTY = {"", "-", "na", "n/a", "nan", "none", "null", "mm"}
TIME = re.compile(r"(\d{4})-?(\d\d)-?(\d\d)(?:[T ]+(\d\d):?(\d\d)(?::?(\d\d)(?:\.\d*)?)?)?\s*(?:Z|UTC|\+00:?00)?$")
CSV_NAMES = {"date": "date", "height": "Hs_m", "period": "Tp_s", "direction": "dir_degN_from"}
NDBC_NAMES = {"height": "WVHT", "period": "DPD", "direction": "MWD"}
NETCDF_NAMES = {"height": ("swh",), "period": ("pp1d", "mwp"), "direction": ("mwd",)}
TIME_NAMES = ("time", "valid_time")
LATITUDES, LONGITUDES = ("latitude", "lat"), ("longitude", "lon")
EARTH_DEGREE_KM = 111.2

Wave = tuple[float, float, float]  # height, period, direction from which it comes


@dataclass
class Rows:
    """Rows by time, None for one that lacks a value; and how many lack which."""

    source: str
    format: str
    waves: dict[datetime.datetime, Wave | None] = field(default_factory=dict)
    lacking: dict[str, int] = field(default_factory=lambda: {"height": 0, "period": 0, "direction": 0})
    place: str = ""  # of the point taken from a grid

    def add(self, time, height, period, direction, where: str):
        if time in self.waves:
            raise KelpError(f"{where}: a second row for {show_time(time)}")
        good = {
            "height": height is not None and 0.0 <= height <= MISSING_ABOVE,
            "period": period is not None and 0.0 <= period <= MISSING_ABOVE,
            "direction": direction is not None and -360.0 <= direction <= 360.0,
        }
        for name, known in good.items():
            self.lacking[name] += not known
        self.waves[time] = (height, period, direction) if all(good.values()) else None


def parse_time(text: str):
    """A date, or a date with a clock time, in universal time; None if it is neither."""
    match = TIME.match(text.strip())
    if not match:
        return None
    try:
        return datetime.datetime(*(int(part or 0) for part in match.groups()))
    except ValueError:
        return None


def show_time(time) -> str:
    return time.strftime("%Y-%m-%d" if time.time() == datetime.time() else "%Y-%m-%d %H:%M")


def read_rows(args) -> Rows:
    path = Path(args.input)
    kind = args.format or detect(path)
    named = {what: getattr(args, f"{what}_column") for what in CSV_NAMES}
    rows = Rows(str(path), kind)
    if kind == "netcdf":
        read_netcdf(path, rows, named, args.lat, args.lon)
    else:
        if args.lat is not None:
            raise KelpError(f"{path}: --lat and --lon are for NetCDF, and this is {kind}")
        with open_text(path) as file:
            try:
                if kind == "ndbc":
                    read_ndbc(file, rows, named)
                else:
                    read_csv(file, rows, named, args.delimiter)
            except (UnicodeDecodeError, EOFError, gzip.BadGzipFile):
                raise KelpError(f"{path}: not a text file in UTF-8") from None
            except csv.Error as error:
                raise KelpError(f"{path}: {error}") from None
    if not rows.waves:
        raise KelpError(f"{path}: no rows")
    if not any(rows.waves.values()):
        lacks = ", ".join(f"{name} {count}" for name, count in rows.lacking.items())
        raise KelpError(f"{path}: none of {len(rows.waves)} rows is whole; rows that lack a value: {lacks}")
    return rows


def open_text(path: Path):
    if path.suffix == ".gz":
        return io.TextIOWrapper(gzip.open(path), encoding="utf-8-sig", newline="")
    return open(path, newline="", encoding="utf-8-sig")


def detect(path: Path) -> str:
    with open(path, "rb") as file:
        start = file.read(4)
    if start.startswith((b"CDF", b"\x89HDF")):
        return "netcdf"
    with open_text(path) as file:
        try:
            first = file.readline()
        except (UnicodeDecodeError, EOFError, gzip.BadGzipFile):
            raise KelpError(f"{path}: neither a text file in UTF-8 nor NetCDF") from None
    return "ndbc" if ndbc_columns(first) else "csv"


def read_value(text: str | None, column: str, where: str):
    """The number in a column; None if the field is empty or holds a mark of missing data."""
    text = (text or "").strip()
    if text.lower() in EMPTY:
        return None
    try:
        value = float(text)
    except ValueError:
        raise KelpError(f"{where}: '{text}' in column '{column}' is not a number") from None
    return value if math.isfinite(value) else None


# CSV


def read_csv(file, rows: Rows, named: dict, delimiter: str):
    columns = {what: named[what] or name for what, name in CSV_NAMES.items()}
    reader = csv.DictReader(file, delimiter=delimiter, skipinitialspace=True)
    reader.fieldnames = [name.strip() for name in reader.fieldnames or []]
    for column in columns.values():
        if column not in reader.fieldnames:
            there = ", ".join(reader.fieldnames) or "none"
            raise KelpError(f"{rows.source}: no column '{column}'; its columns are {there}")
    for row in reader:
        if not any((row[column] or "").strip() for column in columns.values()):
            continue
        where = f"{rows.source}: line {reader.line_num}"
        date = row[columns["date"]] or ""
        time = parse_time(date)
        if time is None:
            raise KelpError(f"{where}: '{date}' is not a date such as 1996-01-31 or 1996-01-31T06:00")
        values = [read_value(row[columns[what]], columns[what], where) for what in ("height", "period", "direction")]
        rows.add(time, *values, where)


# NDBC


def ndbc_columns(line: str) -> list[str] | None:
    """The columns that a heading names; None if the line is none."""
    names = line.split()
    if not names or names[0].lstrip("#") not in ("YY", "YYYY") or names[1:4] != ["MM", "DD", "hh"]:
        return None
    names[0] = "YY"
    return names


def read_ndbc(file, rows: Rows, named: dict):
    """Each heading line holds for the rows below it: yearly files of several ages may stand in a row."""
    names = {what: named[what] or name for what, name in NDBC_NAMES.items()}
    columns = None
    for number, line in enumerate(file, 1):
        where = f"{rows.source}: line {number}"
        heading = ndbc_columns(line)
        if heading:
            for name in names.values():
                if name not in heading:
                    raise KelpError(f"{where}: no column '{name}'; its columns are {', '.join(heading)}")
            columns = heading
            continue
        items = line.split()
        if not items or items[0].startswith("#"):
            continue
        if columns is None:
            raise KelpError(f"{where}: a row ahead of the heading #YY MM DD hh mm ... WVHT DPD APD MWD")
        row = dict(zip(columns, items))
        if len(items) < len(columns) and any(name not in row for name in names.values()):
            raise KelpError(f"{where}: {len(items)} items, and the heading names {len(columns)} columns")
        time = ndbc_time(row, where)
        values = [read_value(row[names[what]], names[what], where) for what in ("height", "period", "direction")]
        rows.add(time, *values, where)


def ndbc_time(row: dict, where: str):
    try:
        parts = [int(row.get(name, "0")) for name in ("YY", "MM", "DD", "hh", "mm")]
        if len(row["YY"]) <= 2:
            parts[0] += 1900
        return datetime.datetime(*parts)
    except ValueError:
        raise KelpError(f"{where}: '{' '.join(list(row.values())[:5])}' is not a date and time") from None


# NetCDF


def read_netcdf(path: Path, rows: Rows, named: dict, lat, lon):
    import numpy as np
    import pandas as pd
    import xarray as xr

    try:
        data = xr.open_dataset(path, engine="netcdf4")
    except OSError as error:
        raise KelpError(f"{path}: {error.strerror or error}") from None
    except ValueError as error:
        raise KelpError(f"{path}: {str(error).splitlines()[0]}") from None
    with data:
        names = {
            what: variable_name(path, data, [named[what]] if named[what] else candidates)
            for what, candidates in NETCDF_NAMES.items()
        }
        time_name = variable_name(path, data, TIME_NAMES)
        if data[time_name].dtype.kind != "M":
            raise KelpError(f"{path}: '{time_name}' holds no times of the usual calendar")
        waves = data[list(names.values())]
        if time_name not in waves.dims:
            waves = waves.expand_dims(time_name) if data[time_name].ndim == 0 else waves.swap_dims(
                {data[time_name].dims[0]: time_name}
            )  # fmt: skip
        if waves.sizes.get("expver", 1) > 1:
            # Late months of ERA5 come beside the final ones, each missing where the other is.
            parts = [waves.isel(expver=i, drop=True) for i in range(waves.sizes["expver"])]
            waves = parts[0]
            for part in parts[1:]:
                waves = waves.combine_first(part)
        waves, rows.place = at_point(path, waves, names["height"], time_name, lat, lon)
        columns = [waves[names[what]].values.astype(float) for what in ("height", "period", "direction")]
        times = pd.DatetimeIndex(waves[time_name].values).round("s").to_pydatetime()
    for i in np.argsort(times, kind="stable"):
        values = [float(column[i]) if np.isfinite(column[i]) else None for column in columns]
        rows.add(times[i], *values, str(path))


def variable_name(path: Path, data, candidates) -> str:
    for name in candidates:
        if name in data.variables:
            return name
    raise KelpError(
        f"{path}: no variable '{' or '.join(candidates)}'; its variables are {', '.join(map(str, data.variables))}"
    )


def at_point(path: Path, waves, height: str, time_name: str, lat, lon):
    """The series of one point, and words that tell which; of a grid the nearest one that holds any height."""
    import numpy as np
    import xarray as xr

    lat_name = next((name for name in LATITUDES if name in waves.coords), None)
    lon_name = next((name for name in LONGITUDES if name in waves.coords), None)
    placed = lat_name is not None and lon_name is not None
    waves = waves.squeeze([dim for dim, size in waves.sizes.items() if size == 1 and dim != time_name])
    others = [dim for dim in waves.sizes if dim != time_name]
    if not placed:
        if others:
            raise KelpError(f"{path}: no latitude and longitude; one point is needed, and there is '{others[0]}'")
        if lat is not None:
            raise KelpError(f"{path}: no latitude and longitude, so that no point can be chosen")
        return waves, ""

    lats, lons = xr.broadcast(waves[lat_name], waves[lon_name])
    strange = [dim for dim in others if dim not in lats.dims]
    if strange:
        raise KelpError(f"{path}: dimension '{strange[0]}' has {waves.sizes[strange[0]]} values, one is needed")
    if others and lat is None:
        raise KelpError(
            f"{path}: {lats.size} points, latitude {float(lats.min()):g} to {float(lats.max()):g}, longitude "
            f"{float(lons.min()):g} to {float(lons.max()):g}; choose one by --lat and --lon"
        )
    if lat is None:
        return waves, point_words(float(lats), float(lons))
    north = lats - lat
    east = ((lons - lon + 180.0) % 360.0 - 180.0) * math.cos(math.radians(lat))
    distance = np.hypot(north, east) * EARTH_DEGREE_KM
    if others:
        # ERA5 has no waves on land.
        wet = waves[height].notnull().any(time_name)
        if not bool(wet.any()):
            raise KelpError(f"{path}: no point has a height")
        place = distance.where(wet).argmin(list(distance.dims))
        waves, distance = waves.isel(place), distance.isel(place)
    words = point_words(float(waves[lat_name]), float(waves[lon_name]))
    return waves, f"{words}, {float(distance):.0f} km from the place asked for"


def point_words(lat: float, lon: float) -> str:
    lon = (lon + 180.0) % 360.0 - 180.0
    return f"{abs(lat):g} {'N' if lat >= 0 else 'S'}, {abs(lon):g} {'E' if lon >= 0 else 'W'}"
