#!/usr/bin/env bash
# run.sh [kernels|records|compile|timeline|seeks|movies|encode|honest|profiles|lengths|preview|play|intake|answers|before]...:
# all of them but the last without a name. KVO_BENCH_RUNS says how often each movie is made (7); the figures are the medians.
# "before" compares with the engine in the folder KVO_BENCH_BEFORE, as "movies" does where that is named: each job is made by
# both in turn, and by the old one twice, which tells how far chance goes.
set -euo pipefail
cd "$(dirname "$0")/.."
bin=$PWD/build/bin
work=$PWD/out/bench
runs=${KVO_BENCH_RUNS:-7}

have() { command -v "$1" >/dev/null; }

render() {  # PEER JOB CODEC OUTPUT; a codec of H.264 is "h264 PRESET CRF"
  local codec preset crf sound=(-c:a pcm_s16le)
  read -r codec preset crf <<<"$3"
  [ "$codec" = h264 ] && sound=(-c:a aac -b:a 160k)
  case $1 in
    ours | before | again)
      codec=(/C "$3")
      [ -z "$preset" ] || codec=(/E "$preset" /Q "$crf")
      [ "$1" = ours ] || local bin=$KVO_BENCH_BEFORE
      "$bin/KVORender" "${codec[@]}" /W "$4" "$2/movie.xtl"
      ;;
    ffmpeg)
      codec=(-c:v mpeg4 -q:v 3 -bf 0)
      [ "$3" = raw ] && codec=(-c:v rawvideo -pix_fmt bgr24)
      [ -z "$preset" ] || codec=(-c:v libx264 -preset "$preset" -crf "$crf" -pix_fmt yuv420p -movflags +faststart)
      mapfile -t inputs <"$2/inputs.txt"
      ffmpeg -hide_banner -loglevel error -nostdin -y "${inputs[@]}" -filter_complex_script "$2/graph.txt" \
        -map '[V]' -map '[A]' -r 25 "${codec[@]}" "${sound[@]}" "$4"
      ;;
    melt)
      codec=(vcodec=mpeg4 qscale=3 bf=0)
      [ "$3" = raw ] && codec=(vcodec=rawvideo pix_fmt=bgr24)
      sound=(f=avi acodec=pcm_s16le)
      if [ -n "$preset" ]; then
        codec=(vcodec=libx264 preset="$preset" crf="$crf" pix_fmt=yuv420p movflags=+faststart)
        sound=(f=mp4 acodec=aac ab=160k)
      fi
      melt -quiet "$2/movie.mlt" -consumer "avformat:$4" "${codec[@]}" "${sound[@]}" ar=44100 \
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
    export bin KVO_BENCH_BEFORE=${KVO_BENCH_BEFORE:-}
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

# What nobody can do without: every clip decoded, and a movie encoded, each alone.
floor() {  # LINES
  local letter=c size=640x360 log=$work/floor i
  if [ "$1" = 1080 ]; then letter=h size=1920x1080; fi
  local job=$work/cuts-$1-6
  bash bench/make_job.sh cuts "$1" 6 "$work/corpus" "$job"
  render ours "$job" mpeg4 "$work/movie.avi" >/dev/null
  ffmpeg -hide_banner -loglevel error -nostdin -y -i "$work/movie.avi" -an -pix_fmt yuv420p -f rawvideo "$work/movie.yuv"
  : >"$log"
  for i in 1 2 3 4 5 6; do
    /usr/bin/time -a -o "$log" -f '%U %S' ffmpeg -hide_banner -loglevel error -nostdin -threads 1 -ss 1 -t 8 \
      -i "$work/corpus/$letter$i.mp4" -map 0:v -f null -
  done
  /usr/bin/time -a -o "$log" -f '%U %S' ffmpeg -hide_banner -loglevel error -nostdin -y -f rawvideo -s "$size" -r 25 \
    -pix_fmt yuv420p -i "$work/movie.yuv" -threads 1 -c:v mpeg4 -q:v 3 -bf 0 "$work/movie.avi"
  awk -v lines="$1" '{ s += $1 + $2 } END { printf "floor, %s lines: decoding and encoding alone take %.2f s CPU\n", lines, s }' "$log"
  rm -f "$work/movie.yuv" "$work/movie.avi"
}

