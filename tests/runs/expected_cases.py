"""What the cases of expected_files.py share: console, tables, reports of a straight coast and of a
calm."""
import math
import os

from expected_numbers import f32, single
from expected_report import closing, year_results
from expected_waves import PI, SECONDS_PER_YEAR, breaking_wave, transport, wave_means

HERE = os.path.dirname(os.path.abspath(__file__))


TITLES = {
    "slo": "Shoreline Position Output",
    "qtr": "Net Transport Rate",
    "off": "Calculated Offshore Contour",
    "mqn": "Mean Annual Net Transport Rate",
    "mqr": "Mean Annual Transport Rate to the Right",
    "mql": "Mean Annual Transport Rate to the Left",
    "vcc": "Volume Change Per Cell",
    "vcx": "Volume Change Per Linear Distance Unit Alongshore",
}


def whole(value, error=1e-6):
    """A transport as the tables print it. It must not lie so near a half that the rounding errors
    of single precision (`error` of the value) decide."""
    assert abs(value - math.floor(value) - 0.5) > error * abs(value), value
    return round(value)


def position_row(date, values):
    return "%8d" % date + "".join("%14.2f" % v for v in values)


def transport_row(date, values):
    return "%8d" % date + "".join("%15d." % v for v in values)


# Console --------------------------------------------------------------------------------------

def opening(title, *files):
    """files: lines on other files that are named between the shoreline and the waves."""
    return [" KelpRun Model Execution", " Reading CONFIGFILE: run.cfg",
            " Simulation Title: " + title, " Reading Initial Shoreline: shore.dat",
            *files, " Opening Wave Input File: waves.dat"]


BANNER = [" +-------------------------------------+", "               KelpRun                  ",
          " +-------------------------------------+", "      Version 1.1 release 8, JAN 2020",
          "              KelpRun_v1p1r8.exe          ", " Time Simulation begins ..."]


def year_lines(years, ITS, date):
    ornament = " " + 65 * "*"
    return ([""] + 3 * [ornament] +
            ["CALCULATED %3d YEARS  =%8d TIME STEPS.  DATE IS %8d" % (years, ITS, date)] +
            4 * [ornament])


CLOSING = [" <<<Simulation finished>>>", " Model run completed"]


def cycling_block(date, events=0, first_date=0):
    """Of a steady wave: its table is empty, so that every reading passes it."""
    return [" " + line for line in [
        44 * " ", 63 * "*",
        " WARNING: Current wave event exceeds maximum number of wave    ",
        "          events as specified in control file(*.kel).          ",
        "          Cycling back to first wave event.                    ",
        "          Specified maximum number of wave events: %d" % events, " ",
        "          Current simulation date is:             %d" % date,
        "          Newly cycled wave event date is:        %d" % first_date, 63 * "*"]]


# Files ----------------------------------------------------------------------------------------

def write(case, console, report, tables, others=None):
    """others: files besides, by name."""
    folder = os.path.join(HERE, case, "expected")
    os.makedirs(folder, exist_ok=True)
    files = {"console": console, "run.prt": report, **(others or {})}
    for suffix, rows in tables.items():
        files["run." + suffix] = [TITLES[suffix]] + rows
    for name, lines in files.items():
        with open(os.path.join(folder, name), "w") as file:
            file.write("".join(line + "\n" for line in lines))


def straight_tables(NX, shore, Q, dates, sums, mean, error=1e-6):
    """Tables of a straight coast that does not move. dates: of the rows; sums: date and volume of
    each row of the year sums; mean: date and mean annual rate."""
    yearly = whole(Q * SECONDS_PER_YEAR)
    later = dates[1:]
    tables = {
        "slo": [position_row(d, NX * [shore]) for d in dates],
        "qtr": [transport_row(dates[0], (NX + 1) * [0])] +
               [transport_row(d, (NX + 1) * [yearly]) for d in later],
        "off": [position_row(dates[0], NX * [0])] +
               [position_row(d, NX * [shore + 300]) for d in later],
        "vcc": [position_row(d, NX * [0]) for d in dates],
        "vcx": [position_row(d, NX * [0]) for d in dates],
    }
    all_sums = sums + [mean]
    tables["mqn"] = [transport_row(d, (NX + 1) * [whole(v, error)]) for d, v in all_sums]
    tables["mqr"] = tables["mqn"]
    tables["mql"] = [transport_row(d, (NX + 1) * [0]) for d, v in all_sums]
    return tables


