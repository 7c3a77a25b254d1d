#!/usr/bin/env python3
"""Works out the expected files of the cases beside it without the program.

    python3 tests/runs/expected_files.py

expected_report.py is the report, expected_cases.py console, tables and what cases share,
expected_waves.py the waves and expected_numbers.py the form of the numbers.

A case holds run.cfg and its inputs, and in expected/ the console, the report and the tables. On a
straight coast every wall has one transport Q, so that the shoreline rests and each table follows
from Q; in a calm the shoreline moves only with its ends, fills and bypassing. The README of each
case tells the rest.
"""
import math

from expected_cases import (BANNER, CLOSING, calm_closing, calm_tables, calm_year, closing_total,
                            cycling_block, degrees_of, last_pass, opening, position_row, signed,
                            straight_closing, straight_tables, straight_year, sum_of,
                            transport_row, whole, write, year_lines)
from expected_numbers import double, f32, free, single
from expected_report import (Budget, Inlet, Run, angle_warning, closing, head, print_block,
                             year_results)
from expected_waves import (PI, SECONDS_PER_YEAR, breaking_wave, last_waves, transport,
                            wave_means)


def straight_beach():
    title, wave = "A straight beach under an oblique wave", (1.0, 8.0, 10.0, 20.0)
    NX, date, shore = 20, 19970101, 100.0
    Q = transport(*wave)
    run = Run(title, NX, 100.0, 1.0, 10, date, NX * [shore])
    report = head(run) + cycling_block(date) + last_waves(NX, wave) + \
        straight_year(run, wave, shore, 0, 10, date, date, Q * 36000.0) + \
        straight_closing(run, wave, shore, 10, date, 9, Q * SECONDS_PER_YEAR)
    write("straight_beach", opening(title) + BANNER + year_lines(0, 10, date) + CLOSING, report,
          straight_tables(NX, shore, Q, 11 * [date], [(date, Q * 36000.0)],
                          (date, Q * SECONDS_PER_YEAR)))


def print_dates():
    """Daily steps; blocks at step 3 and on 6 January, which is step 5; rows at 4, 8 and the end."""
    title, wave, NX, shore = "Print dates and a last row", (0.25, 6.0, -15.0, 12.0), 6, 50.0
    Q = transport(*wave)
    day, start = 86400.0 * Q, 19970101
    run = Run(title, NX, 500.0, 24.0, 10, start, NX * [shore], WMDEP=12.0)
    report = head(run) + cycling_block(19970103)
    for step, date in [(3, 19970105), (5, 19970107)]:
        report += print_block(run, step, date, start, run.cells(shore), signed(run, step * day),
                              run.cells(0.0), run.cells(0.0), 0.0)
    report += last_waves(NX, wave)
    report += straight_year(run, wave, shore, 0, 10, 19970112, start, 10 * day)
    report += straight_closing(run, wave, shore, 10, 19970112, 9, Q * SECONDS_PER_YEAR)
    tables = straight_tables(NX, shore, Q, [19970103, 19970106, 19970110, 19970112],
                             [(19970105, 3 * day), (19970107, 5 * day), (19970112, 10 * day)],
                             (19970112, Q * SECONDS_PER_YEAR))
    # All sand goes to the left.
    tables["mql"], tables["mqr"] = tables["mqr"], tables["mql"]
    write("print_dates", opening(title) + BANNER + year_lines(0, 10, 19970112) + CLOSING, report,
          tables)


def two_new_years():
    title, wave, NX, shore = "Over two New Years", (0.11, 4.0, 2.0, 15.0), 4, 75.0
    Q = transport(*wave)
    day, start = 86400.0 * Q, 19951230
    run = Run(title, NX, 500.0, 24.0, 370, start, NX * [shore], WMDEP=15.0)
    report = head(run) + cycling_block(19960101) + \
        straight_year(run, wave, shore, 1, 366, 19961231, start, 366 * day, error=1e-5) + \
        last_waves(NX, wave) + \
        straight_year(run, wave, shore, 1, 370, 19970104, 19961231, 4 * day) + \
        straight_closing(run, wave, shore, 370, 19970104, 369, Q * SECONDS_PER_YEAR)
    write("two_new_years",
          opening(title) + BANNER + year_lines(1, 366, 19961231) + year_lines(1, 370, 19970104) +
          CLOSING, report,
          straight_tables(NX, shore, Q,
                          [19960101, 19960301, 19960429, 19960628, 19960827, 19961026, 19961225,
                           19970104],
                          [(19961231, 366 * day), (19970104, 4 * day)],
                          (19970104, Q * SECONDS_PER_YEAR), error=1e-5))


