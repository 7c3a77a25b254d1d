"""`kelp waves`: measured and hindcast waves as a wave file."""

import gzip
import math

import numpy as np
import pytest
import xarray as xr
from conftest import Case, run_model

from kelptools.cli import main
from kelptools.wave_rose import rings
from kelptools.wave_series import mean_wave, model_angle

CSV = """\
date,Hs_m,Tp_s,dir_degN_from
2001-03-01,1.25,8.0,45
2001-03-02,0.82,7.5,100
2001-03-04,2.00,,90
2001-03-05,0.05,9.0,72
2001-03-06,1.00,9.0,200
"""

NDBC = """\
#YY  MM DD hh mm WDIR WSPD GST  WVHT   DPD   APD MWD   PRES  ATMP  WTMP  DEWP  VIS  TIDE
#yr  mo dy hr mn degT m/s  m/s     m   sec   sec degT   hPa  degC  degC  degC  mi    ft
2015 01 01 00 20 320  5.0  6.0 99.00 99.00 99.00 999 1020.1   5.0   8.0 999.0 99.0 99.00
2015 01 01 00 50 320  5.1  6.2  1.00  8.00  5.00  90 1020.1   5.0   8.0 999.0 99.0 99.00
2015 01 01 01 50 320  5.1  6.2  2.00  8.00  5.00  90 1020.1   5.0   8.0 999.0 99.0 99.00
2015 01 01 02 50 320  5.1  6.2  2.00 10.00  5.00 180 1020.1   5.0   8.0 999.0 99.0 99.00
2015 01 01 03 50 320  5.1  6.2    MM    MM    MM  MM 1020.1   5.0   8.0 999.0 99.0 99.00
2015 01 01 05 50 320  5.1  6.2  1.50  9.00  5.00 350 1020.1   5.0   8.0 999.0 99.0 99.00
"""


def convert(tmp_path, content, *options, name="input.csv"):
    source = tmp_path / name
    source.write_text(content)
    return main(["waves", str(source), str(tmp_path / "out.waves"), *options])


def records(tmp_path):
    return (tmp_path / "out.waves").read_text().split("\n")[:-1]


# The angle


@pytest.mark.parametrize(
    "normal, direction, angle",
    [(72, 45, 27), (72, 72, 0), (72, 162, -90), (10, 350, 20), (350, 10, -20), (0, 180, -180), (90, 270, -180)],
)
def test_the_angle_is_the_normal_less_the_direction(normal, direction, angle):
    assert model_angle(normal, direction) == angle


def test_no_angle_is_minus_zero():
    assert math.copysign(1, model_angle(72, 72.001)) == 1


# CSV


def test_csv_gives_a_record_each_day_and_calm_ones_for_gaps(tmp_path, capsys):
    assert convert(tmp_path, CSV, "--normal", "72", "--cell", "60", "--depth", "8") == 0
    assert records(tmp_path) == [
        "20010301 0000   1.25   8.00    27.00",
        "20010302 0000   0.82   7.50   -28.00",
        "20010303 0000   0.00   0.00     0.00",
        "20010304 0000   0.00   0.00     0.00",
        "20010305 0000   0.05   9.00     0.00",
        "20010306 0000   1.00   9.00  -128.00",
    ]
    told = capsys.readouterr()
    assert told.out == "WAVEID: 60 8 6 out.waves\n"
    assert told.err.splitlines() == [
        f"{tmp_path}/out.waves: 6 records, 2001-03-01 to 2001-03-06, one every 24 hours",
        "  made calm for want of data: 2; longest gap 2 records from 2001-03-03",
        "    2001-03-03 to 2001-03-04: 2 records",
        "  waves from behind the shore (more than 90 degrees off the normal), calm in the model: 1",
        "  height or period below 0.1, calm in the model: 1",
        # (1.25 + 0.82 + 0.05 + 1.00) / 4 = 0.78
        "  height of the 4 records with data: mean 0.78, greatest 1.25",
        "  records that drive sand to the right (looking out to sea): 1, to the left: 1",
        "For the configuration:",
    ]


def test_gaps_can_be_refused(tmp_path, capsys):
    assert convert(tmp_path, CSV, "--normal", "72", "--gaps", "stop") == 1
    assert capsys.readouterr().err == (
        f"kelp: {tmp_path}/input.csv: the row of 2001-03-03 is absent; 2 of 6 records have none "
        "(--gaps calm makes them calm)\n"
    )
    assert not (tmp_path / "out.waves").exists()


