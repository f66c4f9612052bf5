# shellcheck shell=bash disable=SC2154
# Installs and uninstalls the editor in Wine's prefix and checks what Windows was told about it; sourced
# after make_scratch, never run.

installed=$WINEPREFIX/drive_c/'Program Files'/Gaugewright
menu=$WINEPREFIX/drive_c/'ProgramData/Microsoft/Windows/Start Menu/Programs'/Gaugewright

# registered KEY NAME: a value in the registry; NAME "" is the key's default value.
registered() {
    local which=(/v "$2")
    [ -n "$2" ] || which=(/ve)
    wine reg query "$1" "${which[@]}" 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_[A-Z_]*  *//p'
}

# expect_registered KEY NAME VALUE
expect_registered() {
    local value
    value=$(registered "$1" "$2")
    [ "$value" = "$3" ] || die "$1 $2 is '$value', not '$3'"
}

# traces: every file and registry entry in the prefix that names the editor, its maker or its file type.
traces() {
    find "$WINEPREFIX/drive_c" \( -iname '*gaugewright*' -o -iname '*zconf2*' \) -print
    local root
    for root in HKLM HKCU; do
        wine reg query "$root\\Software" /s 2>/dev/null | grep -iE 'gaugewright|zconf2|orlenvik' || true
    done
}

# expect_registration: start menu, uninstall entry and file type, which has no command because the
# program takes no arguments.
expect_registration() {
    local key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Gaugewright'
    local program='C:\Program Files\Gaugewright\bin\gaugewright.exe'
    grep -aqF "$program" "$menu/Gaugewright.lnk" || die "The start menu has no entry that starts the program"
    expect_registered "$key" DisplayName Gaugewright
    expect_registered "$key" DisplayVersion "$(version)"
    expect_registered "$key" DisplayIcon "$program"
    expect_registered "$key" UninstallString '"C:\Program Files\Gaugewright\Uninstall.exe"'
    expect_registered 'HKCR\.zconf2' "" Gaugewright.zconf2
    expect_registered 'HKCR\Gaugewright.zconf2' "" "Dashboard package"
    expect_registered 'HKCR\Gaugewright.zconf2\DefaultIcon' "" "$program,1"
    ! wine reg query 'HKCR\Gaugewright.zconf2\shell' >/dev/null 2>&1 ||
        die "The file type has a command"
}

# The uninstaller goes on in a copy of itself; the entry of the start menu is the last thing it removes.
uninstall() {
    local tries
    wine "$installed/Uninstall.exe" /S
    for ((tries = 0; tries < 120; tries++)); do
        if [ ! -e "$installed" ] && [ ! -e "$menu" ]; then return; fi
        sleep 0.5
    done
    die "The uninstaller does not come to its end"
}

# check_installer INSTALLER [COMMAND...]: installs, upgrades, runs the command with the program installed,
# and uninstalls. A file type that belongs to another program must stay that program's.
check_installer() {
    local installer=$1
    shift
    mkdir -p "$WINEPREFIX"
    "${as_user[@]}" wineserver -p # starting it anew for each query takes seconds
    wine wineboot --init >/dev/null 2>&1
    [ -z "$(traces)" ] || die "Wine's prefix is not new: $(traces)"
    wine "$installer" /S
    expect_registration
    wine "$installer" /S
    expect_registration
    [ -n "$(traces)" ] || die "An installed program leaves no traces to look for"
    if [ $# -gt 0 ]; then "$@"; fi
    uninstall
    [ -z "$(traces)" ] || die "Left behind: $(traces)"

    wine reg add 'HKLM\Software\Classes\.zconf2' /ve /d Other.Package /f >/dev/null
    wine "$installer" /S
    expect_registered 'HKCR\.zconf2' "" Other.Package
    uninstall
    expect_registered 'HKCR\.zconf2' "" Other.Package
    wine reg delete 'HKLM\Software\Classes\.zconf2' /f >/dev/null
}
