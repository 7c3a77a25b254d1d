"""Files that a configuration names."""

from __future__ import annotations

from pathlib import Path

from .check_context import Context, counted, is_number, item_texts
from .configuration import Configuration, Line, free_format, parse_real, read_text, unquoted
from .errors import KelpError
from .structures import inlets_of
from .wave_check import check_wave_file

FILE_KEYWORDS = ("INIFILE", "REGFILE", "DXFILE", "BYPFILE")
TABLES = ("slo", "qtr", "off", "mqn", "mqr", "mql", "vcc", "vcx")


class FileChecks(Context):
    def check_names(self):
        for name in FILE_KEYWORDS:
            for line in self.lines_of(name):
                self.check_exists(line, self.decoded_name(line))
        for name in ("WLFILE", "TIDEFILE"):
            for line in self.lines_of(name):
                items = item_texts(line.value)
                if len(items) >= 2:
                    self.check_exists(line, items[-1])
        self.check_report()

    def decoded_name(self, line: Line) -> str:
        try:
            return unquoted(line.value)
        except ValueError:
            return ""

    def check_exists(self, line: Line, name: str) -> Path | None:
        path = self.folder / name
        if name and path.is_file():
            return path
        if name:
            self.tell("error", line, f"{line.keyword}: the file {name} does not exist in {self.folder.resolve()}")
        return None

    def check_report(self):
        name = self.value("PRFILE", "name", "")
        if not name:
            return
        where = self.last("PRFILE")
        if not (self.folder / name).parent.is_dir():
            self.tell("error", where, f"PRFILE: the folder of {name} does not exist")
        stem = self.configuration.stem
        if stem.rpartition("/")[2].startswith(".") or "/" in name[len(stem) :]:
            self.tell("warning", where, f"PRFILE: the tables take their names up to its first full stop: {stem}slo")
        inlets = [f"{inlet}.irv" for inlet in self.inlet_names()]
        outputs = {(self.folder / output).resolve() for output in [name, *(stem + table for table in TABLES), *inlets]}
        for table in sorted({one for one in inlets if inlets.count(one) > 1}):
            text = f"several inlets have the table {table}: give each its own INLNAME"
            self.tell("error", self.lines_of("IINLS")[0], text)
        inputs = [(line, self.decoded_name(line)) for key in FILE_KEYWORDS for line in self.lines_of(key)]
        inputs += [(wave.line, wave.name) for wave in self.wave_files()]
        for line, name in inputs:
            if name and (self.folder / name).resolve() in outputs:
                self.tell("error", line, f"{line.keyword}: {name} would be overwritten by the report or a table")

    def inlet_names(self) -> list[str]:
        try:
            return [name for _, name, _ in inlets_of(self.configuration)]
        except KelpError:
            return []  # told with the values

    def check_cell_files(self):
        wanted = ["INIFILE"]
        if self.values("DX")[:1] == [-1]:
            wanted.append("DXFILE")
        if self.value("IREG", "int8") in (1, 3):
            wanted.append("REGFILE")
        for name in wanted:
            for line in self.lines_of(name)[-1:]:
                path = self.folder / self.decoded_name(line)
                if path.is_file() and self.cells > 0:
                    self.check_cell_file(line, path)

    def check_cell_file(self, line: Line, path: Path):
        """Four lines of heading, then ten values a line."""
        rows = [row.replace("\t", " ") for row in read_text(path).splitlines()]
        name = path.name
        if any(len(row.split()) > 1 and all(map(is_number, row.split())) for row in rows[:4]):
            self.tell("warning", line, f"{name}: its first four lines are skipped, and there are values among them")
        values, place = 0, 4
        while values < self.cells:
            wanted = min(10, self.cells - values)
            held = 0
            while held < wanted:
                if place >= len(rows):
                    self.tell("error", line, f"{name} holds {values + held} values, and there are {self.cells} cells")
                    return
                try:
                    items = free_format(rows[place])
                    for item in items[: wanted - held]:
                        parse_real(item or "0")
                except ValueError as error:
                    self.tell("error", line, f"{name}: line {place + 1}: {error}")
                    return
                place += 1
                held += len(items)
            if held > wanted:
                what = "the last cell's" if values + wanted == self.cells else "10"
                self.tell(
                    "warning", line,
                    f"{name}: line {place} goes on behind {what} value{'s' * (what == '10')}; the "
                    "surplus is ignored",
                )
            values += wanted
        if any(row.strip() for row in rows[place:]):
            self.tell("warning", line, f"{name} goes on behind the values of {self.cells} cells; the rest is ignored")

    # Waves.

    def wave_files(self) -> list:
        files = []
        for line in self.lines_of("WAVEID"):
            try:
                files += Configuration(self.configuration.path, [line]).wave_files
            except KelpError:
                pass
        return files

    def check_waves(self):
        files = self.wave_files()
        if not files:
            return
        told = self.value("NUMWAVES", "int8")
        there = len(self.lines_of("WAVEID"))
        if told != there:
            where = self.last("NUMWAVES") or files[0].line
            self.tell("error", where, f"NUMWAVES is {told}, and WAVEID has {counted(there, 'line')}")
        for earlier, later in zip(files, files[1:]):
            if later.last_cell <= earlier.last_cell:
                self.tell(
                    "error", later.line,
                    f"WAVEID: last cell {later.last_cell} follows {earlier.last_cell}; they must "
                    "ascend",
                )
        events = files[-1].events
        for file in files:
            if self.cells > 0 and not 1 <= file.last_cell <= self.cells + 1:
                self.tell("error", file.line, f"WAVEID: last cell {file.last_cell} lies outside the grid")
            if file.events != events:
                self.tell(
                    "warning", file.line,
                    f"WAVEID: the number of records {file.events} is ignored: that of the last "
                    f"line, {events}, holds for all",
                )
        for file in files:
            path = self.check_exists(file.line, file.name)
            if path is not None:
                check_wave_file(self, file, path, events, file is files[-1])
