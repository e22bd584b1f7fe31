#!/usr/bin/env bash
# make_media.sh FOLDER: the clips of the sample collection, from FFmpeg's test sources. What is there is kept.
set -euo pipefail
mkdir -p "$1"
cd "$1"

# make NAME ARGUMENT...: a file that is cut off by an interrupt never stands under its name.
make() {
  local name=$1
  shift
  [ -s "$name" ] && return
  ffmpeg -hide_banner -loglevel error -nostdin -y "$@" "part-$name"
  mv "part-$name" "$name"
}

h264=(-c:v libx264 -preset veryfast -crf 20 -pix_fmt yuv420p)
make opening.mp4 -f lavfi -i "testsrc2=size=1280x720:rate=25:duration=6" \
  -f lavfi -i "sine=frequency=330:sample_rate=44100:duration=6" -ac 2 "${h264[@]}" -c:a aac -b:a 128k
make bars.avi -f lavfi -i "smptebars=size=720x576:rate=25:duration=5" \
  -f lavfi -i "sine=frequency=440:sample_rate=44100:duration=5" -c:v mpeg4 -vtag XVID -q:v 3 -c:a libmp3lame
make mandelbrot.mpg -f lavfi -i "mandelbrot=size=640x480:rate=30000/1001:end_pts=90" -t 4 \
  -f lavfi -i "sine=frequency=550:sample_rate=48000:duration=4" -c:v mpeg2video -q:v 4 -c:a mp2 -shortest
# Ten frames a second in the first half, thirty in the second.
make uneven.mkv -f lavfi -i "testsrc=size=640x360:rate=30:duration=6" \
  -f lavfi -i "sine=frequency=220:sample_rate=32000:duration=6" \
  -vf "select='if(lt(t,3),not(mod(n,3)),1)'" -fps_mode vfr "${h264[@]}" -c:a flac
make silent.mp4 -f lavfi -i "testsrc2=size=854x480:rate=24:duration=4,hue=h=120" -an "${h264[@]}"
make photo.jpg -f lavfi -i "gradients=size=1600x1200:x0=0:y0=0:x1=1600:y1=1200:seed=5" -frames:v 1 -q:v 3
make music.mp3 -f lavfi -i \
  "aevalsrc='0.3*sin(2*PI*(220+55*floor(mod(t*2,8)))*t)*exp(-3*mod(t,0.5))|0.3*sin(2*PI*(165+41*floor(mod(t,4)))*t)':d=40" \
  -c:a libmp3lame -b:a 128k
