#!/usr/bin/env bash
# Draws the program's pictures and writes them into data/:
#
#   logo.bmp   bitmap, 343 x 83, 8 bits a pixel, the logo band at the top of the main window
#   about.bmp  bitmap, 346 x 91, 8 bits a pixel, the banner of the About window
#   about.ico  one 32 x 32 image in 16 colours, 766 bytes, the small icon of the About window
#
# The two bitmaps are uncompressed Windows 3 bitmaps (BITMAPINFOHEADER) with a palette of 256
# colours, which every Windows loads as a bitmap resource, and at a third of the size of 24
# bits a pixel. The colours are chosen without dithering: the smooth gradients of the band and
# of the rule then lose less than a JPEG of quality 92 would.
#
# All three belong to the family of the program's icon, data/app.ico (tools/make-icon.py): a
# speed dial with a blue rim, a dark disc, a scale that runs from green through yellow to red
# and a white needle near the top of the scale. The logo and the banner set that dial on a dark
# band beside the name "Kelvarnite UT2k3 Benchmark"; the small icon is the dial alone.
#
# Needs ImageMagick 6 (apt-get install -y imagemagick), the DejaVu fonts (fonts-dejavu-core)
# and Python 3 for tools/make-icon.py, which describes the dial, and tools/pack-ico16.py, which
# writes the 16-colour icon that ImageMagick cannot write in that exact form. Everything is
# drawn at eight times the final size and scaled down: averaged for the logo and the banner, so
# that every edge is smooth, and point by point for the small icon, whose 16 colours want crisp
# edges. Metadata and time stamps are stripped, and a second run gives the same bytes with the
# same ImageMagick and fonts.
#
# Usage: tools/make-pictures.sh [output folder]     (default: data/ of this source tree)
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
out=${1:-$(dirname "$here")/data}
mkdir -p "$out"

for tool in convert identify fc-match python3; do
  command -v "$tool" >/dev/null || { echo "make-pictures: $tool is missing" >&2; exit 1; }
done

font_file() {  # font_file PATTERN FILE-NAME: the path of a DejaVu font, found through fontconfig
  local file
  file=$(fc-match -f '%{file}' "$1")
  case $file in
    */"$2") printf '%s\n' "$file" ;;
    *) echo "make-pictures: font $2 not found (apt-get install -y fonts-dejavu-core)" >&2; exit 1 ;;
  esac
}
BOLD=$(font_file 'DejaVu Sans:style=Bold' DejaVuSans-Bold.ttf)
BOOK=$(font_file 'DejaVu Sans:style=Book' DejaVuSans.ttf)

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# The same pixels on every run: one thread, and -strip on every file written.
export MAGICK_THREAD_LIMIT=1
IM=(convert -quiet)

SS=8  # supersampling factor

# ---------------------------------------------------------------------------------------------
# The dial, drawn by make-icon.py from the one description of it that the program's icon is
# drawn from too: the circles of the rim and the disc, and over them the face.
# ---------------------------------------------------------------------------------------------

# dial SIZE TICKS OUT: a dial SIZE pixels wide on a transparent ground, as PNG. TICKS is 1 for
# the large dial, with short marks inside the scale and a tapering needle, drawn with smooth
# edges and scaled down by averaging; 0 for the small one, the icon's dial, drawn without
# smoothing and taking one point of each pixel, for the crisp edges that suit a picture of 16
# colours.
dial() {
  local size=$1 ticks=$2 png=$3 n=$(($1 * SS))
  local smooth=(-antialias) shrink=(-filter box -resize "${size}x${size}") face=(--ticks)
  [[ $ticks = 1 ]] || { smooth=(+antialias); shrink=(-sample "${size}x${size}"); face=(); }
  local rim disc
  rim=$(python3 "$here/make-icon.py" --mvg rim "$n")
  disc=$(python3 "$here/make-icon.py" --mvg disc "$n")
  python3 "$here/make-icon.py" --mvg face "$n" "${face[@]}" >"$work/dial.mvg"
  "${IM[@]}" "${smooth[@]}" \
    \( -size "${n}x${n}" gradient:'rgb(60,120,230)-rgb(34,68,139)' \
       \( -size "${n}x${n}" xc:black -fill white -draw "$rim" \) \
       -alpha off -compose copy_opacity -composite \) \
    \( -size "${n}x${n}" gradient:'rgb(53,53,56)-rgb(36,36,40)' \
       \( -size "${n}x${n}" xc:black -fill white -draw "$disc" \) \
       -alpha off -compose copy_opacity -composite \) \
    -compose over -composite \
    -draw "$(cat "$work/dial.mvg")" \
    "${shrink[@]}" -strip "PNG32:$png"
}

# rule W OUT: a rule 3 pixels high in the colours of the scale, green, yellow, red, built from
# two halves so that its middle is yellow, not the brown of a straight green-red gradient.
rule() {
  local w=$1 half=$(($1 / 2))
  "${IM[@]}" \
    \( -size "3x${half}" gradient:'rgb(0,200,40)-rgb(255,200,40)' -rotate -90 \) \
    \( -size "3x$((w - half))" gradient:'rgb(255,200,40)-rgb(255,0,40)' -rotate -90 \) \
    +append -strip "PNG24:$2"
}

