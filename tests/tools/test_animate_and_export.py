import csv
import json
import subprocess

import fiona
import kelptools
import numpy as np
import pytest
import xarray as xr
from conftest import EXAMPLES, read_by_hand
from kelptools import cli
from kelptools.animation import Scene, frame_records
from kelptools.run import find_run
from PIL import Image
from test_pictures import STRUCTURES
from test_reader import write_inlet_table

pytestmark = pytest.mark.filterwarnings("ignore::kelptools.KelpWarning")


# Animation.


def test_the_scene_moves_with_the_records(finished):
    run = find_run(finished["duck"])
    _, rows = read_by_hand(finished["duck"].with_suffix(".slo"), 14)
    scene = Scene(run.dataset, run.structures)
    for record, date in ((0, "1996-01-01"), (60, "2000-12-05"), (122, "2006-01-01")):
        scene.show(record)
        np.testing.assert_array_equal(scene.line.get_ydata(), rows[record])
        np.testing.assert_array_equal(scene.first.get_ydata(), rows[0])
        assert scene.axis.get_title("left") == f"Shoreline, {date}"
        assert len(scene.axis.collections) == 1  # the land, and not that of the frame before
        assert scene.land.get_paths()[0].get_extents().y1 == max(rows[record])
    assert scene.axis.get_ylim()[0] < np.min(rows) and scene.axis.get_ylim()[1] > np.max(rows)


def test_frames_are_spread_over_the_run():
    assert frame_records(5, 10).tolist() == [0, 1, 2, 3, 4]
    assert frame_records(101, 5).tolist() == [0, 25, 50, 75, 100]
    assert frame_records(1, 150).tolist() == [0]


def test_the_gif(finished, tmp_path, capsys):
    path = tmp_path / "a.gif"
    assert cli.main(["animate", str(finished["first_beach"]), str(path), "--frames", "6", "--fps", "10"]) == 0
    assert capsys.readouterr().out == f"{path}\n"
    with Image.open(path) as image:
        assert image.format == "GIF" and image.n_frames == 6
        assert image.info["loop"] == 0 and image.info["duration"] == 100
        assert image.size[0] == 1000
        first = np.asarray(image.convert("L"))
        image.seek(5)
        assert image.info["duration"] == 2000
        assert (np.asarray(image.convert("L")) != first).any()


# NetCDF.


@pytest.mark.parametrize("name", EXAMPLES)
def test_netcdf_gives_back_the_run(finished, name, tmp_path):
    path = tmp_path / "a.nc"
    assert cli.main(["export", str(finished[name]), str(path)]) == 0
    run = kelptools.open_run(finished[name])
    with xr.open_dataset(path) as again:
        assert set(again.variables) == set(run.variables)
        for variable in run.variables:
            np.testing.assert_array_equal(again[variable].values, run[variable].values, err_msg=variable)
            assert again[variable].dims == run[variable].dims
        assert again.attrs["Conventions"] == "CF-1.8"
        assert again["off"].attrs["contour_offset"] == 300


def test_the_head_of_the_netcdf_file(finished, tmp_path):
    path = tmp_path / "a.nc"
    cli.main(["export", str(finished["duck"]), str(path)])
    head = subprocess.run(["ncdump", "-h", path], capture_output=True, text=True, check=True).stdout
    for said in (
        "record = 123 ;", "cell = 120 ;", "wall = 121 ;", "year_record = 74 ;",
        "double slo(record, cell) ;", 'slo:units = "m" ;', 'slo:long_name = "shoreline position from the baseline" ;',
        'time:units = "seconds since 1970-01-01" ;', 'time:standard_name = "time" ;',
        'vcx:units = "m3 m-1" ;', 'qtr:units = "m3 year-1" ;', ':Conventions = "CF-1.8" ;',
        "int date(record) ;", 'kind:flag_meanings = "sum mean_annual_rate" ;',
    ):  # fmt: skip
        assert said in head, said
    assert any("slo:coordinates" in line and "time" in line and "x_cell" in line for line in head.split("\n"))
    values = subprocess.run(["ncdump", "-v", "date", path], capture_output=True, text=True, check=True).stdout
    assert "19960101, 19960131, 19960301" in values


def test_missing_values_and_shoals_in_netcdf(case, tmp_path):
    small = case()
    report = small.run()
    small.add("IINLS: 4\nIINLE: 4\nINLNAME: Gut\n")
    write_inlet_table(small.folder / "Gut.irv", [(10, [None, *range(1, 16)], 20200111)])
    cli.main(["export", str(report), str(tmp_path / "a.nc")])
    with xr.open_dataset(tmp_path / "a.nc") as again:
        assert again["inlet"].values.tolist() == ["Gut"]
        assert np.isnan(again["L_Qout"].values[0, 0]) and again["Ebb"].values[0, 0] == 6


# CSV.


