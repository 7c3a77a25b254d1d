"""The printed report, a second time: written from what the report has to say, not from the program.

Values come in the units that are printed, but for the budget, which divides them itself."""
from expected_numbers import (cell_numbers, double, f32, fixed, free, narrow, quotient,
                              single, wide)

FIGURE = [r" _  __    _       ____              ", r"| |/ /___| |_ __ |  _ \ _   _ _ __  ",
          r"| ' // _ \ | '_ \| |_) | | | | '_ \ ", r"| . \  __/ | |_) |  _ <| |_| | | | |",
          r"|_|\_\___|_| .__/|_| \_\\__,_|_| |_|", r"           |_|                      "]

# Volumes and positions are a few products away from the input.
FEW_ROUNDINGS = 2e-7

SIGN = "  SIGN CONVENTION:  EROSION (-), ACCRETION (+)"


class Run:
    """What the head of a report tells, in the units of the configuration."""

    def __init__(self, title, NX, DX, DT, NTS, SIMDATS, shore, feet=False, wave_feet=False, D50=0.2,
                 WMDEP=20.0, NWFIL=1, K1=0.4, K2=0.2, DCLOS=8.0, BERMHT=1.0, groins=(),
                 breakwaters=()):
        self.title, self.NX, self.DX, self.DT, self.NTS = title, NX, DX, DT, NTS
        self.SIMDATS, self.shore, self.feet, self.wave_feet = SIMDATS, shore, feet, wave_feet
        self.D50, self.WMDEP, self.NWFIL, self.K1, self.K2 = D50, WMDEP, NWFIL, K1, K2
        self.DCLOS, self.BERMHT = DCLOS, BERMHT
        self.groins = groins            # (wall, tip, permeability)
        self.breakwaters = breakwaters  # (first, last tip cell, first, last distance, KT)
        self.CONV = 0.3048 if feet else 1.0
        self.WAVCONV = 0.3048 if wave_feet else 1.0
        self.CUBE = 0.9144 ** 3 if feet else 1.0
        self.length = "FT" if feet else "M"
        self.volume = "YARDS3" if feet else "M3"
        self.label = "CY" if feet else "M3"
        self.KELUNITS = "(ft)  " if feet else "(m)   "
        self.WAVUNITS = "(ft)  " if wave_feet else "(m)   "

    def walls(self, value):
        return (self.NX + 1) * [value]

    def cells(self, value):
        return self.NX * [value]


# Head -----------------------------------------------------------------------------------------

def head(run):
    lines = ["", ""] + [" " + 16 * " " + line for line in FIGURE]
    lines += [free(29 * " " + box) for box in ["+---------+", "| KelpRun |", "+---------+"]]
    lines += [free(19 * " " + "Version 1.1 release 8, JAN 2020"),
              free(25 * " " + "KelpRun_v1p1r8.exe     ")] + 4 * [""]
    lines += [" " + " RUN" + " " + ("%-64s" % run.title).rjust(70), "", ""]
    lines += [free(" AMERICAN CUSTOMARY UNITS" if run.feet else " METRIC UNITS"),
              free(" Wave heights input and reported in " +
                   ("feet" if run.wave_feet else "meters")),
              free(" Median Grain Size (D50) input and reported in     millimeters")]
    return lines + structures(run) + grid_and_wave_lines(run) + parameters(run) + \
        [free(" INITIAL SHORELINE POSITION (%s)" % run.length)] + wide(run.shore)


