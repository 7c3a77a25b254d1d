#!/usr/bin/env python3
"""Works out the expected files of the cases beside it without the program.

    python3 tests/runs/expected_files.py

A case holds run.cfg and its inputs, and in expected/ the console, the report and the tables. On a
straight coast every wall has one transport Q, so that the shoreline rests and each table follows
from Q; in a calm the shoreline moves only with its ends. The README of each case tells the rest.
"""
import math
import os
import struct

HERE = os.path.dirname(os.path.abspath(__file__))


def f32(x):
    return struct.unpack("f", struct.pack("f", x))[0]


def shortest(x):
    """The fewest digits that read back to the same single, always with a decimal point."""
    x = f32(x)
    for digits in range(1, 10):
        text = "%.*g" % (digits, x)
        if f32(float(text)) == x:
            break
    assert "e" not in text
    return text if "." in text else text + "."


# Waves and sand, in double precision -----------------------------------------------------------

PADE = [0.66667, 0.35555, 0.16084, 0.0632, 0.02174, 0.00654, 0.00171, 0.00039, 0.00011]
GRAVITY, PI, GAMMA = 9.806, 3.141593, 0.78


def linear_wave(T, d):
    """Wave number, ratio of group to phase speed, group speed: Hunt's form of the dispersion."""
    x = (6.28318 / T) ** 2 / 9.81 * d
    P = 1.0 + sum(c * x ** (power + 1) for power, c in enumerate(PADE))
    k = math.sqrt(x * (x + 1.0 / P)) / d
    n = 0.5 if 2 * k * d >= 15.0 else 0.5 * (1.0 + 2 * k * d / math.sinh(2 * k * d))
    return k, n, n * 6.28318 / k / T


def breaking_wave(H, T, degrees, depth):
    """Height, angle and group speed at breaking on contours along the baseline."""
    k, n, _ = linear_wave(T, depth)
    angle = math.radians(degrees)
    c = 2 * PI / k / T
    E = c ** 4 * GAMMA ** 2 / (GRAVITY ** 2 * H ** 2 * n)
    Lambda = (math.cos(angle) / E) ** 0.4
    xi = math.sin(angle) ** 2 * Lambda
    lam = Lambda * (1 + 0.1649 * xi + 0.5948 * xi ** 2 - 1.6787 * xi ** 3 + 2.8573 * xi ** 4)
    db = c * c * lam / GRAVITY
    return db * GAMMA, math.asin(math.sin(angle) * math.sqrt(lam)), linear_wave(T, db)[2]


def transport(H, T, degrees, depth, K1=0.4):
    """Q in m3/s on a straight coast: no gradient of the height, so the first term alone."""
    Hb, Zb, Cg = breaking_wave(H, T, degrees, depth)
    return K1 / 37.793171 * Hb ** 2 * Cg * math.sin(2 * Zb)


SECONDS_PER_YEAR = 31557600.0


def whole(value, error=1e-6):
    """A transport as the tables print it. It must not lie so near a half that the rounding errors
    of single precision (`error` of the value) decide."""
    assert abs(value - math.floor(value) - 0.5) > error * abs(value), value
    return round(value)


# Files -----------------------------------------------------------------------------------------

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


def position_row(date, values):
    return "%8d" % date + "".join("%14.2f" % v for v in values)


def transport_row(date, values):
    return "%8d" % date + "".join("%15d." % v for v in values)


def opening(title):
    return [" KelpRun Model Execution", " Reading CONFIGFILE: run.cfg",
            " Simulation Title: " + title, " Reading Initial Shoreline: shore.dat",
            " Opening Wave Input File: waves.dat"]


BANNER = [" +-------------------------------------+", "               KelpRun                  ",
          " +-------------------------------------+", "      Version 1.1 release 8, JAN 2020",
          "              KelpRun_v1p1r8.exe          ", " Time Simulation begins ..."]


def year_block(years, ITS, date):
    ornament = " " + 65 * "*"
    return ([""] + 3 * [ornament] +
            ["CALCULATED %3d YEARS  =%8d TIME STEPS.  DATE IS %8d" % (years, ITS, date)] +
            4 * [ornament])


CLOSING = [" <<<Simulation finished>>>", " Model run completed"]


