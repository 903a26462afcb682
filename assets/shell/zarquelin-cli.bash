# bash completion for zarquelin-cli                                 -*- shell-script -*-

# The operands and options of each command, by the kind of word that is wanted next.
declare -A _zarquelin_operands=(
    [new]='catalogue' [scan]='catalogue none folder' [add]='catalogue none none' [units]='catalogue'
    [list]='catalogue unit none' [search]='catalogue none' [note]='catalogue unit none none'
    [stats]='catalogue unit none' [rename]='catalogue unit none' [delete]='catalogue unit' [compact]='catalogue'
    [repair]='catalogue' [copy]='catalogue unit folder' [export]='catalogue'
)
declare -A _zarquelin_options=(
    [add]='--kind' [search]='--type --unit --from --to --min-kb --max-kb --note --explain' [export]='--format'
)
declare -A _zarquelin_values=(
    [--kind]='mixed audio video programs games' [--type]='audio picture video application text web zipped'
    [--format]='csv json' [--lang]='es en'
)

# The unit names of a catalogue that match the word, quoted for the command line.
_zarquelin_units() {
    local unit word=$1
    word=${word#[\"\']}
    word=${word//\\/}
    while IFS=$'\t' read -r unit _; do
        [[ $unit == "$word"* ]] && COMPREPLY+=("$(printf %q "$unit")")
    done < <(zarquelin-cli units "$2" 2>/dev/null)
}

_zarquelin_cli() {
    local cur prev words cword
    _init_completion || return
    local command=${words[1]-} catalogue='' operand=-1 i
    if ((cword == 1)); then
        COMPREPLY=($(compgen -W "${!_zarquelin_operands[*]} --help --version" -- "$cur"))
        return
    fi
    if [[ $prev == --unit ]]; then
        catalogue=${words[2]}
        _zarquelin_units "$cur" "${catalogue/#\~/$HOME}"
        return
    fi
    case $prev in
        --kind | --type | --format | --lang)
            COMPREPLY=($(compgen -W "${_zarquelin_values[$prev]}" -- "$cur"))
            return
            ;;
        --from | --to | --min-kb | --max-kb | --note) return ;;
    esac
    if [[ $cur == -* ]]; then
        COMPREPLY=($(compgen -W "${_zarquelin_options[$command]-} --json --lang --help" -- "$cur"))
        return
    fi
    for ((i = 2; i <= cword; i++)); do
        case ${words[i - 1]} in
            --kind | --type | --format | --lang | --unit | --from | --to | --min-kb | --max-kb | --note) continue ;;
        esac
        [[ ${words[i]} == --* ]] && continue
        ((++operand == 0)) && catalogue=${words[i]}
    done
    local kinds=(${_zarquelin_operands[$command]-})
    case ${kinds[operand]-none} in
        catalogue) _filedir zrq ;;
        folder) _filedir -d ;;
        unit) _zarquelin_units "$cur" "${catalogue/#\~/$HOME}" ;;
    esac
}
complete -F _zarquelin_cli zarquelin-cli
