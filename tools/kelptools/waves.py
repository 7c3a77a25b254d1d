"""`kelp waves`: measured or hindcast waves as a wave file of the model."""

from __future__ import annotations

import argparse
import datetime
import math
import sys

from .cli import add_command
from .errors import KelpError

FORMATS = ("csv", "ndbc", "netcdf")

DESCRIPTION = """\
Makes a KelpRun wave file from measured or hindcast waves. INPUT is one of

  csv      a table whose first line names the columns; the options at the end of this help give the names
  ndbc     standard meteorological data of the US National Data Buoy Center: a first line #YY MM DD hh mm WDIR
           ... WVHT DPD APD MWD ...; several years may stand in one file; a name in .gz is unpacked
  netcdf   a reanalysis such as ERA5: swh, pp1d (or mwp) and mwd through time, at one point or on a grid

Which one it is, is told from its first bytes, or by --format."""

EPILOG = """\
Every line of the wave file is one record:

    YYYYMMDD HHMM  height  period  angle

height in the unit of the input (metres in NDBC and ERA5; feet need WAVUNITS: (ft) in the configuration),
period in seconds, angle in degrees from the shore normal. Looking out to sea, a wave from straight ahead
has angle 0; a wave from the left has a positive angle and drives sand to the right, to higher cell numbers.

    angle = normal - direction,  brought into -180 to 180

"direction" is where the waves come from (degrees clockwise from north), "normal" the direction in which the
shore normal points out to sea. Example: a coast that looks to 72 degrees, waves from 45: 72 - 45 = +27.

Steps. The model takes one record each wave step and does not look for its date, so the step is constant
here. --resample tells what becomes of the rows of the input:

  exact    every row must lie on the time of a record; for data that have a constant step (csv unless told)
  mean     a record is the mean of the rows from its time up to the next record's: the height of the mean
           energy, period and direction weighted with the energy (ndbc and netcdf unless told)
  nearest  a record is the row nearest to its time, at most half a step away

Gaps. A record without a row that has height, period and direction becomes calm (height, period and angle 0),
or stops the conversion with --gaps stop. 99 and 999 and MM are marks of missing values.

Give the first and the last day of the run (SIMDATS and SIMDATE) as --start and --end. The record at the
last day itself is one more than the run needs; with it the run does not come to the end of the file.

The WAVEID line for the configuration goes to standard output, a summary to standard error.

examples:
  kelp waves buoy.csv beach.waves --normal 72 --start 1996-01-01 --end 2006-01-01 --cell 120 --depth 8
  kelp waves 44014h2015.txt.gz beach.waves --normal 72 --step-hours 3 --rose rose.png
  kelp waves era5.nc beach.waves --normal 110 --lat 36.2 --lon -75.5 --step-hours 6 --gaps stop"""


def time_option(text):
    from .wave_input import parse_time

    time = parse_time(text)
    if time is None:
        raise argparse.ArgumentTypeError(f"'{text}' is not a date such as 1996-01-01 or 1996-01-01T06:00")
    return time


def number_option(text):
    try:
        value = float(text)
    except ValueError:
        value = math.nan
    if not math.isfinite(value):
        raise argparse.ArgumentTypeError(f"'{text}' is not a number")
    return value


def bearing_option(text):
    value = number_option(text)
    if not 0.0 <= value <= 360.0:
        raise argparse.ArgumentTypeError(f"'{text}' is not a direction from 0 to 360 degrees")
    return value


def step_option(text):
    minutes = number_option(text) * 60.0
    if minutes < 1.0 or abs(minutes - round(minutes)) > 1e-6:
        raise argparse.ArgumentTypeError(f"'{text}' hours is not a whole number of minutes, one or more")
    return datetime.timedelta(minutes=round(minutes))


def cell_option(text):
    if not text.isdigit() or int(text) < 1:
        raise argparse.ArgumentTypeError(f"'{text}' is not a cell number")
    return int(text)


