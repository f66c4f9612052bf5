"""Checks the tests: breaks the program in one place at a time and sees whether a test fails.

usage: mutate.py SEED COUNT [FOLDER...]   tests COUNT random mutants of each folder, by default of every one
       mutate.py PLACE...                 tests the mutants at these places (FILE:LINE:COLUMN, as printed)

Runs at the root of the repository. The same seed draws the same mutants until the sources change.
Works on a copy of the sources in build/mutation and changes nothing else.

A mutant that does not compile is replaced by another. The tests of its folder run first, then those of
the folders that build on it. build/mutation/result.md lists the counts, the test that caught each mutant
and the survivors; docs/mutation.md explains the survivors.
"""

import collections
import filecmp
import itertools
import os
import pathlib
import random
import re
import resource
import shutil
import signal
import subprocess
import sys

from mutants import difference, mutants

ROOT = pathlib.Path.cwd()
WORK = ROOT / "build" / "mutation"
COPY = WORK / "source"
BUILD = WORK / "build"
FLAGS = "-O0 -D_GLIBCXX_ASSERTIONS"  # an index out of range ends the program, as in the sanitized tests
TIMEOUT = 100  # seconds that a run of a test program may take
MEMORY = 8 << 30  # bytes: a mutant that fills the memory must not take the machine with it
SLOW = ":".join(["MainWindowWalk.*", "*Stay*", "*ThreeSeconds", "ArchiveLimitsTest.*", "AwkwardXml.*",
                 "HugeTexts.*", "PageImagesTest.*", "*OpenFaultTest.*", "SaveKillTest.*", "*KeepsRealTime",
                 "*Moment", "*Minutes"])  # run last

TESTS = {
    "document/archive": ["package_tests", "fault_tests"],
    "document": ["document_tests", "package_tests", "document_console_tests", "fault_tests"],
    "telemetry": ["telemetry_tests"],
    "app/commands": ["commands_tests"],
    "widgets": ["widgets_tests"],
    "canvas": ["canvas_tests"],
    "dialogs": ["dialogs_tests"],
    "review": ["review_tests"],
    "app": ["app_replay_tests", "app_refused_reader_tests", "app_tests", "app_startup_tests"],
    "cli": ["cli_tests"],
}
Subsystem = collections.namedtuple("Subsystem", "folder target dependants")
SUBSYSTEMS = [
    Subsystem("document", "gaugewright_document", ["app/commands", "dialogs", "canvas", "review", "app"]),
    Subsystem("document/archive", "gaugewright_archive", ["document", "review"]),
    Subsystem("telemetry", "gaugewright_telemetry", ["canvas", "review", "app"]),
    Subsystem("app/commands", "gaugewright_commands", ["canvas", "app"]),
    Subsystem("widgets", "gaugewright_widgets", ["canvas", "dialogs", "app"]),
    Subsystem("canvas", "gaugewright_canvas", ["app", "cli"]),
    Subsystem("dialogs", "gaugewright_dialogs", ["app"]),
    Subsystem("review", "gaugewright_review", ["cli"]),
    Subsystem("app", "gaugewright", []),
    Subsystem("cli", "gaugewright-cli", []),
]


def draw(subsystem, rng):
    """The mutants of a subsystem in random order; every kind of change is as likely as the others."""
    kinds = collections.defaultdict(list)
    for path in sorted((COPY / subsystem.folder).glob("*.cpp")):
        for kind, mutant in mutants(str(path.relative_to(COPY)), path.read_text(encoding="utf-8")):
            kinds[kind].append(mutant)
    for found in kinds.values():
        rng.shuffle(found)
    while kinds:
        kind = rng.choice(sorted(kinds))
        yield kinds[kind].pop()
        if not kinds[kind]:
            del kinds[kind]


def synchronize():
    """Makes the copy equal to the sources; files that are equal keep their dates, and their objects."""
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], text=True, check=True,
                           stdout=subprocess.PIPE).stdout.splitlines()
    for source, copy in ((ROOT / name, COPY / name) for name in names):
        if source.is_file() and not (copy.exists() and filecmp.cmp(source, copy, shallow=False)):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, copy)


def build(targets, jobs=1):
    command = ["ninja", "-C", BUILD, f"-j{jobs}", *targets]
    return subprocess.run(command, stdout=subprocess.DEVNULL, check=False).returncode == 0


def finished(process):
    """Whether a process ends in time; it is gone afterwards in any case."""
    try:
        process.wait(TIMEOUT)
        return True
    except subprocess.TimeoutExpired:
        return False
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.wait()