movies() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  local lines kind codec
  for lines in 360 1080; do
    floor "$lines"
    for kind in cuts dissolve wipe effects; do
      for codec in mpeg4 raw; do movie "$kind" "$lines" 6 "$codec" ours ffmpeg melt; done
    done
  done
  [ -z "${KVO_BENCH_BEFORE:-}" ] || before
}

# Mean PSNR of a movie against another of the same pictures.
psnr() {  # MOVIE REFERENCE
  ffmpeg -hide_banner -nostdin -i "$1" -i "$2" -lavfi "[0:v][1:v]psnr" -f null - 2>&1 |
    sed -n 's/.*average:\([0-9.inf]*\).*/\1/p' | tail -1
}

# CPU seconds that the encoder alone takes with one thread for the pictures of a movie; what it makes is left in alone.mp4.
encoder_alone() {  # MOVIE PRESET
  local log=$work/floor once=(ffmpeg -hide_banner -loglevel error -nostdin -y -threads 1 -i "$1" -an)
  /usr/bin/time -o "$log" -f '%U %S' "${once[@]}" -f null -
  /usr/bin/time -a -o "$log" -f '%U %S' "${once[@]}" -c:v libx264 -preset "$2" -crf 20 -pix_fmt yuv420p -threads 1 "$work/alone.mp4"
  awk 'NR == 1 { d = $1 + $2 } NR == 2 { printf "%.2f", $1 + $2 - d }' "$log"
}

# The same movie as H.264 at equal settings: wall, CPU, CPU beside what the encoder alone takes, and PSNR. Each peer
# scales and mixes in its own way, so what it loses by encoding is told by its own pictures, hardly compressed; beside it
# stands what the encoder alone makes of these.
encoded() {  # KIND LINES PRESET
  local job=$work/$1-$2-6 peer figures wall cpu alone own=$work/own.mp4
  bash bench/make_job.sh "$1" "$2" 6 "$work/corpus" "$job"
  printf 'H.264 %s, %s, %s lines (load %s)\n' "$3" "$1" "$2" "$(cut -d' ' -f1 /proc/loadavg)"
  for peer in ours ffmpeg melt; do
    have "$peer" || [ "$peer" = ours ] || continue
    render "$peer" "$job" "h264 ultrafast 1" "$own" >/dev/null
    alone=$(encoder_alone "$own" "$3")
    figures=$(for ((r = 0; r < runs; ++r)); do measured "$peer" "$job" "h264 $3 20" "$work/movie.mp4"; done)
    wall=$(awk '{ print $1 }' <<<"$figures" | median)
    cpu=$(awk '{ print $2 }' <<<"$figures" | median)
    render "$peer" "$job" "h264 $3 20" "$work/movie.mp4" >/dev/null
    awk -v peer="$peer" -v w="$wall" -v c="$cpu" -v a="$alone" -v p="$(psnr "$work/movie.mp4" "$own")" \
      -v b="$(stat -c %s "$work/movie.mp4")" -v e="$(psnr "$work/alone.mp4" "$own")" 'BEGIN {
        printf "  %-8s %7.2f s wall %7.2f s CPU, %6.2f s of it beside the encoder, PSNR %.2f dB (the encoder alone %.2f), %.2f MB\n", peer, w, c, c - a, p, e, b / 1e6 }'
  done
  rm -f "$own" "$work/movie.mp4" "$work/alone.mp4"
}

encode() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  local lines preset
  for lines in ${KVO_BENCH_LINES:-360 1080}; do
    for preset in veryfast medium; do encoded dissolve "$lines" "$preset"; done
  done
}

# What the program says of time left and size at a quarter of the way, over ten renders of different kinds.
honest() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  local name kind lines clips end preset
  printf 'time and size at a quarter of the way, and at the end (load %s)\n' "$(cut -d' ' -f1 /proc/loadavg)"
  while read -r name kind lines clips end preset; do
    bash bench/make_job.sh "$kind" "$lines" "$clips" "$work/corpus" "$work/$kind-$lines-$clips"
    "$bin/bench_honest" "$bin/KVORender" "$name" "$work/$kind-$lines-$clips/movie.xtl" "$work/honest.$end" ${preset:+"$preset"} || true
    rm -f "$work/honest.$end"
  done <<'END'
