#!/usr/bin/env bash
# Builds with coverage counters, runs every test and prints, as Markdown, how much of each folder they
# reach. build/coverage/report/index.html shows the lines.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${test_packages[@]}" "${coverage_packages[@]}" python3
build_preset coverage
find build/coverage -name '*.gcda' -delete
test_preset coverage

say "Coverage"
report=build/coverage/report
mkdir -p "$report"
gcovr --root . --object-directory build/coverage -j "$jobs" --exclude-throw-branches \
    --exclude-unreachable-branches \
    --filter "(paths|$(IFS='|' && echo "${shipped[*]}"))/" \
    --html-details "$report/index.html" --json-summary "$report/summary.json" \
    "${shipped[@]/#/build/coverage/}"
python3 - "$report/summary.json" <<'PYTHON'
import collections
import json
import os
import sys

totals = collections.defaultdict(lambda: [0, 0, 0, 0])
for entry in json.load(open(sys.argv[1]))["files"]:
    counts = [entry[key] for key in ("line_covered", "line_total", "branch_covered", "branch_total")]
    for folder in (os.path.dirname(entry["filename"]) + "/", "together"):
        totals[folder] = [total + count for total, count in zip(totals[folder], counts)]
print("| folder | lines | branches |\n|---|---|---|")
for folder in sorted(totals, key=lambda name: (name == "together", name)):
    lines, all_lines, branches, all_branches = totals[folder]
    print(f"| {folder} | {lines / all_lines:.1%} of {all_lines} "
          f"| {branches / max(all_branches, 1):.1%} of {all_branches} |")
PYTHON