def cycling_block(date):
    """Of a steady wave: its table is empty, so that every reading passes it."""
    return [" " + line for line in [
        44 * " ", 63 * "*",
        " WARNING: Current wave event exceeds maximum number of wave    ",
        "          events as specified in control file(*.kel).          ",
        "          Cycling back to first wave event.                    ",
        "          Specified maximum number of wave events: 0", " ",
        "          Current simulation date is:             %d" % date,
        "          Newly cycled wave event date is:        0", 63 * "*"]]


def fixed(value, width, decimals):
    """A wave as the report prints it, which no rounding error of single precision may decide."""
    scaled = abs(value) * 10 ** decimals
    assert abs(scaled - math.floor(scaled) - 0.5) > 1e-4, value
    return "%*.*f" % (width, decimals, value)


def last_waves(NX, H, T, degrees, depth):
    """Heights and angles of the last step, on contours and a shoreline along the baseline."""
    Hb, Zb, _ = breaking_wave(H, T, degrees, depth)
    lines = ["  LAST TIME STEP. DIFFRACTED WAVES ALONGSHORE"]
    for value in [Hb, Zb * 180 / PI]:
        row = (NX + 1) * [fixed(value, 7, 2)]
        lines += ["".join(row[n:n + 10]) for n in range(0, NX + 1, 10)]
    return lines


def wave_means(NX, H, T, degrees, depth):
    """Means over a run of one wave: the wave itself. The last wall has no transport coefficient."""
    Hb, Zb, _ = breaking_wave(H, T, degrees, depth)
    angle = fixed(Zb * 180 / PI, 5, 1)
    lines = ["  OUTPUT OF UNDIFFRACTED BREAKING WAVE STATISITCS",
             "  N.B. THESE VALUES ARE NOT SMOOTHED!",
             "   X-COORD.   H-MEAN   H52-MEAN   ZBS-MEAN   ZB-MEAN    HZ-MEAN"]
    for wall in range(1, NX + 2):
        Q = transport(H, T, degrees, depth) if wall <= NX else 0.0
        lines.append("     %3d" % wall + 6 * " " + fixed(Hb, 5, 2) + 4 * " " +
                     fixed(Hb ** 2.5, 5, 2) + 6 * " " + angle + 6 * " " + angle + 4 * " " +
                     fixed(Q, 8, 4))
    return lines


def write(case, console, report, tables):
    folder = os.path.join(HERE, case, "expected")
    os.makedirs(folder, exist_ok=True)
    for name, lines in [("console", console), ("run.prt", report)]:
        open(os.path.join(folder, name), "w").write("".join(line + "\n" for line in lines))
    for suffix, rows in tables.items():
        lines = [TITLES[suffix]] + rows
        open(os.path.join(folder, "run." + suffix), "w").write(
            "".join(line + "\n" for line in lines))


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


def straight_beach():
    wave = (1.0, 8.0, 10.0, 20.0)
    Q = transport(*wave)
    date = 19970101
    write("straight_beach",
          opening("A straight beach under an oblique wave") + BANNER + year_block(0, 10, date) +
          CLOSING, cycling_block(date) + last_waves(20, *wave) + wave_means(20, *wave),
          straight_tables(20, 100.0, Q, 11 * [date], [(date, Q * 36000.0)],
                          (date, Q * SECONDS_PER_YEAR)))


def print_dates():
    """Daily steps; blocks at step 3 and on 6 January, which is step 5; rows at 4, 8 and the end."""
    wave = (0.55, 6.0, -15.0, 12.0)
    Q = transport(*wave)
    day = 86400.0 * Q
    tables = straight_tables(
        6, 50.0, Q, [19970103, 19970106, 19970110, 19970112],
        [(19970105, 3 * day), (19970107, 5 * day), (19970112, 10 * day)],
        (19970112, Q * SECONDS_PER_YEAR))
    # All sand goes to the left.
    tables["mql"], tables["mqr"] = tables["mqr"], tables["mql"]
    write("print_dates",
          opening("Print dates and a last row") + BANNER + year_block(0, 10, 19970112) + CLOSING,
          cycling_block(19970103) + last_waves(6, *wave) + wave_means(6, *wave), tables)


def two_new_years():
    wave = (0.3, 6.0, 8.0, 15.0)
    Q = transport(*wave)
    day = 86400.0 * Q
    write("two_new_years",
          opening("Over two New Years") + BANNER + year_block(1, 366, 19961231) +
          year_block(1, 370, 19970104) + CLOSING,
          cycling_block(19960101) + last_waves(4, *wave) + wave_means(4, *wave),
          straight_tables(4, 75.0, Q,
                          [19960101, 19960301, 19960429, 19960628, 19960827, 19961026, 19961225,
                           19970104],
                          [(19961231, 366 * day), (19970104, 4 * day)],
                          (19970104, Q * SECONDS_PER_YEAR), error=1e-5))


