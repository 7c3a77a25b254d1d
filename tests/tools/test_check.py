"""`kelp check`: what a run would silently ignore."""

import ast
import os
import re
import subprocess

import pytest
from conftest import ROOT, inlet_lines, program, read_by_hand, run_model

from kelptools import keywords
from kelptools.checking import findings
from kelptools.cli import main

TOOLS = ROOT / "tools" / "kelptools"

CONFIGURATION = """\
KELPRUN:
KELUNITS: (m)
WAVUNITS: (m)
INIFILE: a.shore
PRFILE: a.prt
NUMWAVES: 1
WAVEID: 20 8 11 a.waves
NX: 20
DX: 100
SIMDATS: 20200101
SIMDATE: 20200111
DT: 24
DTSAVE: 48
K1: 0.77
IK1END: 20
K2: 0.38
IK2END: 20
HAMP: 1
IHAMPEND: 20
THETAAMP: 1
ITHETAAMPEND: 20
THETADEL: 0
ITHETADELEND: 20
D50: 0.2
BERMHT: 1
IBERMHTEND: 20
DCLOS: 6
IDCLOSEND: 20
"""
LINE = {line.split(":")[0]: number for number, line in enumerate(CONFIGURATION.splitlines(), 1)}
SHORE = "head\n" * 4 + ("100 " * 10 + "\n") * 2
WAVES = [f"202001{day:02d} 0000 0.7 8.0 15.0" for day in range(1, 12)]


@pytest.fixture
def told(tmp_path):
    """Findings of the configuration with `change`s and `more` lines: (line, level, text)."""

    def tell(*changes, more="", shore=SHORE, waves=WAVES):
        text = CONFIGURATION
        for old, new in changes:
            assert old in text
            text = text.replace(old, new)
        (tmp_path / "a.cfg").write_text(text + more)
        (tmp_path / "a.shore").write_text(shore)
        (tmp_path / "a.waves").write_text("\n".join(waves) + "\n")
        return [(one.line, one.level, one.text) for one in findings(tmp_path / "a.cfg")]

    return tell


FIRST_MORE = len(CONFIGURATION.splitlines()) + 1


def test_a_sound_configuration_has_nothing_to_tell_and_runs(told, tmp_path):
    assert told() == []
    run_model(tmp_path, "a.cfg")


# The table


def test_the_table_is_that_of_the_program():
    named = os.environ.get("KELPRUN_KEYWORDS")
    tool = named or program().with_name("kelprun_keywords")
    printed = subprocess.run([tool], capture_output=True, text=True, timeout=20)
    assert printed.returncode == 0
    assert printed.stdout == (TOOLS / "keywords.json").read_text()


def test_the_table_tells_forms_and_openers():
    table = keywords.keywords()
    assert {"K1", "IK1END", "WAVEID", "QQDATE", "VVSAQR", "IDBN"} <= set(table)
    assert (table["SWY1"].opener, table["SWY1"].to_last_record) == ("ISWBEG", False)
    assert (table["ISWEND"].opener, table["ISWEND"].to_last_record) == ("ISWBEG", True)
    assert (table["PDB"].opener, table["KTMETDB"].opener) == ("KTMETDB", "DBI1")
    assert table["ISWBEG"].opens and table["WAVEID"].opens and not table["NX"].opener
    assert (table["SIMDATS"].form, table["K1"].form, table["IK1END"].form) == ("int8", "real_list", "int_list")
    assert table["TITLE"].width == 64
    assert [table[name].default for name in ("GAMMA", "KELUNITS", "PRTOUT", "NX", "YNDG")] == ["0.78", "(ft)", "T", "0", ""]
    assert all(not keyword.opener or keyword.opener in table for keyword in table.values())


def test_no_check_speaks_of_an_unknown_keyword():
    """Words in capitals in the checks' tables and messages are keywords, but for a few."""
    words = set()
    for path in TOOLS.glob("check*.py"):
        for node in ast.walk(ast.parse(path.read_text())):
            if isinstance(node, ast.Constant) and isinstance(node.value, str):
                words |= set(re.findall(r"\b[A-Z][A-Z0-9]{2,}\b", node.value))
    known = set(keywords.keywords())
    either_side = {word for word in words if {f"L{word}", f"R{word}"} <= known}
    assert either_side == {"BCTYPE", "MOVY", "MOVPER", "GROINY"}
    assert words - known - either_side == {"CONFIG", "DIR", "YYYYMMDD", "END"}  # END: the end cells, I...END


# Lines


@pytest.mark.parametrize(
    "line, text",
    [
        ("TITEL: x", "unknown keyword TITEL: the line is ignored; TITLE is the nearest known one"),
        ("iswbgin: 4", "unknown keyword ISWBGIN: the line is ignored; ISWBEG is the nearest known one"),
        ("Note: y", "unknown keyword NOTE: the line is ignored; begin a comment with #"),
        (" GAMMA: 0.8", "GAMMA is hidden by a leading blank: the line is ignored"),
        ("\tGAMMA: 0.8", "GAMMA is hidden by a leading blank: the line is ignored"),
        ("\u200bGAMMA: 0.8", "GAMMA is hidden by an invisible character: the line is ignored"),
        ("DT SAVE: 24", "unknown keyword DT SAVE: the line is ignored; DTSAVE is meant?"),
        ("GAMMA value: 0.8", "unknown keyword GAMMA VALUE: the line is ignored; GAMMA is meant?"),
        ("GAMMA = 0.8", "no colon behind GAMMA: the line is ignored; GAMMA: is meant?"),
        ("gamma 0.8", "no colon behind GAMMA: the line is ignored; GAMMA: is meant?"),
        ("GAMMA;0.8", "no colon behind GAMMA: the line is ignored; GAMMA: is meant?"),
        ("GAMMA:", "GAMMA has no value; the line is skipped"),
        ("GAMMA:" + " " * 260 + "0.8", "GAMMA has no value; the line is skipped"),
        ("GAMMA: 0,8", "GAMMA: only the first value counts: 0; a comma parts two values"),
        ("GAMMA: 0.7 0.8", "GAMMA: only the first value counts: 0.7"),
        ("ISMOOTH: 1 1", "ISMOOTH: blanks within 8 columns do not count: 11 is read"),
        ("ISMOOTH: 000000111", "ISMOOTH: only the first 8 columns count: 11"),
    ],
)
def test_lines_that_are_not_what_they_seem(told, line, text):
    assert (FIRST_MORE, "warning", text) in told(more=line + "\n")