def delimiter_option(text):
    if len(text) != 1:
        raise argparse.ArgumentTypeError(f"'{text}' is not one character")
    return text


def picture_option(text):
    if not text.lower().endswith((".png", ".svg")):
        raise argparse.ArgumentTypeError(f"'{text}' is neither a .png nor a .svg file")
    return text


def register(commands):
    parser = add_command(commands, "waves", waves, "make a wave file from wave data", DESCRIPTION, EPILOG)
    add = parser.add_argument
    add("input", metavar="INPUT", help="CSV, NDBC or NetCDF file")
    add("output", metavar="OUT", help="wave file to write")
    add("--normal", type=bearing_option, required=True, metavar="DEG",
        help="direction in which the shore normal points out to sea, degrees clockwise from north")  # fmt: skip
    add("--format", choices=FORMATS, help="what INPUT is, where it cannot be told from its first bytes")
    add("--start", type=time_option, metavar="TIME", help="time of the first record (else the first row's)")
    add("--end", type=time_option, metavar="TIME",
        help="time of the last record, itself included; a bare date means its midnight, 00:00 "
        "(else the last row's)")  # fmt: skip
    add("--step-hours", type=step_option, metavar="HOURS", dest="step",
        help="time from one record to the next (24 for csv, else the usual step of the data)")  # fmt: skip
    add("--resample", choices=("exact", "mean", "nearest"), help="how rows become records, see below")
    add("--gaps", choices=("calm", "stop"), default="calm",
        help="what becomes of a record without data: a calm one, or an error (calm)")  # fmt: skip
    add("--rose", type=picture_option, metavar="FILE", help="draw a wave rose of the records: .png or .svg")
    line = parser.add_argument_group("the WAVEID line")
    line.add_argument("--cell", type=cell_option, metavar="N",
                      help="last cell served by this file: NX if it is the only one")  # fmt: skip
    line.add_argument("--depth", type=number_option, metavar="D",
                      help="water depth where the waves were measured, in the unit of KELUNITS")  # fmt: skip
    point = parser.add_argument_group("point of a grid (netcdf)", "The nearest point with data is taken.")
    point.add_argument("--lat", type=number_option, metavar="DEG", help="latitude, north positive")
    point.add_argument("--lon", type=number_option, metavar="DEG", help="longitude, east positive")
    columns = parser.add_argument_group("names of the columns or variables")
    for what, names in (
        ("date", "csv: date, or date and time such as 1996-01-31T06:00, universal time (date)"),
        ("height", "significant wave height (csv Hs_m, ndbc WVHT, netcdf swh)"),
        ("period", "peak period, seconds (csv Tp_s, ndbc DPD, netcdf pp1d or mwp)"),
        ("direction", "direction from which the waves come (csv dir_degN_from, ndbc MWD, netcdf mwd)"),
    ):
        columns.add_argument(f"--{what}-column", metavar="NAME", help=names)
    columns.add_argument("--delimiter", type=delimiter_option, default=",", metavar="CHAR",
                         help="csv: what stands between two columns (a comma)")  # fmt: skip


def waves(args) -> int:
    from .wave_input import read_rows
    from .wave_series import make_series, summary, waveid_line, write_series

    if (args.lat is None) != (args.lon is None):
        raise KelpError("--lat and --lon belong together")
    rows = read_rows(args)
    series = make_series(rows, args)
    write_series(series, args)
    print(summary(series, args), file=sys.stderr)
    if args.rose:
        from .drawing import save
        from .wave_rose import wave_rose

        save(wave_rose(series), args.rose)
        print(f"Wave rose: {args.rose}", file=sys.stderr)
    known = args.cell is not None and args.depth is not None
    sys.stderr.write("For the configuration" + (":" if known else " (fill in by --cell and --depth):") + "\n")
    print(waveid_line(series, args))
    return 0
