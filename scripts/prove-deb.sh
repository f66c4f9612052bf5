#!/usr/bin/env bash
# Installs the Debian package in a bare Debian 12, starts the installed program there and removes it
# again. Makes the package first when there is none. Needs root.
#
#     scripts/prove-deb.sh [MIRROR]
source "$(dirname "$0")/common.sh"
source scripts/bare-root.sh

packages=build/package/packages
compgen -G "$packages/*.deb" >/dev/null || scripts/check-packages.sh
make_bare_root "$@"
cp "$packages"/*.deb "$bare_root/gaugewright.deb"

say "Installing $(echo "$packages"/*.deb)"
"${in_bare_root[@]}" apt-get update -q </dev/null
"${in_bare_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
    /gaugewright.deb </dev/null
# shellcheck disable=SC2016 # dpkg-query fills it in
[ "$("${in_bare_root[@]}" dpkg-query -W -f '${Version}' gaugewright)" = "$(version)" ] ||
    die "The installed version is not $(version)"

say "Starting the installed program"
stays_open "${in_bare_root[@]}" env QT_QPA_PLATFORM=offscreen gaugewright
[ "$("${in_bare_root[@]}" gaugewright-cli --version)" = "gaugewright-cli $(version)" ] ||
    die "gaugewright-cli does not run"

say "Removing it"
"${in_bare_root[@]}" apt-get remove -q -y gaugewright </dev/null
left=$("${in_bare_root[@]}" find /usr /etc -name '*gaugewright*')
[ -z "$left" ] || die "Left behind: $left"
say "The package installs, runs and goes without a trace."