@pytest.mark.parametrize(
    "line",
    [
        "# Cells of 100 m: as wide as the beach", "! K1: 0.5", "#K1: 0.5", "A sentence about the beach: it is long", "",
        "Waves of the buoy", "D50 is that of the sand there", "gamma: 0.8", "GAMMA : 0.8", "GAMMA: 0.8 # usual",
        "ISMOOTH: 11      cells", "KELPRUN: again",
    ],
)  # fmt: skip
def test_comments_are_left_in_peace(told, line):
    assert told(more=line + "\n") == []


@pytest.mark.parametrize(
    "line, text",
    [
        ("ISMOOTH: 11 # x", "ISMOOTH: '11 # x' is no whole number; the first 8 columns must hold nothing else"),
        ("PRWARN: no", "PRWARN: 'no' is neither T nor F"),
        ("GAMMA: high", "GAMMA: 'high' is no number"),
        ("IREG: 1", "IREG is 1, but there is no REGFILE"),
        ("LBCTYPE: 4", "LBCTYPE must be 0 to 3"),
        ("RBCTYPE: 3", "RBCTYPE is 3, and RMOVPER must be 1, 2 or 3"),
        ("DX: -2", "DX must be above 0, or -1 for a DXFILE; it is -2"),
        ("DX: -1", "DX is -1, but there is no DXFILE"),
        ("NX: 0", "NX must be above 0, it is 0"),
        ("D50: 0", "D50 must be above 0, it is 0"),
        ("K1: -1", "K1 must be above 0, it is -1"),
        ("DXFILE: a b", "DXFILE: the file a b does not exist in {folder}"),
        ('WLFILE: 9 "no level"', "WLFILE: the file no level does not exist in {folder}"),
    ],
)
def test_what_the_program_refuses(told, tmp_path, line, text):
    assert (FIRST_MORE, "error", text.format(folder=tmp_path)) in told(more=line + "\n")


def test_the_program_agrees_that_a_commented_whole_number_is_refused(told, tmp_path):
    told(more="ISMOOTH: 11 # x\n")
    done = subprocess.run([program(), "a.cfg"], cwd=tmp_path, capture_output=True, text=True, timeout=60)
    assert done.returncode == 1 and "Invalid config data: ISMOOTH: 11 # x" in done.stdout


def test_a_scalar_given_twice(told):
    assert told(more="DT: 12\n") == [
        (LINE["DT"], "warning", f"DT is given again in line {FIRST_MORE}, and that one holds")
    ]


def test_missing_keywords(told):
    found = told(("D50: 0.2\n", ""), ("KELUNITS: (m)\n", ""), ("WAVUNITS: (m)\n", ""), ("KELPRUN:", "#"))
    assert found == [
        (0, "error", "a line 'KELPRUN:' is missing, by which the program knows its configuration"),
        (0, "error", "D50 is missing: the grain size"),
        (0, "warning", "KELUNITS is left out: all lengths are in feet"),
        (0, "note", "WAVUNITS is left out: wave heights are in metres"),
    ]


def test_units_need_parentheses(told):
    text = "KELUNITS must be (ft) or (m), with the parentheses"
    assert told(("KELUNITS: (m)", "KELUNITS: m")) == [(LINE["KELUNITS"], "error", text)]


def test_a_long_title_is_cut(told):
    assert told(more="TITLE: " + "x" * 64 + "\n") == []
    assert told(more="TITLE: " + "x" * 65 + "\n") == [(FIRST_MORE, "note", "TITLE is cut to 64 characters")]


# Values along the coast


@pytest.mark.parametrize(
    "values, ends, line, level, text",
    [
        ("K1: 0.5", "", "K1", "note", "IK1END is missing: K1 is 0.5 everywhere"),
        ("K1: 0.5 0.6 0.7", "", "K1", "warning",
         "IK1END is missing: only the first of 3 values of K1 is read, 0.5 everywhere"),
        ("K1: 0.5", "IK1END: 10", "K1", "warning",
         "K1 has 1 value and IK1END 1 end cell: 0 is left for cells 11 to 20"),
        ("K1: 2*0.5", "IK1END: 10 19", "K1", "warning",
         "K1 has 2 values and IK1END 2 end cells: 0 is left for cell 20"),
        ("K1: 0,77", "IK1END: 20", "K1", "warning",
         "K1 has 2 values and IK1END has room for 1: the last one is ignored"),
        ("K1: 1 2 3 4", "IK1END: 10", "K1", "warning",
         "K1 has 4 values and IK1END has room for 2: the last 2 are ignored"),
        ("K1: 1 2 3", "IK1END: 10 20 30", "IK1END", "warning",
         "IK1END: end cells behind 20, the last cell, are ignored"),
        ("K1: 1 2 3", "IK1END: 10 8", "IK1END", "warning", "IK1END does not ascend: 8 follows 10"),
        ("K1: 1 2", "IK1END: 25", "IK1END", "warning", "IK1END: 25 lies beyond the last cell 20"),
        ("K1: 1 2 3", "IK1END: 5 0 20", "IK1END", "warning", "IK1END: end cells behind the 0 are ignored"),
        ("K1: 1 2", "IK1END: -5", "IK1END", "error", "IK1END: -5 is no cell"),
        ("K1: 1,,2", "IK1END: 5 10", "K1", "warning", "K1: a value left out between commas stays 0"),
        ("K1: 1 / 2", "IK1END: 20", "K1", "warning", "K1: what stands behind the / is not read"),
        ("K1: 1 two", "IK1END: 20", "K1", "error", "K1: 'two' is no number"),
    ],
)  # fmt: skip
def test_values_along_the_coast(told, values, ends, line, level, text):
    assert (LINE[line], level, text) in told(("K1: 0.77", values), ("IK1END: 20", ends))