def moving_ends(case, title, feet):
    """Five cells in a calm; the left end gains 1.5 and the right one loses 0.25 at every step."""
    steps, width, height, date, NX = 4, 100.0, 9.0, 19970101, 5
    volume = 1.0 / 27.0 if feet else 1.0    # of one unit of length cubed
    offset = 300.0 / 0.3048 if feet else 300.0
    run = Run(title, NX, width, 1.0, steps, date, NX * [100.0], feet=feet,
              WMDEP=65.0 if feet else 20.0)
    moved = [[1.5 * n, 0.0, 0.0, 0.0, -0.25 * n + 0.0] for n in range(steps + 1)]
    positions = [[100.0 + d for d in row] for row in moved]
    # The contour is that of the beginning of the step, and does not exist before the first.
    contours = [NX * [0.0]] + [[p + offset for p in row] for row in positions[:-1]]
    per_length = [[d * height * volume for d in row] for row in moved]
    volumes = [[width * v for v in row] for row in per_length]
    total = closing_total(run, [(steps, 1.5), (0, 0.0), (0, 0.0), (0, 0.0), (steps, -0.25)])
    assert abs(total / (4500.0 * volume) - 1) < 1e-6
    highest = [max(row[i] for row in positions) for i in range(NX)]
    lowest = [min(row[i] for row in positions) for i in range(NX)]
    report = head(run) + cycling_block(date) + \
        calm_year(run, steps, date, positions[-1], moved[-1]) + \
        calm_closing(run, steps, date, positions[-1], highest, lowest, contours[-1], volumes[-1],
                     per_length[-1], total)
    write(case, opening(title) + BANNER + year_lines(0, steps, date) + CLOSING, report,
          calm_tables(NX, (steps + 1) * [date], positions, contours, volumes, per_length,
                      2 * [date]))


def adaptive_step():
    title, NX, shore = "A step that is cut to an eighth", 4, 100.0
    wave = H, T, degrees, depth = 0.5, 6.0, 10.0, 20.0
    Q = transport(*wave)
    Hb, _, Cg = breaking_wave(*wave)

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
        "          Current simulation STABILITY PARAMETER is: " + single(before),
        "          Current simulation date is:                19970102",
        "          Current wave event date is:           0",
        "          Current wave event hour is:            0",
        "          Current wave Height (HZ)is:            0.5",
        "          Current wave Period (T)is:             6.",
        "          Current wave Direction(zzdeg) is:      " + single(angle),
        " ACTION:  Commence adaptive time-step (DT) reduction!!!        ", 63 * "-", 40 * " ",
        "          ..................................NEW DT = 1.5",
        "          .................NEW STABILITY PARAMETER = " + single(after), 63 * "*",
        63 * " "]]
    unstable = [" WARNING!  Solution is unstable.", " Check printable output file for details."]
    reported = ["  WARNING!  CALCULATION SCHEME UNSTABLE.",
                "  STABILITY PARAMETER = " + single(before), "  PLEASE CONSULT YOUR MANUAL.",
                " date is 19970101 wave date is 0hours is 0",
                " hz is 0.5zzdeg is %st is 6." % single(angle)]
    volume, start, date = 25 * 5400.0 * Q, 19970101, 19970102
    mean = volume / 32 * 365.25 * 16
    run = Run(title, NX, 6.0, 12.0, 4, start, NX * [shore])
    report = head(run) + cycling_block(date) + reported + block + last_waves(NX, wave) + \
        straight_year(run, wave, shore, 0, 32, date, start, volume) + \
        straight_closing(run, wave, shore, 32, date, 24, mean)
    write("adaptive_step",
          opening(title) + BANNER + unstable + block + year_lines(0, 32, date) + CLOSING, report,
          straight_tables(NX, shore, Q, [date, start, date, date], [(date, volume)], (date, mean)))


# Structures, thousands, stops ------------------------------------------------------------------

