#!/usr/bin/env bash
# Fails when clang-format would change a source file or shellcheck finds fault with a script.
source "$(dirname "$0")/common.sh"

ensure_packages git clang-format-14 shellcheck
git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format-14 --dry-run --Werror
shellcheck .ci/run scripts/*.sh
echo "Format and scripts are clean."
