"""The examples with structures, events and an inlet: what their README promises."""

import re
import shutil

import numpy as np
import pytest
from conftest import ROOT, read_by_hand, run_model

from kelptools.run import find_run

CELLS, WIDTH, YEARS = 140, 75.0, 1827 / 365.25
GROINS = [58, 63, 68, 73, 78, 83]  # walls
BREAKWATERS = [58, 64, 70, 76]  # first cells, three each
HEIGHT = 9.5  # depth of closure and berm height, in all of them
INLET_CELLS, INLET = 200, range(99, 102)


@pytest.fixture(scope="module")
def change(tmp_path_factory):
    """Runs an example once; gives its folder and the change of the shoreline by cell, counted from 1."""
    done = {}

    def run(name):
        if name not in done:
            folder = tmp_path_factory.mktemp(name) / name
            shutil.copytree(ROOT / "examples" / name, folder)
            run_model(folder, f"{name}.cfg")
            _, rows = read_by_hand(folder / f"{name}.slo", 14)
            assert len(rows[0]) == (INLET_CELLS if name == "inlet" else CELLS)
            done[name] = folder, np.array([np.nan, *np.subtract(rows[-1], rows[0])])
        return done[name]

    return run


def net(folder):
    """Mean annual net transport by wall, counted from 1."""
    return np.array([np.nan, *read_by_hand(folder / f"{folder.name}.mqn", 16)[1][-1]])


@pytest.mark.parametrize("name", ["groin_field", "breakwaters", "t_groin"])
def test_what_the_coast_gains_came_in_at_its_ends(change, name):
    folder, moved = change(name)
    came_in = (net(folder)[1] - net(folder)[CELLS + 1]) * YEARS
    gained = moved[1:].sum() * WIDTH * HEIGHT
    assert gained == pytest.approx(came_in, abs=1000)
    # Far from the structures the coast is as it was.
    assert np.abs(moved[1:6]).max() < 2 and np.abs(moved[-5:]).max() < 2


def test_a_groin_field_has_a_sawtooth_and_starves_its_neighbour(change):
    folder, moved = change("groin_field")
    for wall in GROINS:
        assert moved[wall - 1] > moved[wall] + 20  # sand comes from the left
    for first, beyond in zip(GROINS, GROINS[1:]):
        assert (np.diff(moved[first:beyond]) > 0).all()
    assert moved[GROINS[0] - 1] == moved[1:].max() and moved[GROINS[-1]] == moved[1:].min()
    assert moved[GROINS[-1]] < -40
    assert 0 < net(folder)[GROINS].max() < net(folder)[1]


def test_breakwaters_have_salients_and_no_tombolos(change):
    folder, moved = change("breakwaters")
    assert moved[1:].max() < 0.5 * 250
    for first, next_one in zip(BREAKWATERS, BREAKWATERS[1:]):
        gap = moved[first + 3 : next_one].min()
        assert moved[first : first + 3].max() > gap + 15
        assert moved[next_one : next_one + 3].max() > gap + 15
    assert moved[80:85].max() < -30
    behind = net(folder)[BREAKWATERS[0] : BREAKWATERS[-1] + 4]
    assert 0 < behind.min() and behind.max() < 0.6 * net(folder)[1]


def test_t_groins_keep_their_sand_in_bays(change):
    folder, moved = change("t_groin")
    rates = net(folder)
    for first, beyond in zip(GROINS, GROINS[1:]):
        bay = moved[first:beyond]
        assert abs(bay.sum()) < 0.05  # five values of two decimals
        assert bay[0] > 5 and bay[-1] > 5 and bay[1:-1].max() < 0
    assert (rates[GROINS] == 0).all()
    # What the field does not let past is missing beside it.
    plain = change("groin_field")[1]
    assert moved[57] > plain[57] and moved[84] < plain[84]


def test_the_coast_gains_what_the_fills_place(change):
    folder, moved = change("nourishment")
    placed = (25 * 30 + 20 * 40) * WIDTH * HEIGHT  # cells and advance of the fills; the plant takes what it gives
    came_in = (net(folder)[1] - net(folder)[CELLS + 1]) * YEARS
    assert moved[1:].sum() * WIDTH * HEIGHT == pytest.approx(placed + came_in, abs=1000)


