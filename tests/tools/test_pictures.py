"""The pictures are checked for what they draw: artists, labels, data limits."""

import kelptools
import matplotlib.dates as mdates
import numpy as np
import pytest
from conftest import EQUILIBRIA, read_by_hand
from kelptools import KelpError, cli
from kelptools.drawing import DIFFERENCES
from kelptools.pictures import change_figure, shoals_figure, shoreline_figure, transport_figure, volume_figure
from kelptools.run import find_run
from PIL import Image

pytestmark = pytest.mark.filterwarnings("ignore::kelptools.KelpWarning")

FIGURES = (shoreline_figure, change_figure, transport_figure, volume_figure)
STRUCTURES = (
    "ISWBEG: 2\nISWEND: 3\nSWY1: 90\nSWY2: 95\n"
    "IXNDG: 5\nYNDG: 170\nIXDG: 9\nYDG: 180\n"
    "DBI1: 6\nDBI2: 8\nDBY1: 210\nDBY2: 220\n"
    "IINLS: 9\nIINLE: 9\nINLNAME: Old Inlet\n"
)


def line(axis, label):
    """The one line whose label begins so."""
    (found,) = [one for one in axis.lines if one.get_label().startswith(label)]
    return found


def legend_texts(axis):
    return [text.get_text() for text in axis.get_legend().get_texts()]


@pytest.fixture(scope="module")
def duck(finished):
    return find_run(finished["duck"])


@pytest.fixture
def built(case):
    """Ten cells with a structure of each kind. The tools alone see them: the tables were made without."""
    small = case()
    small.run()
    small.add(STRUCTURES)
    return find_run(small.folder / "run.prt")


def test_the_shoreline_of_duck(duck, finished):
    dates, rows = read_by_hand(finished["duck"].with_suffix(".slo"), 14)
    plan, change, *_ = shoreline_figure(duck.dataset, duck.structures).axes
    np.testing.assert_array_equal(line(plan, "Initial").get_ydata(), rows[0])
    np.testing.assert_array_equal(line(plan, "Final, 2006-01-01").get_ydata(), rows[-1])
    np.testing.assert_allclose(line(plan, "Final").get_xdata()[[0, -1]], [0.075, 17.925])
    wall = line(plan, "Seawall")
    assert wall.get_xdata()[[0, -1]].tolist() == [6.0, 7.5]  # cells 41 to 50 of 150 m
    assert wall.get_ydata().tolist() == [220] * 4
    envelope = plan.collections[0].get_paths()[0].get_extents()
    assert (envelope.y0, envelope.y1) == (np.min(rows), np.max(rows))
    assert plan.get_ylim()[0] < np.min(rows) and plan.get_ylim()[1] > np.max(rows)
    assert plan.get_xlim() == (0, 18)
    assert plan.get_ylabel() == "Position from the baseline (m)"
    assert change.get_xlabel() == "Alongshore distance (km), to the right looking seaward"
    assert legend_texts(plan) == ["Extremes of the saved records", "Initial", "Final, 2006-01-01", "Seawall"]
    gained, lost = change.patches
    np.testing.assert_allclose(gained.get_data().values, np.maximum(np.subtract(rows[-1], rows[0]), 0))
    np.testing.assert_allclose(lost.get_data().values, np.minimum(np.subtract(rows[-1], rows[0]), 0))
    assert gained.get_data().edges[[0, -1]].tolist() == [0, 18]


def test_the_titles_are_the_runs(duck):
    figure = shoreline_figure(duck.dataset, duck.structures)
    assert figure._suptitle.get_text() == "Duck, North Carolina, 1996 to 2005, a beach before a seawall"
    assert figure.axes[0].get_title("left") == "Shoreline, 1996-01-01 to 2006-01-01"


