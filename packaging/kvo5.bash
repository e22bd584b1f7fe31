# Completion of kvo5 for bash.
_kvo5() {
  local cur=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} first=${COMP_WORDS[1]}
  COMPREPLY=()
  case $previous in
    --render | --add | --check | --document)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -o plusdirs -f -X '!*.[iI][nN][iI]' -- "$cur")
      return
      ;;
    --codec)
      mapfile -t COMPREPLY < <(compgen -W 'raw mpeg4' -- "$cur")
      return
      ;;
    --output)
      compopt -o filenames
      mapfile -t COMPREPLY < <(compgen -f -- "$cur")
      return
      ;;
    --range | --size | --rate | --profile) return ;;
  esac
  if [[ $cur == --* || $first == --render ]]; then
    local words='--render --queue --add --check --document --gallery --help --version'
    [[ $first == --render && $COMP_CWORD -gt 1 ]] && words='--output --range --size --rate --codec --profile --resume --slurm'
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
  else
    compopt -o filenames
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
  fi
}
complete -F _kvo5 kvo5