@pytest.mark.parametrize("name", EXAMPLES)
def test_csv_has_a_row_for_each_date_and_cell(finished, name, tmp_path):
    path = tmp_path / "a.csv"
    assert cli.main(["export", str(finished[name]), str(path)]) == 0
    with open(path, newline="") as file:
        rows = list(csv.reader(file))
    assert rows[0] == [
        "record", "date", "time", "cell", "x (m)", "slo (m)", "off (m)", "vcc (m3)", "vcx (m3/m)",
        "qtr left wall (m3/year)", "qtr right wall (m3/year)",
    ]  # fmt: skip
    tables = {suffix: read_by_hand(finished[name].with_suffix(f".{suffix}"), 14)[1] for suffix in ("slo", "vcx")}
    dates, rates = read_by_hand(finished[name].with_suffix(".qtr"), 16)
    cells = len(tables["slo"][0])
    assert len(rows) == 1 + len(dates) * cells
    for record, cell in ((0, 0), (3, 7), (len(dates) - 1, cells - 1)):
        row = rows[1 + record * cells + cell]
        assert row[:2] == [str(record + 1), str(dates[record])]
        assert row[2][:10].replace("-", "") == str(dates[record])
        assert row[3] == str(cell + 1)
        assert float(row[5]) == tables["slo"][record][cell]
        assert float(row[8]) == tables["vcx"][record][cell]
        assert [float(row[9]), float(row[10])] == rates[record][cell : cell + 2]


def test_csv_of_the_years_and_walls(finished, tmp_path):
    report = finished["first_beach"]
    cli.main(["export", str(report), str(tmp_path / "years.csv"), "--table", "years"])
    rows = list(csv.DictReader(open(tmp_path / "years.csv", newline="")))
    assert len(rows) == 3 * 61
    assert [rows[i * 61]["kind"] for i in range(3)] == ["sum", "sum", "mean annual rate"]
    _, means = read_by_hand(report.with_suffix(".mqn"), 16)
    assert [float(row["mqn (m3)"]) for row in rows[122:]] == means[-1]
    cli.main(["export", str(report), str(tmp_path / "walls.csv"), "--table", "walls"])
    rows = list(csv.DictReader(open(tmp_path / "walls.csv", newline="")))
    _, rates = read_by_hand(report.with_suffix(".qtr"), 16)
    assert [float(row["qtr (m3/year)"]) for row in rows[-61:]] == rates[-1]
    assert [float(row["x (m)"]) for row in rows[:61]] == [100.0 * i for i in range(61)]


def test_csv_in_feet_and_with_a_missing_value(case, tmp_path):
    report = case(KELUNITS="(ft)", DX="500").run()
    table = report.with_suffix(".slo")
    content = bytearray(table.read_bytes())
    content[-15:-1] = b"*" * 14
    table.write_bytes(content)
    cli.main(["export", str(report), str(tmp_path / "a.csv")])
    rows = list(csv.DictReader(open(tmp_path / "a.csv", newline="")))
    assert rows[-1]["slo (ft)"] == "" and rows[-2]["slo (ft)"] != ""
    assert {"vcc (yd3)", "vcx (yd3/ft)", "x (ft)", "qtr left wall (yd3/year)"} <= set(rows[0])


def test_csv_of_shoals(case, tmp_path, capsys):
    small = case()
    report = small.run()
    assert cli.main(["export", str(report), str(tmp_path / "a.csv"), "--table", "inlets"]) == 1
    assert capsys.readouterr().err == "kelp: run.prt: nothing to export: no table of the kind 'inlets'\n"
    assert not (tmp_path / "a.csv").exists()
    small.add("IINLS: 4\nIINLE: 4\nINLNAME: Gut\n")
    write_inlet_table(small.folder / "Gut.irv", [(10, range(16), 20200111), (20, range(20, 36), 20200121)])
    cli.main(["export", str(report), str(tmp_path / "a.csv"), "--table", "inlets"])
    rows = list(csv.DictReader(open(tmp_path / "a.csv", newline="")))
    assert [(row["inlet"], row["step"]) for row in rows] == [("Gut", "10"), ("Gut", "20")]
    assert [float(row["Ebb (m3)"]) for row in rows] == [6, 26]


def test_csv_and_netcdf_of_the_programs_shoals(two_inlets, tmp_path):
    assert cli.main(["export", str(two_inlets), str(tmp_path / "a.csv"), "--table", "inlets"]) == 0
    rows = list(csv.DictReader(open(tmp_path / "a.csv", newline="")))
    assert [row["inlet"] for row in rows] == ["Old Inlet"] * 3 + ["Inlet2"] * 3
    for name in ("Old Inlet", "Inlet2"):
        written = two_inlets.with_name(f"{name}.irv").read_text().splitlines()[2:]
        told = [row for row in rows if row["inlet"] == name]
        assert [int(row["step"]) for row in told] == [int(line[:8]) for line in written]
        assert [int(row["date"]) for row in told] == [int(line[-8:]) for line in written]
        assert [float(row["R_Qout (yd3/year)"]) for row in told] == [float(line[219:233]) for line in written]
        assert [float(row["L_Qout (yd3/year)"]) for row in told] == [float(line[9:23]) for line in written]
    assert cli.main(["export", str(two_inlets), str(tmp_path / "a.nc")]) == 0
    with xr.open_dataset(tmp_path / "a.nc") as again:
        assert again["inlet"].values.tolist() == ["Old Inlet", "Inlet2"]
        assert again["VVSEQ"].values.tolist() == [90000, 90000] and again["VVSEQ"].attrs["units"] == "yd3"


