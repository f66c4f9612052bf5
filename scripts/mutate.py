"""Checks the tests: breaks the program in one place at a time and sees whether a test notices.

usage: mutate.py SEED COUNT    tries COUNT mutants drawn at random, as many of each subsystem
       mutate.py PLACE...      tries the mutants at these places (FILE:LINE:COLUMN, as printed) again

Runs at the root of the repository. The same seed draws the same mutants as long as the sources stay.
The work is done on a copy of the sources below build/mutation: nothing else is ever changed.

A mutant that does not compile does not count, another one is drawn. The tests of its own subsystem
run first, then those of the subsystems that build on it. build/mutation/result.md gets the counts, what
noticed each mutant, and the survivors; docs/mutation.md says what the survivors mean.
"""

import collections
import filecmp
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
FLAGS = "-O0 -D_GLIBCXX_ASSERTIONS"  # indices out of range end the program, as in the sanitized tests
TIMEOUT = 100  # seconds that a run of a test program may take
MEMORY = 8 << 30  # bytes: a mutant that fills the memory must not take the machine with it
SLOW = "MainWindowWalk.*:*Stay*:ArchiveLimitTest.*:AwkwardXml.*:*OpenFaultTest.*:*KeepsRealTime"  # run last

TESTS = {
    "document/archive": ["package_tests", "fault_tests"],
    "document": ["document_tests", "package_tests", "document_console_tests", "fault_tests"],
    "telemetry": ["telemetry_tests"],
    "app/commands": ["commands_tests"],
    "widgets": ["widgets_tests"],
    "canvas": ["canvas_tests"],
    "dialogs": ["dialogs_tests"],
    "app": ["app_replay_tests", "app_tests"],
}
Subsystem = collections.namedtuple("Subsystem", "folder target dependants")
SUBSYSTEMS = [
    Subsystem("document", "gaugewright_document", ["app/commands", "dialogs", "canvas", "app"]),
    Subsystem("document/archive", "gaugewright_archive", ["document"]),
    Subsystem("telemetry", "gaugewright_telemetry", ["canvas", "app"]),
    Subsystem("app/commands", "gaugewright_commands", ["canvas", "app"]),
    Subsystem("widgets", "gaugewright_widgets", ["canvas", "app"]),
    Subsystem("canvas", "gaugewright_canvas", ["app"]),
    Subsystem("dialogs", "gaugewright_dialogs", ["app"]),
    Subsystem("app", "gaugewright", []),
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
    """The first test of a program that fails, and how unless plainly; empty when all pass."""
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


def noticed(programs):
    """What notices that the copy is broken; empty when nothing does."""
    for program in programs:
        if not build([program]):
            return f"building {program}"
        for test_filter in (f"-{SLOW}", SLOW):
            if failure := run(program, test_filter):
                return failure
    return ""


def judge(mutant, subsystem):
    """What notices the mutant; empty when nothing does, None when it does not compile."""
    file = COPY / mutant.place.split(":")[0]
    file.write_text(mutant.changed, encoding="utf-8")
    try:
        if not build([subsystem.target]):
            return None
        return noticed([program for folder in (subsystem.folder, *subsystem.dependants)
                        for program in TESTS[folder]])
    finally:
        file.write_text(mutant.text, encoding="utf-8")


def try_out(subsystem, drawn, count):
    """Pairs of a mutant and what noticed it, for the first count of those drawn that compile."""
    outcomes = []
    for mutant in drawn:
        if len(outcomes) == count:
            break
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
    lines += ["", "| mutant | noticed by |", "|---|---|"]
    lines += [f"| {mutant.place} | {failure or 'nothing'} |" for mutant, failure in every]
    for mutant, failure in every:
        if not failure:
            lines += ["", mutant.place, "", "```diff", difference(mutant), "```"]
    return "\n".join(lines) + "\n"


def main():
    if len(sys.argv) < 2 or sys.argv[1].isdigit() and len(sys.argv) != 3:
        sys.exit(__doc__)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # no test program may outlive this one
    synchronize()
    subprocess.run(["cmake", "-S", COPY, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    f"-DCMAKE_CXX_FLAGS_DEBUG={FLAGS}"], check=True)
    programs = [program for found in TESTS.values() for program in found]
    if not build(programs, os.cpu_count()):
        sys.exit("The unchanged program does not build.")
    if failure := noticed(programs):
        sys.exit(f"The unchanged program fails {failure}.")
    outcomes = {}
    for number, subsystem in enumerate(SUBSYSTEMS):
        if sys.argv[1].isdigit():
            drawn = draw(subsystem, random.Random(f"{sys.argv[1]} {subsystem.folder}"))
            count = (int(sys.argv[2]) + number) // len(SUBSYSTEMS)
        else:
            drawn = [mutant for mutant in draw(subsystem, random.Random(0)) if mutant.place in sys.argv[1:]]
            count = len(drawn)
        outcomes[subsystem.folder] = try_out(subsystem, drawn, count)
        (WORK / "result.md").write_text(summary(outcomes), encoding="utf-8")
    print(summary(outcomes))


if __name__ == "__main__":
    main()