def test_the_change_of_duck_through_time(duck, finished):
    _, rows = read_by_hand(finished["duck"].with_suffix(".slo"), 14)
    axis, strip, bar, *_ = change_figure(duck.dataset, duck.structures).axes
    (mesh,) = [one for one in axis.collections if hasattr(one, "get_coordinates")]
    np.testing.assert_allclose(mesh.get_array().reshape(123, 120), np.subtract(rows, rows[0]))
    low, high = mesh.get_clim()
    assert low == -high  # no change lies in the middle of the colours
    assert high == pytest.approx(np.abs(np.subtract(rows, rows[0])).max())
    assert mesh.get_cmap().name == DIFFERENCES == "RdBu"  # red and blue, not red and green
    borders = mesh.get_coordinates()
    assert borders[0, [0, -1], 0].tolist() == [0, 18]
    assert [str(mdates.num2date(y).date()) for y in borders[[0, -1], 0, 1]] == ["1996-01-01", "2006-01-01"]
    assert axis.get_ylabel() == "Date"
    assert bar.get_ylabel() == "Change of the shoreline (m)\nretreat < 0 < advance"
    assert list(line(strip, "Seawall").get_xdata()) == [6.0, 7.5]
    assert strip.get_xlabel().startswith("Alongshore distance (km)")


def test_a_few_wild_cells_do_not_take_all_colours(duck):
    data = duck.dataset.copy(deep=True)
    data["slo"].values[-1, 60] += 5000
    axis = change_figure(data, []).axes[0]
    mesh = axis.collections[0]
    assert mesh.get_clim()[1] < 60
    assert mesh.colorbar.extend == "both"


def test_the_transport_of_duck(duck, finished):
    last = {
        name: read_by_hand(finished["duck"].with_suffix(f".{name}"), 16)[1][-1] for name in ("mqn", "mqr", "mql")
    }
    (axis,) = transport_figure(duck.dataset, duck.structures).axes
    np.testing.assert_array_equal(line(axis, "Net").get_ydata(), last["mqn"])
    np.testing.assert_array_equal(line(axis, "To the right").get_ydata(), last["mqr"])
    np.testing.assert_array_equal(line(axis, "To the left").get_ydata(), last["mql"])
    np.testing.assert_allclose(line(axis, "Net").get_xdata(), np.arange(121) * 0.15)
    assert axis.get_ylabel() == "Transport (m³ per year)"
    assert axis.get_title("left") == "Mean annual longshore transport, 1996-01-01 to 2006-01-01"
    assert axis.get_ylim()[0] < min(last["mql"]) and axis.get_ylim()[1] > max(last["mqr"])


@pytest.mark.parametrize("rows, year, first", [(12, 1998, 8), (8, 1997, 0)])
def test_the_transport_of_a_run_that_did_not_end_is_a_sum(copy_of, rows, year, first):
    report = copy_of("duck")
    sums = {}
    for name in ("mqn", "mqr", "mql"):
        path = report.with_suffix(f".{name}")
        lines = path.read_text().split("\n")
        path.write_text("\n".join(lines[: 1 + rows]) + "\n")
        sums[name] = read_by_hand(path, 16)[1][first]
    for name in ("slo", "qtr", "off", "vcc", "vcx"):
        path = report.with_suffix(f".{name}")
        path.write_text("\n".join(path.read_text().split("\n")[:26]) + "\n")
    run = find_run(report)
    # An anniversary has a row for each of its eight steps, dated one step ahead.
    assert run.dataset["year_date"].values[:8].tolist() == [19970101] * 7 + [19970102]
    (axis,) = transport_figure(run.dataset, run.structures).axes
    assert axis.get_title("left") == f"Longshore transport since the last year's end, up to {year}-01-01"
    assert axis.get_ylabel() == "Transport (m³)"
    np.testing.assert_array_equal(line(axis, "Net").get_ydata(), sums["mqn"])
    assert "the run is not complete" in shoreline_figure(run.dataset, []).axes[0].get_title("left")


