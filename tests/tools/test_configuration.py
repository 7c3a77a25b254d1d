import pytest
from kelptools import KelpError, read_configuration
from kelptools.configuration import days_between, free_format, parse_lines, parse_whole


@pytest.fixture
def configuration(tmp_path):
    def write(text, marker="KELPRUN:\n"):
        path = tmp_path / "a.cfg"
        path.write_bytes((marker + text).encode() if isinstance(text, str) else text)
        return read_configuration(path)

    return write


def test_the_keyword_stands_before_the_first_colon_from_column_1(configuration):
    found = configuration("nx : 12\n NX: 13\nTITLE: a: b\nDT:\nno colon\n")
    assert found.integer("NX") == 12
    assert found.title == "a: b"
    assert "DT" not in found
    hidden = found.lines[2]
    assert (hidden.number, hidden.keyword, hidden.value) == (3, " NX", "13")
    assert found.lines[5].keyword == "" and found.lines[5].value == "no colon"


def test_tabs_windows_line_ends_and_a_byte_order_mark_are_accepted(configuration):
    found = configuration(b"\xef\xbb\xbfKELPRUN:\r\nNX:\t7\r\nTITLE: D\xc3\xbcne\r\n")
    assert found.integer("NX") == 7
    assert found.title == "Düne"


def test_a_file_in_latin_1_is_read(configuration):
    assert configuration(b"KELPRUN:\nTITLE: D\xfcne\n").title == "Düne"


def test_what_stands_behind_column_255_is_lost():
    line = parse_lines("K1: " + "1 " * 125 + "123456")[0]
    assert len(line.text) == 255
    assert line.value == "1 " * 125 + "1"


def test_the_last_value_of_a_scalar_holds_and_lists_append(configuration):
    found = configuration("DT: 3\nDT: 6\nIXNDG: 4\nIXNDG: 9\nDT: , 8\n")
    assert found.real("DT") == 6  # the item left out keeps what was there
    assert found.entries("IXNDG", "int8") == [4, 9]


def test_defaults(configuration):
    found = configuration("")
    assert (found.unit, found.wave_unit) == ("ft", "m")
    assert found.real("GAMMA", 0.78) == 0.78
    assert found.flag("PRTOUT", True) is True


@pytest.mark.parametrize(
    "value, items",
    [
        ("0.4 0.6", ["0.4", "0.6"]),
        ("3*0.5, 1", ["0.5", "0.5", "0.5", "1"]),
        ("1,2,,4", ["1", "2", None, "4"]),
        (",1", [None, "1"]),
        ("2* 7", [None, None, "7"]),
        ("1 2 / 3", ["1", "2"]),
        ("1/2", ["1"]),
        ("", []),
    ],
)
def test_free_format_lists(value, items):
    assert free_format(value) == items


def test_value_lists(configuration):
    found = configuration("K1: 2*0.4 0.6\nIK1END: 10 20 30\nK1: 0.5 , , 7d-1\n")
    assert found.numbers("K1") == [0.5, 0.4, 0.7]
    assert found.numbers("IK1END", parse_whole) == [10, 20, 30]
    assert found.numbers("HAMP") == []


def test_whole_numbers_have_8_columns(configuration):
    found = configuration("SIMDATS: 199601019\nISMOOTH: 1 1      9\n")
    assert found.int8("SIMDATS") == 19960101
    assert found.int8("ISMOOTH") == 11


@pytest.mark.parametrize("value, flag", [("T", True), (".false.", False), ("TRUE", True), ("f", False)])
def test_flags(configuration, value, flag):
    assert configuration(f"PRWARN: {value}\n").flag("PRWARN", not flag) is flag


def test_names(configuration):
    found = configuration('PRFILE: "my run.prt"\nINIFILE: a/b.shore\n')
    assert found.name("PRFILE") == "my run.prt"
    assert found.name("INIFILE") == "a/b.shore"
    assert found.stem == "my run."


