import numpy as np
import pytest
from kelptools import KelpError, read_configuration
from kelptools.dates import times_of
from kelptools.grid import read_grid, read_values


def days(times):
    return [str(one)[:10] for one in times]


def test_dates_are_days():
    assert days(times_of([19961231, 19970101, 20000229])) == ["1996-12-31", "1997-01-01", "2000-02-29"]


def test_the_february_of_a_leap_year_is_put_in_order():
    assert days(times_of([20200228, 20200301, 20200230, 20200302])) == [
        "2020-02-28", "2020-02-29", "2020-03-01", "2020-03-02",
    ]  # fmt: skip
    assert days(times_of([20200228, 20200301, 20200229, 20200229, 20200301])) == [
        "2020-02-28", "2020-02-29", "2020-02-29", "2020-02-29", "2020-03-01",
    ]  # fmt: skip


def test_the_model_has_a_29_february_where_the_real_calendar_has_none():
    assert days(times_of([19000228, 19000229, 19000301])) == ["1900-02-28", "1900-03-01", "1900-03-01"]


def test_a_march_that_is_right_stays():
    assert days(times_of([20200201, 20200301, 20200330])) == ["2020-02-01", "2020-03-01", "2020-03-30"]
    assert days(times_of([20200301, 20210201, 20240229])) == ["2020-03-01", "2021-02-01", "2024-02-29"]


def test_records_of_one_date_are_spread_only_below_a_day():
    dates = [20210101, 20210101, 20210101, 20210102]
    assert len(set(times_of(dates))) == 2
    hours = (times_of(dates, 6) - np.datetime64("2021-01-01")) / np.timedelta64(1, "h")
    assert hours.tolist() == [0, 6, 12, 24]
    assert len(set(times_of(dates, 24))) == 2


@pytest.mark.parametrize("dates", [[19961301], [19960100], [0], [99990101], [16000101]])
def test_what_is_no_date_or_too_far_away(dates):
    assert times_of(dates) is None


def test_no_dates():
    assert times_of([]).size == 0


def test_values_come_ten_to_a_line_and_the_rest_of_a_line_is_lost(tmp_path):
    path = tmp_path / "a.shore"
    path.write_text("h\n" * 4 + "1 2 3 4 5 6 7 8 9 10 77 88\n11 2*12.5\n")
    assert read_values(path, 13).tolist() == [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12.5, 12.5]
    path.write_text("h\n" * 4 + "1 2\n3 4 5\n")
    assert read_values(path, 3).tolist() == [1, 2, 3]
    with pytest.raises(KelpError, match="5 values, and 6 cells"):
        read_values(path, 6)
    path.write_text("h\n" * 4 + "1 x\n")
    with pytest.raises(KelpError, match="'x' is no number"):
        read_values(path, 2)


def grid(tmp_path, text):
    path = tmp_path / "a.cfg"
    path.write_text("KELPRUN:\n" + text)
    return read_grid(read_configuration(path), lambda name: tmp_path / name)


def test_walls_begin_at_the_left_end(tmp_path):
    found = grid(tmp_path, "NX: 3\nDX: 50 99\nX0: 1000\n")
    assert found.wall.tolist() == [1000, 1050, 1100, 1150]
    assert found.center.tolist() == [1025, 1075, 1125]


def test_widths_come_from_their_file(tmp_path):
    (tmp_path / "a.dx").write_text("h\n" * 4 + "10 20 40\n")
    found = grid(tmp_path, "NX: 3\nDX: -1\nDXFILE: a.dx\n")
    assert found.wall.tolist() == [0, 10, 30, 70]
    assert found.center.tolist() == [5, 20, 50]


def test_wrong_widths(tmp_path):
    with pytest.raises(KelpError, match="DX is -1, but there is no DXFILE"):
        grid(tmp_path, "NX: 3\nDX: -1\n")
    with pytest.raises(KelpError, match="DX must be above 0, not 0"):
        grid(tmp_path, "NX: 3\n")