def test_the_volumes_of_duck(duck, finished):
    _, per_length = read_by_hand(finished["duck"].with_suffix(".vcx"), 14)
    _, volumes = read_by_hand(finished["duck"].with_suffix(".vcc"), 14)
    along, total = volume_figure(duck.dataset, duck.structures).axes
    bars = [one for one in along.patches if hasattr(one, "get_data")]
    np.testing.assert_allclose(sum(one.get_data().values for one in bars), per_length[-1])
    np.testing.assert_allclose(line(total, "Net").get_ydata(), np.sum(volumes, axis=1), atol=1e-6)
    np.testing.assert_allclose(line(total, "Cells that gained").get_ydata(), np.maximum(volumes, 0).sum(axis=1))
    assert along.get_ylabel() == "Volume change\n(m³ per m of coast)"
    assert total.get_ylabel() == "Volume change (m³)"


def test_structures_stand_where_they_are(built):
    plan, change, *_ = shoreline_figure(built.dataset, built.structures).axes
    wall = line(plan, "Seawall")
    assert wall.get_xdata().tolist() == [100, 150, 250, 300]
    assert wall.get_ydata().tolist() == [90, 90, 95, 95]
    first = line(plan, "Groin")
    second = line(plan, "_groin")
    assert list(first.get_xdata()) == [400, 400] and list(second.get_xdata()) == [800, 800]
    assert first.get_ydata()[1] == 170 and second.get_ydata()[1] == 180
    assert first.get_ydata()[0] == built.dataset["slo"].values[:, 3:5].min()  # it reaches back to the beach
    breakwater = line(plan, "Detached breakwater")
    assert breakwater.get_xdata().tolist() == [500, 700]
    assert breakwater.get_ydata().tolist() == [210, 220]
    inlet = [patch for patch in plan.patches if patch.get_label() == "Inlet"][0]
    assert inlet.get_xy()[:, 0].min() == 800 and inlet.get_xy()[:, 0].max() == 900
    assert [text.get_text() for text in plan.texts if "Inlet" in text.get_text()] == ["Old Inlet"]
    assert plan.get_ylim()[0] < 90 and plan.get_ylim()[1] > 220
    assert legend_texts(plan)[-4:] == ["Seawall", "Groin", "Detached breakwater", "Inlet"]
    for figure in FIGURES[1:]:
        axes = [axis for axis in figure(built.dataset, built.structures).axes if axis.get_legend()]
        labels = {text for axis in axes for text in legend_texts(axis)}
        assert {"Seawall", "Groin", "Detached breakwater", "Inlet"} <= labels


def test_structures_outside_the_grid_are_refused(case):
    small = case()
    report = small.run()
    small.add("ISWBEG: 8\nISWEND: 11\n")
    with pytest.raises(KelpError, match="seawall 1 lies outside the grid of 10 cells"):
        find_run(report).structures


def test_few_cells_have_marks_and_many_have_none(built, duck):
    for run, marked in ((built, True), (duck, False)):
        final = line(shoreline_figure(run.dataset, []).axes[0], "Final")
        assert (final.get_marker() == "o") is marked


def cell_ticks(figure):
    (top,) = figure.axes[0].child_axes
    assert top.get_xlabel() == "Cell"
    return [text.get_text() for text in top.get_xticklabels()]


def test_cells_are_numbered_for_10_and_for_4000(built, case, tmp_path):
    assert cell_ticks(shoreline_figure(built.dataset, [])) == [str(n) for n in range(1, 11)]
    x = np.arange(4000)
    many = case(300 + 50 * np.sin(x / 300), folder=tmp_path / "many", DX="25", DTSAVE="24")
    run = find_run(many.run())
    figure = shoreline_figure(run.dataset, [])
    assert cell_ticks(figure) == ["1", *[str(n) for n in range(500, 4001, 500)]]
    assert line(figure.axes[0], "Final").get_xdata().size == 4000
    mesh = change_figure(run.dataset, []).axes[0].collections[0]
    assert mesh.get_array().size == 4000 * run.dataset.sizes["record"]
    for draw in FIGURES:
        for axis in draw(run.dataset, []).axes:
            for ticks in (axis.get_xticklabels(), axis.get_yticklabels()):
                assert len(ticks) <= 14