@pytest.mark.parametrize("name, stem", [("run.prt", "run."), ("run", "run"), ("../run/a.prt", "."), ("a.b.prt", "a.")])
def test_the_stem_ends_with_the_first_full_stop(configuration, name, stem):
    assert configuration(f"PRFILE: {name}\n").stem == stem


def test_wave_files(configuration):
    found = configuration("WAVEID: 60 8.5 0 waves/a.txt\nWAVEID: 120, 9, 3654 'b c.txt'\n").wave_files
    assert [(one.last_cell, one.depth, one.events, one.name) for one in found] == [
        (60, 8.5, 0, "waves/a.txt"),
        (120, 9.0, 3654, "b c.txt"),
    ]


@pytest.mark.parametrize(
    "text, said",
    [
        ("NX: ten\n", "line 2: NX: 'ten' is no whole number"),
        ("NX: 4001\n", "NX must be 1 to 4000, not 4001"),
        ("", "NX must be 1 to 4000, not 0"),
    ],
)
def test_wrong_cells_are_told(configuration, text, said):
    with pytest.raises(KelpError, match=said):
        configuration(text).cells


def test_wrong_values_name_their_line(configuration):
    found = configuration('DT: nan\nK1: 0*1\nKELUNITS: ft\nSIMDATS: 1996-1-1\nPRFILE: "a\nWAVEID: 60 8 0\nPRWARN: no\n')
    for read, said in (
        (lambda: found.real("DT"), "line 2: DT: 'nan' is no number"),
        (lambda: found.numbers("K1"), "line 3: K1: '0\\*1' repeats nothing"),
        (lambda: found.unit, r"KELUNITS must be \(ft\) or \(m\), not 'ft'"),
        (lambda: found.int8("SIMDATS"), "line 5: SIMDATS: '1996-1-1' is no whole number"),
        (lambda: found.name("PRFILE"), "line 6: PRFILE: the closing quote is missing"),
        (lambda: found.wave_files, "line 7: WAVEID"),
        (lambda: found.flag("PRWARN", True), "line 8: PRWARN must be T or F"),
    ):
        with pytest.raises(KelpError, match=said):
            read()


def test_records_belong_together_by_place_or_by_what_was_opened_last(configuration):
    found = configuration(
        "YNDG: 50\nIXNDG: 3\nIXNDG: 8\nISWBEG: 1\nISWBEG: 5\nISWEND: 7\nSWY1: 10\n"
        "IINLS: 20\nINLNAME: North\nIINLS: 40\nIINLE: 22\nIINLE: 41\n"
    )
    assert found.records("IXNDG", {"YNDG": "real"}) == [{"IXNDG": 3, "YNDG": 50.0}, {"IXNDG": 8, "YNDG": 0}]
    walls = found.records("ISWBEG", {"SWY1": "real"}, {"ISWEND": "int8"})
    assert [one["ISWEND"] for one in walls] == [0, 7]
    assert [one["SWY1"] for one in walls] == [10.0, 0]
    inlets = found.records("IINLS", {"IINLE": "int8"}, {"INLNAME": "name"})
    assert [(one["IINLS"], one["IINLE"], one["INLNAME"]) for one in inlets] == [(20, 22, "North"), (40, 41, "")]


@pytest.mark.parametrize(
    "start, end, days",
    [
        (19960101, 19970101, 366),
        (19970101, 19980101, 365),
        (19990131, 19990301, 29),
        (18991231, 19000301, 61),  # 1900 is a leap year to the model
        (19960101, 20060101, 3653),
    ],
)
def test_days_of_the_models_calendar(start, end, days):
    assert days_between(start, end) == days


def test_steps(configuration):
    text = "SIMDATS: 19960101\nSIMDATE: 20060101\nDT: 3\nDTSAVE: 720\n"
    assert configuration(text).steps == 3653 * 8
    assert configuration(text).steps_per_record == 240
    assert configuration(text + "DTADAPT: 1\n").steps is None
    assert configuration(text + "SIMDATE: 60\n").steps == 60


def test_a_file_without_the_marker_is_no_configuration(configuration):
    with pytest.raises(KelpError, match="no configuration of KelpRun"):
        configuration("NX: 3\n", marker="")