# Report of a straight coast -------------------------------------------------------------------

def signed(run, volume):
    """Net, left and right on all walls, of a volume that goes one way."""
    return [run.walls(v) for v in (volume, min(volume, 0.0), max(volume, 0.0))]


def degrees_of(angle):
    """An angle through radians and back, in single precision: its last digit may change."""
    PI32 = f32(PI)
    return f32(f32(angle * f32(PI32 / f32(180))) * f32(f32(180) / PI32))


def last_pass(wave):
    return single(wave[0]), single(wave[1]), single(degrees_of(wave[2]))


def straight_year(run, wave, shore, years, ITS, date, since, volume, error=2e-6):
    Hb, Zb, _ = breaking_wave(*wave)
    return year_results(run, years, ITS, date, since, run.cells(shore), run.cells(0.0),
                        (Hb, Zb * 180 / PI), (wave[0], wave[2]), signed(run, volume), error)


def straight_closing(run, wave, shore, ITS, date, steps, mean):
    """steps: how many before the last one are in the means of the wave."""
    return closing(run, ITS, date, signed(run, mean), last_pass(wave),
                   wave_means(run.NX, [(wave, steps)]), run.walls(transport(*wave)),
                   run.cells(shore), run.cells(shore), run.cells(shore), run.cells(shore + 300.0),
                   run.cells(0.0), run.cells(0.0), 0.0)


# A shoreline that moves in a calm -------------------------------------------------------------

def calm_year(run, ITS, date, shore, change, since=None):
    return year_results(run, 0, ITS, date, since or run.SIMDATS, shore, change, (0.0, 0.0),
                        (0.0, 0.0), 3 * [run.walls(0.0)])


def calm_closing(run, ITS, date, final, seaward, landward, contour, volumes, per_length, total,
                 angle=0.0, **more):
    """The last pass has the period 0.1 of a calm; no pass has been added to the wave means."""
    return closing(run, ITS, date, 3 * [run.walls(0.0)],
                   (single(0.0), single(0.1), single(angle)), [], run.walls(0.0), final, seaward,
                   landward, contour, volumes, per_length, total, **more)


def calm_tables(NX, dates, positions, contours, volumes, per_length, sums):
    """One row a date; sums: dates of the rows of the three mean tables."""
    tables = {
        "slo": [position_row(d, row) for d, row in zip(dates, positions)],
        "qtr": [transport_row(d, (NX + 1) * [0]) for d in dates],
        "off": [position_row(d, row) for d, row in zip(dates, contours)],
        "vcc": [position_row(d, row) for d, row in zip(dates, volumes)],
        "vcx": [position_row(d, row) for d, row in zip(dates, per_length)],
    }
    for suffix in ["mqn", "mqr", "mql"]:
        tables[suffix] = [transport_row(d, (NX + 1) * [0]) for d in sums]
    return tables


def closing_total(run, moves):
    """Single products of width and move, added in single precision. moves: how often and how
    far each cell moved, in the units of the run, added in double from singles of metres."""
    DX, CONV = f32(run.DX * f32(run.CONV)), f32(run.CONV)
    total = 0.0
    for steps, move in moves:
        step = f32(f32(move) * CONV)
        d = sum_of(f32(100.0) * CONV, steps, step) - f32(100.0) * CONV
        total = f32(total + f32(DX * d))
    CUBE = f32(f32(f32(0.9144) * f32(0.9144)) * f32(0.9144)) if run.feet else 1.0
    return f32(f32(f32(f32(f32(run.DCLOS) * CONV) + f32(f32(run.BERMHT) * CONV)) * total) / CUBE)


def sum_of(start, steps, step):
    for _ in range(steps):
        start += step
    return start
