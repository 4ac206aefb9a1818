# SPDX-FileCopyrightText: 2026 The Kivora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# bash completion for kivora
_kivora_profiles()
{
    local IFS=$'\n'
    COMPREPLY=($(compgen -W "$(kivora list --names 2>/dev/null)" -- "$cur"))
    # Names may hold spaces: quote them for the command line.
    local i
    for i in "${!COMPREPLY[@]}"; do
        COMPREPLY[i]=$(printf '%q' "${COMPREPLY[i]}")
    done
}

_kivora()
{
    local cur prev words cword
    _init_completion || return

    local commands="list current use add edit remove export import keys terminal rule which clone guard check-updates autostart help"
    if ((cword == 1)); then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$cur"))
        return
    fi

    local command=${words[1]}
    case $prev in
        --ssh-key)
            _filedir
            return
            ;;
        --dir)
            _filedir -d
            return
            ;;
        --remote)
            return
            ;;
        --ai)
            COMPREPLY=($(compgen -W "on off" -- "$cur"))
            return
            ;;
        --ai-provider)
            local IFS=$'\n'
            COMPREPLY=($(compgen -W $'OpenAI\nAnthropic\nGoogle\nAzure\\ OpenAI\nLocal' -- "$cur"))
            return
            ;;
        --name | --git-name | --git-email | --ai-model | --ai-base-url)
            return
            ;;
    esac

    case $command in
        list | current)
            COMPREPLY=($(compgen -W "--json --help" -- "$cur"))
            ;;
        use | terminal)
            if [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W "--help" -- "$cur"))
            else
                _kivora_profiles
            fi
            ;;
        edit)
            if [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W "--name --git-name --git-email --ssh-key --ai --ai-provider --ai-model --ai-base-url --ai-key-stdin --signing-key --sign-commits --help" -- "$cur"))
            else
                _kivora_profiles
            fi
            ;;
        remove)
            if [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W "--delete-key --help" -- "$cur"))
            else
                _kivora_profiles
            fi
            ;;
        add)
            COMPREPLY=($(compgen -W "--git-name --git-email --ssh-key --help" -- "$cur"))
            ;;
        export | import)
            _filedir json
            ;;
        autostart)
            COMPREPLY=($(compgen -W "on off status --help" -- "$cur"))
            ;;
        rule)
            if ((cword == 2)); then
                COMPREPLY=($(compgen -W "add remove list export import --help" -- "$cur"))
            elif [[ ${words[2]} == export || ${words[2]} == import ]]; then
                _filedir json
            elif [[ ${words[2]} == list ]]; then
                COMPREPLY=($(compgen -W "--json --help" -- "$cur"))
            elif [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W "--dir --remote --help" -- "$cur"))
            elif ((cword == 3)); then
                _kivora_profiles
            fi
            ;;
        which)
            if [[ $cur == -* ]]; then
                COMPREPLY=($(compgen -W "--json --help" -- "$cur"))
            else
                _filedir -d
            fi
            ;;
        guard)
            if ((cword == 2)); then
                COMPREPLY=($(compgen -W "on off status --help" -- "$cur"))
            elif [[ ${words[2]} == status ]]; then
                _filedir -d
            fi
            ;;
        clone)
            if ((cword == 3)); then
                _filedir -d
            fi
            ;;
        help)
            COMPREPLY=($(compgen -W "$commands" -- "$cur"))
            ;;
    esac
} &&
    complete -F _kivora kivora
