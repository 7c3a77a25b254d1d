"""`kelp new`: a case that runs as it is."""

from __future__ import annotations

import re
from pathlib import Path

from .cli import add_command
from .errors import KelpError

DESCRIPTION = """\
Makes a case that runs as it is, to be changed step by step into your own. Three files come into DIR, which is
made if need be; a file that is there already is never overwritten:

  NAME.cfg     the configuration, each line explained
  NAME.shore   the initial shoreline: 8 km of straight beach with a bulge of 50 m, 80 cells of 100 m
  NAME.waves   made-up waves, a record every 6 hours, 2020 to 2022: seasons, storms, waves from both sides"""

EPILOG = """\
example:
  kelp new mybeach
  cd mybeach
  kelprun mybeach.cfg
  kelp plot mybeach.prt"""


def register(commands):
    parser = add_command(commands, "new", new, "start a case that runs as it is", DESCRIPTION, EPILOG)
    parser.add_argument("folder", metavar="DIR", help="folder of the case")
    parser.add_argument("--name", help="what the names of the files begin with (else the folder's name)")


def new(args) -> int:
    from .starter import starter_files

    folder = Path(args.folder)
    name = args.name or re.sub(r"[^A-Za-z0-9_-]+", "_", folder.resolve().name).strip("_") or "beach"
    if not re.fullmatch(r"[A-Za-z0-9_-]+", name):
        raise KelpError(f"'{name}' is no name for the files of a case; letters, digits, _ and - are")
    files = starter_files(name)
    for file in files:
        if (folder / file).exists():
            raise KelpError(f"{folder / file} is there already; choose another folder or --name")
    folder.mkdir(parents=True, exist_ok=True)
    for file, content in files.items():
        with open(folder / file, "x", encoding="ascii", newline="\n") as target:
            target.write(content)
        print(folder / file)
    print(f"Run it in {folder}:  kelprun {name}.cfg && kelp plot {name}.prt")
    print("From the source tree these are build/program/kelprun and scripts/kelp.")
    return 0
