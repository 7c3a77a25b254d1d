"""Documents that name files, places and tests: what they name exists."""

import re

import pytest
from conftest import ROOT

DOCUMENTS = sorted([ROOT / "README.md", *(ROOT / "docs").glob("*.md"), *ROOT.glob("examples/*/README.md")])
LIMITS = (ROOT / "docs" / "limits.md").read_text()

# Links and names of files


def anchors(text):
    """The places that links can lead to: headings as they are shown on the web."""
    headings = re.findall(r"^#+ (.+)$", text, re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda path: str(path.relative_to(ROOT)))
def test_every_link_leads_somewhere(document):
    text = document.read_text()
    for target in re.findall(r"\]\(([^)]+)\)", text):
        if re.match(r"https?://", target):
            continue
        path, _, anchor = target.partition("#")
        place = document.parent / path if path else document
        assert place.exists(), target
        assert not anchor or anchor in anchors(place.read_text()), target


@pytest.mark.parametrize("document", DOCUMENTS, ids=lambda path: str(path.relative_to(ROOT)))
def test_every_file_of_the_source_tree_that_is_named_exists(document):
    named = re.findall(r"`((?:docs|src|tests|examples|scripts|tools|bench)/[\w./-]+)`", document.read_text())
    for name in named:
        assert name == "examples/NAME" or (ROOT / name).exists(), name


def test_limits_are_read_from_the_readme_and_the_formats():
    for name in ("README.md", "docs/formats.md"):
        assert "`docs/limits.md`" in (ROOT / name).read_text()


# Tests that docs/limits.md names

NAMED = re.findall(r"`([a-z_/0-9]+):\s+(\w+)\.(\w+)(?:/(\w+))?`", LIMITS)


def source_of(place):
    files = [ROOT / "tests" / f"{place}{ending}" for ending in ("_test.cpp", ".cpp")]
    found = [file for file in files if file.is_file()]
    assert len(found) == 1, place
    return found[0].read_text()


@pytest.mark.parametrize("place, suite, name, row", NAMED, ids=lambda part: part or "all")
def test_a_named_test_exists(place, suite, name, row):
    source = source_of(place)
    assert re.search(rf"^TEST(_F|_P)?\(\s*{suite},\s*{name}\)", source, re.MULTILINE)
    if row:
        assert f'"{row}"' in source or f'("{row}"' in source


def rows():
    """The rows of all tables: their cells."""
    for line in LIMITS.splitlines():
        if line.startswith("|") and not line.startswith(("|---", "| what ")):
            yield [cell.strip() for cell in line[1:-1].split("|")]


def test_every_row_names_its_test():
    count = 0
    for cells in rows():
        assert len(cells) in (3, 4), cells
        assert re.fullmatch(r"(`[^`]+`, )*`[^`]+`", cells[-1]), cells
        for named in re.findall(r"`([^`]+)`", cells[-1]):
            assert re.fullmatch(r"[a-z_/0-9]+: \w+\.\w+(/\w+)?", named), named
        count += 1
    assert count > 80


# Capacities

KEYWORDS = {
    "CELLS": "NX", "NON_DIFFRACTING_GROINS": "IXNDG", "DIFFRACTING_GROINS": "IXDG", "BREAKWATERS": "DBI1",
    "BYPASS_OPERATIONS": "BPDATS", "FILLS": "BFDATS", "SEAWALLS": "ISWBEG", "PRINT_DATES": "PRDATE",
    "WAVE_EVENTS": "wave records", "WAVE_FILES": "wave files", "WATER_LEVELS": "WLFILE",
    "TIDAL_RECORDS": "tidal currents", "TIDAL_FILES": "tidal current stations", "INLETS": "IINLS",
    "DREDGE_EVENTS": "IMOR", "BUDGET_ITEMS": "ILEDGV1", "CONFIGURATION_LINE": "line of the configuration",
    "FILE_NAME": "name of the configuration", "TITLE": "TITLE", "KEYWORD": "keyword",
}  # fmt: skip
ELSEWHERE = {"SPANS", "ARGUMENT", "UNIT_TEXT"}  # follow from others, or from docs/formats.md


def capacities():
    text = (ROOT / "src" / "model" / "capacities.h").read_text()
    values = re.findall(r"^inline constexpr (?:std::int32_t|int) (\w+) = (\d+);", text, re.MULTILINE)
    return {name: int(value) for name, value in values}


def test_every_capacity_is_told():
    held = set(re.findall(r"inline constexpr \S+ (\w+) =", (ROOT / "src" / "model" / "capacities.h").read_text()))
    assert held == set(KEYWORDS) | ELSEWHERE


@pytest.mark.parametrize("name", KEYWORDS)
def test_a_capacity_is_that_of_the_program(name):
    what = KEYWORDS[name]
    told = [cells[1] for cells in rows() if re.search(rf"(^|`){what}(`|,|$)", cells[0]) and len(cells) == 4]
    numbers = [int(number.replace(" ", "")) for cell in told for number in re.findall(r"\d+(?: \d{3})*", cell)]
    assert capacities()[name] in numbers, told
