"""The command as a user meets it: help, exit status, errors of one line."""

import os
import subprocess

import pytest
from conftest import ROOT
from kelptools import cli

COMMANDS = ("plot", "compare", "animate", "export")


def kelp(*arguments, folder=ROOT):
    environment = {**os.environ, "PYTHONPATH": str(ROOT / "tools")}
    return subprocess.run(
        ["/usr/bin/python3", "-m", "kelptools", *map(str, arguments)],
        capture_output=True, text=True, cwd=folder, env=environment, timeout=120,
    )  # fmt: skip


def test_help_names_every_command():
    done = kelp("--help")
    assert done.returncode == 0 and done.stderr == ""
    for command in COMMANDS:
        assert f"\n    {command} " in done.stdout
    assert "run.prt" in done.stdout


@pytest.mark.parametrize("command", COMMANDS)
def test_each_command_tells_its_arguments_and_examples(command):
    done = kelp(command, "--help")
    assert done.returncode == 0
    assert f"usage: kelp {command}" in done.stdout
    assert "examples:" in done.stdout and f"  kelp {command} " in done.stdout
    assert all(len(line) <= 120 for line in done.stdout.split("\n"))


@pytest.mark.parametrize("arguments", [[], ["draw"], ["plot"], ["plot", "a.prt", "--format", "bmp"], ["export", "a"]])
def test_wrong_usage_has_status_2(arguments):
    done = kelp(*arguments)
    assert done.returncode == 2
    assert done.stdout == "" and "usage: kelp" in done.stderr


@pytest.mark.parametrize(
    "arguments, said",
    [
        (["plot", "none.prt"], "none.prt: there is no such report"),
        (["plot", "nowhere/none.prt"], "nowhere/none.prt: there is no such folder"),
        (["plot", "none.cfg"], "none.cfg: No such file or directory"),
        (["animate", "none.prt", "a.mp4"], "a.mp4: the name must end in .gif"),
        (["animate", "none.prt", "a.gif", "--fps", "0"], "--fps must be above 0 and --frames 1 or more"),
        (["export", "none.prt", "a.xls"], "a.xls: the name must end in .nc, .csv or .geojson"),
        (["export", "none.prt", "a.nc", "--origin", "1", "2"], "--origin is for .geojson"),
        (["export", "none.prt", "a.geojson", "--crs", "32618"], "--map-unit and --crs need --origin"),
        (["compare", "none.prt", "none.prt"], "none.prt: there is no such report"),
    ],
)
def test_errors_are_one_line_with_status_1(arguments, said, tmp_path):
    done = kelp(*arguments, folder=tmp_path)
    assert done.returncode == 1
    assert done.stderr == f"kelp: {said}\n"
    assert done.stdout == ""


def test_what_cannot_be_written_is_told(finished, capsys):
    assert cli.main(["export", str(finished["first_beach"]), "/nowhere/a.csv"]) == 1
    assert capsys.readouterr().err == "kelp: /nowhere: there is no such folder\n"
    assert cli.main(["export", str(finished["first_beach"]), "/nowhere/a.nc"]) == 1
    assert capsys.readouterr().err == "kelp: /nowhere: there is no such folder\n"


def test_warnings_are_one_line_and_leave_the_status(copy_of, tmp_path, capsys):
    report = copy_of("first_beach")
    report.with_suffix(".off").unlink()
    assert cli.main(["export", str(report), str(tmp_path / "a.csv")]) == 0
    captured = capsys.readouterr()
    assert captured.err == f"kelp: warning: {report.with_suffix('.off')}: there is no such table\n"
    assert captured.out == f"{tmp_path / 'a.csv'}\n"


def test_the_run_of_a_report_in_a_folder_of_many(copy_of, capsys, tmp_path):
    report = copy_of("first_beach")
    report.with_name("broken.cfg").write_bytes(b"\xff\xfe\x00 no configuration")
    assert cli.main(["plot", str(report), "--only", "shoreline", "-o", str(tmp_path)]) == 0
    capsys.readouterr()
