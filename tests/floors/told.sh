#!/usr/bin/env bash
# floors.sh is silent about a tree that keeps to the rooms, and tells each line of one that does not.
set -euo pipefail
script=$(cd "$(dirname "$0")/.." && pwd)/floors.sh
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
cd "$tree"
git init -q
mkdir tests
cp "$script" tests/

put() {  # FOLDER HEADER...: a file there that includes them
  mkdir -p "src/$1"
  printf '#include <%s>\n' "${@:2}" >"src/$1/${1//\//_}.cpp"
}
put media libavcodec/avcodec.h libswscale/swscale.h libheif/heif.h hwy/highway.h
for room in adapters/qt adapters/dbus adapters/webengine windows/main app; do put "$room" QWidget QtMath; done
put ui QtMath xcb/xcb.h
put adapters/sdl SDL.h
put engine opencv2/core.hpp rubberband/RubberBandStretcher.h pugixml.hpp
put art cairo.h librsvg/rsvg.h jpeglib.h
put adapters/curl curl/curl.h
put adapters/cdio cdio/cdio.h
put adapters/jpeg jpeglib.h
put adapters/mpv mpv/client.h
printf 'namespace kvo {\nclass Once {\n' >src/media/once.h
git add .
bash tests/floors.sh

mapfile -t headers < <(sed -nE 's/^#include <(.*)>/\1/p' src/*/*.cpp src/*/*/*.cpp | sort -u)
put program "${headers[@]}"
put core QtWidgets Qt3DCore/QEntity
cp src/media/once.h src/engine/once.h
git add .
told=$(bash tests/floors.sh) && { echo "a tree that breaks every rule passes"; exit 1; }
for line in "${headers[@]/#/src/program/program.cpp:<}" 'src/core/core.cpp:<QtWidgets' 'src/core/core.cpp:<Qt3DCore/QEntity' Once; do
  pattern="^${line/:</:[0-9]+:#include <}"
  grep -qE "$pattern>?\$" <<<"$told" || { printf '%s\n' "not told: $line" "$told"; bad=1; }
done
exit "${bad:-0}"
