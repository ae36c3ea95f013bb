# Completion of verlink-batch for bash: options and the kinds of their values are those that its help tells.
_verlink_batch() {
    local cur prev words cword split
    _init_completion -s || return

    # What stands behind the option in the help.
    local value=
    if [[ $prev == --?* ]]; then
        value=$("$1" --help 2>/dev/null | while read -r option kind rest; do
            [[ $option != "$prev" ]] || { printf %s "$kind" && break; }
        done)
    fi
    case $prev in
        --example) COMPREPLY=($(compgen -W "grashof hoekens roberts watts cheby" -- "$cur")) ;;
        --frame) COMPREPLY=($(compgen -W "global local" -- "$cur")) ;;
        --convert-units) COMPREPLY=($(compgen -W "1 2 3 4 5" -- "$cur")) ;;
        --drive) _filedir "@(sva|out)" ;;
        --torque) _filedir trq ;;
        --save) _filedir vlk ;;
        --design) _filedir vld ;;
        --merge) _filedir csv ;;
        --shard) return ;;
        *)
            if [[ $value == FILE* ]]; then
                _filedir
            elif [[ $value == +([A-Z]|=) || $split == true ]]; then
                return # a value that nobody can guess
            elif [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W '$(_parse_help "$1")' -- "$cur"))
            else
                _filedir vlk
            fi
            ;;
    esac
} && complete -F _verlink_batch verlink-batch
