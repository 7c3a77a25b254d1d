"""The sizes of differences that scripts/same_answers tells, on files written by hand."""

import differences
import pytest


@pytest.fixture
def told(tmp_path):
    """Writes one file into two folders and gives the lines about it."""

    def compare(first, second, name="run.slo"):
        for folder, text in (("a", first), ("b", second)):
            (tmp_path / folder).mkdir(exist_ok=True)
            if text is not None:
                (tmp_path / folder / name).write_text(text)
        return differences.compare(tmp_path / "a", tmp_path / "b")

    return compare


def row(date, *values):
    return f"{date}" + "".join(f"{value:>14}" for value in values) + "\n"


def test_the_same_bytes_are_told_by_nothing(told):
    assert told(row(20200101, "1.00", "2.00"), row(20200101, "1.00", "2.00")) == []


def test_the_largest_distance_and_the_largest_ratio_are_told_with_their_places(told):
    first = "Title 1\n" + row(20200101, "200.00", "-0.50") + row(20200131, "100.00", "0.25")
    second = "Title 1\n" + row(20200101, "200.00", "-0.51") + row(20200131, "100.50", "0.25")
    # Of 5 numbers, that of the title among them, 2 differ: 0.01 of 0.51, and 0.5 of at most 200.
    assert told(first, second) == [
        "run.slo: 2 of 5 numbers, by at most 0.5 (line 3 number 1); 0.0025 of the table's largest; "
        "relative to itself at most 0.02 (line 2 number 2)"
    ]


def test_fields_of_a_table_that_touch_are_two_numbers(told):
    first = "20200101" + "-1234567890.25" + "-1234567890.50" + "\n"
    second = "20200101" + "-1234567890.25" + "-1234567890.75" + "\n"
    [line] = told(first, second)
    assert line.startswith("run.slo: 1 of 2 numbers, by at most 0.25 (line 1 number 2)")


def test_another_date_a_missing_line_and_asterisks_are_words(told):
    assert told(row(20200101, "1.00"), row(20200102, "1.00")) == ["run.slo: other words from line 1 on"]
    assert told(row(20200101, "1.00") * 2, row(20200101, "1.00")) == ["run.slo: other words from line 2 on"]
    assert told(row(20200101, "*" * 14), row(20200101, "1.00")) == ["run.slo: other words from line 1 on"]


def test_numbers_and_words_of_a_report_are_told_together(told):
    assert told("H = 1.0 m\nend\n", "H = 2.0 m\nEND\n", "run.prt") == [
        "run.prt: 1 of 1 numbers, by at most 1 (line 1 number 1); "
        "relative to itself at most 0.5 (line 1 number 1); other words from line 2 on"
    ]


def test_blanks_alone_are_a_difference(told):
    assert told("H = 1.0\n", "H =  1.0\n", "run.prt") == ["run.prt: blanks or line ends only"]


def test_a_file_that_one_run_lacks_is_told(told, tmp_path):
    assert told("text", None) == [f"run.slo: only in {tmp_path / 'a'}"]