@pytest.mark.parametrize(
    "values, ends", [("K1: 1 2", "IK1END: 10"), ("K1: 1 2", "IK1END: 10 20"), ("K1: 1", "IK1END: 20")]
)
def test_lists_that_fit(told, values, ends):
    assert told(("K1: 0.77", values), ("IK1END: 20", ends)) == []


@pytest.mark.parametrize(
    "keyword, level, text",
    [
        ("K1: 0.77", "error", "K1 is left out and would be 0 everywhere"),
        ("HAMP: 1", "warning", "HAMP is left out: 0 everywhere, the whole run is calm"),
        ("THETAAMP: 1", "warning", "THETAAMP is left out: 0 everywhere, all waves come straight in"),
        ("BERMHT: 1", "warning", "BERMHT is left out: 0 everywhere"),
        ("THETADEL: 0", "note", "THETADEL is left out: 0 everywhere"),
    ],
)
def test_lists_left_out_become_zero(told, keyword, level, text):
    found = told((keyword + "\n", ""))
    assert len(found) == 1
    assert found[0][1] == level and found[0][2].startswith(text)


# Records


def test_structure_lists_must_match(told):
    more = "ISWBEG: 3\nISWEND: 5\nISWBEG: 9\nISWEND: 11\nSWY1: 90\nSWY2: 90\nSWY2: 91\nSWY2: 92\nYNDG: 8\n"
    assert told(more=more) == [
        (FIRST_MORE + 4, "warning",
         "1 line of SWY1 and 2 of ISWBEG: the n-th belongs to the n-th ISWBEG, and where there is none it gets 0"),
        (FIRST_MORE + 7, "warning", "3 lines of SWY2 and 2 of ISWBEG: the surplus is ignored"),
        (FIRST_MORE + 8, "warning", "YNDG has no effect: no IXNDG line opens a record"),
    ]  # fmt: skip


def test_a_field_goes_to_the_record_opened_last(told):
    assert told(more="ISWBEG: 3\nISWBEG: 9\nISWEND: 5\nISWEND: 11\nSWY1: 90\nSWY1: 90\nSWY2: 90\nSWY2: 91\n") == [
        (FIRST_MORE, "warning", "this ISWBEG has no ISWEND before the next one: it becomes 0"),
        (FIRST_MORE + 2, "warning",
         f"ISWEND belongs to the ISWBEG last opened, and line {FIRST_MORE + 3} overwrites it; put each behind its own"),
    ]  # fmt: skip
    assert (FIRST_MORE, "error", "ISWEND stands before any ISWBEG line") in told(more="ISWEND: 5\nISWBEG: 3\n")


def test_a_list_left_out_altogether(told):
    assert told(more="ISWBEG: 3\nISWEND: 5\nSWY1: 90\n") == [
        (FIRST_MORE, "warning", "SWY2 is left out: it becomes 0 for every ISWBEG")
    ]
    # A permeability may well be 0.
    assert told(more="IXNDG: 8\nYNDG: 150\n") == []


BREAKWATER = "DBI1: 5\nDBI2: 8\nDBY1: 300\nDBY2: 300\nDBDEP1: 3\nDBDEP2: 3\n"
BEHIND = FIRST_MORE + BREAKWATER.count("\n")  # the line behind the breakwater's
LEVELS = "WLFILE: 2 a.levels\n"
SIZES = "HDB: 4\nBDB: 6\nSSDB: 0.5\nSHSDB: 0.5\n"


def agrees(folder, status, said=""):
    """The program ends with this status on the configuration that was told of last, and says so."""
    done = subprocess.run([program(), "a.cfg"], cwd=folder, capture_output=True, text=True, timeout=60)
    assert done.returncode == status, done.stdout[-300:] + done.stderr
    assert said in done.stdout + done.stderr


def test_structures_run(told, tmp_path):
    # A T-groin: two breakwaters that meet at the tip of a groin.
    groin = "IXDG: 12\nYDG: 220\nDDG: 2.2\nPDG: 0.1\nIXNDG: 16\nYNDG: 150\n"
    head = "DBI1: {}\nDBI2: {}\nDBY1: 220\nDBY2: 220\nDBDEP1: 2.2\nDBDEP2: 2.2\nTRANDB: 0.3\n"
    heads = head.format(11, 12) + head.format(12, 13)
    assert told(more=groin + heads) == []
    agrees(tmp_path, 0, "Model run completed")


def test_breakwaters_have_one_kind_of_transmission(told):
    text = "neither TRANDB nor KTMETDB: no wave passes the breakwaters"
    assert told(more=BREAKWATER) == [(FIRST_MORE, "warning", text)]
    assert told(more=BREAKWATER + "KTMETDB: 1\nTRANDB: 0.5\n") == [
        (BEHIND, "warning",
         "KTMETDB has no effect: the last of TRANDB and KTMETDB decides for all breakwaters, and it is TRANDB")
    ]  # fmt: skip


@pytest.mark.parametrize(
    "old, new, text",
    [
        ("DBDEP1: 3", "DBDEP1: 0", "DBDEP1 must be above 0, it is 0"),
        ("DBDEP2: 3", "DBDEP2: -3", "DBDEP2 must be above 0, it is -3"),
        ("TRANDB: 0.5", "TRANDB: -0.1", "TRANDB must not be below 0, it is -0.1"),
    ],
)
def test_breakwaters_without_water_or_with_less_than_no_waves(told, tmp_path, old, new, text):
    more = (BREAKWATER + "TRANDB: 0.5\n").replace(old, new)
    line = FIRST_MORE + more.split("\n").index(new)
    assert told(more=more) == [(line, "error", text)]
    agrees(tmp_path, 1, "must ")


