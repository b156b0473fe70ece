# SPDX-License-Identifier: MIT
# bash completion for exciter-settings: commands, options, files, and the
# setting paths of get and set, which the tool itself names (a path that
# names nothing makes it list the names at that level).
_exciter_settings_paths() {
    local file=$1 word=$2 dir="" names
    [[ $word == */* ]] && dir=${word%/*}/
    names=$("${COMP_WORDS[0]}" get "$file" "${dir}?" 2>&1 >/dev/null |
        sed -n '/names there: nothing$/q; s/.*names there: //p')
    local IFS=$'\n'
    COMPREPLY=($(compgen -W "$(printf '%s\n' ${names//, /$'\n'} | sed "s|^|${dir}|")" -- "$word"))
    compopt -o nospace 2>/dev/null
}

_exciter_settings() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]}
    local commands="check show lint format get set diff schema"
    if ((COMP_CWORD == 1)); then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$cur"))
        return
    fi
    local command=${COMP_WORDS[1]}
    [[ $command == schema ]] && return # takes no file
    case $prev in
    -o | --output | --json)
        [[ $command == show ]] || { COMPREPLY=($(compgen -f -- "$cur")); return; }
        ;;
    esac
    if [[ $cur == -* ]]; then
        local options="--help"
        case $command in
        show) options+=" --json" ;;
        format) options+=" -o --output" ;;
        set) options+=" -o --output --json --force" ;;
        esac
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
        return
    fi
    # The first argument after the command (and its options) is a file.
    local file="" i
    for ((i = 2; i < COMP_CWORD; ++i)); do
        case ${COMP_WORDS[i]} in
        -o | --output) ((++i)) ;;
        --json) [[ $command == set ]] && ((++i)) ;;
        -*) ;;
        *) file=${COMP_WORDS[i]}; break ;;
        esac
    done
    if [[ ($command == get || $command == set) && -n $file && -f $file && $cur != *=* ]]; then
        _exciter_settings_paths "$file" "$cur"
        return
    fi
    COMPREPLY=($(compgen -f -- "$cur"))
}

complete -o default -F _exciter_settings @EXCITERSETTINGS_TOOL@
