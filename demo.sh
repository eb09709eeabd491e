#!/usr/bin/env bash
# Exports real scenes of three formats through the plug-in in the headless host, shows
# what came out, and takes each file to the other form and back.
set -euo pipefail
cd "$(dirname "$0")"
scripts/setup.sh
cmake --preset release ${VKT_CMAKE_ARGS:-} >/dev/null
cmake --build --preset release --target vkt vkt_plugin

vkt=build/release/bin/vkt
models=/usr/share/assimp/models
out=build/demo
mkdir -p "$out"

export_scene() {
    local scene=$1 name=$2
    echo
    echo "=== $scene"
    "$vkt" export "$scene" "$out/$name.vkt"
    echo
    "$vkt" info "$out/$name.vkt"
    "$vkt" convert "$out/$name.vkt" "$out/$name.text.vkt" --ascii
    "$vkt" convert "$out/$name.text.vkt" "$out/$name.binary.vkt" --binary
    "$vkt" convert "$out/$name.binary.vkt" "$out/$name.back.vkt" --ascii
    cmp "$out/$name.text.vkt" "$out/$name.back.vkt"
    echo "text -> binary -> text: identical bytes," \
        "$(stat -c %s "$out/$name.text.vkt") as text, $(stat -c %s "$out/$name.binary.vkt") as binary"
}

export_scene "$models/FBX/huesitos.fbx" skeleton-fbx
export_scene "$models/glTF2/2CylinderEngine-glTF-Binary/2CylinderEngine.glb" engine-glb
export_scene "$models/BVH/01_03.bvh" motion-bvh

echo
echo "=== examples/walk.vkt"
"$vkt" curves examples/walk.vkt -o "$out/walk.svg"
echo "$out/walk.svg shows what its take animates"

echo
echo "The results lie in $out."
