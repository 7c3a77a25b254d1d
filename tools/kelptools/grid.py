"""Files of values a cell, and the places of cells and walls along the coast."""

from __future__ import annotations

from dataclasses import dataclass
from pathlib import Path

import numpy as np

from .configuration import Configuration, free_format, parse_real, read_text
from .errors import KelpError

HEADER_LINES = 4
VALUES_A_LINE = 10


@dataclass(frozen=True)
class Grid:
    """Places along the baseline in the run's length unit. Wall i lies on the left of cell i."""

    width: np.ndarray
    wall: np.ndarray

    @property
    def center(self) -> np.ndarray:
        return (self.wall[:-1] + self.wall[1:]) / 2


def read_values(path: Path, cells: int) -> np.ndarray:
    """A shoreline, contour or cell width file: four header lines, then ten values a line. What a group
    of ten leaves on its last line is thrown away."""
    lines = iter(read_text(path).replace("\t", " ").splitlines()[HEADER_LINES:])
    values: list[float] = []
    while len(values) < cells:
        wanted = min(VALUES_A_LINE, cells - len(values))
        group: list[float] = []
        while len(group) < wanted:
            line = next(lines, None)
            if line is None:
                raise KelpError(f"{path}: {len(values) + len(group)} values, and {cells} cells")
            try:
                group.extend(0.0 if item is None else parse_real(item) for item in free_format(line))
            except ValueError as error:
                raise KelpError(f"{path}: {error}") from None
        values.extend(group[:wanted])
    return np.array(values)


def read_grid(configuration: Configuration, find) -> Grid:
    """The grid of a configuration; `find` turns a name that it gives into a path."""
    cells = configuration.cells
    widths = configuration.numbers("DX")
    width = widths[0] if widths else 0.0
    if width == -1:
        name = configuration.name("DXFILE")
        if not name:
            raise KelpError(f"{configuration.path}: DX is -1, but there is no DXFILE")
        width = read_values(find(name), cells)
    elif width <= 0:
        raise KelpError(f"{configuration.path}: DX must be above 0, not {width:g}")
    width = np.broadcast_to(np.asarray(width, dtype=float), (cells,)).copy()
    wall = configuration.real("X0") + np.concatenate(([0.0], np.cumsum(width)))
    return Grid(width, wall)
