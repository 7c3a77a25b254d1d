"""Changes the sources of the model one place at a time and counts the changes that a test notices.

A comparison is turned round (< to >=, == to !=) and moved by its edge (< to <=); a minimum, maximum
or clamp loses a side; a sum becomes a difference, a difference a sum, a negative value positive.

All changes are compiled once, into a copy of the tree in build/mutants: there every such operator is
a choice by a number from the environment. Each test is then run once with no change in force, to
learn at which places it would see another value, and each change is tried with those tests alone:
where no value differs, nothing that follows can. Unit tests come first, whole runs and verification
after them; the first failure ends the trial, and so does a crash or a run that takes far too long.
"""

import argparse
import collections
import concurrent.futures
import dataclasses
import json
import os
import pathlib
import random
import resource
import shutil
import signal
import subprocess
import time

from sites import Mutant, Rewriting

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutants"
COPY = WORK / "source"
BUILD = WORK / "build"
OUTCOMES = WORK / "outcomes.json"
ROOMS = ("waves", "coast", "inlets")
COPIED = ("CMakeLists.txt", "src", "tests", "examples", "tools", "docs")
PROGRAMS = ("unit_tests", "run_tests", "verification_tests")
WORKERS = 2
PATIENCE = 10  # times the usual time of the tests, and as many seconds on top
MEMORY, FILE_SIZE = 4 << 30, 1 << 28  # for a change that makes a run write or store without end
UNREACHED, SAME, DIFFERENT = 0, 1, 2  # as mutant.h notes them
MAP_SIZE = 1 << 16  # as mutant.h has it


@dataclasses.dataclass
class Test:
    program: str
    name: str
    seconds: float = 30.0  # until it is measured
    met: bytes = b""  # by number of the change


def write_changed(path, data):
    """Leaves a file alone that is as it should be, so that it is not compiled again."""
    if not path.exists() or path.read_bytes() != data:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(data)


def write_copy():
    """The tree with all changes in it; gives them and the places left alone."""
    mutants, skipped, written = [], [], set()
    for name in COPIED:
        source = ROOT / name
        for path in [source] if source.is_file() else sorted(source.rglob("*")):
            if not path.is_file() or "__pycache__" in path.parts:
                continue
            file = str(path.relative_to(ROOT))
            data = path.read_bytes()
            if path.parent.parent == ROOT / "src" and path.parent.name in ROOMS:
                rewriting = Rewriting(ROOT, file, len(mutants) + 1)
                mutants += rewriting.mutants
                skipped += rewriting.skipped
                data = rewriting.text()
            write_changed(COPY / file, data)
            written.add(COPY / file)
    header = COPY / "src" / "mutant.h"
    write_changed(header, (ROOT / "tools" / "mutation" / "mutant.h").read_bytes())
    written.add(header)
    for path in COPY.rglob("*"):
        if path.is_file() and path not in written:
            path.unlink()
    return mutants, skipped


def build():
    # Index checks make a step off the end of an array a failure instead of a chance.
    options = ["-DCMAKE_BUILD_TYPE=Release", "-DKELPRUN_CHECK_INDEX=ON", "-DCMAKE_CXX_FLAGS=-w"]
    log = WORK / "build.log"
    with open(log, "w") as out:
        for command in (
            ["cmake", "-S", COPY, "-B", BUILD, *options],
            ["cmake", "--build", BUILD, "-j", str(WORKERS), "--target", "kelprun", *PROGRAMS],
        ):
            if subprocess.run(command, stdout=out, stderr=subprocess.STDOUT).returncode != 0:
                raise SystemExit(f"mutate: the changed copy does not build; see {log}")


def limit_resources():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_SIZE, FILE_SIZE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def run_tests(tests, place, **environment):
    """Runs tests of one program in a folder of their own, up to the first failure. Gives the status
    (None after too long a time) and what they printed."""
    folder = WORK / "tmp" / place
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    flags, log = folder / "flags", folder / "log"
    flags.write_text("--gtest_filter=" + ":".join(t.name for t in tests) + "\n")
    command = [BUILD / "tests" / tests[0].program, f"--gtest_flagfile={flags}", "--gtest_fail_fast"]
    environment = {**os.environ, "TMPDIR": str(folder), **environment}
    patience = PATIENCE * (1.0 + sum(t.seconds for t in tests))
    with open(log, "wb") as out:
        process = subprocess.Popen(
            command, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=out,
            stderr=subprocess.STDOUT, preexec_fn=limit_resources, start_new_session=True,
        )  # fmt: skip
        try:
            status = process.wait(patience)
        except subprocess.TimeoutExpired:
            status = None
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()
    return status, log.read_text(errors="replace")


def list_tests():
    tests = []
    for program in PROGRAMS:
        command = [BUILD / "tests" / program, "--gtest_list_tests"]
        for line in subprocess.run(command, capture_output=True, text=True, check=True).stdout.splitlines():
            words = line.split("#")[0].strip()
            if line.startswith("  "):
                tests.append(Test(program, suite + words))
            elif words.endswith("."):
                suite = words
    return tests