def test_a_gap_that_has_a_row_is_told_as_one_that_lacks_a_value(tmp_path, capsys):
    assert convert(tmp_path, CSV, "--normal", "72", "--gaps", "stop", "--start", "2001-03-04") == 1
    assert "the row of 2001-03-04 lacks a value; 1 of 3 records have none" in capsys.readouterr().err


def test_start_and_end_choose_the_records(tmp_path, capsys):
    options = ["--normal", "72", "--start", "2001-03-02", "--end", "2001-03-03"]
    assert convert(tmp_path, CSV, *options) == 0
    assert [record[:13] for record in records(tmp_path)] == ["20010302 0000", "20010303 0000"]
    assert capsys.readouterr().out == "WAVEID: CELL DEPTH 2 out.waves\n"


def test_columns_and_delimiter_have_names(tmp_path):
    content = "when; dir; H ;T\n2001-03-01T00:00;0;1.5;6\n2001-03-01T06:00;-10;1.6;7\n"
    options = ["--date-column", "when", "--height-column", "H", "--period-column", "T", "--direction-column", "dir"]
    assert convert(tmp_path, content, "--normal", "30", "--delimiter", ";", "--step-hours", "6", *options) == 0
    assert records(tmp_path) == ["20010301 0000   1.50   6.00    30.00", "20010301 0600   1.60   7.00    40.00"]


def test_a_row_between_two_records_is_refused_unless_rows_are_resampled(tmp_path, capsys):
    content = CSV + "2001-03-06T12:00,3.00,9.0,72\n"
    assert convert(tmp_path, content, "--normal", "72") == 1
    assert capsys.readouterr().err.startswith(
        f"kelp: {tmp_path}/input.csv: the row of 2001-03-06 12:00 lies between two records, which stand every 24 hours "
        "from 2001-03-01"
    )
    assert convert(tmp_path, content, "--normal", "72", "--resample", "nearest") == 0
    assert records(tmp_path)[-1] == "20010306 0000   1.00   9.00  -128.00"
    assert convert(tmp_path, content, "--normal", "72", "--resample", "mean") == 0
    # sqrt((1 + 9) / 2) = 2.236; the direction leans to the wave of 9 times the energy:
    # atan2(9 sin 72 + sin 200, 9 cos 72 + cos 200) = atan2(8.2175, 1.8415) = 77.37; 72 - 77.37 = -5.37
    assert records(tmp_path)[-1] == "20010306 0000   2.24   9.00    -5.37"


@pytest.mark.parametrize(
    "content, message",
    [
        ("date,Hs_m\n", "no column 'Tp_s'; its columns are date, Hs_m"),
        ("date,Hs_m,Tp_s,dir_degN_from\n", "no rows"),
        (CSV + "2001-03-01,1,1,1\n", "line 7: a second row for 2001-03-01"),
        (CSV + "2001-02-30,1,1,1\n", "line 7: '2001-02-30' is not a date such as 1996-01-31 or 1996-01-31T06:00"),
        (CSV + "2001-03-07,high,1,1\n", "line 7: 'high' in column 'Hs_m' is not a number"),
        (
            "date,Hs_m,Tp_s,dir_degN_from\n2001-03-01,99,99,999\n",
            "none of 1 rows is whole; rows that lack a value: height 1, period 1, direction 1",
        ),
    ],
)
def test_wrong_tables_are_told_in_one_line(tmp_path, capsys, content, message):
    assert convert(tmp_path, content, "--normal", "72") == 1
    assert capsys.readouterr().err == f"kelp: {tmp_path}/input.csv: {message}\n"
    assert not (tmp_path / "out.waves").exists()


@pytest.mark.parametrize(
    "options, message",
    [
        (["--start", "2001-02-28"], "lie in different months, and KelpRun could not tell their distance"),
        (["--start", "2001-03-05", "--end", "2001-03-04"], "the end 2001-03-04 lies before the start 2001-03-05"),
        (["--start", "2002-01-01", "--end", "2002-02-01"], "no row from 2002-01-01 to 2002-02-01"),
        (["--lat", "1", "--lon", "2"], "--lat and --lon are for NetCDF, and this is csv"),
        (["--lat", "1"], "--lat and --lon belong together"),
    ],
)
def test_wrong_spans_and_options_are_told_in_one_line(tmp_path, capsys, options, message):
    assert convert(tmp_path, CSV, "--normal", "72", *options) == 1
    error = capsys.readouterr().err
    assert message in error and error.startswith("kelp: ") and error.count("\n") == 1


