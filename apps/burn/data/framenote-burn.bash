# SPDX-License-Identifier: MIT
# Completes the arguments of framenote-burn.

_framenote_burn() {
  local word=$2 previous=$3
  local options='--document --input --output --frame --frames --painter --extend --macro --codec
    --quality --audio --metadata --report --progress --quiet --help --version'
  COMPREPLY=()
  case $previous in
    --codec) mapfile -t COMPREPLY < <(compgen -W 'h264 ffv1' -- "$word") ;;
    --painter) mapfile -t COMPREPLY < <(compgen -W 'gc dc' -- "$word") ;;
    --audio | --metadata) mapfile -t COMPREPLY < <(compgen -W 'keep drop' -- "$word") ;;
    --progress) mapfile -t COMPREPLY < <(compgen -W 'line json' -- "$word") ;;
    --macro) mapfile -t COMPREPLY < <(
      compgen -W '%frame%= %time%= %date%= %file%= %size%=' -- "$word")
      compopt -o nospace 2>/dev/null ;;
    --document | --input | --output | --report)
      compopt -o filenames 2>/dev/null
      mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
    --frame | --frames | --quality) ;;
    *) mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word") ;;
  esac
}
complete -F _framenote_burn framenote-burn
