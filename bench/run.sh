#!/usr/bin/env bash
# run.sh [kernels|records|compile|movies]...: all of them without a name. KVO_BENCH_RUNS says how often each movie is made
# (3); the figures are the medians.
set -euo pipefail
cd "$(dirname "$0")/.."
bin=$PWD/build/bin
work=$PWD/out/bench
runs=${KVO_BENCH_RUNS:-3}

have() { command -v "$1" >/dev/null; }

render() {  # PEER JOB CODEC OUTPUT
  local codec
  case $1 in
    ours)
      codec=(/C "$3")
      "$bin/KVORender" "${codec[@]}" /W "$4" "$2/movie.xtl"
      ;;
    ffmpeg)
      codec=(-c:v mpeg4 -q:v 3 -bf 0)
      [ "$3" = raw ] && codec=(-c:v rawvideo -pix_fmt bgr24)
      mapfile -t inputs <"$2/inputs.txt"
      ffmpeg -hide_banner -loglevel error -nostdin -y "${inputs[@]}" -filter_complex_script "$2/graph.txt" \
        -map '[V]' -map '[A]' -r 25 "${codec[@]}" -c:a pcm_s16le "$4"
      ;;
    melt)
      codec=(vcodec=mpeg4 qscale=3 bf=0)
      [ "$3" = raw ] && codec=(vcodec=rawvideo pix_fmt=bgr24)
      melt -quiet "$2/movie.mlt" -consumer "avformat:$4" f=avi "${codec[@]}" acodec=pcm_s16le ar=44100 \
        real_time=-2 terminate_on_pause=1 2>/dev/null
      ;;
  esac
}

# "wall cpu rss" of one render, in seconds and MB.
measured() {
  rm -f "$4"
  local log=$work/time
  (
    export -f render
    export bin
    /usr/bin/time -o "$log" -f '%e %U %S %M' bash -c 'render "$@"' - "$@" >/dev/null
  )
  awk 'END { printf "%.2f %.2f %.0f\n", $1, $2 + $3, $4 / 1024 }' "$log"
  rm -f "$4"
}

median() { sort -g | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

movie() {  # KIND LINES CLIPS CODEC PEER...
  local job=$work/$1-$2-$3 peer figures wall cpu rss best_wall="" best_cpu=""
  bash bench/make_job.sh "$1" "$2" "$3" "$work/corpus" "$job"
  printf '%s, %s lines, %s clips, %s\n' "$1" "$2" "$3" "$4"
  for peer in "${@:5}"; do
    if [ "$peer" != ours ] && ! have "$peer"; then
      printf '  %-8s is not installed and left out\n' "$peer"
      continue
    fi
    figures=$(for ((r = 0; r < runs; ++r)); do measured "$peer" "$job" "$4" "$work/movie.avi"; done)
    wall=$(awk '{ print $1 }' <<<"$figures" | median)
    cpu=$(awk '{ print $2 }' <<<"$figures" | median)
    rss=$(awk '{ print $3 }' <<<"$figures" | median)
    if [ "$peer" = ours ]; then
      best_wall=$wall best_cpu=$cpu
      printf '  %-8s %7s s wall %7s s CPU %6s MB\n' "$peer" "$wall" "$cpu" "$rss"
    else
      printf '  %-8s %7s s wall %7s s CPU %6s MB   ours takes %.2f of its wall time, %.2f of its CPU\n' \
        "$peer" "$wall" "$cpu" "$rss" "$(awk "BEGIN { print $best_wall / $wall }")" \
        "$(awk "BEGIN { print $best_cpu / $cpu }")"
    fi
  done
}

movies() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  movie cuts 360 6 mpeg4 ours ffmpeg melt
  movie dissolve 360 6 mpeg4 ours ffmpeg melt
  movie dissolve 360 6 raw ours ffmpeg melt
  movie dissolve 1080 6 mpeg4 ours ffmpeg melt
  runs=1 movie dissolve 360 96 mpeg4 ours
}

[ $# -gt 0 ] || set -- kernels records compile movies
for part; do
  case $part in
    kernels | records | compile) "$bin/bench_$part" ;;
    movies) movies ;;
    *)
      echo "bench: there is no part '$part'" >&2
      exit 2
      ;;
  esac
done