def column(path, head):
    """A column of an inlet's table as it stands in the file."""
    lines = path.read_text().splitlines()
    place = lines[1].split().index(head)
    return [float(row.split()[place]) for row in lines[2:]]


@pytest.mark.parametrize("inlet, name, table", [(0, "Old Inlet", "Old Inlet.irv"), (1, "Inlet2", "Inlet2.irv")])
def test_the_shoals_of_two_inlets(two_inlets, inlet, name, table):
    run = find_run(two_inlets)
    path = two_inlets.with_name(table)
    shoals, share = shoals_figure(run.dataset, run.structures, inlet).axes
    assert shoals.get_title("left") == f"Shoals of {name}, 2020-01-01 to 2020-02-01"
    heads = {
        "Ebb shoal": "Ebb", "Flood shoal": "Flood", "Left bypass bar": "L_Bypass", "Right bypass bar": "R_Bypass",
        "Left attachment bar": "L_Attach", "Right attachment bar": "R_Attach",
    }  # fmt: skip
    for label, head in heads.items():
        np.testing.assert_array_equal(line(shoals, label).get_ydata(), column(path, head))
    flat = [one.get_ydata()[0] for one in shoals.lines if len(set(one.get_ydata())) == 1 and one.get_linewidth() < 1]
    assert flat == [90000, 25000, 10000, 11000, 4000, 8000] == [
        EQUILIBRIA[one] for one in ("VVSEQ", "VVSFQ", "VVSBQL", "VVSBQR", "VVSAQL", "VVSAQR")
    ]
    assert legend_texts(shoals) == [*heads, "Equilibrium volumes"]
    assert shoals.get_ylabel() == "Volume (yd³)"
    days = [str(mdates.num2date(moment).date()) for moment in line(shoals, "Ebb shoal").get_xdata()]
    assert days == ["2020-01-11", "2020-01-21", "2020-01-31"]
    expected = [e / 90000 * b / 11000 * a / 8000 for e, b, a in
                zip(column(path, "Ebb"), column(path, "R_Bypass"), column(path, "R_Attach"))]  # fmt: skip
    np.testing.assert_allclose(line(share, "Right beach").get_ydata(), expected)
    assert share.get_ylim()[1] > 1 and line(share, "Left beach").get_ydata()[0] < expected[0]


def test_one_picture_for_each_inlet(two_inlets, tmp_path, capsys):
    assert cli.main(["plot", str(two_inlets), "-o", str(tmp_path)]) == 0
    names = [path.rpartition("run_")[2] for path in capsys.readouterr().out.split()]
    assert names == ["shoreline.png", "change.png", "transport.png", "volume.png", "shoals1.png", "shoals2.png"]
    assert (tmp_path / "run_shoals1.png").read_bytes() != (tmp_path / "run_shoals2.png").read_bytes()


def test_no_picture_of_shoals_without_an_inlet(copy_of, capsys):
    assert cli.main(["plot", str(copy_of("first_beach")), "--only", "shoals"]) == 1
    told = "nothing to draw: the run has no inlet, or its table is empty"
    assert capsys.readouterr().err == f"kelp: first_beach.prt: {told}\n"


def test_shoals_with_one_record_and_one_below_zero(two_inlets):
    run = find_run(two_inlets)
    data = run.dataset.isel(inlet_record=[0]).copy(deep=True)
    data["Ebb"].values[0, 0] = -5000
    shoals, share = shoals_figure(data, run.structures).axes
    assert shoals.get_ylim()[0] < -5000
    assert line(share, "Right beach").get_ydata()[0] < 0 and share.get_ylim()[0] < 0