@pytest.mark.parametrize(
    "depth, said",
    [
        ("-2.2", "DDG of the groin at wall 8 must be above 0, it is -2.2"),
        ("0", "Diffracting groin depth file DDG omitted"),
    ],
)
def test_a_diffracting_groin_needs_water_at_its_tip(told, tmp_path, depth, said):
    text = f"DDG must be above 0, it is {depth}"
    assert told(more=f"IXDG: 8\nYDG: 150\nDDG: {depth}\n") == [(FIRST_MORE + 2, "error", text)]
    agrees(tmp_path, 1, said)


def test_computed_transmission_needs_water_levels(told, tmp_path):
    computed = BREAKWATER + "KTMETDB: 0\n" + SIZES + "D50DB: 1\n"
    assert told(more=computed) == [
        (BEHIND, "error", "KTMETDB needs a WLFILE: transmission is computed from the water level")
    ]
    agrees(tmp_path, 1, "WLFILE: KTMETDB is given, but no water level file is named")
    (tmp_path / "a.levels").write_text("20200101 0 0.1\n20200101 600 0.2\n")
    assert told(("DT: 24", "DT: 6"), more=computed + LEVELS) == []
    agrees(tmp_path, 0)


def test_water_levels_serve_the_computed_transmission_alone(told, tmp_path):
    (tmp_path / "a.levels").write_text("20200101 0 0.1\n20200101 600 0.2\n")
    text = "WLFILE has no effect: only KTMETDB works with water levels"
    assert told(more=BREAKWATER + "TRANDB: 0.5\n" + LEVELS) == [(BEHIND + 1, "warning", text)]


@pytest.mark.parametrize(
    "method, sizes, missing",
    [
        (1, "HDB: 2\nBDB: 6\nD50DB: 1\n", ""),
        (1, "HDB: 2\nBDB: 6\n", "D50DB"),
        (2, "HDB: 4\nBDB: 6\nSSDB: 0.5\n", ""),
        (2, "HDB: 4\nSSDB: 0\n", "BDB and SSDB"),
        (0, SIZES + "D50DB: 1\n", ""),
        (0, SIZES, "D50DB"),
        (7, "HDB: 4\nBDB: 6\nSSDB: 0.5\nD50DB: 1\n", "SHSDB"),
    ],
)
def test_sizes_that_a_method_works_with(told, tmp_path, method, sizes, missing):
    (tmp_path / "a.levels").write_text("20200101 0 0.1\n20200101 600 0.2\n")
    text = f"KTMETDB {method} of breakwater 1 works with {missing}, which must be above 0"
    found = told(("DT: 24", "DT: 6"), more=BREAKWATER + f"KTMETDB: {method}\n" + sizes + LEVELS)
    assert found == ([(BEHIND, "warning", text)] if missing else [])


def test_stones_belong_to_the_method_line_before_them(told, tmp_path):
    (tmp_path / "a.levels").write_text("20200101 0 0.1\n20200101 600 0.2\n")
    second = BREAKWATER.replace("DBI1: 5\nDBI2: 8", "DBI1: 12\nDBI2: 15") + SIZES
    more = BREAKWATER + SIZES + "KTMETDB: 0\n" + second + "KTMETDB: 0\nD50DB: 1\n" + LEVELS
    assert told(("DT: 24", "DT: 6"), more=more) == [
        (BEHIND + 4, "warning", "KTMETDB 0 of breakwater 1 works with D50DB, which must be above 0")
    ]


def test_tidal_stations_stand_from_left_to_right(told, tmp_path):
    for name in "bc":
        (tmp_path / f"{name}.tide").write_text("20200101 0 0.1\n20200101 600 -0.1\n")
    stations = "TIDEFILE: {} 2 b.tide\nTIDEFILE: {} 2 c.tide\n"
    assert told(("DT: 24", "DT: 6"), more=stations.format(5, 15)) == []
    behind = "stations must be named from left to right, or currents come to wrong places"
    for first, second in ((15, 5), (9, 9)):
        assert told(("DT: 24", "DT: 6"), more=stations.format(first, second)) == [
            (FIRST_MORE + 1, "warning", f"TIDEFILE: end cell {second} follows {first}; {behind}")
        ]
        agrees(tmp_path, 0, f"TIDEFILE end cells do not ascend, {second} follows {first}")
    assert told(("DT: 24", "DT: 6"), more=stations.format(5, 22)) == [
        (FIRST_MORE + 1, "error", "TIDEFILE: end cell 22 lies outside 1 to 21")
    ]
    agrees(tmp_path, 1, "22 lies outside 1 to 21")


def test_a_dredged_volume_needs_its_days_before_it(told):
    inlet = ["IINLS: 5", "IINLE: 6", "IMOR: 1", "IDREDS: 20200102", "IDREDE: 20200105"]
    texts = [text for _, _, text in told(more="\n".join([*inlet, "DREDV: 100", "DRDAY: 3"]) + "\n")]
    assert "DREDV stands before DRDAY, so that its rate comes out wrong" in texts
    texts = [text for _, _, text in told(more="\n".join([*inlet, "DRDAY: 4", "DREDV: 100"]) + "\n")]
    assert not any("DREDV" in text for text in texts)
    texts = [(level, text) for _, level, text in told(more="DRDAY: 3\nDREDV: 100\n")]
    assert ("error", "DRDAY stands before any IINLS line") in texts
    assert ("error", "DREDV stands before any IMOR line") in texts


# Fills, bypass operations, inlets, dredging

FILL = "BFDATS: {}\nBFDATE: {}\nIBFS: 2\nIBFE: 4\nYADD: 10\n"
BYPASS = "BPDATS: {}\nBPDATE: {}\nIBPS: 2\nIBPE: 4\nQBP: 10\n"
JETTIES = "IXNDG: 9\nYNDG: 300\nPNDG: 0\nIXNDG: 12\nYNDG: 300\nPNDG: 0\n"
INLET = JETTIES + inlet_lines(9, 11, JBCL=1, JBCR=1)
AT_INLET = FIRST_MORE + JETTIES.count("\n")  # the line that opens the inlet
DREDGING = "IMOR: 3\nIDREDS: 20200102\nIDREDE: 20200105\nDRDAY: 4\nDREDV: 100\n"
AT_DREDGING = FIRST_MORE + INLET.count("\n")


