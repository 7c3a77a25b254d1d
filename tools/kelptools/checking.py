"""What a configuration holds that the model would silently ignore."""

from __future__ import annotations

from pathlib import Path

from .check_context import Finding
from .check_effects import EffectChecks
from .check_events import EventChecks
from .check_files import FileChecks
from .check_lines import LineChecks
from .check_lists import ListChecks
from .check_structures import StructureChecks
from .configuration import read_text
from .errors import KelpError


def findings(path, folder=None) -> list[Finding]:
    path = Path(path)
    try:
        text = read_text(path)
    except OSError as error:
        raise KelpError(f"{path}: {error.strerror}") from None
    return Check(path, text, Path(folder) if folder else path.parent).run()


class Check(LineChecks, ListChecks, StructureChecks, EventChecks, EffectChecks, FileChecks):
    def run(self) -> list[Finding]:
        for part in (
            self.check_lines, self.check_values, self.check_repeats, self.check_needed, self.check_spans,
            self.check_records, self.check_depths, self.check_transmission, self.check_stations,
            self.check_events, self.check_effects, self.check_times, self.check_names, self.check_cell_files,
            self.check_waves,
        ):  # fmt: skip
            part()
        order = ("error", "warning", "note")
        return sorted(dict.fromkeys(self.found), key=lambda one: (one.line, order.index(one.level)))
