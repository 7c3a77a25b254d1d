import shutil
import warnings

import kelptools
import numpy as np
import pytest
import xarray as xr
from conftest import EXAMPLES, read_by_hand
from kelptools import KelpError, KelpWarning

STATE = {"slo": 14, "off": 14, "vcc": 14, "vcx": 14, "qtr": 16}
YEARS = {"mqn": 16, "mqr": 16, "mql": 16}


@pytest.fixture(autouse=True)
def no_silent_warning():
    """A warning that a test does not expect is a failure."""
    with warnings.catch_warnings():
        warnings.simplefilter("error", KelpWarning)
        yield


@pytest.mark.parametrize("name", EXAMPLES)
def test_every_value_of_the_examples_is_read(finished, name):
    report = finished[name]
    run = kelptools.open_run(report)
    assert isinstance(run, xr.Dataset)
    for suffix, width in {**STATE, **YEARS}.items():
        dates, rows = read_by_hand(report.parent / f"{name}.{suffix}", width)
        assert run[suffix].shape == (len(rows), len(rows[0]))
        np.testing.assert_array_equal(run[suffix].values, rows)
        prefix = "year_" if suffix in YEARS else ""
        np.testing.assert_array_equal(run[f"{prefix}date"].values, dates)
        times = run[f"{prefix}time"].values
        assert (np.diff(times) >= np.timedelta64(0)).all()
        assert [int(str(time)[:10].replace("-", "")) for time in times] == dates


def test_duck_has_its_coordinates_and_attributes(finished):
    run = kelptools.open_run(finished["duck"])
    assert run.sizes["cell"] == 120 and run.sizes["wall"] == 121
    assert run["x_wall"].values[[0, 1, -1]].tolist() == [0, 150, 18000]
    assert run["x_cell"].values[[0, -1]].tolist() == [75, 17925]
    assert run["dx"].values.tolist() == [150.0] * 120
    assert run["cell"].values[[0, -1]].tolist() == [1, 120]
    assert run.attrs["Conventions"] == "CF-1.8"
    assert run.attrs["title"].startswith("Duck, North Carolina")
    assert run.attrs["azimuth"] == 162
    assert run.attrs["run_complete"] == "yes"
    units = {name: run[name].attrs["units"] for name in STATE}
    assert units == {"slo": "m", "off": "m", "vcc": "m3", "vcx": "m3 m-1", "qtr": "m3 year-1"}
    assert all(run[name].attrs.get("long_name") for name in run.variables)
    # The closing row alone is a mean; nothing else of the 74 rows is.
    assert run["kind"].values.tolist() == [0] * 73 + [1]


def test_the_offset_and_the_first_row_of_the_contour_are_told(finished):
    contour = kelptools.open_run(finished["duck"])["off"]
    assert contour.attrs["contour_offset"] == 300
    assert contour.attrs["contour_offset_first_record"] == 0
    assert "300 m" in contour.attrs["comment"] and "first record" in contour.attrs["comment"]
    assert (contour.values[0] == 0).all()
    shore = kelptools.open_run(finished["duck"])["slo"]
    # Smoothing keeps the coast's mean within a metre or two.
    assert abs((contour.values[-1] - contour.attrs["contour_offset"]).mean() - shore.values[-1].mean()) < 2


def test_feet(case):
    report = case(
        [value / 0.3048 for value in (100, 104, 115, 128, 119, 108, 100)],
        KELUNITS="(ft)", DX="500", WAVEID="7 26.25 0 run.waves", BERMHT="3.28", DCLOS="19.7", X0="-1000", ISMOOTH="1",
    ).run()  # fmt: skip
    run = kelptools.open_run(report)
    assert run["slo"].attrs["units"] == "ft"
    assert run["vcc"].attrs["units"] == "yd3"
    assert run["vcx"].attrs["units"] == "yd3 ft-1"
    assert run["x_wall"].values[[0, -1]].tolist() == [-1000, 2500]
    assert run["off"].attrs["contour_offset"] == pytest.approx(984.252, abs=1e-3)
    # Without smoothing the contour is the shoreline before the last step.
    np.testing.assert_allclose(run["off"].values[-1] - 984.252, run["slo"].values[-1], atol=0.5)
    # Volumes agree with the shoreline: change times height times width, in cubic yards.
    change = run["slo"].values[-1] - run["slo"].values[0]
    np.testing.assert_allclose(run["vcc"].values[-1], change * 500 * (3.28 + 19.7) / 27, atol=4)