def structures(run):
    lines = []
    if run.groins:
        wall, tip, permeability = zip(*sorted(run.groins))
        lines += [free(" GROIN X-COORDINATES")] + cell_numbers(wall)
        lines += [free(" DISTANCE TO GROIN TIPS FROM X-AXIS")] + wide(tip)
        lines += [free(" GROIN PERMEABILITIES")] + wide(permeability)
    if run.breakwaters:
        lines += [free(" X-COORDINATES OF DETACHED BREAKWATER TIPS")]
        lines += cell_numbers([cell for b in run.breakwaters for cell in b[0:2]])
        lines += [free(" DISTANCE TO BREAKWATER TIPS FROM X-AXIS")]
        lines += wide([tip for b in run.breakwaters for tip in b[2:4]])
        lines += [free(" DETACHED BREAKWATER TRANSMISSION COEFFICIENTS")]
        lines += wide([b[4] for b in run.breakwaters])
    return lines


def grid_and_wave_lines(run):
    """Formatted records: columns without the blank of a free-format line. DX None: it varies."""
    widths = " DX = VARIES" if run.DX is None else " DX =" + fixed(run.DX, 7, 1)
    return [widths + "    DT =" + fixed(run.DT, 8, 2) + "    ISSTART =  1" +
            "    NX =%8d" % run.NX + "    NTS =%7d" % run.NTS,
            " NWAVES =  1" + "    NWFIL =" + fixed(run.NWFIL, 5, 1) + "   D50 =" +
            fixed(run.D50, 7, 1) + "    WMDEP  = " + fixed(run.WMDEP, 6, 1)]


def parameters(run):
    lines = []
    for title, value in [
            (" Wave Height Amplification Factor (HAMP or HCNGF) =", 1.0),
            (" Wave Angle Amplification Factor (THETAAMP or ZCNGF) =", 1.0),
            (" Wave Angle Incremental Adjustment Term (THETADEL or ZCNGA) =", 0.0),
            (" Longshore Sediment Transport Coefficient (K1) =", run.K1),
            (" Longshore Sediment Transport Coefficient 2 (K2) =", run.K2),
            (" Depth of Closure (DCLOS) =", run.DCLOS),
            (" Average Berm Height (ABH) =", run.BERMHT)]:
        lines += ["", free(title)] + wide(run.walls(value))
    return lines


# Blocks ---------------------------------------------------------------------------------------

def unit_text(run, QMAX):
    return " (%s%s) FROM " % (run.volume, "/1000" if QMAX > 100000 else "")


def print_block(run, ITS, date, since, shore, sums, volumes, per_length, total, QMAX=0.0):
    """sums: net, left, right of each wall since the last year block. volumes: of each cell."""
    net, left, right = sums
    lines = [free(" SHORELINE POSITION (%s) AFTER " % run.length, ITS, " TIME STEPS. DATE IS ",
                  date)] + wide(shore)
    for title, values in [(" MEAN ANNUALIZED NET TRANSPORT", net),
                          (" MEAN ANNUALIZED TRANSPORT TO THE LEFT", left),
                          (" MEAN ANNUALIZED TRANSPORT TO THE RIGHT", right)]:
        lines += [free(title, unit_text(run, QMAX), since, " TO ", date)] + wide(values)
    return lines + volume_blocks(run, volumes, per_length) + [total_line(run, total), ""]


def volume_blocks(run, volumes, per_length):
    return [free(" CALCULATED VOLUME CHANGE (%s PER GRID" % run.label, " CELL) ")] + \
        wide(volumes, FEW_ROUNDINGS) + \
        [free(" CALCULATED VOLUME CHANGE (%s PER LINEAR" % run.label, " %s) " % run.length)] + \
        wide(per_length, FEW_ROUNDINGS)


def total_line(run, total):
    return free("CALCULATED TOTAL VOLUMETRIC CHANGE = ", single(total), " (%s)" % run.volume)


