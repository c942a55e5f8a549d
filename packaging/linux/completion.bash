# Completion for tavisk(1).
_tavisk() {
    local cur prev words cword split
    _init_completion -s || return

    local commands="edit preview render save check"
    local command= word
    for word in "${words[@]:1:cword-1}"; do
        case $word in
            edit | preview | render | save | check)
                command=$word
                break
                ;;
        esac
    done
    if [[ -z $command ]]; then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$cur"))
        return
    fi

    case $prev in
        --folder)
            _filedir -d
            return
            ;;
        -o)
            _filedir
            return
            ;;
        --jobs)
            COMPREPLY=($(compgen -W "{1..$(nproc)}" -- "$cur"))
            return
            ;;
        --refresh)
            return
            ;;
    esac

    $split && return
    if [[ $cur == -* ]]; then
        local options
        case $command in
            edit) options="-o" ;;
            preview) options="--evaluate" ;;
            render) options="--folder --evaluate --each --standalone -o --jobs" ;;
            save) options="--folder --refresh -o" ;;
            check) options="--json --sarif --jobs" ;;
        esac
        COMPREPLY=($(compgen -W "$options --help" -- "$cur"))
        return
    fi
    _filedir '@(xml|cabinetinfo)'
} &&
    complete -F _tavisk tavisk
