#!/usr/bin/env bash
# make_pictures.sh [FOLDER]: draws the sheets of docs/transitions-and-effects.md with the engine, from two pictures
# made on the spot. Needs ./dev build and ffmpeg.
set -euo pipefail
cd "$(dirname "$0")/.."
out=$(realpath -m "${1:-docs/pictures}")
bin=$PWD/build/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$out"
export KVO5_HOME=$work/home

draw() { ffmpeg -hide_banner -loglevel error -nostdin -y -f lavfi -i "$1" -frames:v 1 "$work/$2"; }
hill='gt(Y,250+38*sin(X/90)+14*sin(X/23))'
mountain='gt(Y,205+60*sin(X/150+2))'
sun='lt(hypot(X-470,Y-95),46)'
grass='sin(X/17)*sin(Y/11)'
draw "color=black:size=640x360,format=rgb24,geq=r='if($sun,255,if($hill,70+60*$grass+random(1)*24,if($mountain,95+40*(Y-150)/200+12*sin(X/7+Y/9),150+90*Y/250)))':g='if($sun,225,if($hill,120+55*$grass+random(2)*24,if($mountain,110+12*sin(X/7+Y/9),120+80*Y/250)))':b='if($sun,120,if($hill,45+20*random(3),if($mountain,150-30*(Y-150)/200,235-60*Y/250)))',drawbox=x=150:y=215:w=110:h=80:color=0xB04030:t=fill,drawbox=x=165:y=235:w=28:h=30:color=0xE8E0B0:t=fill,drawbox=x=215:y=240:w=26:h=55:color=0x402818:t=fill" first.png
draw "color=black:size=640x360,format=rgb24,geq=r='20+40*Y/360':g='60+110*Y/360':b='110+120*Y/360',drawgrid=w=80:h=60:t=3:color=0x203050,drawbox=x=270:y=130:w=100:h=100:color=0xF0F0F0:t=fill" second.png

