#!/usr/bin/env bash
# screenshot.sh PROGRAM FILE PICTURE: opens FILE in PROGRAM on a virtual display and saves a screenshot.
set -euo pipefail
program=$1 file=$2 picture=$3
exec xvfb-run -a -s "-noreset -screen 0 1280x900x24" bash -s "$program" "$file" "$picture" <<'INNER'
set -euo pipefail
openbox &
manager=$!
"$1" "$2" &
editor=$!
trap 'kill $editor $manager 2>/dev/null || true' EXIT
window=$(timeout 60 xdotool search --sync --onlyvisible --name "Trevandix Configuration Editor" | head -n 1)
xdotool windowactivate --sync "$window" 2>/dev/null || true
sleep 2 # until drawing has finished
mkdir -p "$(dirname "$3")"
import -window root "$3"
echo "Screenshot from a virtual display: $3"
INNER