def year_results(run, years, ITS, date, since, shore, change, breaking, offshore, sums,
                 error=2e-6):
    """breaking, offshore: height and degrees on all walls; sums: net, left, right of each wall."""
    def moment(title):
        return free(title, run.KELUNITS, " AFTER ", years, " YEARS  =", ITS,
                    " TIME STEPS.  DATE IS ", date)

    lines = [moment("SHORELINE POSITION ")] + wide(shore)
    lines += [moment("SHORELINE CHANGE ")] + wide(change)
    for title, value in [
            (["BREAKING WAVE ANGLE TO X-AXIS (Deg). DATE IS "], breaking[1]),
            (["OFFSHORE WAVE ANGLE TO X-AXIS (Deg). DATE IS "], offshore[1]),
            (["BREAKING WAVE HEIGHT ", run.WAVUNITS, " DATE IS "], breaking[0]),
            (["OFFSHORE WAVE HEIGHT ", run.WAVUNITS, " DATE IS "], offshore[0])]:
        lines += [free(*title, date)] + narrow(run.walls(value))
    net, left, right = sums
    gross = [r - l for r, l in zip(right, left)]
    QMAX = max(gross)
    scale = 0.001 if QMAX > 100000 else 1.0
    lines.append(free(20 * "*"))
    for title, values in [(" GROSS TRANSPORT VOLUME", gross), (" NET TRANSPORT VOLUME", net),
                          (" TRANSPORT VOLUME TO THE LEFT", left),
                          (" TRANSPORT VOLUME TO THE RIGHT", right)]:
        lines += [free(title, unit_text(run, QMAX), since, " TO ", date)]
        lines += wide([scale * v for v in values], error)
    return lines


# Closing --------------------------------------------------------------------------------------

def closing(run, ITS, date, means, wave, statistics, Q, final, seaward, landward, contour, volumes,
            per_length, total, KT=None, bad_angles=0, budget=(), stopped=False):
    """means: net, left, right a year; wave: free-format numbers of the last pass's height, period
    and angle; Q in m3/s, statistics and budget are lines."""
    lines = [free(" EXECUTION STOPPED DURING TIME STEP", ITS)] if stopped else []
    unit = "(YARDS3/1000)" if run.feet else "(M3/1000) "
    for title, values in zip([" MEAN NET ANNUAL TRANSPORT ", " MEAN ANNUAL TRANSPORT TO THE LEFT ",
                              " MEAN ANNUAL TRANSPORT TO THE RIGHT "], means):
        lines += [free(title, unit)] + wide([v / 1000 for v in values])
    lines += [free("OUTPUT LAST TIMESTEP NO.", ITS, " DATE IS ", date),
              free(" OFFSHORE WAVE DATA INPUT:"),
              free("  HZ =", wave[0], " T =", wave[1], "    ZZ =", wave[2]), ""]
    lines += statistics
    lines += [free("LONGSHORE TRANSPORT FOR LAST TIME STEP *100 " +
                   ("(YARDS3/SEC)" if run.feet else " (M3/SEC)"))]
    lines += wide([100 * q / run.CUBE for q in Q]) + [""]
    for title, values in [(" CALCULATED FINAL SHORELINE", final),
                          (" CALCULATED SEAWARDMOST SHORELINE", seaward),
                          (" CALCULATED LANDWARDMOST SHORELINE", landward),
                          (" CALCULATED REPRESENTATIVE OFFSHORE CONTOUR", contour)]:
        lines += [free(title, " POSITION (%s)" % run.length)] + wide(values)
    if KT:
        lines.append(free(" DETACHED BREAKWATER KT STATISTICS: "))
        for title, row in zip(["AVG", "MAX", "MIN"], KT):
            lines += [free(" %s KT VALUE(S)  = " % title), row]
    lines += angle_warning(bad_angles) + volume_blocks(run, volumes, per_length)
    return lines + list(budget) + [total_line(run, total), SIGN]


def angle_warning(bad_angles):
    if not bad_angles:
        return []
    return [free("WARNING: Wave Angle is greater than 90 deg   or less than -90 deg."),
            free("Number of Occurrences : ", bad_angles)]


# Budget ---------------------------------------------------------------------------------------

