# shellcheck shell=bash
# Completion for gaugewright-cli; loaded by bash-completion.

_gaugewright_cli() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local common="--help --quiet --format"
    local options
    COMPREPLY=()
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W \
            "show diff check render channels recover --help --version" -- "$current")
        return
    fi
    case ${COMP_WORDS[1]} in
    check) options="$common --recording --ignore --severity" ;;
    render) options="$common --output --page --scale --recording --at --speed-unit --force" ;;
    recover) options="$common --output --force" ;;
    *) options=$common ;;
    esac
    case $previous in
    --format) mapfile -t COMPREPLY < <(compgen -W "text json" -- "$current") ;;
    --severity) mapfile -t COMPREPLY < <(compgen -W "information warning error" -- "$current") ;;
    --speed-unit) mapfile -t COMPREPLY < <(compgen -W "km/h mph knots" -- "$current") ;;
    --ignore)
        mapfile -t COMPREPLY < <(compgen -W "outside-page no-area covered duplicate-name \
            unknown-channel no-device unknown-font missing-image page-size no-match match" \
            -- "$current")
        ;;
    --page | --scale | --at) ;;
    *)
        if [[ $current == -* ]]; then
            mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        else
            compopt -o filenames
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
        fi
        ;;
    esac
}
complete -F _gaugewright_cli gaugewright-cli
