#!/usr/bin/env bash
# make_corpus.sh FOLDER: the source clips of the movie comparison, the same every time. What is there is kept.
set -euo pipefail
mkdir -p "$1"
cd "$1"
make() {  # NAME ARGUMENT...
  [ -s "$1" ] && return
  ffmpeg -hide_banner -loglevel error -nostdin -y "${@:2}" "part-$1"
  mv "part-$1" "$1"
}
for i in 1 2 3 4 5 6; do
  for kind in "c 1280x720 20 44100 0" "h 1920x1080 21 48000 10"; do
    read -r letter size quality rate seed <<<"$kind"
    make "$letter$i.mp4" \
      -f lavfi -i "testsrc2=size=$size:rate=25:duration=12,hue=h=$((i * 50)),noise=alls=6:all_seed=$((i + seed))" \
      -f lavfi -i "sine=frequency=$((200 + i * 110)):sample_rate=$rate:duration=12" -ac 2 \
      -c:v libx264 -preset veryfast -crf "$quality" -pix_fmt yuv420p -g 50 -c:a aac -b:a 128k -shortest
  done
done
make music.wav -f lavfi -i "anoisesrc=colour=pink:seed=7:sample_rate=44100:duration=90" -ac 2 -af volume=0.3 -c:a pcm_s16le