# GeoJSON.


def features(path):
    collection = json.loads(path.read_text(), parse_constant=lambda word: pytest.fail(f"{word} is not JSON"))
    assert collection["type"] == "FeatureCollection"
    return collection["features"]


@pytest.mark.parametrize("name", EXAMPLES)
def test_geojson_in_baseline_coordinates(finished, name, tmp_path):
    path = tmp_path / "a.geojson"
    assert cli.main(["export", str(finished[name]), str(path)]) == 0
    dates, rows = read_by_hand(finished[name].with_suffix(".slo"), 14)
    shorelines = [one for one in features(path) if one["properties"]["kind"] == "shoreline"]
    assert [one["properties"]["date"] for one in shorelines] == dates
    assert [shorelines[i]["properties"]["name"] for i in (0, 1, -1)] == ["initial", "saved", "final"]
    line = shorelines[-1]["geometry"]
    assert line["type"] == "LineString"
    assert [point[1] for point in line["coordinates"]] == rows[-1]
    with fiona.open(path) as source:
        assert source.schema["geometry"] == "LineString"
        assert len(source) == len(features(path))
        assert source[0]["properties"]["date"] == dates[0]


def test_geojson_in_map_coordinates(finished, tmp_path):
    path = tmp_path / "a.geojson"
    arguments = ["--origin", "432000", "4005000", "--crs", "32618", "--records", "ends"]
    assert cli.main(["export", str(finished["duck"]), str(path), *arguments]) == 0
    _, rows = read_by_hand(finished["duck"].with_suffix(".slo"), 14)
    first, last, wall = features(path)
    assert (first["properties"]["name"], last["properties"]["name"], wall["properties"]["kind"]) == (
        "initial", "final", "seawall",
    )  # fmt: skip
    # The baseline runs to 162 degrees, the sea lies at 72: by hand, from the sine and cosine of these.
    sin162, cos162, sin72, cos72 = 0.3090170, -0.9510565, 0.9510565, 0.3090170
    x, y = 75 + 150 * 59, rows[-1][59]
    east = 432000 + x * sin162 + y * sin72
    north = 4005000 + x * cos162 + y * cos72
    np.testing.assert_allclose(last["geometry"]["coordinates"][59], [east, north], atol=0.01)
    with fiona.open(path) as source:
        assert source.crs["init"] == "epsg:32618" if "init" in source.crs else "32618" in str(source.crs)
        west, south, east, north = source.bounds
        assert 432000 < west < east < 440000 and 3987000 < south < north < 4005100


def test_the_unit_of_the_map(case, tmp_path):
    report = case(KELUNITS="(ft)", DX="1000", AZIMUTH="90").run()
    path = tmp_path / "a.geojson"
    cli.main(["export", str(report), str(path), "--origin", "5000", "7000", "--map-unit", "m", "--records", "ends"])
    # A baseline that runs east has the sea in the north.
    point = features(path)[0]["geometry"]["coordinates"][0]
    assert point == [pytest.approx(5000 + 500 * 0.3048, abs=0.002), pytest.approx(7000 + 100 * 0.3048, abs=0.002)]


def test_structures_are_lines_too(case, tmp_path):
    small = case()
    report = small.run()
    small.add(STRUCTURES)
    path = tmp_path / "a.geojson"
    cli.main(["export", str(report), str(path), "--records", "ends"])
    found = {one["properties"]["name"]: one["geometry"]["coordinates"] for one in features(path)}
    assert found["breakwater 1"] == [[500, 210], [700, 220]]
    assert found["groin 1"] == [[400, 115], [400, 170]]  # from the lower beach beside it to its tip
    assert found["diffracting groin 1"] == [[800, 101], [800, 180]]
    assert found["seawall 1"][0] == [100, 90] and found["seawall 1"][-1] == [300, 95]
    assert found["Old Inlet"] == [[800, 108], [900, 100]]


def test_a_line_breaks_where_a_value_is_missing(copy_of, tmp_path):
    report = copy_of("first_beach")
    table = report.with_suffix(".slo")
    content = bytearray(table.read_bytes())
    start = content.index(b"\n") + 1 + 8
    content[start + 14 * 10 : start + 14 * 11] = b"*" * 14
    table.write_bytes(content)
    cli.main(["export", str(report), str(tmp_path / "a.geojson")])
    geometry = features(tmp_path / "a.geojson")[0]["geometry"]
    assert geometry["type"] == "MultiLineString"
    assert [len(piece) for piece in geometry["coordinates"]] == [10, 49]
    with fiona.open(tmp_path / "a.geojson") as source:
        assert [one["geometry"]["type"] for one in source] == ["MultiLineString"] + ["LineString"] * 25


def test_a_single_cell_is_a_line(case, tmp_path):
    report = case([100], DX="200").run()
    cli.main(["export", str(report), str(tmp_path / "a.geojson")])
    assert features(tmp_path / "a.geojson")[0]["geometry"]["coordinates"] == [[0, 100], [200, 100]]
