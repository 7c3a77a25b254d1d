"""Where the structures of a configuration stand, in baseline coordinates and its length unit."""

from __future__ import annotations

from dataclasses import dataclass

import numpy as np

from .configuration import Configuration
from .errors import KelpError
from .grid import Grid

KINDS = ("seawall", "groin", "breakwater", "inlet")


@dataclass(frozen=True)
class Structure:
    """`x` and `y` are the points of a seawall or breakwater, the tip of a groin, or the two sides of an
    inlet, whose `y` is empty. The walls first and last bound what it covers of the coast."""

    kind: str
    name: str
    x: np.ndarray
    y: np.ndarray
    first_wall: int
    last_wall: int


def structures_of(configuration: Configuration, grid: Grid) -> list[Structure]:
    cells = grid.width.size
    found: list[Structure] = []

    def add(kind, name, first, last, x, y):
        shortest = 1 if kind in ("seawall", "inlet") else 0
        if not (1 <= first and first + shortest <= last <= cells + 1):
            raise KelpError(f"{configuration.path}: {name} lies outside the grid of {cells} cells")
        found.append(
            Structure(kind, name, np.asarray(x(), dtype=float), np.asarray(y, dtype=float), first, last)
        )

    wall = lambda number: grid.wall[number - 1]

    seawalls = configuration.records("ISWBEG", {"SWY1": "real", "SWY2": "real"}, {"ISWEND": "int8"})
    for number, record in enumerate(seawalls, 1):
        # The two positions are those of the first and the last cell.
        first, last = record["ISWBEG"], record["ISWEND"] + 1
        between = lambda first=first, last=last: (
            wall(first), grid.center[first - 1], grid.center[last - 2], wall(last),
        )  # fmt: skip
        y = (record["SWY1"], record["SWY1"], record["SWY2"], record["SWY2"])
        add("seawall", f"seawall {number}", first, last, between, y)

    for opening, tip, name in (("IXNDG", "YNDG", "groin"), ("IXDG", "YDG", "diffracting groin")):
        for number, record in enumerate(configuration.records(opening, {tip: "real"}), 1):
            at = record[opening]
            add("groin", f"{name} {number}", at, at, lambda at=at: (wall(at),), (record[tip],))

    forms = {"DBI2": "int8", "DBY1": "real", "DBY2": "real"}
    for number, record in enumerate(configuration.records("DBI1", forms), 1):
        first, last = record["DBI1"], record["DBI2"]
        x = lambda first=first, last=last: (wall(first), wall(last))
        add("breakwater", f"breakwater {number}", first, last, x, (record["DBY1"], record["DBY2"]))

    for number, name, record in inlets_of(configuration):
        first, last = record["IINLS"], record["IINLE"] + 1
        x = lambda first=first, last=last: (wall(first), wall(last))
        add("inlet", name, first, last, x, ())
    return found


def inlets_of(configuration: Configuration) -> list[tuple[int, str, dict]]:
    """Number, name and record of each inlet; one without a name is called Inlet and its number."""
    records = configuration.records("IINLS", {"IINLE": "int8"}, {"INLNAME": "name"})
    return [
        (number, record["INLNAME"] or f"Inlet{number}", record)
        for number, record in enumerate(records, 1)
    ]
