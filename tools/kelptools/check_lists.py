"""Lists of values along the coast, and records made of several keywords."""

from __future__ import annotations

from .check_context import Context, counted
from .configuration import Line, parse_whole

# What the lists of values along the coast mean where they are left out.
LEFT_OUT = {
    "K1": ("error", "K1 is left out and would be 0 everywhere; it must be above 0"),
    "K2": ("note", "K2 is left out: 0 everywhere, no transport by differences of the wave height"),
    "HAMP": ("warning", "HAMP is left out: 0 everywhere, the whole run is calm; 1 takes the waves as they are"),
    "THETAAMP": ("warning", "THETAAMP is left out: 0 everywhere, all waves come straight in; 1 takes them as they are"),
    "THETADEL": ("note", "THETADEL is left out: 0 everywhere, wave angles are not turned"),
    "BERMHT": ("warning", "BERMHT is left out: 0 everywhere, the profile ends at the water line"),
    "DCLOS": ("warning", "DCLOS is left out: 0 everywhere, nothing moves below the water line"),
}
# List keywords that a record can do without.
OPTIONAL = {
    "PNDG", "PDG", "TRANDB", "KTMETDB", "HDB", "BDB", "SSDB", "SHSDB", "D50DB", "PDB", "INLNAME",
    "IBYPL1", "IBYPL2", "IBYPR1", "IBYPR2", "JBCL", "JBCR", "YINLL", "YINLR",
}  # fmt: skip
KEPT_FOR_LATER = "DRDAY"  # the days of the next DREDV; all others must stand behind their opener


def cells_text(first: int, last: int) -> str:
    return f"cell {first}" if first == last else f"cells {first} to {last}"


class ListChecks(Context):
    # Values along the coast.

    def check_spans(self):
        for name, keyword in self.known.items():
            ends_name = f"I{name}END"
            if keyword.form == "real_list" and ends_name in self.known:
                self.check_span(name, ends_name)

    def check_span(self, name: str, ends_name: str):
        values, all_ends = self.values(name), self.values(ends_name, parse_whole)
        where, ends_where = self.last(name), self.last(ends_name)
        if not self.given(name):
            level, text = LEFT_OUT.get(name, ("warning", f"{name} is left out: 0 everywhere"))
            self.tell(level, ends_where, text)
            return
        if not values:
            return
        if name == "K1" and min(values) <= 0:
            self.tell("error", where, f"K1 must be above 0, it is {min(values):g}")
        ends = all_ends[: all_ends.index(0)] if 0 in all_ends else all_ends
        if not ends:
            if len(values) > 1:
                self.tell(
                    "warning", where,
                    f"{ends_name} is missing: only the first of {len(values)} values of {name} is "
                    f"read, {values[0]:g} everywhere",
                )
            else:
                self.tell("note", where, f"{ends_name} is missing: {name} is {values[0]:g} everywhere")
            return
        if len(all_ends) > len(ends) and any(all_ends[len(ends) :]):
            self.tell("warning", ends_where, f"{ends_name}: end cells behind the 0 are ignored")
        cells = self.cells
        if cells in ends:
            used = ends.index(cells) + 1
            if used < len(ends):
                self.tell("warning", ends_where, f"{ends_name}: end cells behind {cells}, the last cell, are ignored")
        else:
            used = len(ends) + 1
        for one, next_one in zip(ends[:used], ends[1:used]):
            if next_one <= one:
                self.tell("warning", ends_where, f"{ends_name} does not ascend: {next_one} follows {one}")
        for end in ends[:used]:
            if end < 0:
                self.tell("error", ends_where, f"{ends_name}: {end} is no cell")
            elif 1 <= cells < end:
                self.tell("warning", ends_where, f"{ends_name}: {end} lies beyond the last cell {cells}")
        if len(values) < used:
            first = ends[len(values) - 1] + 1
            if first <= cells or not cells:
                self.tell(
                    "warning", where,
                    f"{name} has {counted(len(values), 'value')} and {ends_name} {counted(len(ends), 'end cell')}: "
                    f"0 is left for {cells_text(first, max(first, cells))}",
                )
        elif len(values) > used:
            spare = len(values) - used
            self.tell(
                "warning", where,
                f"{name} has {len(values)} values and {ends_name} has room for {used}: the last "
                f"{'one is' if spare == 1 else f'{spare} are'} ignored",
            )

    # Records of several keywords.

    def check_records(self):
        for name, keyword in self.known.items():
            if keyword.opener and not keyword.opens:
                if keyword.to_last_record:
                    self.check_fields(name, keyword.opener)
                else:
                    self.check_entries(name, keyword.opener)
        self.check_dredging()
        if not self.given("BPDATS"):
            for name in ("QQDATS", "QQDATE", "IQQS", "IQQE"):
                if self.given(name):
                    self.tell("warning", self.last(name), f"{name} has no effect: no BPDATS line counts a bypass")

    def check_entries(self, name: str, opener: str):
        lines, wanted = self.lines_of(name), len(self.lines_of(opener))
        if lines and not wanted:
            self.tell("warning", lines[0], f"{name} has no effect: no {opener} line opens a record")
        elif len(lines) > wanted:
            self.tell(
                "warning", lines[wanted],
                f"{counted(len(lines), 'line')} of {name} and {wanted} of {opener}: the surplus "
                "is ignored",
            )
        elif not lines and wanted:
            self.tell_left_out(name, opener)
        elif len(lines) < wanted:
            self.tell(
                "warning", lines[-1],
                f"{counted(len(lines), 'line')} of {name} and {wanted} of {opener}: the n-th belongs "
                f"to the n-th {opener}, and where there is none it gets 0",
            )

    def tell_left_out(self, name: str, opener: str):
        if name not in OPTIONAL:
            self.tell("warning", self.lines_of(opener)[0], f"{name} is left out: it becomes 0 for every {opener}")

    def check_fields(self, name: str, opener: str):
        """Lines that belong to the record opened last: one between two openers."""
        if not self.given(opener):
            if self.given(name):
                level = "warning" if name == KEPT_FOR_LATER else "error"
                self.tell(level, self.lines_of(name)[0], f"{name} stands before any {opener} line")
            return
        if not self.given(name):
            self.tell_left_out(name, opener)
            return
        opened: Line | None = None
        held: Line | None = None
        for line in [*self.lines, None]:
            if line is None or (line.keyword == opener and line.value):
                if opened is not None and held is None and name not in OPTIONAL:
                    self.tell("warning", opened, f"this {opener} has no {name} before the next one: it becomes 0")
                opened, held = line, None
            elif line.keyword == name and line.value:
                if opened is None:
                    level = "warning" if name == KEPT_FOR_LATER else "error"
                    self.tell(level, line, f"{name} stands before any {opener} line")
                elif held is not None:
                    self.tell(
                        "warning", held,
                        f"{name} belongs to the {opener} last opened, and line {line.number} "
                        "overwrites it; put each behind its own",
                    )
                held = line

    def check_dredging(self):
        """A volume becomes a rate as soon as it is read, by the days and the step told by then."""
        inlets = self.lines_of("IINLS")
        for line in self.lines_of("DRDAY"):
            if not inlets or line.number < inlets[0].number:
                self.tell("error", line, "DRDAY stands before any IINLS line")
        for line in self.lines_of("DREDV"):
            for name in ("DRDAY", "DT"):
                if not any(other.number < line.number for other in self.lines_of(name)):
                    self.tell("warning", line, f"DREDV stands before {name}, so that its rate comes out wrong")
