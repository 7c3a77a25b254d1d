"""Runs of the program that the tests read, each made once."""

import os
import shutil
import subprocess
import sys
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))

EXAMPLES = ("duck", "first_beach")


def program() -> Path:
    """The program under test: $KELPRUN, or the one that was built."""
    named = os.environ.get("KELPRUN")
    built = [ROOT / "build" / preset / "kelprun" for preset in ("release", "program")]
    places = [Path(named).resolve()] if named else built
    for place in places:
        if place.is_file():
            return place
    raise FileNotFoundError(f"no program to test in {', '.join(map(str, places))}: run scripts/build")


def run_model(folder: Path, configuration: str = "run.cfg"):
    """Runs a configuration in its folder; the run must end well."""
    done = subprocess.run([program(), configuration], cwd=folder, capture_output=True, text=True, timeout=120)
    assert done.returncode == 0, done.stdout[-500:] + done.stderr
    assert done.stdout.rstrip().endswith("Model run completed")


def write_values(path: Path, values):
    rows = [" ".join(f"{value:.2f}" for value in values[i : i + 10]) for i in range(0, len(values), 10)]
    path.write_text("head\n" * 4 + "\n".join(rows) + "\n")


class Case:
    """A small run: the settings can be changed before the model makes its tables."""

    def __init__(self, folder: Path, shore, **settings):
        self.folder = folder
        self.shore = list(shore)
        self.extra = ""
        self.settings = {
            "KELUNITS": "(m)", "INIFILE": "run.shore", "PRFILE": "run.prt", "PRWARN": "F", "NUMWAVES": "1",
            "WAVEID": f"{len(self.shore)} 8 0 run.waves", "NX": str(len(self.shore)), "DX": "100",
            "SIMDATS": "20200101", "SIMDATE": "20200201", "DT": "24", "DTSAVE": "240", "K1": "0.77", "K2": "0.38",
            "HAMP": "1", "THETAAMP": "1", "D50": "0.2", "BERMHT": "1", "DCLOS": "6",
        }  # fmt: skip
        self.settings.update(settings)

    def write(self):
        self.folder.mkdir(parents=True, exist_ok=True)
        write_values(self.folder / "run.shore", self.shore)
        (self.folder / "run.waves").write_text("0.7 8.0 15.0\n")
        lines = [f"{key}: {value}" for key, value in self.settings.items() if value is not None]
        (self.folder / "run.cfg").write_text("KELPRUN:\nTITLE: A small coast\n" + "\n".join(lines) + "\n" + self.extra)
        return self

    def run(self):
        self.write()
        run_model(self.folder)
        return self.folder / "run.prt"

    def add(self, text: str):
        """Lines that come into the configuration when the tables are made: structures that only tools draw."""
        with open(self.folder / "run.cfg", "a") as file:
            file.write(text)


BUMP = [100, 100, 104, 115, 128, 130, 119, 108, 101, 100]


@pytest.fixture
def case(tmp_path):
    return lambda shore=BUMP, folder=None, **settings: Case(folder or tmp_path / "case", shore, **settings)


@pytest.fixture(scope="session")
def finished(tmp_path_factory):
    """The examples, run: report of each by its name. Not to be changed by a test."""
    reports = {}
    for name in EXAMPLES:
        folder = tmp_path_factory.mktemp(name) / name
        shutil.copytree(ROOT / "examples" / name, folder)
        run_model(folder, f"{name}.cfg")
        reports[name] = folder / f"{name}.prt"
    return reports


@pytest.fixture
def copy_of(finished, tmp_path):
    """A copy of an example's run that a test may damage."""

    def copy(name):
        folder = tmp_path / name
        shutil.copytree(finished[name].parent, folder)
        return folder / f"{name}.prt"

    return copy


SHOALS = {"VVSE": 60000, "VVSF": 20000, "VVSBL": 4000, "VVSBR": 5000, "VVSAL": 1000, "VVSAR": 2000}
EQUILIBRIA = {"VVSEQ": 90000, "VVSFQ": 25000, "VVSBQL": 10000, "VVSBQR": 11000, "VVSAQL": 4000, "VVSAQR": 8000}


def inlet_lines(first: int, last: int, name: str = "", **others) -> str:
    """An inlet with its shoals, whose sand is put down in the second cell beside it."""
    lines = {"IINLS": first, "IINLE": last, "IBYPL1": first - 2, "IBYPL2": first - 2, "IBYPR1": last + 2,
             "IBYPR2": last + 2, "YINLL": 0, "YINLR": 0, **SHOALS, **EQUILIBRIA, **others}  # fmt: skip
    if name:
        lines["INLNAME"] = f'"{name}"'
    return "".join(f"{keyword}: {value}\n" for keyword, value in lines.items())


@pytest.fixture(scope="session")
def two_inlets(tmp_path_factory):
    """Report of a run in feet with two inlets, the second one nameless; waves drive all sand to the right."""
    small = Case(tmp_path_factory.mktemp("inlets") / "two", [300] * 30, KELUNITS="(ft)", DX="300", DT="6")
    small.extra = inlet_lines(8, 10, "Old Inlet") + inlet_lines(20, 21, VVSE=30000)
    return small.run()


def read_by_hand(path: Path, width: int):
    """Dates and values of a table, read without the tools: slices of text lines."""
    dates, rows = [], []
    for line in path.read_text().split("\n")[1:]:
        if line:
            dates.append(int(line[:8]))
            rows.append([float(line[i : i + width]) for i in range(8, len(line), width)])
    return dates, rows
