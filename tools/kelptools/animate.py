"""`kelp animate`: the shoreline in motion."""

from __future__ import annotations

from pathlib import Path

from .cli import add_command, add_configuration
from .errors import KelpError

DESCRIPTION = """\
Writes an animated GIF of the shoreline, a frame for each saved record: land and sea, the initial
shoreline, structures and inlets, the date."""

EPILOG = """\
examples:
  kelp animate run.prt run.gif
  kelp animate run.prt run.gif --frames 60 --fps 8"""


def register(commands):
    parser = add_command(commands, "animate", animate, "an animated GIF of the shoreline", DESCRIPTION, EPILOG)
    parser.add_argument("run", metavar="RUN", help="report or configuration of the run")
    parser.add_argument("output", metavar="OUT.gif", help="the file to write")
    parser.add_argument("--fps", type=float, default=8.0, help="frames a second (8)")
    parser.add_argument("--frames", type=int, default=150, help="at most so many frames, spread over the run (150)")
    add_configuration(parser)


def animate(args) -> int:
    from .animation import write_animation
    from .run import find_run

    path = Path(args.output)
    if path.suffix.lower() != ".gif":
        raise KelpError(f"{path}: the name must end in .gif")
    if args.fps <= 0 or args.frames < 1:
        raise KelpError("--fps must be above 0 and --frames 1 or more")
    run = find_run(args.run, args.configuration)
    write_animation(run.dataset, run.structures, path, args.fps, args.frames)
    print(path)
    return 0
