#!/usr/bin/env bash
# tools/manual.sh FOLDER: converts docs/manual.md to FOLDER/manual.html, which F1 opens, and copies its pictures.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
folder=$1
# shellcheck source=tools/packages.sh
. "$root/tools/packages.sh"
install_packages python3-markdown

mkdir -p "$folder/pictures"
{
    printf '<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8">\n'
    printf '<meta name="viewport" content="width=device-width">\n'
    printf '<title>%s</title>\n<style>\n' "$(sed -n 's/^# //p' "$root/docs/manual.md" | head -n 1)"
    cat "$root/resources/manual.css"
    printf '</style></head><body>\n'
    /usr/bin/python3 -m markdown -x tables -x fenced_code -x sane_lists -x toc "$root/docs/manual.md"
    printf '</body></html>\n'
} >"$folder/manual.html"

# Copies only the pictures that the manual uses.
grep -oE '\]\(pictures/[^)]+\)' "$root/docs/manual.md" | sed 's/^](//; s/)$//' | sort -u | while read -r picture; do
    cp "$root/docs/$picture" "$folder/pictures/"
done
