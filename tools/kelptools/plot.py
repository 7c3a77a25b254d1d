"""`kelp plot`: pictures of a run."""

from __future__ import annotations

from pathlib import Path

from .cli import add_command, add_configuration

NAMES = ("shoreline", "change", "transport", "volume", "shoals")

DESCRIPTION = """\
Draws the pictures of a run:

  RUN_shoreline   initial and final shoreline, extremes, structures and inlets where they stand; the change
  RUN_change      change of the shoreline, along the coast and through time
  RUN_transport   mean annual longshore transport: net, to the left, to the right
  RUN_volume      volume change along the coast, and of the whole coast through time
  RUN_shoals      shoals of an inlet and their equilibrium volumes; RUN_shoals1, 2 and so on where there are
                  several inlets, nothing where there is none"""

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
    for name in args.only or names_for(data):
        for end, which in parts(data, name):
            path = folder / f"{run.label}_{name}{end}.{args.format}"
            save(PICTURES[name](data, structures, *which), path)
            print(path)
    return 0


def names_for(data):
    """What can be drawn: shoals where there are any."""
    return [name for name in NAMES if name != "shoals" or "inlet" in data]


def parts(data, name):
    """A picture is one file, but for shoals: one each inlet. Ends of the names, and what tells the parts apart."""
    inlets = data.sizes.get("inlet", 0) if name == "shoals" else 0
    return [("", ())] if inlets < 2 else [(number + 1, (number,)) for number in range(inlets)]
