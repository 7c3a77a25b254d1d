"""The files of a first case."""

from __future__ import annotations

import datetime
import math

CELLS = 80
WIDTH = 100.0
START, END = datetime.datetime(2020, 1, 1), datetime.datetime(2023, 1, 1)
STEP = datetime.timedelta(hours=6)
BULGE_CELL, BULGE, BULGE_CELLS = 40.5, 50.0, 8.0

CONFIGURATION = """\
KELPRUN:
# A case made by `kelp new`. Change it step by step; `kelp check {name}.cfg` tells what you mistyped.
#
# A line is KEYWORD: value. The keyword begins in the first column. A line whose keyword is unknown is a
# comment, so that a mistyped keyword is one too; these comments begin with # to be on the safe side.
TITLE: A straight beach with a bulge

# Units of lengths and of wave heights: (m) or (ft).
KELUNITS: (m)
WAVUNITS: (m)

# Files, from the folder in which the program is started. The result tables are called like the report.
INIFILE: {name}.shore
PRFILE: {name}.prt

# The report tells a warning that comes again and again only once.
PRWARN: F

# One wave file: last cell that it serves, water depth at the gauge, number of records, name.
# `kelp waves` makes such a file of measured or hindcast waves, and this line.
NUMWAVES: 1
WAVEID: {cells} 10 {records} {name}.waves

# The grid: number of cells and their width. AZIMUTH: where the baseline leads to, in degrees from north.
# Looking out to sea the cells count to the right. Here the sea lies in the east: the baseline runs south.
NX: {cells}
DX: {width:g}
AZIMUTH: 180

# First and last day; the time step and the interval of the result tables, both in hours. The time step goes
# a whole number of times into the 6 hours from wave to wave.
SIMDATS: {start:%Y%m%d}
SIMDATE: {end:%Y%m%d}
DT: 3
DTSAVE: 240

# Longshore transport: K1 of the breaking wave angle, K2 of the height's change along the coast. Values along
# the coast come in pairs: `K1: 0.6 0.77` with `IK1END: 20 {cells}` gives 0.6 to cells 1 to 20.
K1: 0.6
IK1END: {cells}
K2: 0.3
IK2END: {cells}

# Factors on the wave height and angle, and degrees added to the angle. Left out, a list is 0 everywhere, and
# a height factor of 0 means no waves at all.
HAMP: 1
IHAMPEND: {cells}
THETAAMP: 1
ITHETAAMPEND: {cells}
THETADEL: 0
ITHETADELEND: {cells}

# The beach: grain size in mm; height of the berm above the sea, and depth down to which the profile moves.
D50: 0.25
BERMHT: 1.5
IBERMHTEND: {cells}
DCLOS: 7
IDCLOSEND: {cells}

# Waves refract over the shoreline's shape smoothed over so many cells.
ISMOOTH: 11

# Ends of the grid: 0, they stay where they are.
LBCTYPE: 0
RBCTYPE: 0

# A seawall behind the bulge, 225 m from the baseline. To see what it does, copy this file as wall.cfg; there,
# take away the four # below and name the report wall.prt. Run it, then: kelp compare {name}.prt wall.prt
#ISWBEG: 36
#ISWEND: 45
#SWY1: 225
#SWY2: 225
"""

SHORE_HEADING = """\
Shoreline at the start, metres seaward of the baseline; cells 1 to {cells}, ten a line.
A straight beach at 200 m with a bulge of 50 m about the middle.
These four lines are a heading: the program skips them,
whatever they hold.
"""


def starter_files(name: str) -> dict[str, str]:
    records = wave_records()
    configuration = CONFIGURATION.format(
        name=name, cells=CELLS, width=WIDTH, records=len(records), start=START, end=END
    )
    return {
        f"{name}.cfg": configuration,
        f"{name}.shore": SHORE_HEADING.format(cells=CELLS) + shore_lines(),
        f"{name}.waves": "".join(f"{time:%Y%m%d %H%M} {h:6.2f} {t:6.2f} {a:8.2f}\n" for time, h, t, a in records),
    }


def shore_lines() -> str:
    values = [200.0 + BULGE * math.exp(-(((cell - BULGE_CELL) / BULGE_CELLS) ** 2)) for cell in range(1, CELLS + 1)]
    rows = [values[i : i + 10] for i in range(0, CELLS, 10)]
    return "".join(" ".join(f"{value:8.2f}" for value in row) + "\n" for row in rows)


def wave_records():
    """Waves of a temperate coast: higher in winter, weather that comes and goes within days, swell between.
    Winter storms come from the left, summer waves more from the right."""
    records = []
    time = START
    while time <= END:
        day = (time - START) / datetime.timedelta(days=1)
        season = math.cos(2 * math.pi * (day - 15) / 365.25)  # 1 in mid-January, -1 in mid-July
        # Three rhythms of weather that never fall together in the same way.
        weather = (
            math.sin(2 * math.pi * day / 6.3)
            + 0.7 * math.sin(2 * math.pi * day / 10.7 + 1.0)
            + 0.4 * math.sin(2 * math.pi * day / 3.1 + 2.0)
        )
        height = (0.75 + 0.20 * season) * math.exp(0.38 * weather)
        period = 6.0 + 1.6 * math.sqrt(height) + 0.8 * math.sin(2 * math.pi * day / 17.0)
        angle = 3.0 + 8.0 * season + 16.0 * math.sin(2 * math.pi * day / 8.9 + 0.5)
        records.append((time, height, period, angle))
        time += STEP
    return records