@pytest.mark.parametrize(
    "options",
    [[], ["--normal", "x"], ["--normal", "72", "--step-hours", "0.001"], ["--normal", "72", "--rose", "a.txt"]],
)
def test_wrong_usage_has_status_2(tmp_path, options):
    with pytest.raises(SystemExit) as ended:
        convert(tmp_path, CSV, *options)
    assert ended.value.code == 2


def test_the_input_is_not_overwritten(tmp_path, capsys):
    source = tmp_path / "a.csv"
    source.write_text(CSV)
    assert main(["waves", str(source), str(source), "--normal", "72"]) == 1
    assert capsys.readouterr().err == f"kelp: {source}: the wave file must not be the input itself\n"
    assert source.read_text() == CSV


def test_a_missing_input_is_told_in_one_line(tmp_path, capsys):
    assert main(["waves", str(tmp_path / "none"), str(tmp_path / "out"), "--normal", "72"]) == 1
    assert capsys.readouterr().err == f"kelp: {tmp_path}/none: No such file or directory\n"


def test_a_name_with_a_blank_is_quoted(tmp_path, capsys):
    source = tmp_path / "a.csv"
    source.write_text(CSV)
    options = ["--normal", "72", "--cell", "1", "--depth", "5"]
    assert main(["waves", str(source), str(tmp_path / "my waves"), *options]) == 0
    assert capsys.readouterr().out == 'WAVEID: 1 5 6 "my waves"\n'


# NDBC


def test_ndbc_rows_become_a_record_an_hour(tmp_path, capsys):
    assert convert(tmp_path, NDBC, "--normal", "80", name="44014.txt") == 0
    assert records(tmp_path) == [
        "20150101 0000   1.00   8.00   -10.00",
        "20150101 0100   2.00   8.00   -10.00",
        "20150101 0200   2.00  10.00  -100.00",
        "20150101 0300   0.00   0.00     0.00",
        "20150101 0400   0.00   0.00     0.00",
        "20150101 0500   1.50   9.00    90.00",
    ]
    told = capsys.readouterr().err
    assert "6 records, 2015-01-01 to 2015-01-01 05:00, one every 1 hours" in told
    assert "    2015-01-01 03:00 to 2015-01-01 04:00: 2 records\n" in told


def test_ndbc_means_weigh_energy(tmp_path, capsys):
    assert convert(tmp_path, NDBC, "--normal", "80", "--step-hours", "3", name="44014.txt") == 0
    # Rows from 00:00 to 03:00: heights 1, 2, 2: sqrt(9/3) = 1.73; periods (1*8 + 4*8 + 4*10)/9 = 8.89;
    # east 1*8 + 4*8 = 40, north -4*10 = -40: from 135 degrees; 80 - 135 = -55.
    assert records(tmp_path) == ["20150101 0000   1.73   8.89   -55.00", "20150101 0300   1.50   9.00    90.00"]


def test_ndbc_period_can_be_the_mean_one(tmp_path):
    assert convert(tmp_path, NDBC, "--normal", "80", "--period-column", "APD", name="44014.txt") == 0
    assert records(tmp_path)[0] == "20150101 0000   1.00   5.00   -10.00"


def test_ndbc_years_in_a_row_each_have_their_heading(tmp_path):
    old = (
        "YY MM DD hh WD   WSPD GST  WVHT  DPD   APD  MWD  BAR    ATMP  WTMP  DEWP  VIS\n"
        "98 12 31 22 310 05.0 06.0 00.70 10.00 05.10 070 1020.0  10.0  12.0 999.0 99.0\n"
        "98 12 31 23 310 05.0 06.0 00.80 10.00 05.10 070 1020.0  10.0  12.0 999.0 99.0\n"
    )
    new = (
        "YYYY MM DD hh mm  WD  WSPD GST  WVHT  DPD   APD  MWD  BAR    ATMP  WTMP  DEWP  VIS  TIDE\n"
        "1999 01 01 00 00 310 05.0 06.0 00.90 11.00 05.10 060 1020.0  10.0  12.0 999.0 99.0 99.00\n"
    )
    with gzip.open(tmp_path / "years.txt.gz", "wt") as file:
        file.write(old + new)
    assert main(["waves", str(tmp_path / "years.txt.gz"), str(tmp_path / "out.waves"), "--normal", "70"]) == 0
    assert records(tmp_path) == [
        "19981231 2200   0.70  10.00     0.00",
        "19981231 2300   0.80  10.00     0.00",
        "19990101 0000   0.90  11.00    10.00",
    ]


