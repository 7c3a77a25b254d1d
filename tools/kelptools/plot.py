"""`kelp plot`: pictures of a run."""

from __future__ import annotations

from pathlib import Path

from .cli import add_command, add_configuration

NAMES = ("shoreline", "change", "transport", "volume")

DESCRIPTION = """\
Draws four pictures of a run:

  RUN_shoreline   initial and final shoreline, extremes, structures and inlets where they stand; the change
  RUN_change      change of the shoreline, along the coast and through time
  RUN_transport   mean annual longshore transport: net, to the left, to the right
  RUN_volume      volume change along the coast, and of the whole coast through time"""

EPILOG = """\
examples:
  kelp plot run.prt                     pictures beside the report
  kelp plot run.prt -o pictures         pictures in the folder pictures, which is made if need be
  kelp plot run.prt --format svg --only shoreline change"""


def register(commands):
    parser = add_command(commands, "plot", plot, "pictures of a run", DESCRIPTION, EPILOG)
    parser.add_argument("run", metavar="RUN", help="report or configuration of the run, as in run.prt or run.cfg")
    parser.add_argument("-o", "--output", metavar="DIR", help="folder of the pictures; else the report's folder")
    parser.add_argument("--format", choices=("png", "svg"), default="png", help="kind of the files (png)")
    parser.add_argument("--only", nargs="+", choices=NAMES, metavar="PICTURE", help=f"some of: {' '.join(NAMES)}")
    add_configuration(parser)


def plot(args) -> int:
    from .drawing import save
    from .pictures import PICTURES
    from .run import find_run

    run = find_run(args.run, args.configuration)
    data, structures = run.dataset, run.structures
    folder = Path(args.output) if args.output else run.report.parent
    folder.mkdir(parents=True, exist_ok=True)
    for name in args.only or NAMES:
        path = folder / f"{run.label}_{name}.{args.format}"
        save(PICTURES[name](data, structures), path)
        print(path)
    return 0
