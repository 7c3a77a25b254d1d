"""Finds the files of a run and reads them into one xarray.Dataset."""

from __future__ import annotations

import warnings
from dataclasses import dataclass
from functools import cached_property
from pathlib import Path

import numpy as np
import xarray as xr

from .configuration import Configuration, read_configuration, read_text
from .dates import times_of
from .errors import KelpError, KelpWarning
from .grid import Grid, read_grid
from .structures import Structure, inlets_of, structures_of
from .tables import INLET_COLUMNS, Table, read_inlet_table, read_table

FEET_TO_METRES = 0.3048
CONTOUR_OFFSET_METRES = 300.0

STATE_TABLES = ("slo", "qtr", "off", "vcc", "vcx")  # in the order in which a record of each is written
YEAR_TABLES = ("mqn", "mqr", "mql")
AT_WALLS = ("qtr", "mqn", "mqr", "mql")

LONG_NAMES = {
    "slo": "shoreline position from the baseline",
    "off": "contour that waves refract over",
    "vcc": "volume change of the cell since the start",
    "vcx": "volume change since the start per unit length of coast",
    "qtr": "net longshore transport of the last step with waves, positive to the right",
    "mqn": "net longshore transport, positive to the right",
    "mqr": "longshore transport to the right",
    "mql": "longshore transport to the left, negative",
}
INLET_NAMES = {
    "Qout": "transport from the {side} attachment bar to the beach",
    "Qie": "transport onto the ebb shoal, passing the channel, of sand on its way to the {side}",
    "Attach": "volume of the {side} attachment bar",
    "Qba": "transport from the {side} bypass bar to the attachment bar",
    "Bypass": "volume of the {side} bypass bar",
    "Qeb": "transport from the ebb shoal to the {side} bypass bar",
    "Ebb": "volume of the ebb shoal",
    "Qfe": "overflow of the flood shoal onto the ebb shoal",
    "Flood": "volume of the flood shoal",
    "Qce": "share of the channel that goes to the ebb shoal",
}
# What each shoal's volume tends to, by its column in the table; a 0 is nearly nothing to the program.
EQUILIBRIUM_VOLUMES = {
    "L_Attach": "VVSAQL",
    "L_Bypass": "VVSBQL",
    "Ebb": "VVSEQ",
    "Flood": "VVSFQ",
    "R_Bypass": "VVSBQR",
    "R_Attach": "VVSAQR",
}
LEAST_EQUILIBRIUM = 0.00001
STOPPED = "  EXECUTION STOPPED DURING TIME STEP"
SUM, MEAN_RATE = 0, 1


@dataclass
class Run:
    """The files of a run. `folder` is the one in which the program was started, as far as can be told."""

    report: Path
    configuration: Configuration
    folder: Path
    stem: str  # of the tables, with their folder

    def table_path(self, suffix: str) -> Path:
        return Path(self.stem + suffix)

    def find(self, name: str) -> Path:
        """A file that the configuration names."""
        folders = (self.folder, self.report.parent, self.configuration.path.parent)
        for folder in folders:
            if (folder / name).is_file():
                return folder / name
        raise KelpError(f"{self.configuration.path}: there is no {name} in {self.folder}")

    @property
    def label(self) -> str:
        return self.report.name.partition(".")[0] or self.report.name

    @cached_property
    def grid(self) -> Grid:
        return read_grid(self.configuration, self.find)

    @cached_property
    def structures(self) -> list[Structure]:
        return structures_of(self.configuration, self.grid)

    @cached_property
    def dataset(self) -> xr.Dataset:
        return _read(self)


