"""docs/formats.md: its keywords are those of the program, its excerpts those of runs."""

import re
import shutil
import subprocess

import pytest
from conftest import BUMP, ROOT, program, run_model, write_values

from kelptools import keywords

TEXT = (ROOT / "docs" / "formats.md").read_text()

# Keywords

FORMS = {
    "marker": "nothing", "text": "text", "name": "name", "logical7": "T or F", "int8": "integer8", "integer": "integer",
    "real": "real", "real64": "real", "int_list": "integers", "real_list": "reals", "items": "items",
}  # fmt: skip


def keyword_rows():
    """Rows of the keyword tables: names, whether they are bold, form, unit, default, meaning."""
    section = TEXT[TEXT.index("## The configuration") : TEXT.index("## Shoreline, contour and cell widths")]
    tables = section.split("| keyword | form | unit | default | meaning |\n")[1:]
    for table in tables:
        for row in table.splitlines()[1:]:
            if not row.startswith("|"):
                break
            first, *others = (cell.strip() for cell in row.strip("|").split("|"))
            assert len(others) == 4 and all(others), row
            yield re.findall(r"`([A-Z0-9]+)`", first), first.startswith("**"), *others


ROWS = list(keyword_rows())
DOCUMENTED = {name: (bold, *cells) for names, bold, *cells in ROWS for name in names}


def first_word(cell):
    """A default without its code marks and what is said behind it."""
    return cell.split(",")[0].split(" ")[0].strip("`")


def test_every_keyword_stands_in_the_tables_once():
    named = [name for names, *_ in ROWS for name in names]
    assert sorted(named) == sorted(keywords.keywords())


@pytest.mark.parametrize("name", keywords.keywords())
def test_form_and_default_of_a_keyword_are_those_of_the_program(name):
    known = keywords.keywords()[name]
    bold, form, unit, default, _ = DOCUMENTED[name]
    mark = "" if not known.opener else " +last" if known.to_last_record else " +"
    assert form == FORMS[known.form] + mark
    assert bold == known.opens
    if known.width:
        assert unit == f"{known.width} characters"
    if first_word(default) == "needed":
        assert known.default in ("", "0")  # refusals are tested below
    elif known.opener:
        assert first_word(default) in ("0", "-")  # a value that lacks is 0
        assert first_word(default) == "-" or known.form not in ("text", "name", "items")
    else:
        assert first_word(default) == (known.default or "-")


ALONE = {
    "KELPRUN": "", "INIFILE": "a.shore", "NUMWAVES": "1", "WAVEID": "10 8 0 a.waves", "PRFILE": "a.prt", "NX": "10",
    "DX": "100", "SIMDATE": "3", "DT": "24", "DTSAVE": "24", "K1": "0.77", "D50": "0.2",
}  # fmt: skip
DEPTH = {"DCLOS": "6"}  # berm height or depth of closure: one of them must be given
RECORDS = [
    {"ISWBEG": "3", "ISWEND": "5", "SWY1": "90", "SWY2": "90"},
    {"IXNDG": "5", "YNDG": "200", "PNDG": "0.1"},
    {"IXDG": "5", "YDG": "200", "DDG": "2", "PDG": "0.1"},
    {"DBI1": "4", "DBI2": "6", "DBY1": "300", "DBY2": "300", "DBDEP1": "3", "DBDEP2": "3", "TRANDB": "0.3"},
    {"BFDATS": "1", "BFDATE": "3", "IBFS": "4", "IBFE": "6", "YADD": "1"},
    {"BPDATS": "1", "BPDATE": "3", "IBPS": "4", "IBPE": "6", "QBP": "1"},
    {"IINLS": "4", "IINLE": "6", "INLNAME": "Inlet A", "IBYPL1": "2", "IBYPL2": "2", "IBYPR1": "8", "IBYPR2": "8",
     "YINLL": "100", "YINLR": "100", "JBCL": "1", "JBCR": "1", "VVSE": "1", "VVSF": "1", "VVSBL": "1", "VVSBR": "1",
     "VVSAL": "1", "VVSAR": "1", "VVSEQ": "9", "VVSFQ": "9", "VVSBQL": "9", "VVSBQR": "9", "VVSAQL": "9",
     "VVSAQR": "9", "IMOR": "3", "IDREDS": "20200101", "IDREDE": "20200102", "DRDAY": "2", "DREDV": "1"},
    {"ILEDGV1": "4", "ILEDGV2": "6"},
    {"ILEDGQ1": "4", "ILEDGQ2": "6"},
]  # fmt: skip


def runs(folder, lines):
    """Whether a small run of these keywords is accepted and comes to its end."""
    write_values(folder / "a.shore", BUMP)
    (folder / "a.waves").write_text("0.7 8.0 15.0\n")
    (folder / "a.cfg").write_text("".join(f"{keyword}: {value}\n" for keyword, value in lines.items()))
    done = subprocess.run([program(), "a.cfg"], cwd=folder, capture_output=True, text=True, timeout=60)
    ended = done.stdout.rstrip().endswith("Model run completed")
    assert ended == (done.returncode == 0)
    return ended