def test_fills_and_a_plant_pay_the_neighbour_of_the_groins(change):
    folder, moved = change("nourishment")
    plain_folder, plain = change("groin_field")
    gain = moved - plain
    assert plain[83:103].mean() < -30 < 10 < moved[83:103].mean()
    assert (gain[83:139] > 0).all() and (np.diff(gain[83:139]) < 0).all()  # it spreads to the south
    assert gain[10:58].max() < 0  # the plant takes from the fillet, and the fillet from its north
    for first, beyond in zip(GROINS, GROINS[1:]):
        assert moved[beyond - 1] > 30 and moved[first] == pytest.approx(2, abs=3)  # all compartments look alike
    assert moved[83] == moved[1:].min() < 0  # the groin's lee is still the lowest place
    # The last groin passes more sand, as the beach before it stands further out.
    assert net(folder)[83] > net(plain_folder)[83]


def shoals(folder):
    """Dates of an inlet's table and its columns by their names."""
    lines = (folder / "Gull Inlet.irv").read_text().splitlines()
    names, *rows = (line.split() for line in lines[1:])
    return [int(row[-1]) for row in rows], {
        name: np.array([float(row[place]) for row in rows]) for place, name in enumerate(names) if name[0] in "LREFQ"
    }


START = {"Ebb": 6e5, "Flood": 3e5, "L_Bypass": 5e4, "R_Bypass": 5e4, "L_Attach": 2e4, "R_Attach": 2e4}
FULL = {"Ebb": 12e5, "Flood": 5e5, "L_Bypass": 25e4, "R_Bypass": 25e4, "L_Attach": 1e5, "R_Attach": 1e5}


def test_the_shoals_of_the_inlet_fill(change):
    folder, _ = change("inlet")
    dates, volume = shoals(folder)
    assert dates[0] == 19920131 and dates[-1] == 20111217
    for name in ("Flood", "R_Bypass", "R_Attach"):
        assert (np.diff(volume[name]) >= 0).all()
        assert volume[name][0] < 0.65 * FULL[name] and 0.97 * FULL[name] < volume[name][-1] <= FULL[name]
    assert volume["Ebb"][-1] > START["Ebb"] + 200000
    # What comes from the south is little, and goes to the bars in the north.
    assert volume["L_Bypass"][-1] < 0.4 * FULL["L_Bypass"]


def test_dredging_makes_notches_in_the_ebb_shoal(change):
    dates, volume = shoals(change("inlet")[0])
    at = lambda date: next(place for place, one in enumerate(dates) if one >= date)
    for year in (1994, 1997, 2000, 2003, 2006, 2009):
        before, after = at(year * 10000 + 402) - 1, at(year * 10000 + 630)  # a row of 1 April has one step of it
        notch = volume["Ebb"][before : after + 1]
        # 100 000 m3 are taken in these three months, and up to 26 000 come in.
        assert 70000 < notch[0] - notch[-1] <= 100000.5
        assert (np.diff(notch) < 0).all()


def test_an_inlet_starves_the_beach_behind_it_until_its_bars_are_full(change):
    folder, moved = change("inlet")
    _, rows = read_by_hand(folder / "inlet.slo", 14)
    moved_in = lambda first, last: (np.array(rows[last]) - rows[first])[INLET[-1] : INLET[-1] + 25].mean()
    half = len(rows) // 2
    assert moved_in(0, half) < -40 and abs(moved_in(half, -1)) < 0.4 * -moved_in(0, half)
    assert moved[80:99].min() > 20 and moved[102:125].max() < -40
    assert (moved[INLET.start : INLET.stop] == 0).all()
    rates = net(folder)
    assert (rates[INLET.start : INLET.stop + 1] == 0).all()
    assert rates[1] == pytest.approx(rates[201], abs=10)
    assert 0 < rates[98] < 0.7 * rates[1]
    # The attachment bar gives its sand to cell 107, and only a pull of the waves hides it elsewhere.
    assert rates[108] - rates[107] > 40000


def test_the_sand_of_the_inlet_is_beach_or_shoal_or_dredged(change):
    folder, moved = change("inlet")
    _, volume = shoals(folder)
    beach = np.delete(moved, [0, *INLET]).sum() * 150 * HEIGHT
    kept = sum(values[-1] - START[name] for name, values in volume.items() if name in START)
    came_in = (net(folder)[1] - net(folder)[INLET_CELLS + 1]) * 7305 / 365.25
    handed_on = 1.1e6  # what the right attachment bar gave the beach
    assert abs(beach + kept + 600000 - came_in) < 0.05 * (kept + 600000 + handed_on)


