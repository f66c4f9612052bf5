# shellcheck shell=bash disable=SC2154
# Running programs for Windows under Wine, on a display of its own; sourced after make_scratch, which
# gives Wine a prefix of its own.

# Wine leaves it to this system which files may be written, and root may write all: do without that right.
right_to_write_all=-dac_override,-dac_read_search
as_user=(env)
if [ "$(id -u)" -eq 0 ] && setpriv --bounding-set "$right_to_write_all" true 2>/dev/null; then
    as_user=(setpriv --bounding-set "$right_to_write_all")
fi

wine() { "${as_user[@]}" wine "$@"; }

# use_build_libraries: lets programs in the build find the libraries that an installed one has in its folder.
use_build_libraries() {
    local library dll
    WINEPATH=Z:$windows_toolkit/prefix/bin
    for library in libstdc++-6 libgcc_s_seh-1 libwinpthread-1; do
        dll=$(x86_64-w64-mingw32-g++-posix -print-file-name="$library.dll")
        WINEPATH="$WINEPATH;Z:$(dirname "$dll")"
    done
    export WINEPATH
}

# show_display: starts an X server without a screen, with a window manager, and lets Wine use it.
show_display() {
    Xvfb -displayfd 5 -screen 0 1366x768x24 -nolisten tcp 5>"$work/display" >/dev/null 2>&1 &
    display_server=$!
    local tries
    for ((tries = 0; tries < 100; tries++)); do
        [ ! -s "$work/display" ] || break
        sleep 0.1
    done
    [ -s "$work/display" ] || die "The display does not start"
    DISPLAY=:$(cat "$work/display")
    export DISPLAY
    openbox >/dev/null 2>&1 &
    trap 'kill "$display_server" 2>/dev/null || true; remove_scratch' EXIT
}

# use_fonts: gives programs on the platform "offscreen" fonts; Qt's libraries for Windows bring none. Wine
# keeps Qt's variables to itself, so this one goes into the registry.
use_fonts() {
    wine reg add 'HKCU\Environment' /v QT_QPA_FONTDIR /d 'Z:\usr\share\fonts\truetype\dejavu' /f >/dev/null
}

# shows_window TITLE: whether a window with that title comes up within a minute.
shows_window() {
    local tries
    for ((tries = 0; tries < 120; tries++)); do
        ! xwininfo -root -tree 2>/dev/null | grep -F "\"$1\"" >/dev/null || return 0
        sleep 0.5
    done
    return 1
}

# starts_and_closes PROGRAM.EXE: starts the editor with only the files in its folder, waits for its
# window, closes it as its user would and expects it to end well within three minutes. Wine's list of the
# loaded libraries is in $work/loaded afterwards.
starts_and_closes() {
    local program=$1 status=0
    WINEPATH='' WINEDEBUG=-all,+loaddll "${as_user[@]}" timeout 180 wine "$program" \
        </dev/null 2>"$work/loaded" &
    local pid=$!
    shows_window "Gaugewright Studio" || die "$program shows no window: $(tail -5 "$work/loaded")"
    wine taskkill /IM "$(basename "$program")" >/dev/null
    wait "$pid" || status=$?
    [ "$status" -eq 0 ] || die "$program ended with status $status"
}
