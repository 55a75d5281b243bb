# Completion of lamkit for bash: subcommands, options and their values as the program itself lists
# them in its help, then files.
_lamkit() {
  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} program=${COMP_WORDS[0]}
  local subcommand='' i
  if [ "$word" = '=' ]; then # bash divides words at "="
    word=''
  elif [ "$previous" = '=' ]; then
    previous=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  [ "${COMP_WORDS[COMP_CWORD]}" != '=' ] || previous=${COMP_WORDS[COMP_CWORD - 1]}
  for ((i = 1; i < COMP_CWORD; ++i)); do
    case ${COMP_WORDS[i]} in
      -*) ;;
      *)
        subcommand=${COMP_WORDS[i]}
        break
        ;;
    esac
  done
  if [ -z "$subcommand" ]; then
    local commands
    commands=$("$program" --help 2>/dev/null | sed -n '/^Subcommands:/,$s/^  \([a-z][a-z]*\) .*/\1/p')
    mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$word")
    return
  fi
  case $previous in
    --format) mapfile -t COMPREPLY < <(compgen -W 'text json' -- "$word") ;;
    --color) mapfile -t COMPREPLY < <(compgen -W 'auto always never' -- "$word") ;;
    *)
      case $word in
        -*)
          local options
          options=$("$program" "$subcommand" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]*' | sort -u)
          mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
          ;;
        *)
          compopt -o filenames 2>/dev/null
          case $subcommand in
            check | solve) mapfile -t COMPREPLY < <(compgen -f -X '!*.qdk' -- "$word" && compgen -d -- "$word") ;;
            *) mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
          esac
          ;;
      esac
      ;;
  esac
}
complete -F _lamkit lamkit
