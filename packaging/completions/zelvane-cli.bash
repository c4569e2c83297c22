# Completion of zelvane-cli for bash.

# All that follows a command: its options, without those of every command.
_zelvane_cli_options() {
    case $1 in
        type) ;;
        list) echo "--json" ;;
        convert) echo "--format --force" ;;
        search) echo "--columns --json" ;;
        compare) echo "--columns --json" ;;
        export) echo "--as --columns --select --number" ;;
        stats) ;;
        column) echo "--format --force" ;;
        lend) echo "--to --email --date --replace --select --dependants --format --force" ;;
        return) echo "--select --dependants --format --force" ;;
        paste) echo "--map --copies --format --force" ;;
    esac
}

_zelvane_cli() {
    local cur prev words cword
    _init_completion -n = || return
    local commands="type list convert search compare export stats column lend return paste"
    local tools="add delete rename move dependant merge split duplicate"
    local command="" tool="" i
    for ((i = 1; i < cword; i++)); do
        case ${words[i]} in
            -*) ;;
            *)
                if [[ -z $command ]]; then
                    command=${words[i]}
                elif [[ $command == column && -z $tool ]]; then
                    tool=${words[i]}
                fi
                ;;
        esac
    done
    case $prev in
        --password-file) _filedir; return ;;
        --as) COMPREPLY=($(compgen -W "html-images html text csv tab" -- "$cur")); return ;;
        --format) COMPREPLY=($(compgen -W "2 1.4" -- "$cur")); return ;;
        --columns | --select | --to | --email | --date | --map | --copies) return ;;
    esac
    if [[ -z $command ]]; then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$cur"))
    elif [[ $command == column && -z $tool ]]; then
        COMPREPLY=($(compgen -W "$tools --help" -- "$cur"))
    elif [[ $cur == -* ]]; then
        local options
        options="$(_zelvane_cli_options "$command") --help"
        [[ $command == type ]] || options+=" --password-file"
        COMPREPLY=($(compgen -W "$options" -- "$cur"))
    elif [[ $tool == move && $prev =~ ^[0-9]+$ ]]; then
        COMPREPLY=($(compgen -W "left right" -- "$cur"))
    else
        _filedir
    fi
} && complete -F _zelvane_cli zelvane-cli