def run(program, test_filter):
    """The first test of a program that fails, with "died" or "timed out"; empty when all pass."""
    scratch = WORK / "tmp"
    shutil.rmtree(scratch, ignore_errors=True)
    scratch.mkdir()
    path = next(BUILD.glob(f"tests/**/{program}"))
    with open(WORK / "test.log", "w+", encoding="utf-8", errors="replace") as log:
        process = subprocess.Popen(
            [path, "--gtest_fail_fast", f"--gtest_filter={test_filter}"], cwd=path.parent,
            env={**os.environ, "QT_QPA_PLATFORM": "offscreen", "TMPDIR": str(scratch)},
            stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT, start_new_session=True,
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY)))
        in_time = finished(process)
        log.seek(0)
        output = log.read()
    if in_time and process.returncode == 0:
        return ""
    if failed := re.search(r"^\[  FAILED  \] ([^\s,]+)", output, re.MULTILINE):
        return failed.group(1)
    last = [program, *re.findall(r"^\[ RUN      \] (\S+)", output, re.MULTILINE)][-1]
    return f"{last} (died)" if in_time else f"{last} (timed out)"


def noticed(programs, first="-*"):
    """The first test that fails, empty when all pass; first is the filter of the tests that run first."""
    for program in programs:
        if not build([program]):
            return f"building {program}"
        for test_filter in (first, f"-{SLOW}"):
            if failure := run(program, test_filter):
                return failure
    return next(filter(None, (run(program, SLOW) for program in programs)), "")


def judge(mutant, subsystem):
    """The test that catches the mutant; empty when none does, None when it does not compile."""
    file = COPY / mutant.place.split(":")[0]
    file.write_text(mutant.changed, encoding="utf-8")
    try:
        if not build([subsystem.target]):
            return None
        folders = (subsystem.folder, *subsystem.dependants)
        programs = dict.fromkeys(program for folder in folders for program in TESTS[folder])
        return noticed(programs, f"{file.stem}*-{SLOW}")
    finally:
        file.write_text(mutant.text, encoding="utf-8")


def try_out(subsystem, drawn, count):
    """Pairs of a mutant and the test that caught it, for the first count of those drawn that compile."""
    drawn, outcomes = iter(drawn), []
    # In the order of files: the build then compiles a restored file only before the next one.
    while batch := sorted(itertools.islice(drawn, count - len(outcomes)), key=lambda mutant: mutant.place):
        for mutant in batch:
            failure = judge(mutant, subsystem)
            if failure is not None:
                outcomes.append((mutant, failure))
                print(f"{mutant.place}\n{difference(mutant)}\n  {failure or 'SURVIVED'}", flush=True)
    return outcomes


def summary(outcomes):
    """As Markdown; outcomes by folder."""
    every = [outcome for found in outcomes.values() for outcome in found]
    lines = ["| folder | mutants | caught |", "|---|---|---|"]
    for title, found in [*((folder + "/", found) for folder, found in outcomes.items()), ("together", every)]:
        lines.append(f"| {title} | {len(found)} | {sum(bool(failure) for _, failure in found)} |")
    lines += ["", "| mutant | caught by |", "|---|---|"]
    lines += [f"| {mutant.place} | {failure or 'nothing'} |" for mutant, failure in every]
    for mutant, failure in every:
        if not failure:
            lines += ["", mutant.place, "", "```diff", difference(mutant), "```"]
    return "\n".join(lines) + "\n"


def prepare():
    """Copies, builds and tests the unchanged program."""
    synchronize()
    subprocess.run(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    f"-DCMAKE_CXX_FLAGS_DEBUG={FLAGS}"], check=True)
    programs = [program for found in TESTS.values() for program in found]
    if not build(programs, os.cpu_count()):
        sys.exit("The unchanged program does not build.")
    if failure := noticed(programs):
        sys.exit(f"The unchanged program fails {failure}.")


def main():
    words = sys.argv[1:]
    at_random = bool(words) and words[0].isdigit()
    folders = words[2:] or [subsystem.folder for subsystem in SUBSYSTEMS]
    if not words or at_random and not (words[1:2] and words[1].isdigit() and set(folders) <= set(TESTS)):
        sys.exit(__doc__)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # no test program may outlive this one
    prepare()
    outcomes = {}
    for subsystem in SUBSYSTEMS:
        if at_random:
            drawn = draw(subsystem, random.Random(f"{words[0]} {subsystem.folder}"))
            count = int(words[1]) if subsystem.folder in folders else 0
        else:
            drawn = [mutant for mutant in draw(subsystem, random.Random(0)) if mutant.place in words]
            count = len(drawn)
        if count:
            outcomes[subsystem.folder] = try_out(subsystem, drawn, count)
            (WORK / "result.md").write_text(summary(outcomes), encoding="utf-8")
    print(summary(outcomes))


if __name__ == "__main__":
    main()