def test_a_fixed_contour_has_no_offset(case):
    small = case(IREG="3", REGFILE="run.reg").write()
    shutil.copy(small.folder / "run.shore", small.folder / "run.reg")
    contour = kelptools.open_run(small.run())["off"]
    assert contour.attrs["contour_offset"] == 0
    np.testing.assert_allclose(contour.values[-1], small.shore)


def test_widths_of_a_variable_grid(case):
    small = case(DX="-1", DXFILE="run.dx")
    small.write()
    (small.folder / "run.dx").write_text("h\n" * 4 + "50 60 70 80 90 100 110 120 130 140\n")
    run = kelptools.open_run(small.run())
    assert run["dx"].values.tolist() == [50, 60, 70, 80, 90, 100, 110, 120, 130, 140]
    assert run["x_wall"].values[[1, 2, -1]].tolist() == [50, 110, 950]
    change = run["slo"].values[-1] - run["slo"].values[0]
    np.testing.assert_allclose(run["vcc"].values[-1], change * run["dx"].values * 7, atol=6)


def test_february_of_a_leap_year(case):
    run = kelptools.open_run(case(SIMDATS="20200226", SIMDATE="4", DTSAVE="24").run())
    assert run["date"].values.tolist() == [20200228, 20200228, 20200301, 20200230, 20200302]
    assert [str(time)[:10] for time in run["time"].values] == [
        "2020-02-28", "2020-02-28", "2020-02-29", "2020-03-01", "2020-03-02",
    ]  # fmt: skip


def test_several_records_a_day_stay_apart(case):
    run = kelptools.open_run(case(SIMDATS="20200227", SIMDATE="20200303", DT="3", DTSAVE="3").run())
    steps = np.arange(41)  # 5 days of 8 steps, and the state before the first
    true = np.datetime64("2020-02-27") + steps * np.timedelta64(3, "h")
    times = run["time"].values
    assert run.sizes["record"] == 41
    assert (np.diff(times) > np.timedelta64(0)).all()
    # The written date is one step ahead of the state.
    assert (np.abs(times - true) <= np.timedelta64(3, "h")).all()


def test_a_run_of_one_step_has_two_rows_of_one_date(case):
    run = kelptools.open_run(case(SIMDATE="1", DTSAVE="24").run())
    assert run["date"].values.tolist() == [20200103, 20200103]
    assert run.attrs["run_complete"] == "yes"


def test_an_adaptive_step(case):
    report = case(DTADAPT="1", DT="6", DTMIN="1", NSTABDTMIN="999", DTSAVE="24").run()
    run = kelptools.open_run(report)
    assert run.attrs["run_complete"] == "yes"
    assert run["kind"].values[-1] == 1


def cut(path, keep):
    """Leaves so many bytes of a file; a negative number takes as many from its end."""
    content = path.read_bytes()
    path.write_bytes(content[:keep])


@pytest.mark.parametrize("lost", [2, 15, 14 * 60, 14 * 60 + 8])
def test_a_table_cut_short_is_read_up_to_the_last_whole_record(copy_of, lost):
    report = copy_of("first_beach")
    table = report.with_suffix(".slo")
    dates, rows = read_by_hand(table, 14)
    cut(table, -lost)
    with pytest.warns(KelpWarning) as told:
        run = kelptools.open_run(report)
    said = [str(one.message) for one in told]
    assert any("first_beach.slo: the last record is cut short" in one for one in said)
    assert any("first_beach.slo: 25 records, first_beach.qtr has 26" in one for one in said)
    assert run.sizes["record"] == 26  # the other tables have it
    np.testing.assert_array_equal(run["slo"].values[:25], rows[:25])
    assert np.isnan(run["slo"].values[25]).all()
    assert not np.isnan(run["vcc"].values).any()
    assert run.attrs["run_complete"] == "no"