def moving_ends(case, title, volume, offset):
    """Five cells in a calm; the left end gains 1.5 and the right one loses 0.25 at every step.
    volume: reported volume of one unit of length cubed; offset: the 300 m of the contour."""
    steps, width, height = 4, 100.0, 9.0
    date = 19970101
    zero = 5 * [0.0]
    moved = [[1.5 * n, 0.0, 0.0, 0.0, -0.25 * n + 0.0] for n in range(steps + 1)]
    # The contour is that of the beginning of the step, and does not exist before the first.
    contour = [zero] + [[100.0 + offset + d for d in moved[n - 1]] for n in range(1, steps + 1)]
    tables = {
        "slo": [position_row(date, [100.0 + d for d in row]) for row in moved],
        "qtr": [transport_row(date, 6 * [0]) for row in moved],
        "off": [position_row(date, row) for row in contour],
        "vcc": [position_row(date, [d * width * height * volume for d in row]) for row in moved],
        "vcx": [position_row(date, [d * height * volume for d in row]) for row in moved],
    }
    for suffix in ["mqn", "mqr", "mql"]:
        tables[suffix] = 2 * [transport_row(date, 6 * [0])]
    write(case, opening(title) + BANNER + year_block(0, steps, date) + CLOSING,
          cycling_block(date), tables)


def adaptive_step():
    H, T, degrees, depth = 0.5, 6.0, 10.0, 20.0
    Q = transport(H, T, degrees, depth)
    Hb, _, Cg = breaking_wave(H, T, degrees, depth)

    def S(DT):
        return 2 * Hb ** 2 * 0.4 / 37.793171 * Cg * 3600 * DT / (6.0 ** 2 * 9.0)

    # All digits of a single cannot come from another way of computing it: these are the program's,
    # and this computation agrees with them.
    before, after = 3.3343983, 0.41679978
    assert abs(S(12.0) / before - 1) < 1e-6 and abs(S(1.5) / after - 1) < 1e-6
    assert S(3.0) > 0.5 >= S(1.5)
    angle = f32(f32(f32(f32(10.0 * f32(PI)) / 180.0) * 180.0) / f32(PI))
    block = [" " + line for line in [
        44 * " ", 63 * "*", " WARNING: Solution is unstable.......................          ",
        "          Current simulation STABILITY PARAMETER is: " + shortest(before),
        "          Current simulation date is:                19970102",
        "          Current wave event date is:           0",
        "          Current wave event hour is:            0",
        "          Current wave Height (HZ)is:            0.5",
        "          Current wave Period (T)is:             6.",
        "          Current wave Direction(zzdeg) is:      " + shortest(angle),
        " ACTION:  Commence adaptive time-step (DT) reduction!!!        ", 63 * "-", 40 * " ",
        "          ..................................NEW DT = 1.5",
        "          .................NEW STABILITY PARAMETER = " + shortest(after), 63 * "*",
        63 * " "]]
    unstable = [" WARNING!  Solution is unstable.", " Check printable output file for details."]
    reported = ["  WARNING!  CALCULATION SCHEME UNSTABLE.",
                "  STABILITY PARAMETER = " + shortest(before), "  PLEASE CONSULT YOUR MANUAL.",
                " date is 19970101 wave date is 0hours is 0",
                " hz is 0.5zzdeg is %st is 6." % shortest(angle)]
    volume = 25 * 5400.0 * Q
    write("adaptive_step",
          opening("A step that is cut to an eighth") + BANNER + unstable + block +
          year_block(0, 32, 19970102) + CLOSING,
          cycling_block(19970102) + reported + block + last_waves(4, H, T, degrees, depth) +
          wave_means(4, H, T, degrees, depth),
          straight_tables(4, 100.0, Q, [19970102, 19970101, 19970102, 19970102],
                          [(19970102, volume)], (19970102, volume / 32 * 365.25 * 16)))


straight_beach()
print_dates()
two_new_years()
moving_ends("moving_ends", "Ends that move in a calm", 1.0, 300.0)
moving_ends("moving_ends_in_feet", "Ends that move in a calm, in feet", 1.0 / 27.0, 300.0 / 0.3048)
adaptive_step()