# A collection of the two pictures, 2 s each, with a transition over all of it: the sample collection's head, and its
# first clip twice over.
sample=$(<assets/sample/Sample.INI)
head=${sample%%\[Movie1Main\]*}
clip=[Movie1Main]${sample#*\[Movie1Main\]}
clip=${clip%%\[Movie2Main\]*}
collection() {  # TRANSITION NAME2 VALUE2
  sed 's/^MoviesInGroup .*/MoviesInGroup        = 2/' <<<"$head"
  local common=(-e "s|@FOLDER@|$work|" -e 's/^LoopEnd  .*/LoopEnd        = 2/' -e 's/^IsStill  .*/IsStill        = True/')
  sed "${common[@]}" -e 's/^MovieName .*/MovieName       = first.png/' <<<"$clip"
  sed "${common[@]}" -e 's/^\[Movie1/[Movie2/' -e 's/^MovieName .*/MovieName       = second.png/' \
    -e "s/^TransitionName .*/TransitionName  = $1/" -e 's/^TransitionIN .*/TransitionIN    = 20/' \
    -e "s/^ExtraParamName2 .*/ExtraParamName2 = $2/" -e "s/^ExtraParamVal2 .*/ExtraParamVal2  = $3/" \
    -e 's/^KeyID .*/KeyID          = 1001/' <<<"$clip"
}

transitions() {  # SHEET NAME...   a name may be "Name|option|value"
  local documents=() entry name option value label
  for entry in "${@:2}"; do
    IFS='|' read -r name option value <<<"$entry"
    label=$name${value:+ $value}
    collection "$name" "$option" "$value" >"$work/c.INI"
    "$bin/kvo5" --document "$work/c.INI" "$work/$label.xtl"
    documents+=("$work/$label.xtl")
  done
  drawn "$1" "${documents[@]}"
}

# A sheet, small enough to be kept.
drawn() {  # SHEET DOCUMENT...
  "$bin/KVORender" --sheet "$work/$1.png" "${@:2}"
  ffmpeg -hide_banner -loglevel error -nostdin -y -i "$work/$1.png" -q:v 5 -pix_fmt yuvj420p "$out/$1.jpg"
}

effect() {  # LABEL CLSID PARAM...   a param is "Name=value" or "Name=first>last", which runs over the clip
  local param name value
  printf '<timeline><group type="video" bitdepth="24" width="640" height="360" framerate="25"><track><clip src="%s" mstart="0" mstop="4" start="0" stop="4">\n<effect clsid="%s" start="0" stop="18">\n' "$work/first.png" "$2"
  for param in "${@:3}"; do
    name=${param%%=*} value=${param#*=}
    if [[ $value == *'>'* ]]; then
      printf '<param name="%s" value="%s"><linear time="4" value="%s"/></param>\n' "$name" "${value%%>*}" "${value#*>}"
    else
      printf '<param name="%s" value="%s"/>\n' "$name" "$value"
    fi
  done
  printf '</effect></clip></track></group></timeline>\n'
}

documents=()
add() {  # LABEL CLSID PARAM...
  effect "$@" >"$work/$1.xtl"
  documents+=("$work/$1.xtl")
}
sheet() {
  drawn "$1" "${documents[@]}"
  documents=()
}

transitions fades Fade Dissolve Pixelate ColorFade FadeWhite Threshold
transitions wipes Barn 'Barn Vertical' 'Wipe Normal' 'Wipe Soft' 'Wipe Hard' Blinds 'Blinds|Direction|Up' Checkerboard Zigzag SawLeft SawTop SawVert SawHoriz
transitions shapes 'Iris|irisStyle|Circle' 'Iris|irisStyle|Cross' 'Iris|irisStyle|Plus' 'Iris|irisStyle|Square' 'Iris|irisStyle|Star' Circle1 Circle2 Circle4 Circle8 Circle16 Circle32 Diamond Star4 Star5 Star6 Heart Keyhole Columns
transitions corners 'Inset Left Top' 'Inset Right Top' 'Inset Right Bottom' 'Inset Left Bottom' Inset 'Four Corners' TopCenter 'Bow Tie Vertical' 'Bow Tie Horizontal' 'Filled V Up' 'Filled V Right' 'Filled V Down' 'Filled V Left'
transitions turning 'RadialWipe|wipestyle|clock' 'RadialWipe|wipestyle|wedge' 'RadialWipe|wipestyle|radial' Wheel 'Diagonal Rotate' Fold 'Radial Box' Spiral 'Matrix Diag' Matrix2x Matrix4x 'Waterfall Left' 'Waterfall Right' Random
transitions moving Slide 'Slide|slideStyle|hide' 'Slide|slideStyle|push' 'Slide|slideStyle|swap' Stretch 'Stretch|stretchStyle|hide' 'Stretch|stretchStyle|push' 'Stretch|stretchStyle|spin' Curtains RollDown Bounce1 Bounce2 Bounce3 Bounce4 QuartileMove
transitions space Whirlwind 'Whirlwind Up' 'Shatter Down' 'Shatter In' 'Shatter Out' 'Shatter Right' 'Shatter Left' 'Spin Out' 'Roll Out' Flip 'Page Curl LowerLeft' 'Page Curl LowerRight' 'Page Curl UpperLeft' 'Page Curl UpperRight'

basic='{16B280C8-EE70-11D1-9066-00C04FD9189D}'
dexter='{B4DC8DD9-2CC1-4081-9B2B-20D7030234EF}'
add Mirror $basic mirror=1
add Invert $basic invert=1
add 'Flip Vertical' $basic rotation=2
add X-Ray $basic xray=1
add Grayscale $basic grayscale=1
add Engrave '{F515306E-0156-11d2-81EA-0000F87557DB}'
add Emboss '{F515306D-0156-11d2-81EA-0000F87557DB}'
add 'Fade to Black' '{EC85D8F1-1C4E-46e4-A748-7AA04E7C0496}'
add Blur '{7312498D-E87A-11d1-81E0-0000F87557DB}' 'PixelRadius=0>24'
add 'Motion Blur' '{DD13DE77-D3BA-42D4-B5C6-7745FA4E2D4B}' 'Strength=0>60' Direction=60 Add=false
add 'Film Age' '{ADEADEB8-E54B-11d1-9A72-0000F875EADE}' 'age=0>100'
add Pixelate '{4CCEA634-FBE0-11d1-906A-00C04FD9189D}' 'MaxSquare=1>40'
add Chroma '{421516C1-3CF8-11D2-952A-00C04FA34F05}' Color=FFE178 'Tolerance=0>40'
add 'Drop Shadow' '{ADC6CB86-424C-11D2-952A-00C04FA34F05}' 'OffX=0>60' 'OffY=0>40' Color=808080
add 'Alpha uniform' '{ADC6CB82-424C-11D2-952A-00C04FA34F05}' Style=0 'opacity=0>100'
add 'Alpha radial' '{ADC6CB82-424C-11D2-952A-00C04FA34F05}' Style=2 FinishOpacity=0 'opacity=0>100'
add 'Alpha rectangular' '{ADC6CB82-424C-11D2-952A-00C04FA34F05}' Style=3 FinishOpacity=0 'opacity=0>100'
sheet basic
add 'Ease in' $dexter InternalName=Simple3D InitialScaleA=0.75 ScaleA=1
add 'Ease out' $dexter InternalName=Simple3D InitialScaleA=1 ScaleA=1 MoveA=out MoveSpeedA=1
add 'Ease right, turning' $dexter InternalName=Simple3D InitialScaleA=1 ScaleA=0.5 MoveA=right MoveSpeedA=0.5 RotateA=right ShowABack=True
add 'Ease revolving' $dexter InternalName=Simple3D InitialScaleA=1 ScaleA=1 RevolveCamera=True ShowABack=True
add Threshold $dexter InternalName=Standard 'Threshold=0>0.7'
add Contrast $dexter InternalName=Standard 'Contrast=0>3'
add Gamma $dexter InternalName=Standard 'Gamma=0>20'
add Sepia $dexter InternalName=Standard Desaturate=True Red=0.10 Magenta=0.09 Yellow=0.25 Contrast=1.00
add Red $dexter InternalName=Standard 'Red=0>1'
add Green $dexter InternalName=Standard 'Green=0>1'
add Blue $dexter InternalName=Standard 'Blue=0>1'
sheet colour

palette='{E673DCF2-C316-4c6f-AA96-4E4DC6DC291E}'
names=(Accents 'Angled Strokes' BasRelief Mosaic ChalkCharcoal Charcoal Chrome ColoredPencil Craquelure Crosshatch Cutout DarkStrokes DiffuseGlow 'Dry Brush' Emboss FilmGrain InkOutline NotePaper Fresco GlowingEdges Grain HalfTone Patchwork 'Neon Glow' PaintDaubs PalletteKnife Plaster PlasticWrap PosterEdges Ripple Reticulation SmudgeStick Sponge SpraydStroks Stamp Photocopy Sumie GraphicPen TornEdges Watercolor WaterPaper StainedGlass Glass Texturizer Underpainting ConteCrayon RoughPastel Spatter)
for ((i = 0; i < 48; ++i)); do
  add "${names[i]}" $palette "EffectID=$((i + 1))" 'Transparency=0>100'
  [ $((i % 12)) -eq 11 ] && sheet "palette$((i / 12 + 1))"
done
echo "drawn into $out"