def map_tests(tests, workers, count):
    """What each test meets. All must pass: the rewriting itself changes nothing."""

    def map_test(item):
        number, test = item
        map_file = WORK / f"map-{number}"
        map_file.write_bytes(bytes(MAP_SIZE))
        start = time.monotonic()
        status, log = run_tests([test], f"map-{number}", MUTANT_MAP=str(map_file))
        test.seconds = time.monotonic() - start
        if status != 0 or "[  PASSED  ] 1 test" not in log:
            raise SystemExit(f"mutate: {test.name} fails with no change in force:\n{log[-3000:]}")
        test.met = map_file.read_bytes()[: count + 1]
        map_file.unlink()
        shutil.rmtree(WORK / "tmp" / f"map-{number}")

    for _ in workers.map(map_test, enumerate(tests)):
        pass


def judge(mutant, tests):
    """The outcome of one change, in words for the table, and the first test that noticed it."""
    place = f"mutant-{mutant.number}"
    met = [(test, test.met[mutant.number]) for test in tests]
    seeing = [test for test, how in met if how == DIFFERENT]
    if not any(how != UNREACHED for _, how in met):
        return "survived: no test comes there", ""
    if not seeing:
        return "survived: never another value", ""
    outcome = "survived: unnoticed", ""
    for program in PROGRAMS:
        chosen = [test for test in seeing if test.program == program]
        if not chosen:
            continue
        status, log = run_tests(chosen, place, MUTANT=str(mutant.number))
        if status == 0:
            continue
        failed = [line.split()[3] for line in log.splitlines() if line.startswith("[  FAILED  ] ") and "(" in line]
        begun = [line.split()[-1] for line in log.splitlines() if line.startswith("[ RUN ")]
        if status is None:
            outcome = "killed: too long", begun[-1] if begun else program
        elif failed:
            outcome = f"killed: {program.replace('_', ' ')}", failed[0]
        else:
            outcome = "killed: crash", begun[-1] if begun else program
        break
    shutil.rmtree(WORK / "tmp" / place, ignore_errors=True)
    return outcome


def percentage(part, whole):
    return f"{part} of {whole} ({100.0 * part / whole:.1f} %)" if whole else "none"


def report(judged, tried, skipped, left_alone, seconds):
    lines = [f"{len(judged)} changes, {tried} of them tried in the last {seconds / 60:.0f} minutes"]
    killed = [m for m, (outcome, _) in judged if outcome.startswith("killed")]
    lines.append("killed: " + percentage(len(killed), len(judged)))
    for title, key in (("room", lambda m: m.file.split("/")[1]), ("kind", lambda m: m.kind)):
        whole = collections.Counter(key(m) for m, _ in judged)
        part = collections.Counter(key(m) for m in killed)
        lines += [f"  {title} {name}: {percentage(part[name], whole[name])}" for name in whole]
    outcomes = collections.Counter(outcome for _, (outcome, _) in judged)
    lines += [f"  {outcome}: {number}" for outcome, number in sorted(outcomes.items())]
    if skipped:
        lines += ["", f"{len(skipped)} places left alone: constants, pointers and texts"]
        lines += [f"  {place}" for place in skipped]
    if left_alone:
        lines.append(f"{left_alone} changes not tried")
    survivors = [(m, outcome) for m, (outcome, _) in judged if outcome.startswith("survived")]
    lines += ["", f"{len(survivors)} survivors"]
    lines += [f"  {mutant} ({outcome.split(': ')[1]})" for mutant, outcome in survivors]
    return "\n".join(lines) + "\n"


def choose(mutants, arguments, last):
    """What is to be tried of all changes."""
    if arguments.again:
        return [m for m in mutants if last.get(str(m), [""])[0].startswith("survived")]
    chosen = [m for m in mutants if not arguments.files or m.file in arguments.files]
    if arguments.sample and arguments.sample < len(chosen):
        sample = random.Random(1).sample(chosen, arguments.sample)
        chosen = sorted(sample, key=lambda m: m.number)
    return chosen


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutate", description=__doc__.split("\n\n")[0])
    parser.add_argument("--sample", type=int, metavar="N", help="try N changes only")
    parser.add_argument("--again", action="store_true", help="try what survived the last time")
    parser.add_argument("files", nargs="*", metavar="file", help="try the changes in these only")
    arguments = parser.parse_args()
    arguments.files = [str(pathlib.Path(f).resolve().relative_to(ROOT)) for f in arguments.files]

    start = time.monotonic()
    mutants, skipped = write_copy()
    last = json.loads(OUTCOMES.read_text()) if arguments.again else {}
    chosen = choose(mutants, arguments, last)
    if not chosen:
        raise SystemExit("mutate: nothing to change")
    build()
    tests = list_tests()
    with concurrent.futures.ThreadPoolExecutor(WORKERS) as workers:
        map_tests(tests, workers, len(mutants))
        print(f"{len(tests)} tests pass with no change in force", flush=True)
        outcomes = workers.map(lambda m: judge(m, tests), chosen)
        for tried, (mutant, outcome) in enumerate(zip(chosen, outcomes), 1):
            last[str(mutant)] = outcome
            print(f"{tried}/{len(chosen)} {mutant}: {' '.join(outcome)}", flush=True)

    OUTCOMES.write_text(json.dumps(last, indent=1))
    judged = [(m, last[str(m)]) for m in mutants if str(m) in last]
    left_alone = len(mutants) - len(judged)
    text = report(judged, len(chosen), skipped, left_alone, time.monotonic() - start)
    (WORK / "report.txt").write_text(text)
    print("\n" + text, end="")


if __name__ == "__main__":
    main()
