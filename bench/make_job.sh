#!/usr/bin/env bash
# make_job.sh cuts|dissolve|wipe|effects 360|1080 CLIPS CORPUS OUT: one movie, written for each peer. Every clip is
# shown from its second 1 to its second 9; but for cuts, neighbours overlap by 1 s. With effects, of each six clips the
# 2nd and 4th are blurred and the 3rd and 5th grey, a small picture stands over seconds 10 to 20, and music lies under
# all of it.
#   OUT/movie.xtl   for our engine
#   OUT/graph.txt and OUT/inputs.txt   for ffmpeg
#   OUT/movie.mlt   for melt
set -euo pipefail
kind=$1 lines=$2 clips=$3 corpus=$4 out=$5
mkdir -p "$out"
if [ "$lines" = 1080 ]; then width=1920 height=1080 letter=h; else width=640 height=360 letter=c; fi
overlap=0
[ "$kind" = cuts ] || overlap=1
step=$((8 - overlap))
total=$(((clips - 1) * step + 8))
blurred() { [ "$kind" = effects ] && { [ $(($1 % 6)) -eq 1 ] || [ $(($1 % 6)) -eq 3 ]; }; }
grey() { [ "$kind" = effects ] && { [ $(($1 % 6)) -eq 2 ] || [ $(($1 % 6)) -eq 4 ]; }; }
file() { printf '%s/%s%d.mp4' "$corpus" "$letter" $(($1 % 6 + 1)); }

{
  printf '<timeline>\r\n     <group type="video" bitdepth="24" width="%d" height="%d" framerate="25" name="VIDEO" buffering="30"  >\r\n' "$width" "$height"
  for ((i = 0; i < clips; ++i)); do
    start=$((i * step)) stop=$((i * step + 8))
    printf '<track>\r\n<clip src="%s" mstart="1" mstop="9.0000" start="%d" stop="%d.0000" >\r\n' "$(file "$i")" "$start" "$stop"
    if blurred "$i"; then printf '<effect clsid="{7312498D-E87A-11d1-81E0-0000F87557DB}" start="0" stop="22">\r\n<param name="PixelRadius" value="4"/>\r\n</effect>\r\n'; fi
    if grey "$i"; then printf '<effect clsid="{16B280C8-EE70-11D1-9066-00C04FD9189D}" start="0" stop="22">\r\n<param name="grayscale" value="1"/>\r\n</effect>\r\n'; fi
    printf '</clip>\r\n'
    if [ "$kind" = wipe ] && [ "$i" -gt 0 ]; then
      printf '<transition start="%d" stop="%d" clsid="{dE75D012-7A65-11D2-8CEA-00A0C9441E20}">\r\n<param name="MaskNum" value="1"/>\r\n</transition>\r\n' "$start" $((start + 1))
    elif [ "$kind" != cuts ] && [ "$i" -gt 0 ]; then
      printf '<transition start="%d" stop="%d.0000" clsid="{16B280C5-EE70-11D1-9066-00C04FD9189D}">\r\n<param name="Progress" value="0.0">\r\n<linear time="1" value="1"/>\r\n</param>\r\n</transition>\r\n' "$start" "$stop"
    fi
    printf '</track>\r\n'
  done
  if [ "$kind" = effects ]; then
    printf '<track>\r\n<clip src="%s" mstart="0" mstop="10" start="10" stop="20" >\r\n</clip>\r\n<transition start="10" stop="20" clsid="{BB44391D-6ABD-422f-9E2E-385C9DFF51FC}">\r\n<param name="OffsetX" value="%d"/>\r\n<param name="OffsetY" value="0"/>\r\n<param name="Width" value="%d"/>\r\n<param name="Height" value="%d"/>\r\n</transition>\r\n</track>\r\n' "$(file 0)" $((width / 2)) $((width / 2)) $((height / 2))
  fi
  printf '</group>\r\n<group type="audio" SamplingRate="44100" name="AUDIO">\r\n'
  for ((i = 0; i < clips; ++i)); do
    printf '<track>\r\n<clip src="%s" mstart="1.0000" mstop="9.0000" start="%d" stop="%d.0000"  >\r\n</clip>\r\n</track>\r\n' "$(file "$i")" $((i * step)) $((i * step + 8))
  done
  if [ "$kind" = effects ]; then
    printf '<track>\r\n<clip src="%s/music.wav" mstart="0" mstop="%d" start="0" stop="%d"  >\r\n<effect start="0" stop="%d" clsid="{036A9790-C153-11d2-9EF7-006008039E37}" >\r\n<param name="Vol" value="0">\r\n<linear time="2" value="1"/>\r\n<linear time="%d" value="1"/>\r\n<linear time="%d" value="0"/>\r\n</param>\r\n</effect>\r\n</clip>\r\n</track>\r\n' "$corpus" "$total" "$total" "$total" $((total - 2)) "$total"
  fi
  printf '</group>\r\n</timeline>\r\n'
} >"$out/movie.xtl"

