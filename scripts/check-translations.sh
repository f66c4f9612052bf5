#!/usr/bin/env bash
# Proves that every visible text can be translated: the tests show that each comes from a translator,
# and this script that lupdate hands each of those texts to translators, without a warning.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${test_packages[@]}" python3 qt6-l10n-tools
make_scratch
build_preset debug --target app_tests

say "Comparing the texts that the window shows with those that lupdate finds"
/usr/lib/qt6/bin/lupdate -silent -locations none -I . "${shipped[@]}" \
    -ts "$work/texts.ts" 2>"$work/warnings"
/usr/lib/qt6/bin/lupdate -silent -locations none -I . cli review -ts "$work/cli.ts"
[ ! -s "$work/warnings" ] || die "lupdate: $(cat "$work/warnings")"
QT_QPA_PLATFORM=offscreen GAUGEWRIGHT_SEEN_TEXTS="$work/seen" \
    build/debug/tests/app/app_tests --gtest_filter='Translation.*' >"$work/log" 2>&1 ||
    die "$(cat "$work/log")"
python3 - "$work/texts.ts" "$work/cli.ts" "$work/seen" <<'PYTHON'
import sys
import xml.etree.ElementTree


def texts(path):
    return {(context.findtext("name"), text)
            for context in xml.etree.ElementTree.parse(path).iter("context")
            for text in (message.findtext("source") for message in context.iter("message"))}


found = texts(sys.argv[1])
without_window = texts(sys.argv[2])  # the command line's
seen = {tuple(entry.split("\n", 1)) for entry in open(sys.argv[3]).read().split("\0") if entry}
for context, text in sorted(seen - found):
    print(f"lupdate does not find: {context}: {text}")
for context, text in sorted(found - without_window - seen):
    print(f"not shown by the test: {context}: {text}")
print(f"{len(found)} texts to translate, {len(without_window)} of them on the command line; "
      f"{len(seen & found)} seen.")
sys.exit(0 if seen and without_window and seen <= found else 1)
PYTHON