@pytest.mark.parametrize(
    "change, message",
    [
        (("2015 01 01 01 50", "2015 01 01 00 50"), "line 5: a second row for 2015-01-01 00:50"),
        (("2015 01 01 01 50", "2015 13 01 01 50"), "line 5: '2015 13 01 01 50' is not a date and time"),
        (("MWD", "XXX"), "line 1: no column 'MWD'; its columns are YY, MM, DD, hh, mm, WDIR"),
        (("  1.00  8.00  5.00  90 ", "  1.00  x8.0  5.00  90 "), "line 4: 'x8.0' in column 'DPD' is not a number"),
    ],
)
def test_wrong_ndbc_text_is_told(tmp_path, capsys, change, message):
    assert convert(tmp_path, NDBC.replace(*change), "--normal", "80", name="44014.txt") == 1
    assert f"kelp: {tmp_path}/44014.txt: {message}" in capsys.readouterr().err


# Means


def test_means_of_few_rows_are_counted(tmp_path, capsys):
    rows = [f"2001-03-{day:02d}T{hour:02d}:00,1,8,90" for day in (1, 2) for hour in (0, 6, 12, 18)]
    content = "date,Hs_m,Tp_s,dir_degN_from\n" + "\n".join(rows) + "\n2001-03-03T06:00,2,8,90\n"
    assert convert(tmp_path, content, "--normal", "90", "--resample", "mean") == 0
    assert records(tmp_path) == [f"200103{day} 0000   {height:.2f}   8.00     0.00" for day, height in
                                 (("01", 1), ("02", 1), ("03", 2))]  # fmt: skip
    assert "  means of fewer than half of the usual number of rows: 1\n" in capsys.readouterr().err


def test_a_single_row_is_its_own_mean():
    assert mean_wave([(1.23, 4.56, 359.99)]) == (1.23, 4.56, 359.99)


def test_directions_about_north_have_their_mean_there():
    height, period, direction = mean_wave([(1.0, 8.0, 350.0), (1.0, 8.0, 20.0)])
    assert (height, period) == (1.0, 8.0)
    assert direction == pytest.approx(5.0)


def test_flat_water_has_a_mean_too():
    height, period, direction = mean_wave([(0.0, 4.0, 80.0), (0.0, 6.0, 100.0)])
    assert (height, period) == (0.0, 5.0)
    # (4 sin 80 + 6 sin 100) / (4 cos 80 + 6 cos 100): atan2(9.8481, -0.3473) = 92.02
    assert direction == pytest.approx(92.02, abs=0.005)


# NetCDF


def reanalysis(times, lats=(36.5, 36.0), lons=(284.0, 284.5), time_name="time", period="pp1d"):
    """Waves that tell their point: height 1 + 0.1 * row + 0.01 * column at the first time, 0.5 more each time.
    The first column is land."""
    shape = (len(times), len(lats), len(lons))
    step, row, column = np.meshgrid(*map(np.arange, shape), indexing="ij")
    height = np.where(column == 0, np.nan, 1 + 0.5 * step + 0.1 * row + 0.01 * column)
    dims = (time_name, "latitude", "longitude")
    return xr.Dataset(
        {
            "swh": (dims, height, {"units": "m"}),
            period: (dims, np.where(column == 0, np.nan, 9.0), {"units": "s"}),
            "mwd": (dims, np.where(column == 0, np.nan, 100.0), {"units": "degrees"}),
        },
        {time_name: np.array(times, dtype="datetime64[ns]"), "latitude": list(lats), "longitude": list(lons)},
    )


HOURS = ["2020-05-01T00", "2020-05-01T01", "2020-05-01T02", "2020-05-01T03"]


def convert_netcdf(tmp_path, data, *options):
    data.to_netcdf(tmp_path / "era5.nc")
    return main(["waves", str(tmp_path / "era5.nc"), str(tmp_path / "out.waves"), "--normal", "90", *options])


def test_netcdf_gives_the_nearest_point_with_waves(tmp_path, capsys):
    # The nearest point is (36.0, -76.0), on land; the nearest in the water is (36.0, -75.5): row 1, column 1.
    assert convert_netcdf(tmp_path, reanalysis(HOURS), "--lat", "36.1", "--lon", "-75.9") == 0
    assert records(tmp_path) == [
        "20200501 0000   1.11   9.00   -10.00",
        "20200501 0100   1.61   9.00   -10.00",
        "20200501 0200   2.11   9.00   -10.00",
        "20200501 0300   2.61   9.00   -10.00",
    ]
    # 0.1 degree north and 0.4 * cos(36.1) = 0.323 degree east: 0.338 * 111.2 = 38 km
    assert "  point: 36 N, 75.5 W, 38 km from the place asked for\n" in capsys.readouterr().err