{
  for ((i = 0; i < clips; ++i)); do printf -- '-ss\n1\n-t\n8\n-i\n%s\n' "$(file "$i")"; done
  if [ "$kind" = effects ]; then printf -- '-t\n10\n-i\n%s\n-t\n%d\n-i\n%s/music.wav\n' "$(file 0)" "$total" "$corpus"; fi
} >"$out/inputs.txt"
{
  for ((i = 0; i < clips; ++i)); do
    effect=""
    if blurred "$i"; then effect=,gblur=sigma=2; fi
    if grey "$i"; then effect=,hue=s=0; fi
    printf '[%d:v]scale=%d:%d,setsar=1,fps=25%s,format=yuv420p,settb=1/25[v%d];\n' "$i" "$width" "$height" "$effect" "$i"
    printf '[%d:a]aresample=44100,aformat=channel_layouts=stereo[a%d];\n' "$i" "$i"
  done
  if [ "$kind" = cuts ]; then
    for ((i = 0; i < clips; ++i)); do printf '[v%d][a%d]' "$i" "$i"; done
    printf 'concat=n=%d:v=1:a=1[V][A]' "$clips"
  else
    last=v0
    for ((i = 1; i < clips; ++i)); do
      printf '[%s][v%d]xfade=transition=%s:duration=1:offset=%d[x%d];\n' "$last" "$i" "$([ "$kind" = wipe ] && echo wiperight || echo fade)" $((i * step)) "$i"
      last=x$i
    done
    sounds=$clips
    if [ "$kind" = effects ]; then
      printf '[%s]null[V0];\n[%d:v]scale=%d:%d,setpts=PTS+10/TB,format=yuv420p[pip];\n' "$last" "$clips" $((width / 2)) $((height / 2))
      printf "[V0][pip]overlay=x=%d:y=0:enable='between(t,10,20)':eof_action=pass[V];\n" $((width / 2))
      printf '[%d:a]afade=t=in:d=2,afade=t=out:st=%d:d=2,aresample=44100,aformat=channel_layouts=stereo[d%d];\n' $((clips + 1)) $((total - 2)) "$clips"
      sounds=$((clips + 1))
    else
      printf '[%s]null[V];\n' "$last"
    fi
    for ((i = 0; i < clips; ++i)); do printf '[a%d]adelay=%d:all=1[d%d];\n' "$i" $((i * step * 1000)) "$i"; done
    for ((i = 0; i < sounds; ++i)); do printf '[d%d]' "$i"; done
    printf 'amix=inputs=%d:normalize=0:duration=longest[A]' "$sounds"
  fi
} >"$out/graph.txt"

frames() { echo $(($1 * 25)); }
mix() {  # FROM TO REVERSE: picture and sound of the two tracks, crossing over
  local shape=""
  [ "$kind" = wipe ] && shape='<property name="resource">%luma01.pgm</property>'
  printf '<transition in="%d" out="%d"><property name="mlt_service">luma</property>%s<property name="a_track">0</property><property name="b_track">1</property><property name="reverse">%d</property></transition>' "$1" "$2" "$shape" "$3"
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
        filter=""
        if blurred "$i"; then filter='<filter><property name="mlt_service">box_blur</property><property name="hradius">4</property><property name="vradius">4</property></filter>'; fi
        if grey "$i"; then filter='<filter><property name="mlt_service">greyscale</property></filter>'; fi
        printf '<entry producer="p%d" in="25" out="224">%s</entry>' "$i" "$filter"
        at=$(frames $((i * step + 8)))
      done
      printf '</playlist>'
    done
    more=""
    if [ "$kind" = effects ]; then
      printf '<producer id="pip"><property name="resource">%s</property></producer><producer id="music"><property name="resource">%s/music.wav</property></producer>' "$(file 0)" "$corpus"
      printf '<playlist id="t2"><blank length="250"/><entry producer="pip" in="0" out="249"/></playlist><playlist id="t3"><entry producer="music" in="0" out="%d"/></playlist>' $(($(frames "$total") - 1))
      more='<track producer="t2" hide="audio"/><track producer="t3" hide="video"/>'
    fi
    printf '<tractor id="main"><multitrack><track producer="t0"/><track producer="t1"/>%s</multitrack>' "$more"
    for ((i = 1; i < clips; ++i)); do
      mix "$(frames $((i * step)))" $(($(frames $((i * step + 1))) - 1)) $(((i + 1) % 2))
    done
    for ((i = 1; i < clips; i += 2)); do
      end=$((i + 1 < clips ? (i + 1) * step : i * step + 8))
      hold "$(frames $((i * step + 1)))" $(($(frames "$end") - 1))
    done
    if [ "$kind" = effects ]; then
      printf '<transition in="250" out="499"><property name="mlt_service">composite</property><property name="a_track">0</property><property name="b_track">2</property><property name="geometry">50%%/0%%:50%%x50%%</property></transition>'
      printf '<transition in="0" out="%d"><property name="mlt_service">mix</property><property name="a_track">0</property><property name="b_track">3</property><property name="sum">1</property></transition>' $(($(frames "$total") - 1))
    fi
    printf '</tractor>'
  fi
  printf '</mlt>\n'
} >"$out/movie.mlt"
