"""`kelp check`: what the model would silently ignore."""

from __future__ import annotations

from .cli import add_command

DESCRIPTION = """\
Reads a configuration as the model does, and tells what the model would not: unknown keywords, which count as
comments, with the nearest known one; keywords hidden by a leading blank; values that are cut or overwritten;
lists whose counts do not match, or that are left out; keywords that have no effect; fills, bypassing and dredging
that do not act; inlets that lose sand; files that do not exist or are too short; a wave file that ends before the
run does. The program itself is not started.

Each line of the output begins with the file, the line and one of

  error     the program refuses this, or stops because of it
  warning   something is ignored, or means something else than it seems to
  note      a default that you should know of"""

EPILOG = """\
Exit status: 0 no errors and no warnings, 1 some, 2 wrong usage.

examples:
  kelp check beach.cfg
  kelp check cases/beach.cfg --folder .      the program is started here, not in the folder cases"""


def register(commands):
    parser = add_command(commands, "check", check, "what a run would silently ignore", DESCRIPTION, EPILOG)
    parser.add_argument("configuration", metavar="CONFIG", help="configuration of a run, as in beach.cfg")
    parser.add_argument("--folder", metavar="DIR",
                        help="folder in which the program will be started, from which the names of files count "
                        "(else the configuration's folder)")  # fmt: skip
    parser.add_argument("--no-notes", action="store_true", help="errors and warnings only")


def check(args) -> int:
    from .check_context import counted
    from .checking import findings

    found = findings(args.configuration, args.folder)
    for one in found:
        if not (args.no_notes and one.level == "note"):
            place = f"{args.configuration}:{one.line}" if one.line else args.configuration
            print(f"{place}: {one.level}: {one.text}")
    counts = {level: sum(one.level == level for one in found) for level in ("error", "warning", "note")}
    told = [counted(count, level) for level, count in counts.items() if count]
    print(f"{args.configuration}: {', '.join(told) if told else 'nothing to tell'}")
    return 1 if counts["error"] or counts["warning"] else 0
