"""The examples with structures: what their README promises."""

import shutil

import numpy as np
import pytest
from conftest import ROOT, read_by_hand, run_model

from kelptools.run import find_run

CELLS, WIDTH, YEARS = 140, 75.0, 1827 / 365.25
GROINS = [58, 63, 68, 73, 78, 83]  # walls
BREAKWATERS = [58, 64, 70, 76]  # first cells, three each


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
            assert len(rows[0]) == CELLS
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
    gained = moved[1:].sum() * WIDTH * 9.5  # depth of closure and berm height: 9.5 m
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


def test_the_pictures_have_the_structures(change):
    kinds = {name: [one.kind for one in find_run(change(name)[0] / f"{name}.prt").structures] for name in
             ("groin_field", "breakwaters", "t_groin")}  # fmt: skip
    assert kinds == {
        "groin_field": ["groin"] * 6,
        "breakwaters": ["breakwater"] * 4,
        "t_groin": ["groin"] * 6 + ["breakwater"] * 12,
    }
    for name in kinds:
        assert (ROOT / "docs" / "figures" / f"{name}_shoreline.png").is_file()
        assert f"figures/{name}_shoreline.png" in (ROOT / "examples" / name / "README.md").read_text()


def test_the_waves_are_those_of_duck():
    whole = (ROOT / "examples" / "duck" / "duck.waves").read_text().splitlines()
    for name in ("groin_field", "breakwaters", "t_groin"):
        assert (ROOT / "examples" / name / f"{name}.waves").read_text().splitlines() == whole[:1828]
