"""`kelp export`: a run for other programs."""

from __future__ import annotations

from pathlib import Path

from .cli import add_command, add_configuration
from .errors import KelpError

TABLES = ("cells", "walls", "years", "inlets")

DESCRIPTION = """\
Writes a run in a form that other programs read; the end of the name tells which:

  OUT.nc        NetCDF by the CF conventions: every table, times, coordinates, units
  OUT.csv       one row a date and cell (or wall, see --table); units in the head of the columns
  OUT.geojson   the shoreline of each saved record and the structures as lines, for a GIS"""

EPILOG = """\
Lines of a GeoJSON file are in baseline coordinates, alongshore and seaward in the run's unit, unless --origin
gives the map coordinates of the baseline's zero; then they are turned by the AZIMUTH of the configuration, the
direction of the baseline clockwise from north with the sea on its left. Say --map-unit where the map's unit is
not that of the run, and --crs so that a GIS knows the map.

examples:
  kelp export run.prt run.nc
  kelp export run.prt run.csv
  kelp export run.prt transport.csv --table years
  kelp export run.prt run.geojson --origin 432100 4005800 --crs 32618"""


def register(commands):
    parser = add_command(commands, "export", export, "NetCDF, CSV or GeoJSON of a run", DESCRIPTION, EPILOG)
    parser.add_argument("run", metavar="RUN", help="report or configuration of the run")
    parser.add_argument("output", metavar="OUT", help="the file to write: .nc, .csv or .geojson")
    parser.add_argument("--table", choices=TABLES, default="cells",
        help="CSV: cells (shoreline, contour, volumes, transport at both walls), walls (transport), years (mean and "
        "yearly transport), inlets (shoals)")  # fmt: skip
    parser.add_argument("--records", choices=("all", "ends"), default="all",
        help="GeoJSON: all saved shorelines, or the initial and the final one only (all)")  # fmt: skip
    parser.add_argument("--origin", nargs=2, type=float, metavar=("E", "N"),
        help="GeoJSON: map coordinates of the point of the baseline where the alongshore position is 0")  # fmt: skip
    parser.add_argument("--map-unit", choices=("m", "ft"), help="GeoJSON: unit of the map; else the run's unit")
    parser.add_argument("--crs", type=int, metavar="EPSG", help="GeoJSON: number of the map's coordinate system")
    add_configuration(parser)


def export(args) -> int:
    from . import exporting
    from .run import find_run

    path = Path(args.output)
    kind = path.suffix.lower()
    if kind not in (".nc", ".csv", ".geojson"):
        raise KelpError(f"{path}: the name must end in .nc, .csv or .geojson")
    if (args.map_unit or args.crs) and not args.origin:
        raise KelpError("--map-unit and --crs need --origin")
    if args.origin and kind != ".geojson":
        raise KelpError("--origin is for .geojson")
    if not path.parent.is_dir():
        raise KelpError(f"{path.parent}: there is no such folder")
    run = find_run(args.run, args.configuration)
    if kind == ".nc":
        exporting.write_netcdf(run.dataset, path)
    elif kind == ".csv":
        exporting.write_csv(run.dataset, path, args.table)
    else:
        frame = exporting.Frame(run.dataset, args.origin, args.map_unit)
        exporting.write_geojson(run, path, frame, args.records, args.crs)
    print(path)
    return 0
