"""Keywords without effect, and times that do not fit each other."""

from __future__ import annotations

from .check_context import Context, is_date
from .configuration import LAST_STEP_NUMBER

WITHOUT_EFFECT = {
    "Y0": "it is read and ignored",
    "IDB1": "it is accepted and ignored",
    "IDBN": "it is accepted and ignored",
    "BYPFILE": "the file is opened, but nothing is read from it",
}


class EffectChecks(Context):
    def check_effects(self):
        for name, why in WITHOUT_EFFECT.items():
            self.tell_idle(name, why)
        IREG = self.value("IREG", "int8")
        if IREG not in (1, 3):
            self.tell_idle("REGFILE", f"IREG is {IREG}, and only 1 and 3 use the regional contour")
        elif not self.given("REGFILE"):
            self.tell("error", self.last("IREG"), f"IREG is {IREG}, but there is no REGFILE")
        if IREG != 1:
            for name in ("WAVREGANG", "IWAVREGSMOOTH"):
                self.tell_idle(name, f"IREG is {IREG}, and only 1 turns waves to the regional contour")
        widths = self.values("DX")
        variable = widths[:1] == [-1]
        if widths and not variable and widths[0] <= 0:
            self.tell("error", self.last("DX"), f"DX must be above 0, or -1 for a DXFILE; it is {widths[0]:g}")
        if self.given("DX") and not variable:
            self.tell_idle("DXFILE", "DX is not -1")
        if variable and not self.given("DXFILE"):
            self.tell("error", self.last("DX"), "DX is -1, but there is no DXFILE")
        if self.value("DTADAPT", "integer") != 1:
            for name in ("DTMIN", "DTMAX", "NSTABDTMIN", "STABMIN", "STABMAX"):
                self.tell_idle(name, "DTADAPT is not 1")
        if not self.given("TIDEFILE"):
            self.tell_idle("KTIDE", "there is no TIDEFILE")
        if self.given("WLFILE"):
            self.tell_idle("DTWL", "the step comes from the water level file itself")
        for side, name in (("L", "left"), ("R", "right")):
            kind = self.value(f"{side}BCTYPE", "int8")
            if kind != 3:
                for keyword in (f"{side}MOVY", f"{side}MOVPER"):
                    self.tell_idle(keyword, f"{side}BCTYPE is {kind}, and only 3 moves the {name} end")
            elif self.value(f"{side}MOVPER", "int8") not in (1, 2, 3):
                self.tell("error", self.last(f"{side}BCTYPE"), f"{side}BCTYPE is 3, and {side}MOVPER must be 1, 2 or 3")
            if kind not in (1, 2):
                self.tell_idle(f"{side}GROINY", f"{side}BCTYPE is {kind}, and only 1 and 2 are a groin")
            if not 0 <= kind <= 3:
                self.tell("error", self.last(f"{side}BCTYPE"), f"{side}BCTYPE must be 0 to 3")

    def tell_idle(self, name: str, why: str):
        if self.given(name):
            self.tell("warning", self.last(name), f"{name} has no effect: {why}")

    # Times.

    def check_times(self):
        start, end = self.start, self.end
        if not self.given("SIMDATS"):
            self.tell("warning", 0, "SIMDATS is left out: the run starts at date 0")
        elif not is_date(start):
            self.tell("warning", self.last("SIMDATS"), f"SIMDATS: {start} is no date YYYYMMDD")
        if self.given("SIMDATE"):
            if end >= LAST_STEP_NUMBER and not is_date(end):
                self.tell("warning", self.last("SIMDATE"), f"SIMDATE: {end} is no date YYYYMMDD")
            elif end >= LAST_STEP_NUMBER and end <= start:
                self.tell("error", self.last("SIMDATE"), f"SIMDATE {end} does not lie behind SIMDATS {start}")
            elif end < LAST_STEP_NUMBER:
                self.tell("note", self.last("SIMDATE"), f"SIMDATE below {LAST_STEP_NUMBER} counts time steps: {end}")
        step, interval = self.value("DT", "real", 0.0), self.value("DTSAVE", "real", 0.0)
        for name, hours in (("DT", step), ("DTSAVE", interval)):
            if self.given(name) and hours <= 0:
                self.tell("error", self.last(name), f"{name} must be above 0")
        if step > 0 and interval > 0 and round(1000 * interval, 3) % round(1000 * step, 3):
            self.tell("error", self.last("DTSAVE"), f"DTSAVE {interval:g} is no multiple of DT {step:g}")
        self.check_print_dates()

    def check_print_dates(self):
        hours, step = self.hours, self.value("DT", "real", 0.0)
        before = 0
        for line, date in self.entries("PRDATE"):
            dated = date > LAST_STEP_NUMBER
            if before and dated == (before > LAST_STEP_NUMBER) and date <= before:
                self.tell(
                    "warning", line,
                    f"PRDATE {date} does not lie behind {before}: it is awaited in vain, and the "
                    "dates behind it with it",
                )
            elif dated and self.end >= LAST_STEP_NUMBER and not self.start < date < self.end:
                self.tell(
                    "warning", line,
                    f"PRDATE {date} does not lie within the run: it is awaited in vain, and the "
                    "dates behind it with it",
                )
            elif not dated and hours and step > 0 and not 0 < date < hours / step:
                self.tell(
                    "warning", line,
                    f"PRDATE {date} is no time step of the run before its last: it is awaited in "
                    "vain, and the dates behind it with it",
                )
            before = date
