"""Beach fills, bypass operations, inlets and dredging: what acts otherwise than it seems, or not at all."""

from __future__ import annotations

from .check_context import Context, counted, is_date
from .configuration import LAST_STEP_NUMBER, Line, days_between
from .errors import KelpError

FILLS = ("BFDATS", "BFDATE", "IBFS", "IBFE")
BYPASSES = ("BPDATS", "BPDATE", "IBPS", "IBPE")
BEACH = 2  # cells that an inlet needs beside it
SHOALS = range(1, 7)  # what can be dredged
PLACEMENTS = (("IBYPL1", "IBYPL2", "right"), ("IBYPR1", "IBYPR2", "left"))  # where sand from a side is put


def clock_text(date: int) -> str:
    return "a date" if date > LAST_STEP_NUMBER else "a step number"


class EventChecks(Context):
    def check_events(self):
        for names in (FILLS, BYPASSES):
            self.check_operations(*names)
        try:
            inlets = self.configuration.records(
                "IINLS",
                {name: "int8" for name in ("IINLE", "IBYPL1", "IBYPL2", "IBYPR1", "IBYPR2")}
                | {"YINLL": "real", "YINLR": "real"},
                {"JBCL": "real", "JBCR": "real"},
            )
        except KelpError:
            return  # told with the values
        stretches = [(inlet["IINLS"], inlet["IINLE"]) for inlet in inlets]
        for place, (line, inlet) in enumerate(zip(self.lines_of("IINLS"), inlets)):
            self.check_inlet_place(line, stretches, place)
            self.check_placements(line, inlet, stretches)
            self.check_sides(line, inlet)
        self.check_dredging_events()

    # Fills and bypass operations.

    def check_operations(self, first_name: str, last_name: str, start_name: str, end_name: str):
        firsts, lasts = self.entries(first_name), self.entries(last_name)
        if not firsts:
            return
        clock = clock_text(firsts[0][1])
        for line, date in firsts + lasts:
            if clock_text(date) != clock:
                self.tell(
                    "warning", line,
                    f"{line.keyword} {date} is {clock_text(date)}, but all are compared with the clock of the first "
                    f"{first_name}, which is {clock}",
                )  # fmt: skip
        for (line, first), (_, last) in zip(firsts, lasts):
            if clock_text(first) == clock_text(last) == clock:
                self.check_period(line, first, last, first_name, last_name)
        for (line, start), (_, end) in zip(self.entries(start_name), self.entries(end_name)):
            if end < start:
                self.tell("error", line, f"{start_name} {start} lies behind {end_name} {end}")
            elif self.cells > 0 and (start < 1 or end > self.cells):
                fill = first_name == "BFDATS"
                level = "warning" if fill and (start >= 1 or end <= self.cells) else "error"
                cells = f"{start_name} to {end_name}: {start} to {end}"
                self.tell(level, line, f"{cells} reach out of cells 1 to {self.cells}")

    def check_period(self, line: Line, first: int, last: int, first_name: str, last_name: str):
        step = self.value("DT", "real", 0.0)
        dated = first > LAST_STEP_NUMBER
        if dated:
            start, end = self.start, self.end if self.end > LAST_STEP_NUMBER else None
        else:
            start, end = 1, int(self.hours / step + 0.5) + 1 if self.hours and step > 0 else None
        if last < first:
            self.tell("warning", line, f"{last_name} {last} lies before {first_name} {first}")
        elif last == first:
            self.tell("warning", line, f"{first_name} {first} acts on no step: {last_name}, the same, does not count")
        elif last <= start or (end is not None and first >= end):
            self.tell("warning", line, f"{first_name} {first} to {last} does not lie within the run")
        elif first_name == "BFDATS" and (first < start or (end is not None and last > end)):
            self.tell(
                "warning", line,
                f"BFDATS {first} to {last} reaches out of the run: only the share of YADD that lies within it "
                "is placed",
            )  # fmt: skip
        elif first_name == "BFDATS" and not dated:
            steps = last - first
            self.tell(
                "note", line,
                f"BFDATS {first} to {last} places {steps} parts in {steps + 1} of YADD: the last step does not count",
            )  # fmt: skip

    # Inlets.

    def check_inlet_place(self, line: Line, stretches: list, place: int):
        first, last = stretches[place]
        if last < first:
            self.tell("error", line, f"IINLE {last} lies before IINLS {first}")
        elif first <= BEACH or (self.cells > 0 and last > self.cells - BEACH):
            self.tell("error", line, f"IINLS {first} to {last}: an inlet needs {BEACH} cells of beach on each side")
        for before in stretches[:place]:
            if first <= before[1] + BEACH and last >= before[0] - BEACH:
                self.tell("error", line, f"IINLS {first} to {last}: {BEACH} cells of beach are needed between inlets")

    def check_placements(self, line: Line, inlet: dict, stretches: list):
        for first_name, last_name, sand in PLACEMENTS:
            first, last = inlet[first_name], inlet[last_name]
            count = last - first + 1
            stretch = f"{first_name} to {last_name}: {first} to {last}"
            lost = f"the sand that came from the {sand} is lost"
            if not first and not last:
                self.tell("warning", line, f"this IINLS has no {first_name} and {last_name}: {lost}")
            elif count < 1:
                self.tell("warning", line, f"{stretch} holds no cell: {lost}")
            elif self.cells > 0 and (first < 1 or last > self.cells):
                self.tell("warning", line, f"{stretch} reach out of cells 1 to {self.cells}; sand put there is lost")
            elif any(first <= end and last >= start for start, end in stretches):
                self.tell("warning", line, f"{stretch} reach into an inlet; sand put there is lost")
            elif count > 1:
                share = f"which get about 1/{count} of the sand; give one"
                self.tell("warning", line, f"{stretch} are {count} cells, {share}")

    def check_sides(self, line: Line, inlet: dict):
        left, right = inlet["YINLL"], inlet["YINLR"]
        if left and self.value("KELUNITS", "text", "(ft)").lower()[1:3] == "ft":
            sides = f"YINLL and YINLR of this IINLS, {left:g} and {right:g}"
            self.tell("warning", line, f"{sides}, are taken as metres: they are not converted")
        if left and not right:
            self.tell("warning", line, "this IINLS has YINLL and no YINLR: the inlet's right side stands at 0")
        if right and not left:
            self.tell("warning", line, "this IINLS has no YINLL: both sides are worked out, and YINLR has no effect")
        groins = {}
        for name, permeability in (("IXNDG", "PNDG"), ("IXDG", "PDG")):
            try:
                for groin in self.configuration.records(name, {permeability: "real"}):
                    groins[groin[name]] = permeability, groin[permeability]
            except KelpError:
                pass  # told with the values
        jetties = groins.get(inlet["IINLS"]), groins.get(inlet["IINLE"] + 1)
        for name, jetty in zip(("JBCL", "JBCR"), jetties):
            # Without a jetty on the left the model sets both to 1.
            if not left and jetties[0] and jetty and not inlet[name]:
                self.tell(
                    "warning", line,
                    f"{name} of this IINLS is 0: the shoreline in the inlet stands at the jetty's tip, and hardly any "
                    "sand comes in; 1 is the beach",
                )  # fmt: skip
        if jetties[0] and jetties[0][1] > 0:
            name, share = jetties[0]
            self.tell(
                "warning", line,
                f"{name} {share:g} of the jetty at wall {inlet['IINLS']}: a left jetty that lets sand through takes "
                "far more off the beach than the inlet gets; 0 keeps the sand",
            )  # fmt: skip

    # Dredging.

    def check_dredging_events(self):
        """Each event belongs to the inlet opened last, and each volume to the days told last."""
        forms = {"IDREDS": "int8", "IDREDE": "int8", "DRDAY": "real", "DREDV": "real", "IMOR": "int8"}
        event: dict = {}
        days, inlets = 0.0, 0
        for line in [*self.lines, None]:
            if line is None or (line.keyword == "IMOR" and line.value):
                if event:
                    self.check_dredging_event(event)
                if line is None:
                    return
                if not inlets:
                    self.tell("error", line, "IMOR stands before any IINLS line")
                event = {"line": line, "IDREDS": 0, "IDREDE": 0, "DREDV": 0.0, "days": 0.0}
            inlets += line.keyword == "IINLS" and bool(line.value)
            if line.keyword not in forms or not line.value:
                continue
            try:
                value = self.configuration.decode(line, forms[line.keyword], 0)
            except KelpError:
                continue  # told with the values
            days = value if line.keyword == "DRDAY" else days
            if event:
                event[line.keyword] = value
                event["days"] = days if line.keyword == "DREDV" else event["days"]

    def check_dredging_event(self, event: dict):
        line, first, last = event["line"], event["IDREDS"], event["IDREDE"]
        if "IMOR" in event and event["IMOR"] not in SHOALS:
            self.tell("warning", line, f"IMOR {event['IMOR']} is no shoal: 1 to 6 are dredged, and this touches none")
        period = f"IDREDS {first} to {last}"
        if not first or not last:
            return  # told with what is left out
        if min(first, last) <= LAST_STEP_NUMBER:
            self.tell("warning", line, f"{period}: dredging goes by dates alone, not by step numbers")
        elif last < first:
            self.tell("warning", line, f"IDREDE {last} lies before IDREDS {first}")
        elif first > self.end > LAST_STEP_NUMBER or last < self.start:
            self.tell("warning", line, f"{period} does not lie within the run")
        elif is_date(first) and is_date(last):
            days = days_between(first, last) + 1
            if event["days"] > 0 and abs(days - event["days"]) > 0.01:
                total = event["DREDV"] * days / event["days"]
                self.tell(
                    "warning", line,
                    f"{period} are {counted(days, 'day')}, the last one counts too, and DRDAY is {event['days']:g}: "
                    f"{total:.0f} are taken, not DREDV {event['DREDV']:g}",
                )  # fmt: skip
