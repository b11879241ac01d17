# SPDX-License-Identifier: MIT
# Completes the arguments of framenote.

_framenote() {
  local word=$2 previous=$3
  local media='@(framenote|png|jp?(e)g|bmp|tif?(f)|gif|mkv|mp4|mov|avi|webm|ts|mts|m2ts|mpg|mpeg)'
  COMPREPLY=()
  if [[ $previous != --document && $word == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W '--document --help --version' -- "$word")
    return
  fi
  compopt -o filenames 2>/dev/null
  if [[ $previous == --document ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$word")
  else
    mapfile -t COMPREPLY < <(compgen -d -- "$word"; shopt -s extglob nocaseglob
      compgen -f -X "!*.$media" -- "$word")
  fi
}
complete -F _framenote framenote