def test_a_last_record_that_lacks_its_line_end_alone_is_whole(copy_of):
    report = copy_of("first_beach")
    cut(report.with_suffix(".slo"), -1)
    run = kelptools.open_run(report)
    assert not np.isnan(run["slo"].values).any()
    assert run.attrs["run_complete"] == "yes"


def test_a_run_killed_half_way(copy_of):
    report = copy_of("first_beach")
    for suffix, width in STATE.items():
        path = report.with_suffix("." + suffix)
        columns = 60 + (suffix == "qtr")
        title = len(path.read_bytes().split(b"\n")[0]) + 1
        cut(path, title + 10 * (8 + width * columns + 1) + 100)
    for suffix in YEARS:
        cut(report.with_suffix("." + suffix), 10)
    with pytest.warns(KelpWarning) as told:
        run = kelptools.open_run(report)
    assert len([one for one in told if "cut short" in str(one.message)]) == 5
    assert len([one for one in told if "no record" in str(one.message)]) == 3
    assert run.sizes["record"] == 10
    assert run.sizes["year_record"] == 0
    assert run.attrs["run_complete"] == "no"


def test_a_stopped_run_is_told_by_its_line_and_not_by_a_title(case):
    report = case(TITLE="EXECUTION STOPPED DURING TIME STEP 3").run()
    assert "EXECUTION STOPPED DURING TIME STEP 3" in report.read_text()
    assert kelptools.open_run(report).attrs["run_complete"] == "yes"
    with open(report, "a") as file:
        file.write("  EXECUTION STOPPED DURING TIME STEP 31\n")
    assert kelptools.open_run(report).attrs["run_complete"] == "no"


def test_sums_of_a_killed_run_are_no_means(copy_of):
    report = copy_of("duck")
    for suffix in YEARS:
        path = report.with_suffix("." + suffix)
        path.write_bytes(b"\n".join(path.read_bytes().split(b"\n")[:-2]) + b"\n")
    for suffix in STATE:
        path = report.with_suffix("." + suffix)
        path.write_bytes(b"\n".join(path.read_bytes().split(b"\n")[:-2]) + b"\n")
    run = kelptools.open_run(report)
    assert run["kind"].values.tolist() == [0] * 73
    assert run.attrs["run_complete"] == "no"


def test_asterisks_are_missing_values(copy_of):
    report = copy_of("first_beach")
    table = report.with_suffix(".vcc")
    content = bytearray(table.read_bytes())
    start = content.index(b"\n") + 1 + 8
    content[start + 14 * 2 : start + 14 * 3] = b"*" * 14
    table.write_bytes(content)
    values = kelptools.open_run(report)["vcc"].values
    assert np.isnan(values[0, 2])
    assert np.isnan(values).sum() == 1


def test_a_missing_table_is_told(copy_of):
    report = copy_of("first_beach")
    report.with_suffix(".vcx").unlink()
    with pytest.warns(KelpWarning, match="first_beach.vcx: there is no such table"):
        run = kelptools.open_run(report)
    assert "vcx" not in run and "vcc" in run


def test_windows_line_ends(copy_of):
    report = copy_of("first_beach")
    before = kelptools.open_run(report)
    table = report.with_suffix(".slo")
    table.write_bytes(table.read_bytes().replace(b"\n", b"\r\n"))
    np.testing.assert_array_equal(kelptools.open_run(report)["slo"], before["slo"])


def damage(report, suffix, change):
    path = report.with_suffix("." + suffix)
    lines = path.read_text().split("\n")
    change(lines)
    path.write_text("\n".join(lines))


@pytest.mark.parametrize(
    "change, said",
    [
        (lambda lines: lines.__setitem__(3, lines[3][:-5]), "line 4: 843 columns, not 848"),
        (lambda lines: lines.__setitem__(3, "2020x301" + lines[3][8:]), "record 3: '2020x301' is no date"),
        (lambda lines: lines.__setitem__(3, lines[3][:-4] + "x.00"), "record 3, column 60"),
        (lambda lines: lines.pop(4), "its dates are not those of"),
    ],
)
def test_a_damaged_table_is_refused_with_its_place(copy_of, change, said):
    report = copy_of("first_beach")
    damage(report, "slo", change)
    with pytest.raises(KelpError, match=said):
        kelptools.open_run(report)


