#!/usr/bin/env bash
# Renews the generated chapter of docs/file-format.md from the tables of the built tool.
# An argument names another tool than that of the release build.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
tool="${1:-$root/build/release/bin/vkt}"
document="$root/docs/file-format.md"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
"$tool" types --markdown >"$work/tables"
awk -v tables="$work/tables" '
    /^<!-- generated: end -->$/ { inside = 0 }
    !inside { print }
    /^<!-- generated: begin -->$/ {
        inside = 1
        while ((getline line < tables) > 0)
            print line
    }
' "$document" >"$work/document"
cat "$work/document" >"$document"
