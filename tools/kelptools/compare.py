"""`kelp compare`: two runs of one coast against each other."""

from __future__ import annotations

from pathlib import Path

from .cli import add_command, add_configuration

NAMES = ("shoreline", "change", "transport", "volume")

DESCRIPTION = """\
Compares run B with run A (a plan with the present state, say): every difference is B less A, so that
advance means that the shoreline of B lies seaward of that of A. Both runs need the same grid. Their states
are compared at the last date that both have saved.

A table by reaches is printed and written to A_B_reaches.txt and A_B_reaches.csv. The pictures:

  A_B_shoreline   both shorelines at the end; their difference
  A_B_change      difference of the shorelines, along the coast and through time
  A_B_transport   mean annual transport of both; its differences
  A_B_volume      difference of the volume change along the coast, and through time"""

EPILOG = """\
examples:
  kelp compare now/run.prt plan/run.prt -o pictures
  kelp compare now/run.prt plan/run.prt --ends 40 50 120    three reaches, the last cells of each"""


def register(commands):
    parser = add_command(commands, "compare", compare, "differences of two runs", DESCRIPTION, EPILOG)
    parser.add_argument("run_a", metavar="RUN_A", help="report or configuration of the run to compare with")
    parser.add_argument("run_b", metavar="RUN_B", help="report or configuration of the run that is compared")
    parser.add_argument("-o", "--output", metavar="DIR", default=".", help="folder of the files; else the current one")
    reaches = parser.add_mutually_exclusive_group()
    reaches.add_argument("--reaches", type=int, metavar="N", default=10, help="number of equal reaches (10)")
    reaches.add_argument("--ends", type=int, nargs="+", metavar="CELL", help="last cell of each reach")
    parser.add_argument("--format", choices=("png", "svg"), default="png", help="kind of the pictures (png)")
    parser.add_argument("--no-pictures", action="store_true", help="the table only")
    add_configuration(parser, "--configuration-a")
    add_configuration(parser, "--configuration-b")


def compare(args) -> int:
    from .comparison import Pair, reach_ends, reach_table, reach_text
    from .run import find_run

    run_a = find_run(args.run_a, args.configuration_a)
    run_b = find_run(args.run_b, args.configuration_b)
    pair = Pair(run_a, run_b)
    ends = reach_ends(pair.cells, args.reaches, args.ends)
    table = reach_table(pair, ends)
    text = reach_text(pair, table)

    folder = Path(args.output)
    folder.mkdir(parents=True, exist_ok=True)
    stem = f"{pair.name_a}_{pair.name_b}"
    print(text)
    (folder / f"{stem}_reaches.txt").write_text(text + "\n", encoding="utf-8")
    table.to_csv(folder / f"{stem}_reaches.csv", index=False, float_format="%.4f")
    print(folder / f"{stem}_reaches.txt")
    print(folder / f"{stem}_reaches.csv")
    if not args.no_pictures:
        from .comparison_pictures import PICTURES
        from .drawing import save

        for name in NAMES:
            path = folder / f"{stem}_{name}.{args.format}"
            save(PICTURES[name](pair), path)
            print(path)
    return 0