def test_the_configuration_of_another_run_is_refused(copy_of):
    report = copy_of("first_beach")
    path = report.with_suffix(".cfg")
    path.write_text(path.read_text().replace("NX: 60", "NX: 50"))
    with pytest.raises(KelpError, match="848 columns, not 708: a date and 50 values"):
        kelptools.open_run(report)


def test_the_configuration_is_found_in_the_folder_above(case):
    small = case(PRFILE="out/run.prt").write()
    (small.folder / "out").mkdir()
    small.run()
    run = kelptools.open_run(small.folder / "out" / "run.prt")
    assert (small.folder / "out" / "run.slo").exists()
    assert run.attrs["configuration"] == "run.cfg"


def test_a_full_stop_in_a_folders_name_ends_the_stem(case):
    small = case(PRFILE="./run.prt")
    report = small.run()
    assert (small.folder / ".slo").exists()
    assert kelptools.open_run(report).sizes["cell"] == 10


def test_the_configuration_may_stand_in_the_reports_place_or_be_given(copy_of):
    report = copy_of("first_beach")
    by_report = kelptools.open_run(report)
    assert kelptools.open_run(report.with_suffix(".cfg")).identical(by_report)
    elsewhere = report.parent.parent / "deep" / "er"
    elsewhere.mkdir(parents=True)
    shutil.move(report.with_suffix(".cfg"), elsewhere / "kept.cfg")
    with pytest.raises(KelpError, match="give it with --configuration"):
        kelptools.open_run(report)
    again = kelptools.open_run(report, configuration=elsewhere / "kept.cfg")
    np.testing.assert_array_equal(again["slo"], by_report["slo"])


def test_of_several_configurations_one_must_be_given(copy_of):
    report = copy_of("first_beach")
    shutil.copy(report.with_suffix(".cfg"), report.with_name("copy.cfg"))
    with pytest.raises(KelpError, match="several configurations name this report"):
        kelptools.open_run(report)
    assert kelptools.open_run(report, configuration=report.with_name("copy.cfg")).sizes["cell"] == 60


def test_what_is_not_there_is_told_in_one_line(tmp_path, copy_of):
    report = copy_of("first_beach")
    for path, said in (
        (tmp_path / "none" / "run.prt", "no such folder"),
        (tmp_path / "run.prt", "no such report"),
        (report.parent, "a folder; name the report in it"),
        (tmp_path / "none.cfg", "No such file"),
    ):
        with pytest.raises(KelpError, match=said) as raised:
            kelptools.open_run(path)
        assert "\n" not in str(raised.value)
    for table in [*STATE, *YEARS]:
        report.with_suffix("." + table).unlink()
    with pytest.raises(KelpError, match="no tables of this run"):
        kelptools.open_run(report)


def write_inlet_table(path, records):
    head = "      DT" + "".join(name.rjust(14) for name in ["X"] * 16) + "       DATE"
    with open(path, "w") as file:
        file.write(f"Inlet Shoal Volumes for {path.stem}\n{head}\n")
        for step, values, date in records:
            fields = "".join(f"{value:14.0f}" if value is not None else "*" * 14 for value in values)
            file.write(f"{step:8d} {fields}    {date:08d}\n")


