#!/usr/bin/env bash
# Which room may include which stands in src/CMakeLists.txt, and the include paths hold it. This looks after the headers of
# libraries, which the compiler finds from everywhere: each is for its own room.
set -euo pipefail
cd "$(dirname "$0")/.."
bad=0
only() {  # HEADERS ROOM...
  local found
  found=$(git grep -nE "^#include <($1)" -- src "${@:2}" || true)
  [ -z "$found" ] && return
  printf '%s\n' "$found" "these headers are for other rooms"
  bad=1
}
only 'libav|libsw' ':!src/media'
only 'Q[A-Za-z]' ':!src/adapters/qt' ':!src/adapters/dbus' ':!src/adapters/webengine' ':!src/ui' ':!src/windows' ':!src/app'
only 'SDL' ':!src/adapters/sdl'
only 'opencv2|rubberband|pugixml' ':!src/engine'
only 'cairo|librsvg' ':!src/art'
only 'curl/' ':!src/adapters/curl'
only 'cdio/' ':!src/adapters/cdio'
only 'jpeglib' ':!src/art' ':!src/adapters/jpeg'
only 'mpv/' ':!src/adapters/mpv'
only 'hwy/|libheif/' ':!src/media'
only 'xcb/' ':!src/ui'

# Rooms do not see each other's headers, and the linker takes two classes of one name for one.
twice=$(git ls-files 'src/*.h' | grep -v '^src/art/' | xargs grep -lx 'namespace kvo {' |
  xargs sed -nE 's/^(class|struct) ([A-Za-z_0-9]+)( final)?( :.*)? \{.*/\2/p' | sort | uniq -d)
if [ -n "$twice" ]; then
  printf '%s\n' "$twice" "there are two classes of this name"
  bad=1
fi
exit $bad