def find_run(path, configuration=None) -> Run:
    """The run of a report, or of a configuration file given in its place."""
    path = Path(path)
    if configuration is None and path.suffix.lower() == ".cfg":
        found = read_configuration(path)
        name = found.name("PRFILE")
        if not name:
            raise KelpError(f"{path}: no PRFILE, so the run has no report to be found by")
        folder = next((f for f in (path.parent, Path(), path.parent.parent) if (f / name).exists()), path.parent)
        return _run(folder / name, found, folder)
    if path.is_dir():
        raise KelpError(f"{path}: a folder; name the report in it, such as {path / 'run.prt'}")
    if configuration is not None:
        found = read_configuration(configuration)
        for folder in (found.path.parent, Path()):
            if _leads_to(found, folder, path):
                return _run(path, found, folder)
        return _run(path, found, path.parent)
    if not path.parent.is_dir():
        raise KelpError(f"{path}: there is no such folder")

    exact, alike = [], []
    for folder in (path.parent, path.parent / ".."):
        for file in sorted(folder.iterdir()):
            if file.suffix.lower() != ".cfg" or not file.is_file():
                continue
            try:
                found = read_configuration(file)
                name = found.name("PRFILE")
            except KelpError:
                continue
            if name and _leads_to(found, folder, path):
                exact.append((found, folder))
            elif name and Path(name).name == path.name:
                alike.append((found, path.parent))
    candidates = exact or [one for one in alike if one[0].path.parent == path.parent] or alike
    if not candidates:
        if not path.exists() and not path.parent.joinpath(_stem(path.name) + "slo").exists():
            raise KelpError(f"{path}: there is no such report")
        raise KelpError(
            f"{path}: no configuration in {path.parent} or the folder above names this report; "
            "give it with --configuration"
        )
    if len(candidates) > 1:
        names = ", ".join(str(one.path) for one, _ in candidates)
        raise KelpError(f"{path}: several configurations name this report, give one with --configuration: {names}")
    return _run(path, *candidates[0])


def _stem(name: str) -> str:
    stop = name.find(".")
    return name if stop < 0 else name[: stop + 1]


def _leads_to(configuration: Configuration, folder: Path, report: Path) -> bool:
    name = configuration.name("PRFILE")
    return bool(name) and (folder / name).resolve() == report.resolve()


def _run(report: Path, configuration: Configuration, folder: Path) -> Run:
    # A full stop in a folder's name ends the stem too, as in ../run.prt.
    stems = [str(report.parent / _stem(report.name))]
    if _leads_to(configuration, folder, report):
        stems.insert(0, f"{folder}/{configuration.stem}")
    for stem in stems:
        if any(Path(stem + suffix).is_file() for suffix in STATE_TABLES + YEAR_TABLES):
            return Run(report, configuration, folder, stem)
    raise KelpError(f"{report}: no tables of this run; there is no {stems[0]}slo")


def open_run(path, configuration=None) -> xr.Dataset:
    """All tables of the run whose report is `path`.

    The configuration is looked for in the report's folder and the one above: it is the one that names
    this report as its PRFILE. Give it as `configuration` where that fails. A configuration may also
    stand in the place of the report."""
    return find_run(path, configuration).dataset


