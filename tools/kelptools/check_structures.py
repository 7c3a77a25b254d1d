"""Groins and breakwaters, and the water levels and currents that come with them."""

from __future__ import annotations

from .check_context import Context, item_texts
from .configuration import Line, parse_whole
from .errors import KelpError

DEPTHS = ("DDG", "DBDEP1", "DBDEP2")  # below the tips of groins and breakwaters
# What each method of the computed transmission works with; a method that is not listed is 0.
SIZES = {1: ("HDB", "BDB", "D50DB"), 2: ("HDB", "BDB", "SSDB"), 0: ("HDB", "BDB", "SSDB", "SHSDB", "D50DB")}


class StructureChecks(Context):
    def check_depths(self):
        """Waves bend round a tip only where there is water below it."""
        for name in DEPTHS:
            for line, depth in self.reals(name):
                if not depth > 0:
                    self.tell("error", line, f"{name} must be above 0, it is {depth:g}")

    def reals(self, keyword: str) -> list[tuple[Line, float]]:
        """The numbers of a list keyword with their lines, as far as they can be decoded."""
        found = []
        for line in self.lines_of(keyword):
            try:
                found.append((line, self.configuration.decode(line, "real", 0.0)))
            except KelpError:
                pass
        return found

    # How much of a wave passes a breakwater.

    def check_transmission(self):
        given, computed = self.lines_of("TRANDB"), self.lines_of("KTMETDB")
        for line, share in self.reals("TRANDB"):
            if share < 0:
                self.tell("error", line, f"TRANDB must not be below 0, it is {share:g}")
        is_computed = bool(computed) and (not given or computed[-1].number > given[-1].number)
        if given and computed:
            holds, other = ("KTMETDB", given) if is_computed else ("TRANDB", computed)
            self.tell(
                "warning", other[0],
                f"{other[0].keyword} has no effect: the last of TRANDB and KTMETDB decides "
                f"for all breakwaters, and it is {holds}",
            )
        elif self.given("DBI1") and not given and not computed:
            self.tell("warning", self.lines_of("DBI1")[0], "neither TRANDB nor KTMETDB: no wave passes the breakwaters")
        if is_computed:
            self.check_computed(computed)
        elif self.given("WLFILE"):
            self.tell("warning", self.last("WLFILE"), "WLFILE has no effect: only KTMETDB works with water levels")

    def check_computed(self, methods: list[Line]):
        if not self.given("WLFILE"):
            self.tell("error", methods[-1], "KTMETDB needs a WLFILE: transmission is computed from the water level")
        try:
            forms = {"KTMETDB": "int8", "HDB": "real", "BDB": "real", "SSDB": "real", "SHSDB": "real"}
            breakwaters = self.configuration.records("DBI1", forms)
            stones = self.configuration.records("KTMETDB", {}, {"D50DB": "real"})
        except KelpError:
            return  # told with the values
        for number, (line, breakwater, stone) in enumerate(zip(methods, breakwaters, stones), 1):
            method = breakwater["KTMETDB"]
            sizes = {**breakwater, "D50DB": stone["D50DB"]}
            missing = [name for name in SIZES.get(method, SIZES[0]) if not sizes[name] > 0]
            if missing:
                self.tell(
                    "warning", line,
                    f"KTMETDB {method} of breakwater {number} works with {' and '.join(missing)}, which must be "
                    "above 0",
                )

    # Where tidal currents are known.

    def check_stations(self):
        cells = []
        for line in self.lines_of("TIDEFILE"):
            try:
                cells.append((line, parse_whole(item_texts(line.value)[0])))
            except (ValueError, IndexError):
                pass  # told with the values
        for line, cell in cells:
            if self.cells > 0 and not 1 <= cell <= self.cells + 1:
                self.tell("error", line, f"TIDEFILE: end cell {cell} lies outside 1 to {self.cells + 1}")
        for (_, before), (line, cell) in zip(cells, cells[1:]):
            if cell <= before:
                self.tell(
                    "warning", line,
                    f"TIDEFILE: end cell {cell} follows {before}; stations must be named from left to right, or "
                    "currents come to wrong places",
                )