def test_events_and_an_inlet_that_are_sound_run(told, tmp_path):
    more = FILL.format(20200102, 20200105) + BYPASS.format(20200102, 20200111) + INLET + DREDGING
    assert told(more=more) == []
    agrees(tmp_path, 0, "Model run completed")


@pytest.mark.parametrize("event, name", [(FILL, "BFDAT"), (BYPASS, "BPDAT")])
def test_dates_and_step_numbers_do_not_mix(told, event, name):
    assert told(more=event.format(20200102, 20200105) + event.format(3, 5)) == [
        (FIRST_MORE + 5, "warning", f"{name}S 3 is a step number, but all are compared with the clock of the first "
         f"{name}S, which is a date"),
        (FIRST_MORE + 6, "warning", f"{name}E 5 is a step number, but all are compared with the clock of the first "
         f"{name}S, which is a date"),
    ]  # fmt: skip
    (found,) = told(more=event.format(3, 20200105))
    assert found == (
        FIRST_MORE + 1, "warning",
        f"{name}E 20200105 is a date, but all are compared with the clock of the first {name}S, which is a step number",
    )  # fmt: skip


@pytest.mark.parametrize("event, name", [(FILL, "BFDATS"), (BYPASS, "BPDATS")])
@pytest.mark.parametrize("first, last", [(20200111, 20200120), (20191201, 20200101), (11, 15)])
def test_operations_outside_the_run(told, event, name, first, last):
    text = f"{name} {first} to {last} does not lie within the run"
    assert told(more=event.format(first, last)) == [(FIRST_MORE, "warning", text)]


@pytest.mark.parametrize("event, name", [(FILL, "BFDAT"), (BYPASS, "BPDAT")])
def test_operations_of_no_length(told, event, name):
    text = f"{name}S 20200105 acts on no step: {name}E, the same, does not count"
    assert told(more=event.format(20200105, 20200105)) == [(FIRST_MORE, "warning", text)]
    text = f"{name}S 5 acts on no step: {name}E, the same, does not count"
    assert told(more=event.format(5, 5)) == [(FIRST_MORE, "warning", text)]


@pytest.mark.parametrize("first, last", [(20191230, 20200105), (20200105, 20200120), (-3, 5), (5, 15)])
def test_a_fill_partly_outside_the_run_is_placed_in_part(told, first, last):
    text = f"BFDATS {first} to {last} reaches out of the run: only the share of YADD that lies within it is placed"
    assert told(more=FILL.format(first, last)) == [(FIRST_MORE, "warning", text)]


def test_a_fill_of_step_numbers_places_less(told, tmp_path):
    text = "BFDATS 3 to 7 places 4 parts in 5 of YADD: the last step does not count"
    assert told(more=FILL.format(3, 7)) == [(FIRST_MORE, "note", text)]
    # Without waves all change is the fill's: 8 m of 10 in each of its cells.
    told(more=FILL.format(3, 7), waves=[record[:13] + " 0 0 0" for record in WAVES])
    run_model(tmp_path, "a.cfg")
    _, rows = read_by_hand(tmp_path / "a.slo", 14)
    assert rows[-1] == [100] + [108] * 3 + [100] * 16


@pytest.mark.parametrize(
    "event, first, last, level, text",
    [
        (FILL, 0, 4, "warning", "IBFS to IBFE: 0 to 4 reach out of cells 1 to 20"),
        (FILL, 0, 21, "error", "IBFS to IBFE: 0 to 21 reach out of cells 1 to 20"),
        (FILL, 5, 4, "error", "IBFS 5 lies behind IBFE 4"),
        (BYPASS, 18, 21, "error", "IBPS to IBPE: 18 to 21 reach out of cells 1 to 20"),
        (BYPASS, 5, 4, "error", "IBPS 5 lies behind IBPE 4"),
    ],
)
def test_operations_outside_the_grid(told, tmp_path, event, first, last, level, text):
    more = event.format(20200102, 20200105).replace("S: 2\n", f"S: {first}\n").replace("E: 4\n", f"E: {last}\n")
    assert told(more=more) == [(FIRST_MORE + 2, level, text)]
    agrees(tmp_path, 1 if level == "error" else 0)


@pytest.mark.parametrize(
    "first, last, text",
    [
        (13, 15, "IBYPR1 to IBYPR2: 13 to 15 are 3 cells, which get about 1/3 of the sand; give one"),
        (15, 13, "IBYPR1 to IBYPR2: 15 to 13 holds no cell: the sand that came from the left is lost"),
        (21, 21, "IBYPR1 to IBYPR2: 21 to 21 reach out of cells 1 to 20; sand put there is lost"),
        (11, 11, "IBYPR1 to IBYPR2: 11 to 11 reach into an inlet; sand put there is lost"),
        (0, 0, "this IINLS has no IBYPR1 and IBYPR2: the sand that came from the left is lost"),
    ],
)
def test_where_the_bars_put_their_sand(told, first, last, text):
    more = JETTIES + inlet_lines(9, 11, JBCL=1, JBCR=1, IBYPR1=first, IBYPR2=last)
    assert told(more=more) == [(AT_INLET, "warning", text)]


def test_placement_cells_that_are_left_out(told):
    more = "".join(line for line in INLET.splitlines(keepends=True) if not line.startswith("IBYPL"))
    text = "this IINLS has no IBYPL1 and IBYPL2: the sand that came from the right is lost"
    assert told(more=more) == [(AT_INLET, "warning", text)]


def test_sides_of_an_inlet_are_metres(told):
    given = JETTIES + inlet_lines(9, 11, YINLL=100, YINLR=105)
    assert told(more=given) == []
    text = "YINLL and YINLR of this IINLS, 100 and 105, are taken as metres: they are not converted"
    assert told(("KELUNITS: (m)", "KELUNITS: (ft)"), more=given) == [(AT_INLET, "warning", text)]
    text = "this IINLS has YINLL and no YINLR: the inlet's right side stands at 0"
    assert told(more=JETTIES + inlet_lines(9, 11, YINLL=100)) == [(AT_INLET, "warning", text)]
    text = "this IINLS has no YINLL: both sides are worked out, and YINLR has no effect"
    assert told(more=INLET.replace("YINLR: 0", "YINLR: 100")) == [(AT_INLET, "warning", text)]
    assert told(more=INLET.replace("YINLL: 0\n", "").replace("YINLR: 0\n", "")) == []