def test_a_single_cell(case):
    run = find_run(case([100], DX="200").run())
    for draw in FIGURES:
        draw(run.dataset, run.structures)


def test_feet_and_yards_are_on_the_axes(case):
    run = find_run(case(KELUNITS="(ft)", DX="500").run())
    labels = [axis.get_ylabel() for draw in FIGURES for axis in draw(run.dataset, []).axes]
    assert "Position from the baseline (ft)" in labels
    assert "Transport (yd³ per year)" in labels
    assert "Volume change\n(yd³ per ft of coast)" in labels
    assert not any("m³" in label or "(m)" in label for label in labels)
    assert "(ft)" in shoreline_figure(run.dataset, []).axes[1].get_xlabel()


def test_missing_values_leave_gaps(built):
    data = built.dataset.copy(deep=True)
    data["slo"].values[-1, 4] = np.nan
    data["vcx"].values[-1, 4] = np.nan
    final = line(shoreline_figure(data, built.structures).axes[0], "Final").get_ydata()
    assert np.isnan(final[4]) and np.isfinite(final[5])
    mesh = change_figure(data, []).axes[0].collections[0]
    assert np.ma.count_masked(mesh.get_array()) == 1
    volume_figure(data, [])


def test_times_that_cannot_be_told_give_way_to_records(built):
    data = built.dataset.copy(deep=True)
    data["time"].values[:] = np.datetime64("NaT")
    assert change_figure(data, []).axes[0].get_ylabel() == "Record"
    assert volume_figure(data, []).axes[1].get_xlabel() == "Record"


def test_the_users_own_style_does_not_spoil_the_pictures(duck):
    import matplotlib

    with matplotlib.rc_context({"axes.facecolor": "black", "font.size": 40}):
        figure = shoreline_figure(duck.dataset, [])
        assert matplotlib.rcParams["font.size"] == 40
    assert figure.axes[0].get_facecolor()[:3] == (1, 1, 1)


def test_an_empty_table_is_told(copy_of):
    report = copy_of("first_beach")
    for name in ("slo", "qtr", "off", "vcc", "vcx"):
        report.with_suffix(f".{name}").write_text("Title\n")
    run = find_run(report)
    with pytest.raises(KelpError, match="nothing to draw: the table slo is not there or empty"):
        shoreline_figure(run.dataset, run.structures)


def test_the_command_writes_its_pictures(copy_of, tmp_path, capsys):
    report = copy_of("first_beach")
    assert cli.main(["plot", str(report), "-o", str(tmp_path / "new" / "pictures")]) == 0
    printed = capsys.readouterr().out.split()
    names = ["shoreline", "change", "transport", "volume"]
    assert printed == [str(tmp_path / "new" / "pictures" / f"first_beach_{name}.png") for name in names]
    for path in printed:
        image = Image.open(path).convert("L")
        assert image.size[0] == 1500
        assert image.getextrema() == (0, 255)  # ink on white


def test_the_command_writes_svg_beside_the_report(copy_of, capsys):
    report = copy_of("first_beach")
    assert cli.main(["plot", str(report), "--format", "svg", "--only", "transport"]) == 0
    path = report.with_name("first_beach_transport.svg")
    assert capsys.readouterr().out == f"{path}\n"
    text = path.read_text()
    assert "<svg" in text and "Mean annual longshore transport" in text  # words, not outlines of letters
    assert "<dc:date>" not in text


def test_the_command_in_the_folder_of_the_run(copy_of, monkeypatch, capsys):
    report = copy_of("first_beach")
    monkeypatch.chdir(report.parent)
    assert cli.main(["plot", "first_beach.prt", "--only", "shoreline"]) == 0
    assert capsys.readouterr().out == "first_beach_shoreline.png\n"
    assert kelptools.open_run("first_beach.cfg").sizes["cell"] == 60
