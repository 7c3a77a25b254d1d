"""The command `kelp`. Each command is a module with `register(commands)`; name it here."""

from __future__ import annotations

import argparse
import importlib
import sys
import warnings

from .errors import KelpError, KelpWarning

COMMANDS = ("plot", "compare", "animate", "export", "waves", "new", "check")

DESCRIPTION = """\
Tools for runs of KelpRun, the shoreline-change model.

A RUN is named by its report (the PRFILE of the configuration, as in run.prt) or by its
configuration (run.cfg); the tables beside the report are found from there."""

EPILOG = """\
`kelp COMMAND --help` tells more. Exit status: 0 done, 1 an error told in one line, 2 wrong usage."""


def build_parser() -> argparse.ArgumentParser:
    parser = argparse.ArgumentParser(
        prog="kelp",
        description=DESCRIPTION,
        epilog=EPILOG,
        formatter_class=argparse.RawDescriptionHelpFormatter,
    )
    commands = parser.add_subparsers(dest="command", metavar="COMMAND", required=True)
    for name in COMMANDS:
        importlib.import_module(f"{__package__}.{name}").register(commands)
    return parser


def add_command(commands, name, function, help, description, epilog=None):
    """Adds a command whose `function` takes the parsed arguments and returns the exit status."""
    parser = commands.add_parser(
        name,
        help=help,
        description=description,
        epilog=epilog,
        formatter_class=argparse.RawDescriptionHelpFormatter,
    )
    parser.set_defaults(function=function)
    return parser


def add_configuration(parser, name="--configuration"):
    parser.add_argument(
        name,
        metavar="CFG",
        help="the run's configuration, when it lies neither in the report's folder nor in the one above, "
        "or when several there name this report",
    )


def main(arguments=None) -> int:
    args = build_parser().parse_args(arguments)
    with warnings.catch_warnings():
        warnings.simplefilter("always", KelpWarning)
        others = warnings.showwarning

        def show(message, category, *rest, **named):
            if issubclass(category, KelpWarning):
                print(f"kelp: warning: {message}", file=sys.stderr)
            else:
                others(message, category, *rest, **named)

        warnings.showwarning = show
        try:
            return args.function(args)
        except KelpError as error:
            print(f"kelp: {error}", file=sys.stderr)
        except OSError as error:
            name = f"{error.filename}: " if error.filename else ""
            print(f"kelp: {name}{error.strerror or error}", file=sys.stderr)
        except KeyboardInterrupt:
            print("kelp: interrupted", file=sys.stderr)
    return 1