def test_an_inlet_between_jetties_needs_its_sides(told):
    behind = "the shoreline in the inlet stands at the jetty's tip, and hardly any sand comes in; 1 is the beach"
    more = JETTIES + inlet_lines(9, 11)
    assert told(more=more) == [
        (AT_INLET, "warning", f"{name} of this IINLS is 0: {behind}") for name in ("JBCL", "JBCR")
    ]
    # Without jetties the model takes the beach itself.
    assert told(more=inlet_lines(9, 11)) == []


@pytest.mark.parametrize("name", ["PNDG", "PDG"])
def test_a_left_jetty_that_lets_sand_through(told, name):
    jetties = JETTIES if name == "PNDG" else JETTIES.replace("NDG: ", "DG: ").replace("PDG", "DDG: 2\nPDG")
    inlet = inlet_lines(9, 11, JBCL=1, JBCR=1)
    text = (
        f"{name} 0.3 of the jetty at wall 9: a left jetty that lets sand through takes far more off the beach than the "
        "inlet gets; 0 keeps the sand"
    )
    left = jetties.replace(f"{name}: 0\n", f"{name}: 0.3\n", 1)
    assert told(more=left + inlet) == [(FIRST_MORE + jetties.count("\n"), "warning", text)]
    before, _, behind = jetties.rpartition(f"{name}: 0")
    assert told(more=before + f"{name}: 0.3" + behind + inlet) == []


@pytest.mark.parametrize(
    "first, last, text",
    [
        (9, 8, "IINLE 8 lies before IINLS 9"),
        (2, 4, "IINLS 2 to 4: an inlet needs 2 cells of beach on each side"),
        (17, 19, "IINLS 17 to 19: an inlet needs 2 cells of beach on each side"),
    ],
)
def test_places_of_an_inlet(told, tmp_path, first, last, text):
    more = inlet_lines(first, last, IBYPL1=10, IBYPL2=10, IBYPR1=10, IBYPR2=10)
    assert [one for one in told(more=more) if one[1] == "error"] == [(FIRST_MORE, "error", text)]
    agrees(tmp_path, 1)


def test_two_inlets_need_room_and_names(told, tmp_path):
    first = inlet_lines(5, 6, "Gut", IBYPR1=7, IBYPR2=7)
    second = FIRST_MORE + first.count("\n")
    text = "IINLS 8 to 9: 2 cells of beach are needed between inlets"
    for start, found in ((8, [(second, "error", text)]), (9, [])):
        assert told(more=first + inlet_lines(start, start + 1, IBYPL1=7, IBYPL2=7)) == found
        agrees(tmp_path, 1 if found else 0)
    text = "several inlets have the table Gut.irv: give each its own INLNAME"
    assert told(more=first + inlet_lines(12, 13, "Gut")) == [(FIRST_MORE, "error", text)]
    agrees(tmp_path, 1)


def test_an_inlet_table_must_not_overwrite_an_input(told, tmp_path):
    found = told(("INIFILE: a.shore", "INIFILE: gut.irv"), more=inlet_lines(9, 11, "gut"))
    assert (LINE["INIFILE"], "error", "INIFILE: gut.irv would be overwritten by the report or a table") in found


@pytest.mark.parametrize(
    "old, new, text",
    [
        ("IMOR: 3", "IMOR: 7", "IMOR 7 is no shoal: 1 to 6 are dredged, and this touches none"),
        ("IMOR: 3", "IMOR: 0", "IMOR 0 is no shoal: 1 to 6 are dredged, and this touches none"),
        ("IDREDS: 20200102\nIDREDE: 20200105", "IDREDS: 20200112\nIDREDE: 20200115",
         "IDREDS 20200112 to 20200115 does not lie within the run"),
        ("IDREDS: 20200102\nIDREDE: 20200105", "IDREDS: 20191228\nIDREDE: 20191231",
         "IDREDS 20191228 to 20191231 does not lie within the run"),
        ("IDREDS: 20200102\nIDREDE: 20200105", "IDREDS: 2\nIDREDE: 5",
         "IDREDS 2 to 5: dredging goes by dates alone, not by step numbers"),
        ("IDREDE: 20200105", "IDREDE: 20200101", "IDREDE 20200101 lies before IDREDS 20200102"),
        ("DRDAY: 4", "DRDAY: 2", "IDREDS 20200102 to 20200105 are 4 days, the last one counts too, and DRDAY is 2: "
         "200 are taken, not DREDV 100"),
    ],
)  # fmt: skip
def test_dredging_that_does_not_act_as_it_seems(told, old, new, text):
    assert told(more=INLET + DREDGING.replace(old, new)) == [(AT_DREDGING, "warning", text)]


def test_the_days_told_last_hold_for_the_next_volume(told):
    second = "IMOR: 4\nIDREDS: 20200106\nIDREDE: 20200109\nDREDV: 100\n"
    texts = [text for _, _, text in told(more=INLET + DREDGING + second)]
    assert not any("are taken" in text for text in texts)
    texts = [text for _, _, text in told(more=INLET + DREDGING + second.replace("0109", "0107"))]
    assert any("are 2 days" in text and "50 are taken, not DREDV 100" in text for text in texts)


def test_dredging_needs_an_inlet_before_it(told, tmp_path):
    assert (FIRST_MORE, "error", "IMOR stands before any IINLS line") in told(more=DREDGING + INLET)
    agrees(tmp_path, 1)


# Keywords without effect