wmv-cuts cuts 360 6 wmv
wmv-effects effects 360 12 wmv
avi-wipe wipe 360 6 avi
mp4-dissolve dissolve 360 6 mp4
mp4-one-clip cuts 360 1 mp4
mp4-1080 dissolve 1080 3 mp4
mp4-email dissolve 360 6 mp4 email
mov-cuts cuts 360 3 mov
webm-cuts cuts 360 2 webm
wav-effects effects 360 24 wav
END
}

# Each of the 42 profiles of Windows Media, with what comes back of it: a flash and a tone of second 1, the length, and
# a whole decode without a message. Where something is off, the line ends in "WRONG".
profiles() (
  local folder=$work/profiles number kind file says form rate
  mkdir -p "$folder"
  new_home "$folder/home"
  [ -e "$folder/flash.mkv" ] || ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi \
    -i "color=black:s=320x240:r=30:d=2,drawbox=c=white:t=fill:enable='gte(n,30)'" -f lavfi \
    -i "aevalsrc='if(gte(t,1),0.7*sin(2*PI*600*t),0)':s=44100:d=2" -ac 2 -c:v ffv1 -c:a flac "$folder/flash.mkv"
  "$bin/kvo5" --add "$folder/flash.INI" "$folder/flash.mkv" >/dev/null
  for ((number = 0; number < 42; ++number)); do
    kind=wmv
    [ "$number" -lt 16 ] || [ "$number" -gt 23 ] || kind=wma
    file=$folder/made.$kind
    "$bin/kvo5" --render "$folder/flash.INI" --output "$file" --profile "$number" >/dev/null 2>&1
    form=$(ffprobe -v error -show_entries stream=codec_name,width,height,r_frame_rate,sample_rate,channels -of csv=p=0 "$file" |
      tr '\n' ' ')
    rate=$(ffprobe -v error -select_streams v -show_entries stream=r_frame_rate -of csv=p=0 "$file")
    says=$(ffmpeg -hide_banner -nostdin -i "$file" -vf blackdetect=d=0.2:pix_th=0.3 -af silencedetect=n=-30dB:d=0.3 -f null - 2>&1)
    awk -v number="$number" -v form="$form" -v rate="${rate:-1/1}" -v kind="$kind" -v noise="$(ffmpeg -v error -nostdin -i "$file" -f null - 2>&1)" \
      -v length_="$(ffprobe -v error -show_entries format=duration -of csv=p=0 "$file")" '
      match($0, /silence_end: [0-9.]+/) && !tone { tone = substr($0, RSTART + 13, RLENGTH - 13) }
      match($0, /black_end:[0-9.]+/) && !flash { flash = substr($0, RSTART + 10, RLENGTH - 10) }
      function off(a, b) { return a > b ? a - b : b - a }
      END {
        split(rate, r, "/")
        wrong = noise != "" || off(tone, 1) > 0.010 || off(length_, 2) > 0.1 || (kind == "wmv" && off(flash, 1) > r[2] / r[1] + 0.003)
        printf "  %2d  %-58s %.2f s, tone %.3f, flash %s %s\n", number, form, length_, tone, flash, wrong ? "WRONG" : ""
      }' <<<"$says"
    rm -f "$file"
  done
)

# One job by the engine and by the one before, in turn.
compared() {  # KIND LINES CLIPS CODEC
  local job=$work/$1-$2-$3 peer r
  bash bench/make_job.sh "$1" "$2" "$3" "$work/corpus" "$job"
  for ((r = 0; r < runs; ++r)); do
    for peer in before ours again; do printf '%s %s\n' "$peer" "$(measured "$peer" "$job" "$4" "$work/movie.avi")"; done
  done >"$work/compared"
  awk -v what="$1, $2 lines, $4" '
    function median(peer, column,    n, i, j, t, v) {
      for (i = 1; i <= NR; ++i) if (name[i] == peer) v[++n] = figure[i, column]
      for (i = 1; i <= n; ++i) for (j = i + 1; j <= n; ++j) if (v[j] < v[i]) { t = v[i]; v[i] = v[j]; v[j] = t }
      return v[int((n + 1) / 2)]
    }
    { name[NR] = $1; figure[NR, 1] = $2; figure[NR, 2] = $3; figure[NR, 3] = $4 }
    END {
      printf "%-28s", what
      split("wall s,CPU s,MB", unit, ",")
      for (c = 1; c <= 3; ++c) {
        b = median("before", c); o = median("ours", c); a = median("again", c)
        printf "  %6.2f -> %6.2f %-6s (%+5.1f %%, chance %+5.1f %%)", b, o, unit[c], 100 * (o / b - 1), 100 * (a / b - 1)
      }
      printf "\n"
    }' "$work/compared"
}

