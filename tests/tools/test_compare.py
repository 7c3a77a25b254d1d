import csv
import shutil

import numpy as np
import pytest
from conftest import read_by_hand, run_model
from kelptools import KelpError, KelpWarning, cli
from kelptools.comparison import Pair, in_unit, reach_ends, reach_table
from kelptools.comparison_pictures import PICTURES
from kelptools.run import find_run


@pytest.fixture(scope="module")
def without_wall(finished, tmp_path_factory):
    """Duck again, without its seawall."""
    folder = tmp_path_factory.mktemp("plan") / "without_wall"
    folder.mkdir()
    source = finished["duck"].parent
    for name in ("duck.shore", "duck.waves"):
        shutil.copy(source / name, folder)
    lines = (source / "duck.cfg").read_text().split("\n")
    (folder / "duck.cfg").write_text("\n".join(one for one in lines if not one.startswith(("ISW", "SWY"))))
    run_model(folder, "duck.cfg")
    return folder / "duck.prt"


@pytest.fixture(scope="module")
def pair(finished, without_wall):
    return Pair(find_run(finished["duck"]), find_run(without_wall))


def test_the_table_of_reaches(pair, finished, without_wall):
    _, a = read_by_hand(finished["duck"].with_suffix(".slo"), 14)
    _, b = read_by_hand(without_wall.with_suffix(".slo"), 14)
    _, volume_a = read_by_hand(finished["duck"].with_suffix(".vcc"), 14)
    _, volume_b = read_by_hand(without_wall.with_suffix(".vcc"), 14)
    table = reach_table(pair, [40, 50, 120])
    assert table["reach"].tolist() == ["1", "2", "3", "all"]
    assert table["first cell"].tolist() == [1, 41, 51, 1]
    assert table["last cell"].tolist() == [40, 50, 120, 120]
    assert table["from (m)"].tolist() == [0, 6000, 7500, 0]
    assert table["to (m)"].tolist() == [6000, 7500, 18000, 18000]
    for row, span in zip(table.itertuples(index=False), (slice(0, 40), slice(40, 50), slice(50, 120), slice(0, 120))):
        differences = [two - one for one, two in zip(a[-1][span], b[-1][span])]
        assert row[7] == pytest.approx(sum(differences) / len(differences))
        assert row[8] == pytest.approx(max(0, max(differences)))
        assert row[9] == pytest.approx(min(0, min(differences)))
        assert row[10] == pytest.approx(sum(volume_a[-1][span]))
        assert row[12] == pytest.approx(sum(volume_b[-1][span]) - sum(volume_a[-1][span]))
        changes = [end - start for start, end in zip(a[0][span], a[-1][span])]
        assert row[5] == pytest.approx(sum(changes) / len(changes))
        assert row[6] - row[5] == pytest.approx(row[7])
    # The wall held sand: without it the shoreline before it lies landward.
    assert table["mean difference (m)"][1] < -5
    assert table["largest retreat (m)"][1] < -5 and table["largest advance (m)"][1] == 0


def test_reaches():
    assert reach_ends(120, 10, None) == list(range(12, 121, 12))
    assert reach_ends(10, 4, None) == [2, 5, 8, 10]
    assert reach_ends(3, 10, None) == [1, 2, 3]
    assert reach_ends(120, 10, [40, 50]) == [40, 50, 120]
    for ends in ([50, 40], [0, 5], [121], [5, 5]):
        with pytest.raises(KelpError, match="ascending cells from 1 to 120"):
            reach_ends(120, 10, ends)
    with pytest.raises(KelpError, match="1 or more"):
        reach_ends(120, 0, None)


def test_means_are_weighted_by_width(case, tmp_path):
    reports = []
    for name, k1 in (("a", "0.4"), ("b", "0.8")):
        small = case(folder=tmp_path / name, DX="-1", DXFILE="run.dx", K1=k1)
        small.write()
        (small.folder / "run.dx").write_text("h\n" * 4 + "50 60 70 80 90 100 110 120 130 140\n")
        reports.append(small.run())
    pair = Pair(*map(find_run, reports))
    widths = np.arange(50, 150, 10)
    difference = pair.b["slo"].values[-1] - pair.a["slo"].values[-1]
    table = reach_table(pair, [10])
    assert table["mean difference (m)"][0] == pytest.approx((difference * widths).sum() / widths.sum())


def test_the_pictures_show_the_differences(pair, finished, without_wall):
    _, a = read_by_hand(finished["duck"].with_suffix(".slo"), 14)
    _, b = read_by_hand(without_wall.with_suffix(".slo"), 14)
    plan, change, *_ = PICTURES["shoreline"](pair).axes
    lines = {one.get_label(): one for one in plan.lines}
    np.testing.assert_array_equal(lines["A: duck"].get_ydata(), a[-1])
    np.testing.assert_array_equal(lines["B: without_wall"].get_ydata(), b[-1])
    assert "Seawall" in lines  # of run A alone
    np.testing.assert_allclose(
        sum(bars.get_data().values for bars in change.patches), np.subtract(b[-1], a[-1]), atol=1e-9
    )
    mesh = PICTURES["change"](pair).axes[0].collections[0]
    np.testing.assert_allclose(mesh.get_array().reshape(123, 120), np.subtract(b, a), atol=1e-9)
    low, high = mesh.get_clim()
    assert low == -high

    net, parts = PICTURES["transport"](pair).axes
    means = [read_by_hand(path.with_suffix(".mqn"), 16)[1][-1] for path in (finished["duck"], without_wall)]
    (difference,) = [one for one in parts.lines if one.get_label() == "Net"]
    np.testing.assert_allclose(difference.get_ydata(), np.subtract(means[1], means[0]))
    assert net.get_ylabel() == "Net, to the right\n(m³ per year)"

    along, total = PICTURES["volume"](pair).axes
    reports = (finished["duck"], without_wall)
    volumes = [np.sum(read_by_hand(path.with_suffix(".vcc"), 14)[1], axis=1) for path in reports]
    (net,) = [one for one in total.lines if one.get_label() == "Net"]
    np.testing.assert_allclose(net.get_ydata(), volumes[1] - volumes[0], atol=1e-6)
    assert along.get_ylabel() == "Volume difference\n(m³ per m of coast)"


