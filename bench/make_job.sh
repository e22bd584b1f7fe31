#!/usr/bin/env bash
# make_job.sh cuts|dissolve 360|1080 CLIPS CORPUS OUT: one movie, written for each peer. Every clip is shown from
# its second 1 to its second 9; a dissolve overlaps neighbours by 1 s.
#   OUT/movie.xtl   for our engine
#   OUT/graph.txt and OUT/inputs.txt   for ffmpeg
#   OUT/movie.mlt   for melt
set -euo pipefail
kind=$1 lines=$2 clips=$3 corpus=$4 out=$5
mkdir -p "$out"
if [ "$lines" = 1080 ]; then width=1920 height=1080 letter=h; else width=640 height=360 letter=c; fi
overlap=0
[ "$kind" = dissolve ] && overlap=1
step=$((8 - overlap))
file() { printf '%s/%s%d.mp4' "$corpus" "$letter" $(($1 % 6 + 1)); }

{
  printf '<timeline>\r\n     <group type="video" bitdepth="24" width="%d" height="%d" framerate="25" name="VIDEO" buffering="30"  >\r\n' "$width" "$height"
  for ((i = 0; i < clips; ++i)); do
    start=$((i * step)) stop=$((i * step + 8))
    printf '<track>\r\n<clip src="%s" mstart="1" mstop="9.0000" start="%d" stop="%d.0000" >\r\n</clip>\r\n' "$(file "$i")" "$start" "$stop"
    if [ "$kind" = dissolve ] && [ "$i" -gt 0 ]; then
      printf '<transition start="%d" stop="%d.0000" clsid="{16B280C5-EE70-11D1-9066-00C04FD9189D}">\r\n<param name="Progress" value="0.0">\r\n<linear time="1" value="1"/>\r\n</param>\r\n</transition>\r\n' "$start" "$stop"
    fi
    printf '</track>\r\n'
  done
  printf '</group>\r\n<group type="audio" SamplingRate="44100" name="AUDIO">\r\n'
  for ((i = 0; i < clips; ++i)); do
    printf '<track>\r\n<clip src="%s" mstart="1.0000" mstop="9.0000" start="%d" stop="%d.0000"  >\r\n</clip>\r\n</track>\r\n' "$(file "$i")" $((i * step)) $((i * step + 8))
  done
  printf '</group>\r\n</timeline>\r\n'
} >"$out/movie.xtl"

for ((i = 0; i < clips; ++i)); do printf -- '-ss\n1\n-t\n8\n-i\n%s\n' "$(file "$i")"; done >"$out/inputs.txt"
{
  for ((i = 0; i < clips; ++i)); do
    printf '[%d:v]scale=%d:%d,setsar=1,fps=25,format=yuv420p,settb=1/25[v%d];\n' "$i" "$width" "$height" "$i"
    printf '[%d:a]aresample=44100,aformat=channel_layouts=stereo[a%d];\n' "$i" "$i"
  done
  if [ "$kind" = cuts ]; then
    for ((i = 0; i < clips; ++i)); do printf '[v%d][a%d]' "$i" "$i"; done
    printf 'concat=n=%d:v=1:a=1[V][A]' "$clips"
  else
    last=v0
    for ((i = 1; i < clips; ++i)); do
      printf '[%s][v%d]xfade=transition=fade:duration=1:offset=%d[x%d];\n' "$last" "$i" $((i * step)) "$i"
      last=x$i
    done
    printf '[%s]null[V];\n' "$last"
    for ((i = 0; i < clips; ++i)); do printf '[a%d]adelay=%d:all=1[d%d];\n' "$i" $((i * step * 1000)) "$i"; done
    for ((i = 0; i < clips; ++i)); do printf '[d%d]' "$i"; done
    printf 'amix=inputs=%d:normalize=0:duration=longest[A]' "$clips"
  fi
} >"$out/graph.txt"

frames() { echo $(($1 * 25)); }
mix() {  # FROM TO REVERSE: picture and sound of the two tracks, crossing over
  printf '<transition in="%d" out="%d"><property name="mlt_service">luma</property><property name="a_track">0</property><property name="b_track">1</property><property name="reverse">%d</property></transition>' "$1" "$2" "$3"
  printf '<transition in="%d" out="%d"><property name="mlt_service">mix</property><property name="a_track">0</property><property name="b_track">1</property><property name="start">-1</property><property name="reverse">%d</property></transition>' "$1" "$2" "$3"
}
hold() {  # FROM TO: the upper track alone
  printf '<transition in="%d" out="%d"><property name="mlt_service">composite</property><property name="a_track">0</property><property name="b_track">1</property></transition>' "$1" "$2"
  printf '<transition in="%d" out="%d"><property name="mlt_service">mix</property><property name="a_track">0</property><property name="b_track">1</property><property name="start">1</property></transition>' "$1" "$2"
}
{
  printf '<mlt LC_NUMERIC="C" producer="main"><profile width="%d" height="%d" progressive="1" sample_aspect_num="1" sample_aspect_den="1" display_aspect_num="16" display_aspect_den="9" frame_rate_num="25" frame_rate_den="1"/>' "$width" "$height"
  for ((i = 0; i < clips; ++i)); do
    printf '<producer id="p%d"><property name="resource">%s</property><property name="mlt_service">avformat</property></producer>' "$i" "$(file "$i")"
  done
  if [ "$kind" = cuts ]; then
    printf '<playlist id="main">'
    for ((i = 0; i < clips; ++i)); do printf '<entry producer="p%d" in="25" out="224"/>' "$i"; done
    printf '</playlist>'
  else
    for track in 0 1; do
      printf '<playlist id="t%d">' "$track"
      at=0
      for ((i = track; i < clips; i += 2)); do
        gap=$(($(frames $((i * step))) - at))
        [ "$gap" -gt 0 ] && printf '<blank length="%d"/>' "$gap"
        printf '<entry producer="p%d" in="25" out="224"/>' "$i"
        at=$(frames $((i * step + 8)))
      done
      printf '</playlist>'
    done
    printf '<tractor id="main"><multitrack><track producer="t0"/><track producer="t1"/></multitrack>'
    for ((i = 1; i < clips; ++i)); do
      mix "$(frames $((i * step)))" $(($(frames $((i * step + 1))) - 1)) $(((i + 1) % 2))
    done
    for ((i = 1; i < clips; i += 2)); do
      end=$((i + 1 < clips ? (i + 1) * step : i * step + 8))
      hold "$(frames $((i * step + 1)))" $(($(frames "$end") - 1))
    done
    printf '</tractor>'
  fi
  printf '</mlt>\n'
} >"$out/movie.mlt"
