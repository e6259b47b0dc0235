#!/bin/sh
# Renders every SVG source to the PNG files that are compiled in. Needs rsvg-convert (librsvg2-bin).
set -eu
here=$(cd "$(dirname "$0")" && pwd)
theme=$here/../../host/tessa/theme

render() { # source, picture, further options
    svg=$1 png=$2
    shift 2
    rsvg-convert "$@" -o "$png" "$svg"
}

# A theme's colours as style classes: key (stroke) and key-fill, so that each is written once.
palette() { # theme name
    sed -n 's/^ *"\([a-z_]*\)": "\(#[0-9A-Fa-f]\{6\}\)",\{0,1\}$/.\1 { stroke: \2 } .\1-fill { fill: \2 }/p' \
        "$theme/$1.json"
}

for svg in "$here"/*.svg "$theme"/images/widget/*.svg; do
    render "$svg" "${svg%.svg}.png"
done

# A handle key is one drawing in two states; the weld-mode badges have only one.
for svg in "$here"/handle/*.svg; do
    if grep -q 'class="key"' "$svg"; then
        render "$svg" "${svg%.svg}Unpressed.png" --stylesheet "$here/handle/unpressed.css"
        render "$svg" "${svg%.svg}Pressed.png" --stylesheet "$here/handle/pressed.css"
    else
        render "$svg" "${svg%.svg}.png"
    fi
done

css=$(mktemp)
trap 'rm -f "$css"' EXIT
for name in light dark; do
    palette "$name" >"$css"
    for svg in "$theme"/images/themed/*.svg; do
        render "$svg" "$theme/images/$name/widget/$(basename "$svg" .svg).png" --stylesheet "$css"
    done
done