@pytest.mark.parametrize(
    "line, text",
    [
        ("REGFILE: a.shore", "REGFILE has no effect: IREG is 0, and only 1 and 3 use the regional contour"),
        ("IWAVREGSMOOTH: 5", "IWAVREGSMOOTH has no effect: IREG is 0, and only 1 turns waves to the regional contour"),
        ("DXFILE: a.shore", "DXFILE has no effect: DX is not -1"),
        ("DTMIN: 1", "DTMIN has no effect: DTADAPT is not 1"),
        ("LMOVY: 1", "LMOVY has no effect: LBCTYPE is 0, and only 3 moves the left end"),
        ("RGROINY: 1", "RGROINY has no effect: RBCTYPE is 0, and only 1 and 2 are a groin"),
        ("Y0: 5", "Y0 has no effect: it is read and ignored"),
        ("KTIDE: 2", "KTIDE has no effect: there is no TIDEFILE"),
        ("QQDATS: 20200102", "QQDATS has no effect: no BPDATS line counts a bypass"),
    ],
)
def test_keywords_without_effect(told, line, text):
    assert told(more=line + "\n") == [(FIRST_MORE, "warning", text)]


def test_only_the_first_width_counts(told):
    text = "DX: only the first value counts: 100; a DXFILE varies the widths"
    assert told(("DX: 100", "DX: 100 200")) == [(LINE["DX"], "warning", text)]


# Times


@pytest.mark.parametrize(
    "change, line, level, text",
    [
        (("SIMDATE: 20200111", "SIMDATE: 20200101"), "SIMDATE", "error",
         "SIMDATE 20200101 does not lie behind SIMDATS 20200101"),
        (("SIMDATE: 20200111", "SIMDATE: 10"), "SIMDATE", "note", "SIMDATE below 18000000 counts time steps: 10"),
        (("SIMDATE: 20200111", "SIMDATE: 20200231"), "SIMDATE", "warning", "SIMDATE: 20200231 is no date YYYYMMDD"),
        (("SIMDATS: 20200101", "SIMDATS: 20200001"), "SIMDATS", "warning", "SIMDATS: 20200001 is no date YYYYMMDD"),
        (("DTSAVE: 48", "DTSAVE: 60"), "DTSAVE", "error", "DTSAVE 60 is no multiple of DT 24"),
        (("DT: 24", "DT: 0"), "DT", "error", "DT must be above 0"),
    ],
)  # fmt: skip
def test_times(told, change, line, level, text):
    assert (LINE[line], level, text) in told(change)


def test_print_dates_that_are_awaited_in_vain(told):
    assert told(more="PRDATE: 20200103\nPRDATE: 7\n") == []
    vain = "it is awaited in vain, and the dates behind it with it"
    assert told(more="PRDATE: 20200105\nPRDATE: 20200103\nPRDATE: 20200201\n") == [
        (FIRST_MORE + 1, "warning", f"PRDATE 20200103 does not lie behind 20200105: {vain}"),
        (FIRST_MORE + 2, "warning", f"PRDATE 20200201 does not lie within the run: {vain}"),
    ]
    text = f"PRDATE 10 is no time step of the run before its last: {vain}"
    assert told(more="PRDATE: 10\n") == [(FIRST_MORE, "warning", text)]


def test_fills_outside_the_run(told):
    fill = "BFDATS: {}\nBFDATE: {}\nIBFS: 2\nIBFE: 4\nYADD: 10\n"
    assert told(more=fill.format(20200103, 20200105)) == []
    assert told(more=fill.format(20210103, 20210105)) == [
        (FIRST_MORE, "warning", "BFDATS 20210103 to 20210105 does not lie within the run")
    ]
    assert told(more=fill.format(20200105, 20200103)) == [
        (FIRST_MORE, "warning", "BFDATE 20200103 lies before BFDATS 20200105")
    ]


# Files


def test_a_missing_file(told, tmp_path):
    assert told(("INIFILE: a.shore", "INIFILE: b.shore")) == [
        (LINE["INIFILE"], "error", f"INIFILE: the file b.shore does not exist in {tmp_path}")
    ]


def test_files_are_sought_where_the_program_starts(told, tmp_path):
    told()
    (tmp_path / "elsewhere").mkdir()
    found = findings(tmp_path / "a.cfg", tmp_path / "elsewhere")
    assert [one.text.split(" does")[0] for one in found] == ["INIFILE: the file a.shore", "WAVEID: the file a.waves"]


def test_the_report_must_not_overwrite_an_input(told):
    assert told(("PRFILE: a.prt", "PRFILE: a.shore")) == [
        (LINE["INIFILE"], "error", "INIFILE: a.shore would be overwritten by the report or a table")
    ]


def test_a_full_stop_in_the_folder_of_the_report(told, tmp_path):
    (tmp_path / "v1.0").mkdir()
    assert told(("PRFILE: a.prt", "PRFILE: v1.0/a.prt")) == [
        (LINE["PRFILE"], "warning", "PRFILE: the tables take their names up to its first full stop: v1.slo")
    ]


@pytest.mark.parametrize(
    "shore, level, text",
    [
        ("head\n" * 4 + "100 " * 10 + "\n", "error", "a.shore holds 10 values, and there are 20 cells"),
        ("head\n" * 3 + SHORE[20:], "warning",
         "a.shore: its first four lines are skipped, and there are values among them"),
        (SHORE + "100\n", "warning", "a.shore goes on behind the values of 20 cells; the rest is ignored"),
        ("head\n" * 4 + "100 " * 20 + "\n" + "100 " * 10, "warning",
         "a.shore: line 5 goes on behind 10 values; the surplus is ignored"),
        (SHORE.replace("100 \n", "x \n"), "error", "a.shore: line 5: 'x' is no number"),
    ],
)  # fmt: skip
def test_shorelines(told, shore, level, text):
    assert (LINE["INIFILE"], level, text) in told(shore=shore)


# Waves


def test_a_wave_file_that_ends_before_the_run_does(told, tmp_path):
    # 10 days of a step each, a record each: 10 are needed.
    assert told(("8 11 a", "8 10 a"), waves=WAVES[:10]) == []
    run_model(tmp_path, "a.cfg")
    assert told(("8 11 a", "8 9 a"), waves=WAVES[:9]) == [
        (LINE["WAVEID"], "error",
         "a.waves ends before the run does: 10 records are needed from 20200101 on, and there are 9, the last of "
         "2020-01-09 00:00")
    ]  # fmt: skip
    done = subprocess.run([program(), "a.cfg"], cwd=tmp_path, capture_output=True, text=True, timeout=60)
    assert done.returncode == 1 and "the run needs 10 wave records" in done.stderr