def test_netcdf_of_one_point_needs_no_place(tmp_path):
    data = reanalysis(HOURS, time_name="valid_time", period="mwp").isel(latitude=[0], longitude=[1])
    assert convert_netcdf(tmp_path, data, "--step-hours", "2") == 0
    # sqrt((1.01^2 + 1.51^2) / 2) = 1.285; sqrt((2.01^2 + 2.51^2) / 2) = 2.274
    assert records(tmp_path) == ["20200501 0000   1.28   9.00   -10.00", "20200501 0200   2.27   9.00   -10.00"]


def test_the_usual_step_is_that_of_whole_rows(tmp_path):
    # Whole rows at 0 h and 3 h; the one between has no direction.
    data = reanalysis(HOURS).isel(latitude=0, longitude=1)
    data["mwd"][1] = np.nan
    assert convert_netcdf(tmp_path, data.isel(time=[0, 1, 3])) == 0
    assert [record[:22] for record in records(tmp_path)] == ["20200501 0000   1.01  ", "20200501 0300   2.51  "]


def test_netcdf_gaps(tmp_path, capsys):
    data = reanalysis(HOURS).isel(latitude=0, longitude=1)
    data["mwd"][1] = np.nan
    assert convert_netcdf(tmp_path, data, "--step-hours", "1") == 0
    assert records(tmp_path)[1] == "20200501 0100   0.00   0.00     0.00"
    assert convert_netcdf(tmp_path, data, "--step-hours", "1", "--gaps", "stop") == 1
    assert "the row of 2020-05-01 01:00 is absent; 1 of 4 records have none" in capsys.readouterr().err


def test_netcdf_joins_final_and_late_months(tmp_path):
    data = reanalysis(HOURS).isel(latitude=0, longitude=1, drop=True)
    early, late = data.where(data.time < data.time[2]), data.where(data.time >= data.time[2])
    both = xr.concat([early, late], dim="expver").assign_coords(expver=[1, 5]).transpose("time", "expver")
    assert convert_netcdf(tmp_path, both) == 0
    assert [record.split()[2] for record in records(tmp_path)] == ["1.01", "1.51", "2.01", "2.51"]


def test_netcdf_trouble_is_told_in_one_line(tmp_path, capsys):
    data = reanalysis(HOURS)
    assert convert_netcdf(tmp_path, data) == 1
    assert capsys.readouterr().err == (
        f"kelp: {tmp_path}/era5.nc: 4 points, latitude 36 to 36.5, longitude 284 to 284.5; choose one by --lat and "
        "--lon\n"
    )
    assert convert_netcdf(tmp_path, data.drop_vars("mwd")) == 1
    assert "no variable 'mwd'; its variables are swh, pp1d, " in capsys.readouterr().err
    (tmp_path / "broken.nc").write_bytes(b"\x89HDF\r\n\x1a\nnothing more")
    assert main(["waves", str(tmp_path / "broken.nc"), str(tmp_path / "out.waves"), "--normal", "90"]) == 1
    error = capsys.readouterr().err
    assert error.startswith(f"kelp: {tmp_path}/broken.nc: ") and error.count("\n") == 1


# The model takes it


def test_the_model_runs_on_the_file_and_its_line(tmp_path, capsys):
    lines = [f"2020-01-{day:02d},{0.5 + 0.05 * day:.2f},7,{60 + 2 * day}" for day in range(1, 32) if day != 9]
    folder = tmp_path / "case"
    case = Case(folder, [100.0] * 10).write()
    (folder / "buoy.csv").write_text("date,Hs_m,Tp_s,dir_degN_from\n" + "\n".join(lines) + "\n2020-02-01,1,7,90\n")
    options = ["--normal", "90", "--cell", "10", "--depth", "8"]
    assert main(["waves", str(folder / "buoy.csv"), str(folder / "buoy.waves"), *options]) == 0
    line = capsys.readouterr().out.strip()
    assert line == "WAVEID: 10 8 32 buoy.waves"
    case.settings["WAVEID"] = line.partition(": ")[2]
    case.run()
    assert (folder / "run.slo").read_text().count("\n") == 6  # title, start, every ten days, end