# dark_band W H OUT: the dark band that carries dial and name, with the rule at its foot and a
# faint light line at its head.
dark_band() {
  local w=$1 h=$2 png=$3
  rule "$w" "$work/rule.png"
  "${IM[@]}" -size "${w}x$((h - 3))" gradient:'rgb(48,52,60)-rgb(18,20,24)' \
    "$work/rule.png" -append \
    -fill 'rgb(92,98,110)' -draw "line 0,0 $((w - 1)),0" \
    -strip "PNG24:$png"
}

# text_width FONT SIZE TEXT: the width in pixels of a line of text.
text_width() {
  "${IM[@]}" -font "$1" -pointsize "$2" label:"$3" -format '%w' info:
}

# wordmark BAND DIAL DIAL_X X SIZE Y1 Y2 ARGS...: the dial and the product's name on a band,
# "Kelvarnite" at (X, Y1) in SIZE points over its shadow, "UT2k3 Benchmark" below it at Y2;
# ARGS end with the output.
wordmark() {
  local band=$1 dial=$2 dial_x=$3 x=$4 size=$5 y1=$6 y2=$7
  shift 7
  local x2=$((x + 2 + $(text_width "$BOLD" 18 'UT2k3 ')))
  "${IM[@]}" "$band" "$dial" -geometry "+$dial_x+4" -compose over -composite \
    -font "$BOLD" -kerning -0.8 -pointsize "$size" \
    -fill 'rgb(8,9,11)' -annotate "+$((x + 1))+$((y1 + 1))" 'Kelvarnite' \
    -fill 'rgb(250,250,250)' -annotate "+$x+$y1" 'Kelvarnite' \
    -kerning 0 -pointsize 18 \
    -fill 'rgb(255,200,40)' -annotate "+$((x + 2))+$y2" 'UT2k3' \
    -font "$BOOK" \
    -fill 'rgb(206,212,222)' -annotate "+$x2+$y2" 'Benchmark' \
    "$@"
}

# bitmap8: the options that turn the picture in hand into an 8-bit bitmap of 256 colours.
bitmap8=(+dither -colors 256 -type Palette -compress none -strip)

# The logo of the main window: 343 x 83.
dark_band 343 83 "$work/logo-band.png"
dial 72 1 "$work/dial72.png"
wordmark "$work/logo-band.png" "$work/dial72.png" 7 89 34 43 68 \
  "${bitmap8[@]}" "BMP3:$work/logo.bmp"

# The banner of the About window: 346 x 91.
dark_band 346 91 "$work/about-band.png"
dial 80 1 "$work/dial80.png"
wordmark "$work/about-band.png" "$work/dial80.png" 8 99 32 39 62 \
  -pointsize 11 \
  -fill 'rgb(158,166,178)' -annotate +101+81 'Frame rates for Unreal Tournament 2003' \
  "${bitmap8[@]}" "BMP3:$work/about.bmp"

# ---------------------------------------------------------------------------------------------
# The small icon of the About window: the dial at 32 x 32 in 16 fixed colours.
# ---------------------------------------------------------------------------------------------
PALETTE=(
  000000  # 0  black; also the colour under the transparent pixels
  242428  # 1  disc, lower half
  35353a  # 2  disc, upper half
  22448b  # 3  rim, dark
  2e5cb8  # 4  rim, middle
  3c78e6  # 5  rim, light
  f7f7f7  # 6  needle
  c4c4c4  # 7  hub
  00c828  # 8  the scale in eight steps, from green ...
  55c828  # 9
  aac828  # 10
  ffc828  # 11 ... through yellow ...
  ff9628  # 12
  ff6428  # 13
  ff3228  # 14
  ff0028  # 15 ... to red
)
palette_args=()
for colour in "${PALETTE[@]}"; do palette_args+=(xc:"#$colour"); done
"${IM[@]}" "${palette_args[@]}" +append -strip "PNG24:$work/palette.png"
dial 32 0 "$work/dial32.png"
"${IM[@]}" "$work/dial32.png" -channel A -threshold 50% +channel \
  \( +clone -alpha extract -depth 8 -write "GRAY:$work/ico-alpha.raw" +delete \) \
  -background black -alpha remove +dither -remap "$work/palette.png" \
  -depth 8 -strip "RGB:$work/ico-rgb.raw"
python3 "$here/pack-ico16.py" "$work/ico-rgb.raw" "$work/ico-alpha.raw" "$work/about.ico" \
  "${PALETTE[@]}"

# ---------------------------------------------------------------------------------------------
# ImageMagick picks a smaller form where the picture allows one; the program wants exactly this.
for name in logo.bmp about.bmp; do
  form=$(od -An -tu2 -j28 -N2 "$work/$name" | tr -d ' ')$(od -An -tu4 -j30 -N4 "$work/$name" | tr -d ' ')
  [[ $form = 80 ]] || { echo "make-pictures: $name is not an uncompressed 8-bit bitmap" >&2; exit 1; }
done
for name in logo.bmp about.bmp about.ico; do
  cp "$work/$name" "$out/$name"
done
identify "$out/logo.bmp" "$out/about.bmp" "$out/about.ico"