def test_records_before_the_start_do_not_count(told):
    early = ["20191231 0000 0.7 8.0 15.0"]
    found = told(("8 11 a", "8 10 a"), waves=early + WAVES[:9])
    # The step from December to January cannot be told either.
    text = "a.waves: its first two records lie in different months, and the program cannot tell the wave step"
    assert found == [(LINE["WAVEID"], "error", text)]
    early = ["20191230 0000 0.7 8.0 15.0", "20191231 0000 0.7 8.0 15.0"]
    found = told(waves=early + WAVES[:9])
    assert [text for _, level, text in found if level == "error"] == [
        "a.waves ends before the run does: 10 records are needed from 20200101 on, and there are 9, the last of "
        "2020-01-09 00:00"
    ]


@pytest.mark.parametrize(
    "waves, level, text",
    [
        (WAVES[:10], "error", "a.waves holds 10 records, and WAVEID tells 11"),
        (WAVES + ["20200112 0000 1 8 0"], "warning",
         "a.waves holds 12 records, and WAVEID tells 11: the dates of the others do not count"),
        (WAVES[:3] + WAVES[4:] + ["20200112 0000 1 8 0"], "warning",
         "a.waves: the step is 24 hours, but record 4 of 2020-01-05 00:00 follows 2020-01-03 00:00; dates do not "
         "count, so that all later waves come at a wrong time"),
        (WAVES[1:] + ["20200112 0000 1 8 0"], "warning",
         "a.waves begins on 20200102, and the run on 20200101: its first record is taken for the run's first waves"),
        (WAVES[:10] + ["20200111 0000 99 99 0"], "note",
         "a.waves: 1 of 11 records above 98, the marks of missing data, are taken as calm"),
        (WAVES[:10] + ["20200111 0000 0 0 0"], "note",
         "a.waves: 1 of 11 records below 0.1 in height or period are taken as calm"),
        ([record.replace("15.0", "215") for record in WAVES], "warning",
         "a.waves: 11 of 11 records with an angle beyond 90 degrees are taken as calm; angles count from the shore "
         "normal, not from north"),
        (WAVES[:4] + ["20200105 0000 1 8"] + WAVES[5:], "error", "a.waves: record 5 has 4 items of 5 on its line"),
        (WAVES[:4] + ["20200105 0000 1 8 x"] + WAVES[5:], "error", "a.waves: record 5: 'x' is no number"),
        (WAVES[:4] + ["20200199 0000 1 8 0"] + WAVES[5:], "error",
         "a.waves: 20200199 0000 is no date YYYYMMDD and clock time HHMM"),
        ([""], "error", "a.waves: the file is empty"),
    ],
)  # fmt: skip
def test_wave_series(told, waves, level, text):
    assert (LINE["WAVEID"], level, text) in told(waves=waves)


def test_the_wave_step_must_fit_the_time_step(told):
    text = "a.waves: DT 48 is longer than the wave step of 24 hours"
    assert (LINE["WAVEID"], "error", text) in told(("DT: 24", "DT: 48"))
    text = "a.waves: the wave step of 24 hours is no multiple of DT 16"
    assert (LINE["WAVEID"], "error", text) in told(("DT: 24", "DT: 16"))


def test_steady_waves(told):
    assert told(("8 11 a", "8 0 a"), waves=["0.7 8.0 15.0"]) == []
    found = told(("8 11 a", "8 0 a"))
    assert [(line, level) for line, level, _ in found] == [(LINE["WAVEID"], "warning")] * 2
    texts = [text for _, _, text in found]
    assert any(text.startswith("a.waves: with 0 records in WAVEID the waves are steady") for text in texts)
    assert any(text.startswith("a.waves: height 2.02001e+07") and "taken as calm" in text for text in texts)


def test_wave_lines_must_agree(told):
    line = "WAVEID: 20 8 11 a.waves"
    found = told(("NUMWAVES: 1", "NUMWAVES: 3"), (line, line + "\nWAVEID: 9 8 7 a.waves"))
    assert (LINE["NUMWAVES"], "error", "NUMWAVES is 3, and WAVEID has 2 lines") in found
    assert (LINE["WAVEID"] + 1, "error", "WAVEID: last cell 9 follows 20; they must ascend") in found
    text = "WAVEID: the number of records 11 is ignored: that of the last line, 7, holds for all"
    assert (LINE["WAVEID"], "warning", text) in found


# The command


def test_output_and_exit_status(told, tmp_path, capsys):
    told(more="TITEL: x\nTITLE: " + "y" * 70 + "\n")
    path = tmp_path / "a.cfg"
    assert main(["check", str(path)]) == 1
    assert capsys.readouterr().out.splitlines() == [
        f"{path}:{FIRST_MORE}: warning: unknown keyword TITEL: the line is ignored; TITLE is the nearest known one",
        f"{path}:{FIRST_MORE + 1}: note: TITLE is cut to 64 characters",
        f"{path}: 1 warning, 1 note",
    ]
    assert main(["check", "--no-notes", str(path)]) == 1
    assert "note: " not in capsys.readouterr().out
    told(more="TITLE: " + "y" * 70 + "\n")
    assert main(["check", str(path)]) == 0


def test_a_missing_configuration_is_told_in_one_line(tmp_path, capsys):
    assert main(["check", str(tmp_path / "none.cfg")]) == 1
    assert capsys.readouterr().err == f"kelp: {tmp_path}/none.cfg: No such file or directory\n"


@pytest.mark.parametrize("name", sorted(path.name for path in (ROOT / "examples").iterdir()))
def test_the_examples_have_neither_errors_nor_warnings(name):
    found = findings(ROOT / "examples" / name / f"{name}.cfg")
    assert {one.level for one in found} <= {"note"}