def test_a_run_of_the_needed_keywords_alone_is_accepted(tmp_path):
    listed = {name for name, known in keywords.keywords().items() if known.opener and name != "WAVEID"}
    assert {name for name, cells in DOCUMENTED.items() if first_word(cells[3]) == "needed"} - listed == set(ALONE)
    assert runs(tmp_path, ALONE | DEPTH)
    assert not runs(tmp_path, ALONE)


@pytest.mark.parametrize("missing", ALONE)
def test_a_run_without_a_needed_keyword_is_refused(tmp_path, missing):
    lines = ALONE | DEPTH
    del lines[missing]
    assert not runs(tmp_path, lines)


@pytest.mark.parametrize("record", RECORDS, ids=lambda record: next(iter(record)))
def test_an_entry_needs_the_keywords_that_are_told_to_be_needed(tmp_path, record):
    assert runs(tmp_path, ALONE | DEPTH | record)
    for missing in list(record)[1:]:
        if keywords.keywords()[missing].opens:
            continue  # without it what belongs to it has no entry
        shorter = {name: value for name, value in record.items() if name != missing}
        needed = first_word(DOCUMENTED[missing][3]) == "needed"
        assert runs(tmp_path, ALONE | DEPTH | shorter) is not needed, missing


# Excerpts

EXCERPT = re.compile(r"^Excerpt of `([^`]+)` from `examples/(\w+)`(?: with (.*))?:\n\n((?:    .*\n|\n(?=    ))+)", re.M)
EXCERPTS = [
    (name, example, tuple(re.findall("`([^`]+)`", added)), block)
    for name, example, added, block in EXCERPT.findall(TEXT)
]


@pytest.fixture(scope="module")
def folder_of(tmp_path_factory):
    """Runs an example with lines added to its configuration, once."""
    done = {}

    def run(example, added):
        if (example, added) not in done:
            folder = tmp_path_factory.mktemp(example) / example
            shutil.copytree(ROOT / "examples" / example, folder)
            with open(folder / f"{example}.cfg", "a") as file:
                file.write("".join(line + "\n" for line in added))
            run_model(folder, f"{example}.cfg")
            done[example, added] = folder
        return done[example, added]

    return run


def test_every_excerpt_is_looked_at():
    assert len(EXCERPTS) == TEXT.count("Excerpt of `") > 15


@pytest.mark.parametrize("name, example, added, block", EXCERPTS, ids=lambda value: str(value)[:40].strip())
def test_an_excerpt_stands_in_the_file_as_it_is_shown(folder_of, name, example, added, block):
    """Lines follow each other but where a line of dots stands between them; dots in a line are what is left out."""
    held = [line.rstrip() for line in (folder_of(example, added) / name).read_text().split("\n")]
    place = 0
    for piece in re.split(r"^    \.\.\.\n", block, flags=re.M):
        shown = [re.compile(".*".join(map(re.escape, line[4:].rstrip().split("...")))) for line in piece.splitlines()]
        fits = lambda start: all(one.fullmatch(line) for one, line in zip(shown, held[start:], strict=False))
        found = next((start for start in range(place, len(held) - len(shown) + 1) if fits(start)), None)
        assert found is not None, piece
        place = found + len(shown)


# The report's table of contents


def test_every_line_of_a_report_is_found_by_its_beginning(folder_of):
    """In the table "Where to look" of the section on the report, but for numbers and blocks between stars."""
    table = TEXT[TEXT.index("**Where to look.**") : TEXT.index("**Arrays**")]
    cells = [row.split("|")[1] for row in table.splitlines() if row.startswith("| ")][1:]
    beginnings = tuple(word for cell in cells for word in re.findall("`([^`]+)`", cell))
    reports = {(name, example, added) for name, example, added, _ in EXCERPTS if name.endswith(".prt")}
    assert len(reports) >= 8
    for name, example, added in sorted(reports):
        whole = (folder_of(example, added) / name).read_text()
        whole = whole[whole.index("  RUN ") :]
        whole = re.sub(r"^ \*{63}\n  WARNING(.*\n)+? \*{63}\n", "", whole, flags=re.M)
        lines = [line.strip(" *") for line in whole.splitlines() if not re.fullmatch(r"[-\s\d.*]*", line)]
        assert lines
        assert [line for line in lines if not line.startswith(beginnings)] == []


def test_the_links_of_the_document_lead_to_its_headings():
    headings = {re.sub("[^a-z -]", "", line.lstrip("# ").lower()).replace(" ", "-") for line in
                TEXT.splitlines() if line.startswith("#")}  # fmt: skip
    links = re.findall(r"\]\(#([^)]+)\)", TEXT)
    assert len(links) > 15 and set(links) <= headings