class Budget:
    """ledgers: singles of each cell in m3: volume, fills placed and removed, bypass placed and
    removed. inlets: of the class below."""

    def __init__(self, label, NDAYS, ledgers, inlets=()):
        yard = f32(0.9144) if label == "CY" else 1.0
        self.U = f32(f32(yard * yard) * yard)
        self.YR = f32(f32(NDAYS / 365.0) * self.U)
        self.label, self.ledgers, self.inlets = label, ledgers, inlets

    def lines(self, cells, arrows):
        stars = free(63 * "*")
        title = free("*" + 25 * " " + "LEDG OUTPUT" + 25 * " " + "*")
        lines = [free(46 * " "), stars, title, stars]
        for n, (first, last) in enumerate(cells, 1):
            lines += self.cell(n, first, last)
        for n, arrow in enumerate(arrows, 1):
            lines += self.arrow(n, *arrow)
        return lines + [SIGN, free(46 * " "), stars]

    def cell(self, n, first, last):
        U, YR, label = self.U, self.YR, self.label
        sums = [in_order(ledger[first - 1:last]) for ledger in self.ledgers]
        lines = [free(" LEDG CELL ", n), free("    KELPRUN GRID CELL RANGE: "),
                 free("        STARTING GRID CELL:        ", first),
                 free("        ENDING   GRID CELL:        ", last),
                 free("    VOLUME CHANGE (" + label + "):             " + "     ",
                      double(quotient(sums[0], U))),
                 free("    AVG. VOLUME CHANGE RATE (" + label + "/YR):" + "     ",
                      double(quotient(sums[0], YR))), ""]
        pairs = [("    BEACH FILL VOLUME PLACEMENT (", "):    ",
                  "    AVG. BEACH FILL RATE (", "/YR):        "),
                 ("    BEACH EXCAVATION VOLUME REMOVAL (", ")",
                  "    AVG. BEACH EXCAVATION RATE (", "/YR):  "),
                 ("    BYPASS SOURCE VOLUME PLACEMENT (", "): ",
                  "    AVG. BYPASS SOURCE RATE (", "/YR):     "),
                 ("    BYPASS SINK VOLUME REMOVAL (", "):     ",
                  "    AVG. BYPASS SINK RATE (", "/YR):       ")]
        for which, (volume, volume_end, rate, rate_end) in enumerate(pairs):
            total = sums[which + 1] if which % 2 == 0 else -sums[which + 1]
            if total > f32(0.01):
                lines += [free(volume + label + volume_end, double(sums[which + 1] / U)),
                          free(rate + label + rate_end, double(quotient(sums[which + 1], YR))), ""]
        for inlet in self.inlets:
            lines += self.inlet_of_cell(n, first, last, inlet)
        return lines

    def inlet_of_cell(self, n, first, last, inlet):
        U, YR, label = self.U, self.YR, self.label
        not_included = free("    INLET VOLUME CONTRIBUTION " + "NOT INCLUDED IN CALCULATION")
        if inlet.first >= first and inlet.last <= last:
            def line(text, volume, divisor):
                return free(text, single(quotient(volume, divisor)))
            change = f32(f32(f32(inlet.VQIN - inlet.VQOUT) + inlet.VDREDP) + inlet.VDREDR)
            return [free("    LEDG CELL INCLUDES INLET:           " + inlet.name),
                    line("    VOLUME TRANSPORTED INTO INLET (" + label + "):  ", inlet.VQIN, U),
                    line("    VOLUME TRANSPORTED FROM INLET (" + label + "):  ", inlet.VQOUT, U),
                    line("    DREDGED VOLUME PLACEMENT (" + label + ":       ", inlet.VDREDP, U),
                    line("    DREDGED VOLUME REMOVAL (" + label + "): " + 8 * " ", inlet.VDREDR,
                         U),
                    line("    INLET VOLUME CHANGE (" + label + "):    " + 8 * " ", change, U),
                    line("    AVG. DREDGED PLACEMENT RATE (" + label + "/YR): ", inlet.VDREDP, YR),
                    line("    AVG. DREDGED REMOVAL RATE (" + label + "/YR):   ", inlet.VDREDR, YR),
                    line("    AVG. INLET VOL. CHANGE RATE (" + label + "/YR): ", change, YR)]
        if last == inlet.first - 1 or first == inlet.last + 1:
            return [free("    WARNING: LEDG CELL ", n),
                    free("    IS ADJACENT TO BOUNDARY OF INLET: " + inlet.name), not_included]
        if inlet.first < first < inlet.last or inlet.first < last < inlet.last:
            return [free("    WARNING: LEDG CELL ", n,
                         " ONLY " + "CONTAINS PART OF INLET: " + inlet.name), not_included]
        return []

    def arrow(self, n, walls, transports):
        """walls: first and last; transports: for each the volumes to the right and left and the
        rates to the right and left, as free-format numbers."""
        label = self.label
        lines = [free(" LEDG FLUX ARROW ", n), free("    KELPRUN GRID CELL RANGE: "),
                 free("        STARTING GRID CELL-WALL:   ", walls[0]),
                 free("        ENDING   GRID CELL-WALL:   ", walls[1])]
        lefts = ["        VOLUME TO LEFT  (" + label + "):     " + "       ",
                 "        VOLUME TO LEFT (" + label + "):      "]
        for wall, left, (to_right, to_left, rate_right, rate_left) in zip(walls, lefts, transports):
            lines += [free("    TRANSPORT AT GRID CELL-WALL:   ", wall),
                      free("        VOLUME TO RIGHT (" + label + "):     " + "       ", to_right),
                      free(left, to_left),
                      free("        AVG. RATE TO RIGHT (" + label + "/YR):" + "      ", rate_right),
                      free("        AVG. RATE TO LEFT  (" + label + "/YR):" + "      ", rate_left)]
        for inlet in self.inlets:
            for wall in walls:
                lines += self.mouth(wall, inlet)
        return lines

    def mouth(self, wall, inlet):
        U, YR = self.U, self.YR
        into, out = ("LEFT TO RIGHT", "RIGHT TO LEFT")
        into_short, out_short = ("L TO R", "R TO L")
        if wall == inlet.first:
            volume_in, volume_out, sign = f32(inlet.VQIER + inlet.VQCR), inlet.VQOUTL, (1, -1)
        elif wall == inlet.last + 1:
            volume_in, volume_out, sign = f32(inlet.VQIEL + inlet.VQCL), inlet.VQOUTR, (-1, 1)
            into, out, into_short, out_short = out, into, out_short, into_short
        else:
            return []
        return [free("    LEDG FLUX ARROW ADJACENT TO INLET:  " + inlet.name),
                free("    TRANSPORT INTO OR OUT OF INLET AT " + "CELL-WALL:", wall),
                free("        VOL. INTO INLET %s " % into,
                     single(quotient(volume_in, sign[0] * U))),
                free("        VOL. FROM INLET %s " % out,
                     single(quotient(volume_out, sign[1] * U))),
                free("        AVG. RATE INTO INLET %s" % into_short + "/YR):",
                     single(quotient(volume_in, sign[0] * YR))),
                free("        AVG. RATE FROM INLET %s" % out_short + "/YR):",
                     single(quotient(volume_out, sign[1] * YR)))]


def in_order(values):
    """A sum as the processor makes it, one after the other."""
    total = 0.0
    for value in values:
        total += value
    return total


class Inlet:
    """Singles in m3."""

    def __init__(self, name, first, last, VDREDP=0.0, VDREDR=0.0):
        self.name, self.first, self.last = name, first, last
        self.VDREDP, self.VDREDR = VDREDP, VDREDR
        self.VQIN = self.VQOUT = self.VQIER = self.VQCR = self.VQOUTL = 0.0
        self.VQIEL = self.VQCL = self.VQOUTR = 0.0