before() {
  : "${KVO_BENCH_BEFORE:?names the folder of the engine to compare with}"
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  local lines kind codec
  for lines in ${KVO_BENCH_LINES:-360 1080}; do
    for kind in cuts dissolve wipe effects; do
      for codec in mpeg4 raw; do compared "$kind" "$lines" 6 "$codec"; done
    done
  done
}

# Forty seconds out of the middle of a movie: what is not on screen costs nothing.
slice() {  # CLIPS
  local job=$work/dissolve-360-$1 from=$(($1 * 7 / 2))
  bash bench/make_job.sh dissolve 360 "$1" "$work/corpus" "$job"
  /usr/bin/time -f "  40 s of a movie of $1 clips: %e s wall %U + %S s CPU %M KB" \
    "$bin/KVORender" "/[$from-$((from + 40))]" /C mpeg4 /W "$work/movie.avi" "$job/movie.xtl" >/dev/null
  rm -f "$work/movie.avi"
}

# Cost and memory by the number of clips, half an hour, and a movie of one second.
lengths() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  local clips
  for clips in 12 96 1000; do slice "$clips"; done
  runs=1 movie dissolve 360 6 mpeg4 ours
  runs=1 movie dissolve 360 96 mpeg4 ours
  runs=1 movie dissolve 360 260 mpeg4 ours
  runs=1 movie dissolve 1080 24 mpeg4 ours
  /usr/bin/time -f "  a movie of one second: %e s wall" "$bin/KVORender" "/[0-1]" /C mpeg4 /W "$work/movie.avi" \
    "$work/cuts-360-6/movie.xtl" >/dev/null
}

# From a seek of the player to its picture: the sample collection as a preview of default power, and clips of noise
# with a key frame every two seconds, which cost the most.
seeks() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  bash assets/sample/make_media.sh "$work/sample"
  local template
  template=$(<assets/sample/Sample.INI)
  printf '%s\n' "${template//@FOLDER@/"$work/sample"}" >"$work/sample/Sample.INI"
  "$bin/kvo5" --document "$work/sample/Sample.INI" "$work/sample.xtl" --preview 5
  bash bench/make_job.sh dissolve 360 6 "$work/corpus" "$work/dissolve-360-6"
  "$bin/bench_seeks" "$work/sample.xtl"
  "$bin/bench_seeks" "$work/dissolve-360-6/movie.xtl"
}

# The editor's preview: pictures left out, gaps, start, seeks, sound against picture; with clear films, and with noise.
preview() {
  mkdir -p "$work"
  bash bench/make_corpus.sh "$work/corpus"
  local film
  for film in 1 2 3; do
    [ -e "$work/film$film.mp4" ] || ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i testsrc2=size=1280x720:rate=25 \
      -f lavfi -i "sine=frequency=$((film * 300))" -t 12 -c:v libx264 -preset fast -g 50 -c:a aac "$work/film$film.mp4"
  done
  [ -e "$work/long.mp4" ] || ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i testsrc2=size=1280x720:rate=25 \
    -t 12 -c:v libx264 -preset fast -g 300 -keyint_min 300 -sc_threshold 0 "$work/long.mp4"
  "$bin/bench_preview" "$work/film" "$work/long.mp4"
  "$bin/bench_preview" "$work/corpus/c"
}

# Playing, beside a running mpv: 720 lines at 25 pictures a second, H.264 with a key picture every ten seconds. On a
# screen of its own, where both draw by software.
play() {
  mkdir -p "$work"
  local film
  for film in 1 2; do
    [ -e "$work/play$film.mp4" ] || ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i testsrc2=size=1280x720:rate=25 \
      -f lavfi -i "sine=frequency=$((film * 300))" -t 30 -c:v libx264 -preset fast -g 250 -keyint_min 250 -sc_threshold 0 \
      -c:a aac "$work/play$film.mp4"
  done
  xvfb-run -a -s "-screen 0 1920x1080x24" "$bin/bench_play" "$work/play1.mp4" "$work/play2.mp4"
}

