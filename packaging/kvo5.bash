# Completion of kvo5 for bash.
_kvo5() {
  local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} first=${COMP_WORDS[1]}
  local words='' renders=''
  [[ $COMP_CWORD -gt 1 && $first == --render ]] && renders=yes
  [[ $COMP_CWORD -gt 2 && $first == --queue && ${COMP_WORDS[2]} == add ]] && renders=yes
  [[ $previous == add && $renders ]] && previous=--render
  COMPREPLY=()
  case $previous in
    --render | --add | --check | --document)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -o plusdirs -f -X '!*.[iI][nN][iI]' -- "$cur")
      return
      ;;
    --queue) words='add list run clear pause resume remove move' ;;
    --codec) words='raw mpeg4 vp9 av1' ;;
    --preset) words=$("$1" --list-presets 2>/dev/null | sed 's/ .*//') ;;
    --effort) words='ultrafast superfast veryfast faster fast medium slow slower veryslow' ;;
    --encoder) words='software hardware auto' ;;
    --output)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -f -- "$cur")
      return
      ;;
    --range | --size | --size-mb | --rate | --quality | --profile | --slurm | --preview) return ;;
  esac
  if [[ -z $words && $renders ]]; then
    words='--output --preset --size-mb --range --size --rate --codec --quality --effort --encoder --profile --resume --slurm'
  elif [[ -z $words && $cur == --* ]]; then
    words='--render --queue --list-presets --add --check --document --gallery --help --version'
    [[ $COMP_CWORD -gt 3 && $first == --document ]] && words='--preview'
  fi
  if [[ $words ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  fi
}
complete -F _kvo5 kvo5
