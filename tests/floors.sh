#!/usr/bin/env bash
# A file includes from its own floor or below. Prints each include that climbs, and fails if there is one.
set -euo pipefail
cd "$(dirname "$0")/.."
floor() {
  case "$1" in
    base/*) echo 1 ;;
    platform/posix/* | platform/media/* | platform/sdl/*) echo 2 ;;
    platform/* | media/*) echo 2 ;;
    core/*) echo 3 ;;
    intake/* | cd/* | audio/* | editor/timeline/* | engine/*) echo 4 ;;
    playback/* | render/* | tools/*) echo 5 ;;
    */windows/* | ui/*) echo 6 ;;
    editor/*) echo 5 ;;
    app/*) echo 7 ;;
    *) echo 0 ;;
  esac
}
bad=0
while IFS=: read -r file include; do
  from=${file#src/}
  to=$(sed 's/.*"\(.*\)".*/\1/' <<<"$include")
  if [ "$(floor "$to")" -gt "$(floor "$from")" ]; then
    echo "$file includes $to, which stands on a higher floor"
    bad=1
  fi
  case "$to" in
    platform/*/*)
      case "$from" in app/* | "${to%/*}"/*) ;; *)
        echo "$file includes the adapter $to; only app wires adapters"
        bad=1
        ;;
      esac
      ;;
  esac
done < <(git grep -E '^#include "' -- src)
exit $bad
