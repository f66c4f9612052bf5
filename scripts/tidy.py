"""Runs clang-tidy over the sources of ours that a build folder knows.

usage: tidy.py BUILD-FOLDER JOBS [FOLDER...], from the root of the repository

Only sources below the folders are linted, all of them when none is named.

clang-tidy parses all of Qt's headers for each file, which takes seconds. So a file found clean is
remembered by a digest of everything of ours that the finding depends on (its text, the text of all
headers of ours that it reaches, its compile command, the rules), and is not looked at again until one
of them changes. System packages are not part of the digest.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

CLANG_TIDY = "clang-tidy-14"
ROOT = pathlib.Path.cwd()
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME", pathlib.Path.home() / ".cache"),
                     "gaugewright-tidy")
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def reached(path, seen):
    """Adds path and the files of ours that it includes, directly or not, to seen."""
    if path in seen or not path.is_file():
        return
    seen.add(path)
    for name in INCLUDE.findall(path.read_text(encoding="utf-8")):
        reached(ROOT / name, seen)
        reached(path.parent / name, seen)


def digest(entry):
    files = set()
    reached(pathlib.Path(entry["file"]), files)
    result = hashlib.sha256((ROOT / ".clang-tidy").read_bytes())
    result.update(entry["command"].replace(str(ROOT), "").encode())
    for path in sorted(files):
        result.update(path.read_bytes())
    return result.hexdigest()


def lint(entry, build):
    """The findings in one source file, empty when it is clean."""
    stamp = CACHE / digest(entry)
    if stamp.exists():
        return ""
    run = subprocess.run([CLANG_TIDY, "--quiet", "-p", build, entry["file"]], text=True,
                         stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    if run.returncode == 0:
        stamp.touch()
        return ""
    return run.stdout + run.stderr


def main():
    build, jobs, folders = sys.argv[1], int(sys.argv[2]), sys.argv[3:] or ["."]
    below = tuple(str((ROOT / folder).resolve()) + os.sep for folder in folders)
    database = json.loads(pathlib.Path(build, "compile_commands.json").read_text(encoding="utf-8"))
    generated = str(ROOT / "build") + os.sep
    entries = [entry for entry in database if entry["file"].startswith(below) and not entry["file"].startswith(generated)]
    CACHE.mkdir(parents=True, exist_ok=True)
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
        for findings in pool.map(lambda entry: lint(entry, build), entries):
            if findings:
                failed += 1
                print(findings, flush=True)
    print(f"{len(entries)} files linted, {failed} with findings.")
    return 1 if failed or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
