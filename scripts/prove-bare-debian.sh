#!/usr/bin/env bash
# Proves that scripts/test.sh and scripts/run.sh really do all the set-up: runs both in a bare Debian 12,
# on a clone of what is committed here. Needs root and some gigabytes in the folder for temporary files.
#
#     scripts/prove-bare-debian.sh [MIRROR]
source "$(dirname "$0")/common.sh"
source scripts/bare-root.sh

make_bare_root "$@"
git clone --quiet . "$bare_root/gaugewright"
say "scripts/test.sh"
"${in_bare_root[@]}" /gaugewright/scripts/test.sh </dev/null
say "scripts/run.sh"
"${in_bare_root[@]}" /gaugewright/scripts/run.sh </dev/null
say "Both commands work on a bare Debian 12."
