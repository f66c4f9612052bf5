#!/usr/bin/env bash
# Makes the Linux packages and holds them against the validators of Debian and freedesktop.org; then
# builds the Windows resources into a program, checks them, packs it for Windows.
source "$(dirname "$0")/common.sh"

build=build/package
packages=$build/packages
make_scratch

check_metadata() {
    xmllint --noout packaging/linux/*.xml packaging/linux/*.svg packaging/windows/utf8.manifest \
        assets/icon.svg "$build/packaging/gaugewright.metainfo.xml"
    desktop-file-validate packaging/linux/gaugewright.desktop
    appstreamcli validate --no-net "$build/packaging/gaugewright.metainfo.xml"
    local page
    for page in gaugewright.1 gaugewright-cli.1; do
        LC_ALL=C.UTF-8 man --warnings --local-file "$build/packaging/$page" 2>"$work/man" >/dev/null
        [ ! -s "$work/man" ] || die "Man page $page: $(cat "$work/man")"
    done
}

# The file type must be known, and as an archive, on a desktop that knows nothing but this package.
check_file_type() {
    local data=$work/data
    mkdir -p "$data/mime/packages"
    cp packaging/linux/gaugewright.xml /usr/share/mime/packages/freedesktop.org.xml "$data/mime/packages"
    XDG_DATA_HOME=$data update-mime-database "$data/mime"
    echo "Not empty" >"$work/layout.zconf2"
    XDG_DATA_HOME=$data gio info -a standard::content-type "$work/layout.zconf2" |
        grep -q 'application/x-zconf2$' || die "The file type of *.zconf2 is not recognised"
    grep -qx 'application/x-zconf2 application/zip' "$data/mime/subclasses" ||
        die "*.zconf2 is not known as an archive"
}

# Only the two programs belong into a package, not what it is tried and tested with.
check_contents() {
    local deb=$1 tgz=$2 strangers
    strangers=$({ dpkg-deb --fsys-tarfile "$deb" | tar t; tar tf "$tgz"; } |
        grep -iE 'sample|tour|reader|test|\.a$|\.h$' || true)
    [ -z "$strangers" ] || die "Not to be shipped: $strangers"
    lintian --fail-on error,warning --display-info --suppress-tags binary-has-unneeded-section "$deb"
}

# The archive must run from wherever it was unpacked, and find the icon through the link.
check_archive_runs() {
    tar xf "$1" -C "$work" --strip-components=1
    [ -f "$(dirname "$(readlink -f "$work/bin/gaugewright")")/assets/icon.png" ] ||
        die "No icon beside the executable"
    stays_open "$work/bin/gaugewright"
    [ "$("$work/bin/gaugewright-cli" --version)" = "gaugewright-cli $(version)" ] ||
        die "gaugewright-cli does not run"
}

# Every option of the completion must be one that the program knows, and the other way round.
check_completion() {
    local subcommand
    for subcommand in show diff check render channels recover; do
        diff <("$work/bin/gaugewright-cli" "$subcommand" --help | grep -o '^  --[a-z-]*' | tr -d ' ' | sort) \
            <(completions gaugewright-cli "$subcommand" --) ||
            die "The completion of $subcommand does not fit its help"
    done
    [ "$(completions gaugewright-cli check --severity w)" = warning ] || die "No value is completed"
}

# completions WORD...: what the last word is completed to, one a line, sorted.
completions() (
    compopt() { :; } # works in a completion only
    # shellcheck source=packaging/linux/gaugewright-cli.bash
    source "$work/share/bash-completion/completions/gaugewright-cli"
    # shellcheck disable=SC2034 # the completion reads them
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1))
    _gaugewright_cli
    printf '%s\n' "${COMPREPLY[@]}" | sort
)

check_windows() {
    cmake -S tests/project/windows -B "$work/windows" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchain-mingw-w64.cmake" >/dev/null
    cmake --build "$work/windows"
    local program=$work/windows/gaugewright.exe
    wrestool --extract --raw --type=24 "$program" >"$work/program.manifest"
    cmp "$work/program.manifest" packaging/windows/utf8.manifest
    local icon
    for icon in 1 2; do # of the program and of its packages
        wrestool --extract --type=14 --name="$icon" --output="$work/$icon.ico" "$program"
        icotool --list "$work/$icon.ico" | grep -q -- --width=256 ||
            die "Icon $icon of the Windows program is incomplete"
    done
    wrestool --extract --raw --type=16 "$program" | iconv -f UTF-16LE -t UTF-8 -c |
        grep -qaF "$(version)" || die "The Windows program does not carry its version"
    (cd "$work/windows" && cpack -G "ZIP;NSIS")
    [ -s "$work/windows/packages/gaugewright-$(version)-win64.exe" ] || die "No Windows installer was made"
    wine "$program" || die "The manifest does not give the Windows program the UTF-8 code page"
}

ensure_packages "${build_packages[@]}" "${check_packages[@]}"
umask 022
rm -rf "$packages"
build_preset package
cpack --preset package
deb=$(echo "$packages"/*.deb)
tgz=$(echo "$packages"/*.tar.gz)

say "Checking $deb and $tgz"
check_metadata
check_file_type
check_contents "$deb" "$tgz"
check_archive_runs "$tgz"
check_completion
check_windows
echo "Packages, metadata and Windows resources are sound."
