"""`kelp new`: the case must run as it is."""

import re

from conftest import run_model

from kelptools.checking import findings
from kelptools.cli import main
from kelptools.starter import starter_files


def rows_of(path):
    lines = path.read_text().split("\n")[1:]
    return [[float(line[i : i + 14]) for i in range(8, len(line), 14)] for line in lines if line]


def test_the_case_runs_and_is_stable(tmp_path, capsys):
    folder = tmp_path / "cases" / "my beach"
    assert main(["new", str(folder)]) == 0
    told = capsys.readouterr().out
    names = ["my_beach.cfg", "my_beach.shore", "my_beach.waves"]
    assert sorted(path.name for path in folder.iterdir()) == names
    assert all(name in told for name in names)

    run_model(folder, "my_beach.cfg")
    assert "UNSTABLE" not in (folder / "my_beach.prt").read_text().upper()
    rows = rows_of(folder / "my_beach.slo")
    first, last = rows[0], rows[-1]
    assert len(first) == 80
    # The bulge of 50 m spreads, and what stands away from it hardly moves.
    assert max(first) > 249.5 and 205 < max(last) < 235
    assert all(195 < value < 251 for row in rows for value in row)
    assert abs(last[0] - 200) < 1 and abs(last[-1] - 200) < 1


def test_the_seawall_told_in_the_comments_holds_the_shoreline(tmp_path):
    assert main(["new", str(tmp_path), "--name", "b"]) == 0
    text = (tmp_path / "b.cfg").read_text()
    walled, count = re.subn(r"(?m)^#(ISWBEG|ISWEND|SWY1|SWY2):", r"\1:", text)
    assert count == 4
    (tmp_path / "wall.cfg").write_text(walled.replace("PRFILE: b.prt", "PRFILE: wall.prt"))
    run_model(tmp_path, "b.cfg")
    run_model(tmp_path, "wall.cfg")
    assert findings(tmp_path / "wall.cfg") == []
    free, wall = rows_of(tmp_path / "b.slo")[-1], rows_of(tmp_path / "wall.slo")[-1]
    behind = slice(35, 45)  # cells 36 to 45
    assert max(free[behind]) < 224
    assert min(wall[behind]) >= 225 - 0.01
    # Sand that the wall holds back is missing to the right of it.
    assert wall[45] < free[45] - 3


def test_check_finds_nothing_to_tell(tmp_path, capsys):
    assert main(["new", str(tmp_path / "a")]) == 0
    capsys.readouterr()
    assert main(["check", str(tmp_path / "a" / "a.cfg")]) == 0
    assert capsys.readouterr().out == f"{tmp_path}/a/a.cfg: nothing to tell\n"


def test_every_keyword_of_the_configuration_is_explained():
    """Above each group of keywords stands a comment."""
    lines = starter_files("x")["x.cfg"].split("\n")
    groups = "\n".join(lines[1:]).split("\n\n")
    assert len(groups) > 10
    assert all(group.lstrip().startswith("#") for group in groups)


def test_the_record_count_of_the_configuration_is_that_of_the_file():
    files = starter_files("x")
    records = files["x.waves"].splitlines()
    # 1096 days of 4 records and the first of 1 January 2023.
    assert len(records) == 4385
    assert "WAVEID: 80 10 4385 x.waves\n" in files["x.cfg"]
    assert records[0].startswith("20200101 0000 ") and records[-1].startswith("20230101 0000 ")
    angles = [float(record.split()[4]) for record in records]
    assert min(angles) < -15 and max(angles) > 15


def test_no_file_is_overwritten(tmp_path, capsys):
    (tmp_path / "a.waves").write_text("mine")
    assert main(["new", str(tmp_path), "--name", "a"]) == 1
    error = capsys.readouterr().err
    assert error == f"kelp: {tmp_path}/a.waves is there already; choose another folder or --name\n"
    assert [path.name for path in tmp_path.iterdir()] == ["a.waves"]
    assert (tmp_path / "a.waves").read_text() == "mine"


def test_a_name_that_the_program_could_not_read_is_refused(tmp_path, capsys):
    assert main(["new", str(tmp_path / "x"), "--name", "a.b"]) == 1
    assert capsys.readouterr().err == (
        "kelp: 'a.b' is no name for the files of a case; letters, digits, _ and - are\n"
    )
    assert not (tmp_path / "x").exists()