def angle_to_the_regional_contour(widths, regional):
    """Of a wave along the normal, 0 degrees, where the contour has one mean over all cells. The
    baseline's -90 degrees go in and out, so that the single digits of 91 degrees are left."""
    angles = [math.atan((regional[i] - regional[i - 1]) / (0.5 * (widths[i] + widths[i - 1])))
              for i in [1] + list(range(1, len(widths)))]
    turned = 90 + math.degrees(sum(angles) / len(angles))
    digits = turned * 2 ** 17
    assert abs(digits - math.floor(digits) - 0.5) > 0.1
    return 90 - f32(turned)


def structures_in_a_calm():
    """Everything that can stand on a coast, in feet: echoed, and at rest."""
    title, NX, start, dates = "Structures in a calm", 12, 19970101, [19970101, 19970101, 19970102]
    shore, regional = [100.0 + 5 * i for i in range(NX)], [40.0 + 2 * i for i in range(NX)]
    contour, zero = [y + 300 / 0.3048 for y in shore], NX * [0.0]
    widths = [100, 120, 160, 100, 100, 100, 80, 80, 100, 120, 150, 200]
    run = Run(title, NX, None, 6.0, 4, start, shore, feet=True, WMDEP=65.0, DCLOS=25.0, BERMHT=5.0,
              groins=[(7, 260.0, 0.25), (9, 300.0, 0.1), (3, 250.0, 0.5)],
              breakwaters=[(4, 6, 400.0, 410.0, 0.3), (10, 12, 420.0, 430.0, 0.6)])
    angle = degrees_of(angle_to_the_regional_contour(widths, regional))
    report = head(run) + cycling_block(start) + \
        print_block(run, 2, start, start, shore, 3 * [run.walls(0.0)], zero, zero, 0.0) + \
        calm_year(run, 4, dates[-1], shore, zero) + \
        calm_closing(run, 4, dates[-1], shore, shore, shore, contour, zero, zero, 0.0,
                     angle=angle)
    console = opening(title, " Reading Regional Shoreline: contour.dat",
                      " Reading Variable Grid Cell Spacing File: dx.dat")
    # The contour does not exist before the first row: it shows the regional one alone.
    write("structures_in_a_calm", console + BANNER + year_lines(0, 4, dates[-1]) + CLOSING, report,
          calm_tables(NX, dates, 3 * [shore], [regional, contour, contour], 3 * [zero], 3 * [zero],
                      [start, dates[-1], dates[-1]]))