# The rose


def rose(tmp_path, monkeypatch, content, *options):
    """The figure that is saved."""
    import kelptools.drawing

    figures = []
    save = kelptools.drawing.save
    monkeypatch.setattr(kelptools.drawing, "save", lambda figure, path: (figures.append(figure), save(figure, path)))
    assert convert(tmp_path, content, "--normal", "72", "--rose", str(tmp_path / "rose.png"), *options) == 0
    assert (tmp_path / "rose.png").read_bytes().startswith(b"\x89PNG")
    return figures[0]


def test_the_rose_shows_where_the_waves_come_from(tmp_path, monkeypatch):
    figure = rose(tmp_path, monkeypatch, CSV)
    axes = figure.axes[0]
    assert axes.get_theta_direction() == -1 and axes.get_theta_offset() == pytest.approx(math.pi / 2)
    # Of four records with data three are not calm: from 45, 100 and 200 degrees. 45 is in the sector of 50.
    lengths = {}
    for bar in (patch for container in axes.containers for patch in container.patches):
        if bar.get_height():
            centre = round(math.degrees(bar.get_x() + bar.get_width() / 2))
            lengths[centre] = lengths.get(centre, 0) + bar.get_height()
    assert lengths == {50: 25.0, 100: 25.0, 200: 25.0}
    normal = next(line for line in axes.lines if line.get_linestyle() == "--")
    assert math.degrees(normal.get_xdata()[0]) == pytest.approx(72)
    shores = sorted(math.degrees(line.get_xdata()[0]) for line in axes.lines if line is not normal)
    assert shores == pytest.approx([-18, 162])
    texts = "\n".join(text.get_text() for text in figure.texts)
    assert "2001-03-01 to 2001-03-06, a record every 24 h" in texts
    assert "Share of the 4 records with data; 1 of them calm; 2 without data" in texts
    legends = [text.get_text() for legend in figure.legends for text in legend.get_texts()]
    assert "shore normal, 72°" in legends
    # The highest wave is 1.25: classes of 0.25.
    assert legends[:5] == ["1 and above", "0.75 to 1", "0.5 to 0.75", "0.25 to 0.5", "0 to 0.25"]


@pytest.mark.parametrize(
    "top, values",
    [(21.5, [5, 10, 15]), (27.0, [10, 20]), (8.3, [2, 4, 6]), (0.54, [0.2, 0.4]), (108.0, [20, 40, 60, 80, 100])],
)
def test_rings_of_the_rose_are_round_percentages(top, values):
    assert rings(top) == pytest.approx(values)


def test_heights_pile_up_in_a_sector(tmp_path, monkeypatch):
    rows = "\n".join(f"2001-03-{day:02d},{height},8,90" for day, height in enumerate((0.4, 0.6, 1.2, 2.9), 1))
    figure = rose(tmp_path, monkeypatch, "date,Hs_m,Tp_s,dir_degN_from\n" + rows + "\n")
    bars = [(bar.get_y(), bar.get_height()) for group in figure.axes[0].containers for bar in group.patches]
    # Classes of 0.5: 0.4, 0.6, 1.2 and 2.9 lie in the first, second, third and sixth.
    assert [bar for bar in bars if bar[1]] == [(0.0, 25.0), (25.0, 25.0), (50.0, 25.0), (75.0, 25.0)]


def test_a_rose_of_calm_water_is_empty_but_drawn(tmp_path, monkeypatch):
    content = "date,Hs_m,Tp_s,dir_degN_from\n2001-03-01,0.01,1,90\n2001-03-02,0.01,1,90\n"
    figure = rose(tmp_path, monkeypatch, content)
    assert all(bar.get_height() == 0 for group in figure.axes[0].containers for bar in group.patches)
    assert "2 of them calm" in figure.texts[1].get_text()


def test_the_help_tells_the_rule_of_the_angle(capsys):
    with pytest.raises(SystemExit) as ended:
        main(["waves", "--help"])
    assert ended.value.code == 0
    told = capsys.readouterr().out
    assert "angle = normal - direction" in told and "--gaps" in told and "--rose" in told


def test_a_normal_that_is_no_direction_is_refused(tmp_path, capsys):
    with pytest.raises(SystemExit) as ended:
        convert(tmp_path, CSV, "--normal", "500")
    assert ended.value.code == 2
    assert "'500' is not a direction from 0 to 360 degrees" in capsys.readouterr().err