def test_the_budget_of_the_report_is_that_of_the_tables_and_of_the_readme(change):
    folder, moved = change("inlet")
    report = (folder / "inlet.prt").read_text()
    block = report[report.index("LEDG OUTPUT") : report.index("TOTAL VOLUMETRIC")]
    budget = [line.strip() for line in block.splitlines()]
    said = lambda words: [float(line.split()[-1]) for line in budget if line.startswith(words)]

    beach, south = said("VOLUME CHANGE")
    metres = 150 * HEIGHT
    assert beach == pytest.approx(moved[81:126].sum() * metres, abs=45 * 0.01 * metres)
    assert south == pytest.approx(moved[126:201].sum() * metres, abs=75 * 0.01 * metres)
    (came,), (given,) = said("VOLUME TRANSPORTED INTO"), said("VOLUME TRANSPORTED FROM")
    (dredged,) = said("DREDGED VOLUME REMOVAL")
    (kept,) = said("INLET VOLUME CHANGE")
    assert kept == pytest.approx(came - given + dredged, abs=1) and dredged == pytest.approx(-600000, rel=1e-3)
    from_left, to_left, from_right, to_right = (said(f"VOL. {words}")[0] for words in (
        "INTO INLET LEFT", "FROM INLET RIGHT", "INTO INLET RIGHT", "FROM INLET LEFT"))  # fmt: skip
    assert from_left - from_right == pytest.approx(came, abs=2) and to_right - to_left == pytest.approx(given, abs=2)
    for suffix, words in (("mqr", "AVG. RATE TO RIGHT"), ("mql", "AVG. RATE TO LEFT")):
        rates = [np.nan, *read_by_hand(folder / f"inlet.{suffix}", 16)[1][-1]]
        assert said(words) == pytest.approx([rates[wall] for wall in (81, 126, 99, 102)], abs=0.51)

    readme = (ROOT / "examples" / "inlet" / "README.md").read_text()
    told = readme[readme.index("**The sand, from the report.**") : readme.index("**What was learnt.**")]
    (left, left_end, *_), (right, right_end, *_) = said("VOLUME TO LEFT"), said("VOLUME TO RIGHT")
    stayed = right + left - right_end - left_end
    gained = beach + kept - dredged
    known = [beach, kept, came, given, dredged, south, right, left, right_end, left_end, stayed, from_left, from_right,
             to_right, to_left, gained, gained - stayed]  # fmt: skip
    numbers = [int(number.replace(" ", "")) for number in re.findall(r"\d+(?:\s\d{3})+", told)]
    assert len(numbers) == len(known)
    assert numbers == pytest.approx(np.abs(known), abs=1)


def test_what_is_dredged_is_missing_on_the_beach(change, tmp_path):
    folder, moved = change("inlet")
    for name in ("inlet.shore", "inlet.waves"):
        shutil.copy(folder / name, tmp_path)
    lines = (folder / "inlet.cfg").read_text().splitlines(keepends=True)
    dredging = ("IMOR", "IDREDS", "IDREDE", "DRDAY", "DREDV")
    (tmp_path / "inlet.cfg").write_text("".join(line for line in lines if not line.startswith(dredging)))
    run_model(tmp_path, "inlet.cfg")
    _, rows = read_by_hand(tmp_path / "inlet.slo", 14)
    spared = np.subtract(rows[-1], rows[0])[INLET[-1] :] - moved[INLET.stop :]
    assert 0.5 * 600000 < spared.sum() * 150 * HEIGHT < 600000
    assert shoals(tmp_path)[1]["Ebb"][-1] > shoals(folder)[1]["Ebb"][-1] + 200000


def test_the_pictures_have_the_structures(change):
    kinds = {name: [one.kind for one in find_run(change(name)[0] / f"{name}.prt").structures] for name in
             ("groin_field", "breakwaters", "t_groin", "inlet")}  # fmt: skip
    assert kinds == {
        "groin_field": ["groin"] * 6,
        "breakwaters": ["breakwater"] * 4,
        "t_groin": ["groin"] * 6 + ["breakwater"] * 12,
        "inlet": ["groin"] * 2 + ["inlet"],
    }
    for name in kinds:
        assert (ROOT / "docs" / "figures" / f"{name}_shoreline.png").is_file()
        assert f"figures/{name}_shoreline.png" in (ROOT / "examples" / name / "README.md").read_text()


def test_every_picture_of_a_readme_is_there():
    for readme in (ROOT / "examples").glob("*/README.md"):
        for name in re.findall(r"\]\(([^)]*\.png)\)", readme.read_text()):
            assert (readme.parent / name).is_file()


def test_the_waves_are_those_of_duck():
    whole = (ROOT / "examples" / "duck" / "duck.waves").read_text().splitlines()
    longer = (ROOT / "examples" / "inlet" / "inlet.waves").read_text().splitlines()
    first = longer.index(whole[0])
    assert longer[first : first + len(whole)] == whole and len(longer) == 7306
    for name in ("groin_field", "breakwaters", "t_groin", "nourishment"):
        assert (ROOT / "examples" / name / f"{name}.waves").read_text().splitlines() == whole[:1828]