def thousands():
    """Twenty days of high waves in each year; low ones before and after those of the second."""
    title, NX, start, shore = "Over a hundred thousand cubic yards", 5, 19970101, 200.0
    run = Run(title, NX, 9000.0, 24.0, 732, start, NX * [shore], feet=True, wave_feet=True,
              WMDEP=60.0, DCLOS=25.0, BERMHT=5.0)
    heights = {"high": (7.5, 10.0, 6.0), "left": (6.5, 10.0, -8.0), "low": (0.8, 5.0, 4.0)}
    waves = {name: (H * 0.3048, T, degrees, 60.0 * 0.3048)
             for name, (H, T, degrees) in heights.items()}
    day = {name: 86400.0 * transport(*wave) / run.CUBE for name, wave in waves.items()}
    first, low, second = 20 * day["high"], 40 * day["low"], 20 * day["left"]
    cells, contour = run.cells(shore), run.cells(shore + 300 / 0.3048)
    zero, still = run.cells(0.0), 3 * [run.walls(0.0)]

    def walls(*sums):
        return [run.walls(v) for v in sums]

    def year(years, ITS, date, since, wave, sums):
        Hb, Zb, _ = breaking_wave(*waves[wave])
        return year_results(run, years, ITS, date, since, cells, zero,
                            (Hb / 0.3048, Zb * 180 / PI), (0.0, 0.0), sums, error=3e-6)

    in_two_years = (first + low + second, second, first + low)
    means = [v / 732 * 365.25 for v in in_two_years]
    statistics = wave_means(NX, [(waves["high"], 20), (waves["low"], 40), (waves["left"], 20)],
                            CONV=0.3048)
    # All digits of a single cannot come from another way of computing it: these are the program's,
    # and this computation agrees with them. The rates follow from them.
    flows = [f32(113077.23), f32(-106724.37)]
    assert abs(flows[0] / (first + low) - 1) < 1e-6 and abs(flows[1] / second - 1) < 1e-6
    texts = [single(v) for v in flows] + [double(f32(f32(v / 732) * 365.25)) for v in flows]
    report = head(run) + \
        year(1, 365, 19980102, start, "high", walls(first, 0.0, first)) + \
        print_block(run, 390, 19980127, 19980102, cells,
                    walls(10 * day["low"], 0.0, 10 * day["low"]), zero, zero, 0.0, QMAX=first) + \
        year(2, 730, 19990102, 19980102, "low", walls(low + second, second, low)) + \
        year(2, 732, 19990104, 19990102, "low", still) + \
        closing(run, 732, 19990104, walls(*means), (single(0.0), single(0.1), single(0.0)),
                statistics, run.walls(transport(*waves["low"])), cells, cells, cells, contour, zero,
                zero, 0.0,
                budget=Budget("CY", 732, 5 * [zero]).lines([], [((1, 6), (texts, texts))]))
    Q = transport(*waves["low"]) / run.CUBE
    dates = [19970103, 19990104]
    tables = straight_tables(NX, shore, Q, dates, [], (19990104, 0.0))
    tables["off"] = [position_row(d, row) for d, row in zip(dates, [zero, contour])]
    sums = [(19980102, (first, 0.0, first)), (19980127, (10 * day["low"], 0.0, 10 * day["low"])),
            (19990102, (low + second, second, low)), (19990104, (0.0, 0.0, 0.0)),
            (19990104, means)]
    for which, suffix in enumerate(["mqn", "mql", "mqr"]):
        # Where years of both directions cancel, the error is one of the larger.
        tables[suffix] = [transport_row(d, run.walls(whole(row[which], 0 if d == 19990104 and
                                                           which == 0 else 1.5e-6)))
                          for d, row in sums]
    write("thousands",
          opening(title) + BANNER + year_lines(1, 365, 19980102) + year_lines(2, 730, 19990102) +
          year_lines(2, 732, 19990104) + CLOSING, report, tables)


def no_printout():
    """Two records of bad angle, two of a wave; a source along the whole coast from before the run
    to behind it advances it by 6 cm a day."""
    title, NX, wave = "Nothing but warnings", 5, (0.25, 6.0, 8.0, 15.0)
    Q = transport(*wave)
    report = [free(" WARNING. BYPASS OPERATION STARTS BEFORE THE"),
              free(" SIMULATION HAS STARTED."), "",
              free(" WARNING. BYPASS OPERATION ENDS AFTER THE"), free(" SIMULATION HAS ENDED."),
              ""] + cycling_block(19970105, 3, 19970101) + angle_warning(2)
    dates = [19970103, 19970103, 19970104, 19970105, 19970106]
    moved = [0.06 * n for n in range(5)]
    zeros = (NX + 1) * [0]
    yearly = (NX + 1) * [whole(Q * SECONDS_PER_YEAR)]
    tables = {
        "slo": [position_row(d, NX * [100 + y]) for d, y in zip(dates, moved)],
        "qtr": [transport_row(d, row) for d, row in zip(dates, 3 * [zeros] + 2 * [yearly])],
        "off": [position_row(d, NX * [y]) for d, y in
                zip(dates, [0.0] + [400 + y for y in moved[:-1]])],
        "vcc": [position_row(d, NX * [y * 800]) for d, y in zip(dates, moved)],
        "vcx": [position_row(d, NX * [y * 8]) for d, y in zip(dates, moved)],
        "mqn": [transport_row(d, (NX + 1) * [whole(v)]) for d, v in
                [(19970105, Q * 86400), (19970106, Q * 2 * 86400),
                 (19970106, Q * 2 * 86400 / 4 * 365.25)]],
        "mql": [transport_row(d, zeros) for d in [19970105, 19970106, 19970106]],
    }
    tables["mqr"] = tables["mqn"]
    warning = [" WARNING: Wave Angle is greater than 90 deg         or less than -90 deg.",
               " Number of Occurrences : 2"]
    write("no_printout",
          opening(title) + BANNER + year_lines(0, 4, 19970106) + warning + CLOSING, report, tables,
          {"standard_error": ["kelprun: warning: the run needs 4 wave records, the table holds 3 "
                              "from the start date on"]})


