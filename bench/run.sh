#!/bin/bash
# Runs every benchmark in turns with its anchors, each in a fresh process, and prints the
# table of ratios. docs/performance.md says what the rows mean.
#
#   bench/run.sh [--runs N] [--quick] [--only mesh|nodes|skin|animation] [--cpu] [--build DIR]
#
# --runs N     rounds; 9 without it. --quick is --runs 3.
# --only X     one workload alone.
# --cpu        compare processor time, for a machine that is busy with other work.
# --build DIR  a configured build with VKT_BUILD_BENCH; the preset `bench` without it.
set -euo pipefail
cd "$(dirname "$0")/.."

runs=9
only=all
build=
clock=
while [ $# -gt 0 ]; do
    case $1 in
        --runs) runs=$2; shift ;;
        --quick) runs=3 ;;
        --only) only=$2; shift ;;
        --cpu) clock=--cpu ;;
        --build) build=$2; shift ;;
        *) sed -n '2,/^set/s/^# \?//p' "$0"; exit 64 ;;
    esac
    shift
done
if [ -z "$build" ]; then
    build=build/bench
    cmake --preset bench > /dev/null
fi
cmake --build "$build" > /dev/null 2>&1

bin=$build/bin
files=$build/bench-files
results=$build/bench-results.txt
mkdir -p "$files"
# Saves go to memory where 2 GiB of it can be had so: what a disk still has to write of
# other files comes and goes, and with it ten times the time of a write().
saves=$files
if [ "$(df --output=avail -k /dev/shm 2> /dev/null | tail -n 1)" -gt $((2 << 20)) ] 2> /dev/null; then
    saves=$(mktemp -d /dev/shm/vkt-bench.XXXXXX)
fi
out=$saves/out.vkt
trap 'rm -rf "$files" "$saves"' EXIT
: > "$results"

# measure WORKLOAD OPERATION CONTESTANT ROUND PROGRAM [ARGUMENT]...
measure() {
    local line
    line=$("$bin/$5" "${@:6}")
    echo "$1 $2 $3 $4 $line" >> "$results"
    rm -f "$out"
}

# mesh_round ROUND
mesh_round() {
    local numbers workload text binary
    for numbers in regular irregular; do
        workload=mesh
        [ $numbers = regular ] || workload=mesh-irregular
        text=$files/$workload-text.vkt
        binary=$files/$workload-binary.vkt
        for contestant in library from_chars stringstream; do
            measure $workload load-text $contestant "$1" bench_mesh $numbers load-text $contestant "$text"
        done
        # write() stands beside the library: it suffers from what a slow writer leaves behind.
        measure $workload save-text library "$1" bench_mesh $numbers save-text library "$out"
        measure $workload save-text write "$1" bench_machine write "$text" "$out"
        for contestant in to_chars ofstream; do
            measure $workload save-text $contestant "$1" bench_mesh $numbers save-text $contestant "$out"
        done
        measure $workload load-binary library "$1" bench_mesh $numbers load-binary library "$binary"
        for contestant in read read_memcpy; do
            measure $workload load-binary $contestant "$1" bench_machine $contestant "$binary"
        done
        measure $workload save-binary library "$1" bench_mesh $numbers save-binary library "$out"
        measure $workload save-binary write "$1" bench_machine write "$binary" "$out"
    done
}

# nodes_round ROUND
nodes_round() {
    local shape count workload form file peak
    for shape in deep wide mixed; do
        for count in 10000 100000 1000000; do
            workload=nodes-$shape-$count
            for form in text binary; do
                file=$files/$workload-$form.vkt
                measure $workload load-$form library "$1" bench_nodes $shape $count load-$form "$file"
                if [ $workload-$form = nodes-mixed-100000-text ]; then
                    measure $workload load-$form from_chars "$1" bench_nodes_from_chars $shape $count load-$form "$file"
                elif [ $workload-$form = nodes-mixed-1000000-binary ]; then
                    peak=$(tail -n 1 "$results" | cut -d ' ' -f 7)
                    measure $workload load-$form first_touch "$1" bench_machine first_touch "$peak"
                fi
                measure $workload save-$form library "$1" bench_nodes $shape $count save-$form "$out"
            done
        done
    done
}

# skin_round ROUND
skin_round() {
    local form file
    for form in text binary; do
        file=$files/skin-$form.vkt
        measure skin load-$form library "$1" bench_skin load-$form "$file"
        if [ $form = text ]; then
            measure skin load-$form from_chars "$1" bench_skin_from_chars load-$form "$file"
        else
            measure skin load-$form read_memcpy "$1" bench_machine read_memcpy "$file"
        fi
        measure skin save-$form library "$1" bench_skin save-$form "$out"
        measure skin save-$form write "$1" bench_machine write "$file" "$out"
    done
    measure prune prune library "$1" bench_prune prune
    measure prune prune copy "$1" bench_prune copy
}

# animation_round ROUND
animation_round() {
    local form file
    for form in text binary; do
        file=$files/animation-$form.vkt
        measure animation load-$form library "$1" bench_animation load-$form "$file"
        if [ $form = text ]; then
            measure animation load-$form from_chars "$1" bench_animation_from_chars load-$form "$file"
        else
            measure animation load-$form read "$1" bench_machine read "$file"
        fi
        measure animation save-$form library "$1" bench_animation save-$form "$out"
        measure animation save-$form write "$1" bench_machine write "$file" "$out"
    done
}

# Files to load, written by the library; their checksums take part in the comparison.
make_files() {
    local numbers shape count form workload
    for form in text binary; do
        if [ $only = all ] || [ $only = mesh ]; then
            for numbers in regular irregular; do
                workload=mesh
                [ $numbers = regular ] || workload=mesh-irregular
                measure $workload make-$form library 0 bench_mesh $numbers save-$form library \
                    "$files/$workload-$form.vkt"
            done
        fi
        if [ $only = all ] || [ $only = skin ]; then
            measure skin make-$form library 0 bench_skin save-$form "$files/skin-$form.vkt"
        fi
        if [ $only = all ] || [ $only = animation ]; then
            measure animation make-$form library 0 bench_animation save-$form "$files/animation-$form.vkt"
        fi
        if [ $only = all ] || [ $only = nodes ]; then
            for shape in deep wide mixed; do
                for count in 10000 100000 1000000; do
                    workload=nodes-$shape-$count
                    measure $workload make-$form library 0 bench_nodes $shape $count save-$form \
                        "$files/$workload-$form.vkt"
                done
            done
        fi
    done
}

echo "$(date -u +%F), $(nproc) x $(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -n 1), $(uname -sr)"
echo "load before: $(cut -d ' ' -f 1-3 /proc/loadavg)"
make_files
for ((round = 0; round < runs; ++round)); do
    measure machine first_touch machine $round bench_machine first_touch $((64 << 20))
    case $only in all | mesh) mesh_round $round ;; esac
    case $only in all | skin) skin_round $round ;; esac
    case $only in all | animation) animation_round $round ;; esac
    case $only in all | nodes) nodes_round $round ;; esac
done
echo "load after: $(cut -d ' ' -f 1-3 /proc/loadavg)"
"$bin/bench_summary" "$results" $clock