def test_the_command(finished, without_wall, tmp_path, capsys):
    arguments = ["compare", str(finished["duck"]), str(without_wall), "-o", str(tmp_path / "out"), "--ends", "40", "50"]
    assert cli.main(arguments) == 0
    printed = capsys.readouterr().out
    assert "A: duck: Duck, North Carolina" in printed
    rows = list(csv.DictReader(open(tmp_path / "out" / "duck_without_wall_reaches.csv")))
    assert [row["reach"] for row in rows] == ["1", "2", "3", "all"]
    assert float(rows[1]["mean difference (m)"]) < -5
    text = (tmp_path / "out" / "duck_without_wall_reaches.txt").read_text()
    assert text in printed
    heads = [one for one in text.split("\n") if one.strip().startswith("reach")][0]
    assert heads.split()[:2] == ["reach", "cells"]
    second = [one for one in text.split("\n") if "41-50" in one][0].split()
    assert second[:4] == ["2", "41-50", "6000", "7500"]
    assert float(second[6]) == pytest.approx(float(rows[1]["mean difference (m)"]), abs=0.005)
    pictures = sorted(path.name for path in (tmp_path / "out").glob("*.png"))
    assert pictures == [f"duck_without_wall_{name}.png" for name in ("change", "shoreline", "transport", "volume")]


def test_a_run_against_itself_has_no_difference(finished, tmp_path, capsys):
    report = str(finished["first_beach"])
    assert cli.main(["compare", report, report, "-o", str(tmp_path), "--reaches", "2", "--no-pictures"]) == 0
    rows = list(csv.DictReader(open(tmp_path / "A_B_reaches.csv")))
    assert len(rows) == 3
    for row in rows:
        assert float(row["mean difference (m)"]) == 0 and float(row["volume difference (m3)"]) == 0
    assert not list(tmp_path.glob("*.png"))
    capsys.readouterr()


def test_grids_must_agree(finished, case):
    other = find_run(case().run())
    with pytest.raises(KelpError, match="the grids differ: 120 cells from 0 to 18000 and 10 cells from 0 to 1000 m"):
        Pair(find_run(finished["duck"]), other)


def test_runs_of_different_length_are_compared_on_their_last_common_date(case, tmp_path):
    long = find_run(case(folder=tmp_path / "long", SIMDATE="20200301").run())
    short = find_run(case(folder=tmp_path / "short").run())
    with pytest.warns(KelpWarning, match="end on 20200302 and 20200202; they are compared on 20200201"):
        pair = Pair(long, short)
    common = set(long.dataset["date"].values.tolist()) & set(short.dataset["date"].values.tolist())
    assert pair.date == max(common)
    assert pair.a["date"].values.tolist() == pair.b["date"].values.tolist() == sorted(common)
    np.testing.assert_allclose(pair.difference("slo"), 0)


def test_runs_without_a_common_date(case, tmp_path):
    one = find_run(case(folder=tmp_path / "one").run())
    other = find_run(case(folder=tmp_path / "other", SIMDATS="20210101", SIMDATE="20210201").run())
    with pytest.raises(KelpError, match="no date in common"):
        Pair(one, other)


def test_other_initial_shorelines_are_told(case, tmp_path):
    one = find_run(case(folder=tmp_path / "one").run())
    other = find_run(case([value + 1 for value in (100, 100, 104, 115, 128, 130, 119, 108, 101, 100)],
                          folder=tmp_path / "other").run())  # fmt: skip
    with pytest.warns(KelpWarning, match="the initial shorelines differ"):
        Pair(one, other)


def test_feet_against_metres(case, tmp_path):
    """The same coast in both units gives the same run."""
    metres = case(folder=tmp_path / "m", WAVEID="10 8 0 run.waves").run()
    feet = case([value / 0.3048 for value in (100, 100, 104, 115, 128, 130, 119, 108, 101, 100)],
                folder=tmp_path / "ft", KELUNITS="(ft)", DX="328.084", WAVEID="10 26.2467 0 run.waves",
                BERMHT="3.28084", DCLOS="19.6850").run()  # fmt: skip
    pair = Pair(find_run(metres), find_run(feet))
    np.testing.assert_allclose(pair.b["slo"], pair.a["slo"], atol=0.02)
    np.testing.assert_allclose(pair.b["vcc"], pair.a["vcc"], atol=10)
    np.testing.assert_allclose(pair.b["vcx"], pair.a["vcx"], atol=0.1)
    np.testing.assert_allclose(pair.b["mqn"].values[-1], pair.a["mqn"].values[-1], rtol=1e-3)
    assert {pair.b[name].attrs["units"] for name in ("slo", "x_wall", "off")} == {"m"}
    assert pair.b["vcx"].attrs["units"] == "m3 m-1"
    back = in_unit(in_unit(find_run(feet).dataset, "m"), "ft")
    np.testing.assert_allclose(back["vcx"], find_run(feet).dataset["vcx"])