def stopped():
    """Two calm hours with a fill of 1 m each, then a wave whose diffraction cannot be found."""
    title, NX, date, wave = "Stopped by a groin of negative permeability", 21, 19970101, \
        (1.0, 8.0, -30.0, 20.0)
    run = Run(title, NX, 20.0, 1.0, 6, date, NX * [100.0], groins=[(8, 300.0, -5.0)],
              breakwaters=[(14, 18, 260.0, 260.0, 0.5)])
    # Method 2 with its crest above the water gives the lower limit. Half a unit in two decimals,
    # 0.075 lies above it as a single.
    assert f32(0.075) > 0.075
    KT = 3 * ["       0.08"]
    report = head(run) + [free(' ERROR IN "KDGODA".'), free(" KD CALCULATION DID NOT CONVERGE")] + \
        closing(run, 3, date, 3 * [run.walls(0.0)], last_pass(wave), wave_means(NX, [(wave, 1)]),
                run.walls(0.0), run.cells(102.0), run.cells(102.0), run.cells(100.0),
                run.cells(402.0), run.cells(360.0), run.cells(18.0), 21 * 360.0, KT=KT,
                stopped=True)
    rows = [[run.cells(v) for v in column] for column in
            [(100.0, 101.0, 102.0), (0.0, 400.0, 401.0), (0.0, 180.0, 360.0), (0.0, 9.0, 18.0)]]
    write("stopped",
          opening(title, " Opening Water Level Input File: levels.dat") + [" Reading WTRELFILE"] +
          BANNER + CLOSING, report, calm_tables(NX, 3 * [date], *rows, [date]),
          {"standard_error": ["kelprun: warning: the run was stopped during time step 3"]})


# Budgets --------------------------------------------------------------------------------------

def rest(arrows):
    """Arrows without any transport."""
    nothing = 2 * [single(0.0)] + 2 * [double(0.0)]
    return [(walls, (nothing, nothing)) for walls in arrows]


def budget_of_events():
    """Cells of 16 m and 8 m high: a metre is 128 m3. Moves by step and cell."""
    title, NX, start, steps = "Budget of fills and bypassing", 12, 19970101, 10
    run = Run(title, NX, 16.0, 24.0, steps, start, NX * [100.0], DCLOS=7.0, BERMHT=1.0)
    fills = [([1, 2, 3], [2, 3, 4], 1.0), ([2, 3, 4], [4, 5], -0.5)]
    bypass = [([3, 4], [7, 8], 1.5), ([4, 5], [8, 9], -0.75)]
    positions = [NX * [100.0]]
    ledgers = [NX * [0.0] for _ in range(5)]
    for step in range(1, steps + 1):
        Y = list(positions[-1])
        for first_ledger, events in [(1, fills), (3, bypass)]:
            for when, where, move in events:
                for cell in where if step in when else []:
                    Y[cell - 1] += move
                    ledgers[first_ledger + (move < 0)][cell - 1] += 128 * move
        positions.append(Y)
    # Events of exactly 0.01 m3 are too small for the budget, and their 0.08 mm for the volumes.
    for ledger, cell, sign in [(1, 12, 1), (2, 11, -1), (3, 10, 1), (4, 1, -1)]:
        ledgers[ledger][cell - 1] += sign * f32(0.01)
    changes = [[y - 100.0 for y in Y] for Y in positions]
    seen = [d - 0.01 / 128 if cell in (1, 11) else d for cell, d in enumerate(changes[-1], 1)]
    volumes = [[128 * d for d in row] for row in changes]
    per_length = [[8 * d for d in row] for row in changes]
    ledgers[0] = volumes[-1]
    highest = [max(Y[i] for Y in positions) for i in range(NX)]
    lowest = [min(Y[i] for Y in positions) for i in range(NX)]
    contour = [y + 300.0 for y in positions[-2]]
    budget = Budget("M3", 10, ledgers).lines(
        [(1, 12), (2, 4), (5, 6), (7, 7), (9, 9), (10, 12), (1, 1), (6, 6), (5, 3)],
        rest([(3, 7), (13, 1)]))
    date = 19970112
    report = head(run) + cycling_block(19970103) + \
        print_block(run, 3, 19970105, start, positions[3], 3 * [run.walls(0.0)], volumes[3],
                    per_length[3], sum(volumes[3])) + \
        calm_year(run, steps, date, positions[-1], seen) + \
        calm_closing(run, steps, date, positions[-1], highest, lowest, contour, volumes[-1],
                     per_length[-1], sum(volumes[-1]), budget=budget)
    saved = [0, 2, 4, 6, 8, 10]
    dates = [19970103] + [19970102 + n for n in saved[1:]]
    contours = [NX * [0.0]] + [[y + 300.0 for y in positions[n - 1]] for n in saved[1:]]
    write("budget_of_events", opening(title) + BANNER + year_lines(0, steps, date) + CLOSING,
          report,
          calm_tables(NX, dates, [positions[n] for n in saved], contours,
                      [volumes[n] for n in saved], [per_length[n] for n in saved],
                      [19970105, date, date]))