def _read(run: Run) -> xr.Dataset:
    configuration, grid = run.configuration, run.grid
    unit = configuration.unit
    factor = FEET_TO_METRES if unit == "ft" else 1.0
    volume = "yd3" if unit == "ft" else "m3"
    cells = configuration.cells
    units = {"slo": unit, "off": unit, "vcc": volume, "vcx": f"{volume} {unit}-1", "qtr": f"{volume} year-1"}

    variables: dict = {
        "cell": ("cell", np.arange(1, cells + 1), {"long_name": "cell number"}),
        "wall": ("wall", np.arange(1, cells + 2), {"long_name": "wall number; wall i lies on the left of cell i"}),
        "x_cell": ("cell", grid.center, {"long_name": "alongshore position of the cell's middle", "units": unit}),
        "x_wall": ("wall", grid.wall, {"long_name": "alongshore position of the wall", "units": unit}),
        "dx": ("cell", grid.width, {"long_name": "cell width", "units": unit}),
    }
    coordinates = set(variables)

    state = _read_group(run, STATE_TABLES)
    interval = configuration.real("DTSAVE") if configuration.integer("DTADAPT") != 1 else None
    _add_records(variables, coordinates, "record", "", _longest(state), interval)
    for suffix, table in state.items():
        dimension = "wall" if suffix in AT_WALLS else "cell"
        values = _padded(table, _longest(state).dates.size)
        variables[suffix] = (("record", dimension), values, {"long_name": LONG_NAMES[suffix], "units": units[suffix]})

    years = _read_group(run, YEAR_TABLES)
    complete = _is_complete(run, state, years)
    if years:
        longest = _longest(years)
        _add_records(variables, coordinates, "year_record", "year_", longest, None)
        kind = np.full(longest.dates.size, SUM, dtype=np.int8)
        if _has_means(run, longest, state, complete):
            kind[-1] = MEAN_RATE
        variables["kind"] = (
            "year_record",
            kind,
            {
                "long_name": "kind of the row",
                "flag_values": np.array([SUM, MEAN_RATE], dtype=np.int8),
                "flag_meanings": "sum mean_annual_rate",
                "comment": "sum: volume since the last year's end at a print date, volume of the year at an "
                "anniversary; with several steps to the day every step of the anniversary has a row, and all "
                "but the first hold what little came since. mean_annual_rate: mean of the whole run, a year",
            },
        )
        coordinates.add("kind")
        for suffix, table in years.items():
            variables[suffix] = (
                ("year_record", "wall"),
                _padded(table, longest.dates.size),
                {
                    "long_name": LONG_NAMES[suffix],
                    "units": volume,
                    "comment": f"sums in {volume}; in a row of kind mean_annual_rate {volume} year-1, "
                    "the year having 365.25 days",
                },
            )
    if not state and not years:
        raise KelpError(f"{run.report}: the run's tables are not there")

    _add_inlets(run, variables, coordinates, volume)
    if "qtr" in variables:
        variables["qtr"][2]["comment"] = "annualised, the year having 365.25 days; 0 in the first record"
    if "off" in variables:
        fixed = configuration.int8("IREG") == 3
        offset = 0.0 if fixed else CONTOUR_OFFSET_METRES / factor
        variables["off"][2].update(
            contour_offset=offset,
            contour_offset_first_record=0.0,
            comment="the fixed regional contour"
            if fixed
            else f"an offset of 300 m{'' if unit == 'm' else f' ({offset:.6g} ft)'} is added in every record but "
            "the first; the first record is empty of the smoothed shoreline: it holds the regional contour alone, "
            "which is 0 without one",
        )

    data = xr.Dataset({name: value for name, value in variables.items() if name not in coordinates})
    data = data.assign_coords({name: variables[name] for name in variables if name in coordinates})
    data.attrs = {
        "Conventions": "CF-1.8",
        "title": configuration.title or run.label,
        "source": "KelpRun shoreline-change model",
        "report": run.report.name,
        "configuration": configuration.path.name,
        "length_unit": unit,
        "volume_unit": volume,
        "azimuth": configuration.real("AZIMUTH"),
        "run_complete": "yes" if complete else "no",
        "comment": "Alongshore positions x count from the baseline's zero to the right, looking seaward; positions "
        "across the shore count seaward from the baseline. The first record is the state before the shoreline moves.",
    }
    return data


def _longest(tables: dict[str, Table]) -> Table | None:
    return max(tables.values(), key=lambda table: table.dates.size, default=None)


def _read_group(run: Run, suffixes) -> dict[str, Table]:
    """The tables that have their records together: one may end before another, but not disagree."""
    tables = {}
    cells = run.configuration.cells
    for suffix in suffixes:
        path = run.table_path(suffix)
        if not path.is_file():
            warnings.warn(f"{path}: there is no such table", KelpWarning, 3)
            continue
        columns, width = (cells + 1, 16) if suffix in AT_WALLS else (cells, 14)
        tables[suffix] = read_table(path, columns, width)
    longest = _longest(tables)
    for table in tables.values():
        records = table.dates.size
        if not np.array_equal(table.dates, longest.dates[:records]):
            raise KelpError(f"{table.path}: its dates are not those of {longest.path}: tables of two runs")
        if records < longest.dates.size:
            warnings.warn(
                f"{table.path}: {records} records, {longest.path.name} has {longest.dates.size}; "
                "those that lack are missing values",
                KelpWarning,
                3,
            )
    return tables


def _padded(table: Table, records: int) -> np.ndarray:
    lacking = records - table.dates.size
    return np.pad(table.values, ((0, lacking), (0, 0)), constant_values=np.nan) if lacking else table.values


def _add_records(variables, coordinates, dimension, prefix, table, interval):
    if table is None:
        return
    _add_times(variables, coordinates, dimension, prefix, table.dates, interval, table.path)