# A thousand files of twenty kinds, in $work/intake/all.
thousand_files() {
  local folder=$work/intake kind i
  if [ ! -e "$folder/z.mp4" ]; then
    mkdir -p "$folder/one"
    for kind in avi:mpeg4 mp4:libx264 mkv:libx265 mov:mjpeg mpg:mpeg1video ts:mpeg2video wmv:wmv2 webm:libvpx m2v:mpeg2video ogv:libtheora; do
      local sound=(-f lavfi -i sine=duration=4)
      [ "${kind%%:*}" = m2v ] && sound=()
      [ "${kind##*:}" = libx265 ] && sound+=(-x265-params log-level=none)
      ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i testsrc2=size=640x360:rate=25:duration=4 "${sound[@]}" \
        -pix_fmt yuv420p -strict -1 -c:v "${kind##*:}" "$folder/one/v.${kind%%:*}"
    done
    for kind in mp3 wav flac ogg m4a wma; do
      ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i sine=duration=60 "$folder/one/s.$kind"
    done
    for kind in jpg png bmp webp; do
      ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i testsrc2=size=1920x1080 -frames:v 1 -update 1 "$folder/one/p.$kind"
    done
    mkdir -p "$folder/all"
    for ((i = 1; i <= 50; ++i)); do
      for kind in "$folder"/one/*; do cp "$kind" "$folder/all/$i-${kind##*/}"; done
    done
    mv "$folder/all/50-v.mp4" "$folder/all/z.mp4"
    touch "$folder/z.mp4"
  fi
}

# A home of its own for the program, as a user has one who has never used it.
new_home() {
  rm -rf "$1"
  mkdir -p "$1"
  export HOME=$1 XDG_RUNTIME_DIR=$1 XDG_CACHE_HOME=$1/cache SDL_AUDIODRIVER=dummy
  unset KVO5_HOME XDG_DATA_HOME XDG_CONFIG_HOME
  chmod 700 "$1"
}

# Adding a thousand files of twenty kinds in one go, beside ffprobe, which is started anew for each as whoever uses it
# does; then by the window, which is asked all the time whether it still answers.
intake() (
  local folder=$work/intake home=$work/intake-home bus ours peer
  thousand_files
  new_home "$home"
  peer=$( { time -p for i in "$folder"/all/*; do ffprobe -v error -show_format -show_streams "$i" >/dev/null; done; } 2>&1 | awk '/real/ { print $2 }')
  ours=$( { time -p "$bin/kvo5" --add "$home/all.INI" "$folder/all" >/dev/null; } 2>&1 | awk '/real/ { print $2 }')
  awk -v o="$ours" -v p="$peer" -v n="$(ls "$folder/all" | wc -l)" -v got="$(grep -c '^MovieName' "$home/all.INI")" 'BEGIN {
    printf "adding %d files: %.2f s, %.1f ms each; ffprobe %.2f s, %.1f ms each: %.2f of it (%d have joined)\n", n, o, o / n * 1000, p, p / n * 1000, o / p, got }'
  xvfb-run -a -s "-screen 0 1280x1024x24" dbus-run-session -- "$bin/bench_intake" "$bin/kvo5" "$folder/all"
)

# The editor on a thousand clips and a song: how long it leaves a question unanswered, act by act, and what an act costs.
answers() (
  local home=$work/answers-home folder=$work/answers i clip
  thousand_files
  if [ ! -e "$folder" ]; then
    mkdir -p "$folder"
    for ((i = 1001; i <= 1072; ++i)); do
      for clip in "$work"/intake/one/[vp].*; do ln "$clip" "$folder/$i-${clip##*/}"; done
    done
  fi
  new_home "$home"
  "$bin/kvo5" --add "$home/all.INI" "$folder"/* "$work/intake/one/s.mp3" >/dev/null
  echo "the editor with a thousand clips:"
  xvfb-run -a -s "-screen 0 1366x900x24" dbus-run-session -- bash -c \
    'openbox & desktop=$!; "$0"/bench_answers "$0"/kvo5 "$1" bench/editor_acts.txt; kill $desktop' "$bin" "$home/all.INI"
)

[ $# -gt 0 ] || set -- kernels records compile timeline seeks movies encode honest profiles lengths preview play intake answers
for part; do
  case $part in
    kernels | records | compile | timeline) "$bin/bench_$part" ;;
    movies | encode | honest | profiles | lengths | seeks | preview | play | intake | answers | before) "$part" ;;
    *)
      echo "bench: there is no part '$part'" >&2
      exit 2
      ;;
  esac
done