IRV_HEAD = ("      DT        L_Qout         L_Qie      L_Attach         L_Qba      L_Bypass"
            "         L_Qeb           Ebb           Qfe         Flood           Qce         R_Qeb"
            "      R_Bypass         R_Qba      R_Attach         R_Qie        R_Qout       DATE")


def budget_of_an_inlet():
    """The left end gains 1.5 ft at each of four steps; an inlet in cells 8 to 10 is dredged of 4
    cubic yards a step and given 1."""
    title, NX, date, steps = "Budget of an inlet", 20, 19970101, 4
    run = Run(title, NX, 100.0, 1.0, steps, date, NX * [100.0], feet=True, WMDEP=65.0, DCLOS=25.0,
              BERMHT=2.0)
    CONV, yard = f32(0.3048), f32(0.9144)
    U = f32(f32(yard * yard) * yard)
    dredged, placed = f32(4.0 * U), f32(-1.0 * U)
    inlet = Inlet("Pass", 8, 10)
    for _ in range(steps):
        inlet.VDREDR = f32(inlet.VDREDR - dredged)
        inlet.VDREDP = f32(inlet.VDREDP + placed)
    start = 100.0 * CONV
    d = sum_of(start, steps, f32(f32(1.5) * CONV)) - start
    volume = f32(f32(f32(100.0 * CONV) * d) * f32(f32(25.0 * CONV) + f32(2.0 * CONV)))
    ledgers = [[volume] + (NX - 1) * [0.0]] + 4 * [NX * [0.0]]
    budget = Budget("CY", 0, ledgers, [inlet]).lines(
        [(1, 3), (7, 11), (8, 10), (5, 7), (11, 15), (9, 15), (3, 9), (1, 8), (10, 20)],
        rest([(8, 11), (1, 8), (11, 21), (3, 5)]))
    total = closing_total(run, [(steps, 1.5)] + (NX - 1) * [(0, 0.0)])
    assert abs(total / 600.0 - 1) < 1e-6

    def first_cell(value, others):
        return [value] + (NX - 1) * [others]

    offset = 300 / 0.3048
    final, volumes, per_length = first_cell(106.0, 100.0), first_cell(600.0, 0.0), \
        first_cell(6.0, 0.0)
    contour = first_cell(104.5 + offset, 100.0 + offset)
    report = head(run) + cycling_block(date) + \
        calm_year(run, steps, date, final, first_cell(6.0, 0.0)) + \
        calm_closing(run, steps, date, final, final, NX * [100.0], contour, volumes, per_length,
                     total, budget=budget)
    tables = calm_tables(
        NX, 3 * [date], [NX * [100.0], first_cell(103.0, 100.0), final],
        [NX * [0.0], first_cell(101.5 + offset, 100.0 + offset), contour],
        [NX * [0.0], first_cell(300.0, 0.0), volumes],
        [NX * [0.0], first_cell(3.0, 0.0), per_length], 2 * [date])
    write("budget_of_an_inlet", opening(title) + BANNER + year_lines(0, steps, date) + CLOSING,
          report, tables, {"Pass.irv": ["Inlet Shoal Volumes for Pass", IRV_HEAD]})


straight_beach()
print_dates()
two_new_years()
moving_ends("moving_ends", "Ends that move in a calm", False)
moving_ends("moving_ends_in_feet", "Ends that move in a calm, in feet", True)
adaptive_step()
structures_in_a_calm()
thousands()
no_printout()
stopped()
budget_of_events()
budget_of_an_inlet()