def _add_times(variables, coordinates, dimension, prefix, dates, interval, path):
    times = times_of(dates, interval)
    if times is None:
        warnings.warn(f"{path}: its dates cannot be turned into times; only the written ones are there", KelpWarning, 3)
        times = np.full(dates.size, "NaT", dtype="datetime64[ns]")
    variables[dimension] = (dimension, np.arange(1, dates.size + 1), {"long_name": "number of the record in its table"})
    variables[prefix + "date"] = (
        dimension,
        dates,
        {
            "long_name": "date as it is written, YYYYMMDD",
            "comment": "the model's own calendar: every fourth year is a leap year, and its February may read "
            "28, then 1 March, then 29 or 30",
        },
    )
    variables[prefix + "time"] = (
        dimension,
        times,
        {
            "long_name": "time of the record",
            "standard_name": "time",
            "comment": "from the written date, never going backwards: 30 February is 1 March, a 1 March before "
            "29 or 30 February is the 29th; records of one date that come more than once a day are spread over it",
        },
    )
    coordinates.update((dimension, prefix + "date", prefix + "time"))


def _add_inlets(run: Run, variables, coordinates, volume):
    inlets = inlets_of(run.configuration)
    tables, places = {}, []
    for number, name, _ in inlets:
        folders = (run.folder, run.report.parent)
        path = next((f / f"{name}.irv" for f in folders if (f / f"{name}.irv").is_file()), None)
        if path is None:
            warnings.warn(f"{run.folder / (name + '.irv')}: there is no such table", KelpWarning, 3)
        else:
            tables[name] = read_inlet_table(path)
            places.append(number - 1)
    if not tables:
        return
    longest = max(tables.values(), key=lambda table: table.dates.size)
    records = longest.dates.size
    block = np.full((len(tables), records, len(INLET_COLUMNS)), np.nan)
    for place, table in enumerate(tables.values()):
        count = table.dates.size
        if not np.array_equal(table.steps, longest.steps[:count]):
            raise KelpError(f"{table.path}: its steps are not those of {longest.path}: tables of two runs")
        block[place, :count] = table.values
    variables["inlet"] = ("inlet", np.array(list(tables), dtype=str), {"long_name": "name of the inlet"})
    variables["inlet_step"] = ("inlet_record", longest.steps, {"long_name": "number of the time step"})
    coordinates.update(("inlet", "inlet_step"))
    _add_times(variables, coordinates, "inlet_record", "inlet_", longest.dates, None, longest.path)
    variables["inlet_record"][2]["comment"] = "a calm time step has no record"
    for column, name in enumerate(INLET_COLUMNS):
        side, _, word = name.rpartition("_")
        meaning = INLET_NAMES[word].format(side={"L": "left", "R": "right", "": ""}[side])
        variables[name] = (
            ("inlet", "inlet_record"),
            block[:, :, column],
            {"long_name": meaning, "units": f"{volume} year-1" if word.startswith("Q") else volume},
        )
    wanted = run.configuration.records("IINLS", dict.fromkeys(EQUILIBRIUM_VOLUMES.values(), "real"))
    for name, keyword in EQUILIBRIUM_VOLUMES.items():
        variables[keyword] = (
            "inlet",
            np.array([wanted[place][keyword] or LEAST_EQUILIBRIUM for place in places]),
            {"long_name": f"equilibrium {variables[name][2]['long_name']}", "units": volume},
        )


def _is_complete(run: Run, state, years) -> bool:
    """Whether the tables hold all records that the configuration asks for."""
    if not state or min(table.dates.size for table in state.values()) == 0:
        return False
    if _was_stopped(run):
        return False
    steps, apart = run.configuration.steps, run.configuration.steps_per_record
    if steps is None or apart is None:  # an adaptive step: the closing row of the year tables tells
        table = _longest(years)
        last = _longest(state).dates[-1]
        return table is not None and table.dates.size >= 2 and bool((table.dates[-2:] == last).all())
    expected = 1 + steps // apart + (steps % apart > 0)
    return all(table.dates.size >= expected for table in state.values())


def _was_stopped(run: Run) -> bool:
    """Whether the report says that the run ended early, in good order."""
    try:
        # Only the line of its own tells: a title may hold the same words.
        return any(line.startswith(STOPPED) for line in read_text(run.report).splitlines())
    except OSError:
        return False


def _has_means(run: Run, years: Table, state, complete: bool) -> bool:
    if years.dates.size == 0 or not state:
        return False
    last = _longest(state).dates[-1:]
    if _was_stopped(run):
        return bool((last <= years.dates[-1]).all())
    return complete and years.dates.size >= 2 and bool((years.dates[-2:] == last).all())
