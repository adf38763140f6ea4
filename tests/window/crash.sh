#!/usr/bin/env bash
# Kills the program with unsaved work. The next start offers the work, recovers it, and cleans up when it ends. Opening,
# saving and publishing also work with a path in several scripts.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

if [ -n "$under_wine" ]; then
    state=$(winepath -u "$(wine cmd /c 'echo %LOCALAPPDATA%' | tr -d '\r')")/VOSKAutomation/trevandix-editor
else
    state=$XDG_STATE_HOME/trevandix-editor
fi
plants="$folder/Αντλίες 水 💧"
plant="$plants/насос Ωmega 泵 🏭.xml"
mkdir "$plants"
cp "$window_root/samples/water-works.xml" "$plant"

start "$plant"
go 2 # a branch
add_branch Unsaved
until_true 10 eval "grep -qs '<Unsaved>' '$state'/*.xml" || fail "unsaved work was not written: $(ls "$state" 2>&1)"
kill -9 "$editor"
{ wait "$editor"; } 2>"$folder/killed" || true

start_asked
answer alt+y "$main"
until_loaded
keys ctrl+s
answer alt+y
answer Return "$main"
grep -q '<UNSAVED>' "$plant" || fail "the work was not recovered"
[ "$(grep -vc UNSAVED "$plant")" = "$(wc -l <"$window_root/samples/water-works.xml")" ] || fail "other lines changed too"
published TrevandixTcpIp "$plant"
[ "$(ls "$plants")" = "$(basename "$plant")" ] || fail "unexpected files: $(ls "$plants")"

leave_program
[ -z "$(ls "$state")" ] || fail "files left behind: $(ls "$state")"