def test_shoal_tables(case):
    small = case()
    report = small.run()
    small.add('IINLS: 4\nIINLE: 4\nINLNAME: "Old Inlet"\nIINLS: 8\nIINLE: 8\n')
    records = [(10, range(100, 116), 20200111), (30, range(200, 216), 20200131)]
    write_inlet_table(small.folder / "Old Inlet.irv", records)
    second = [(10, [None, *range(1, 16)], 20200111), (30, range(300, 316), 20200131)]
    write_inlet_table(small.folder / "Inlet2.irv", second)
    run = kelptools.open_run(report)
    assert run["inlet"].values.tolist() == ["Old Inlet", "Inlet2"]
    assert run["inlet_step"].values.tolist() == [10, 30]
    assert run["inlet_date"].values.tolist() == [20200111, 20200131]
    assert str(run["inlet_time"].values[1])[:10] == "2020-01-31"
    # Columns from the left: L_Qout, L_Qie, L_Attach, L_Qba, L_Bypass, L_Qeb, Ebb, Qfe, Flood, ...
    assert run["L_Qout"].values[0].tolist() == [100, 200]
    assert run["Ebb"].values.tolist() == [[106, 206], [6, 306]]
    assert run["R_Qout"].values[1].tolist() == [15, 315]
    assert np.isnan(run["L_Qout"].values[1, 0])
    assert run["Ebb"].attrs["units"] == "m3" and run["Qfe"].attrs["units"] == "m3 year-1"
    assert "left" in run["L_Attach"].attrs["long_name"] and "right" in run["R_Attach"].attrs["long_name"]

    cut(small.folder / "Inlet2.irv", -3)
    with pytest.warns(KelpWarning, match="Inlet2.irv: the last record is cut short"):
        run = kelptools.open_run(report)
    assert np.isnan(run["Ebb"].values[1, 1]) and run["Ebb"].values[1, 0] == 6
    (small.folder / "Inlet2.irv").unlink()
    with pytest.warns(KelpWarning, match="Inlet2.irv: there is no such table"):
        assert kelptools.open_run(report).sizes["inlet"] == 1


def test_shoal_tables_of_the_program(two_inlets):
    run = kelptools.open_run(two_inlets)
    assert run["inlet"].values.tolist() == ["Old Inlet", "Inlet2"]
    # Every tenth day of steps of 6 hours, with the date at the end of the step.
    assert run["inlet_step"].values.tolist() == [40, 80, 120]
    assert run["inlet_date"].values.tolist() == [20200111, 20200121, 20200131]
    # Volumes are cubic yards in the file as in the configuration; what the sand from the left does not touch stays.
    assert run["L_Bypass"].attrs["units"] == "yd3" and run["R_Qout"].attrs["units"] == "yd3 year-1"
    assert run["L_Bypass"].values[0].tolist() == [4000] * 3 and run["L_Attach"].values[0].tolist() == [1000] * 3
    assert run["L_Qie"].values[0].tolist() == [0] * 3 and (run["R_Qie"].values > 0).all()
    assert (np.diff(run["Ebb"].values) > 0).all() and run["Ebb"].values[0, 0] > 60000
    assert 30000 < run["Ebb"].values[1, 0] < run["Ebb"].values[0, 0]
    lines = two_inlets.with_name("Old Inlet.irv").read_text().splitlines()
    assert lines[0] == "Inlet Shoal Volumes for Old Inlet"
    for place, name in enumerate(lines[1].split()[1:-1]):
        written = [float(row[9 + 14 * place : 23 + 14 * place]) for row in lines[2:]]
        assert run[name].values[0].tolist() == written
    assert run["VVSEQ"].dims == ("inlet",) and run["VVSEQ"].values.tolist() == [90000, 90000]
    assert run["VVSBQL"].attrs["long_name"] == "equilibrium volume of the left bypass bar"


def test_an_equilibrium_of_zero_is_nearly_nothing(case):
    small = case()
    report = small.run()
    small.add("IINLS: 4\nIINLE: 4\nVVSEQ: 0\n")
    write_inlet_table(small.folder / "Inlet1.irv", [(10, range(16), 20200111)])
    run = kelptools.open_run(report)
    assert run["VVSEQ"].values.tolist() == [0.00001] == run["VVSFQ"].values.tolist()


def test_dates_without_a_time_are_kept(copy_of):
    report = copy_of("first_beach")
    for suffix in STATE:
        damage(report, suffix, lambda lines: lines.__setitem__(1, "20201399" + lines[1][8:]))
    with pytest.warns(KelpWarning, match="only the written ones"):
        run = kelptools.open_run(report)
    assert run["date"].values[0] == 20201399
    assert np.isnat(run["time"].values).all()
