#!/usr/bin/env bash
# A file named on the command line: looked at in every way the list has, sorted by the mouse, saved through each answer
# of the overwrite question, closed and opened again; a file that is none; the question at the end.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

plant=$folder/plant.xml
cp "$window_root/samples/water-works.xml" "$plant"

# Told instead of starting, needs no display.
if [ -z "$under_wine" ]; then
    DISPLAY='' "$program" --help | grep '^Usage: ' >/dev/null || fail "--help shows no usage"
    code=0
    "$program" "$plant" "$plant" 2>"$folder/told" || code=$?
    [ "$code" = 2 ] || fail "two files end with code $code"
    grep 'one file at a time' "$folder/told" >/dev/null || fail "two files: $(cat "$folder/told")"
fi

open_file() {
    keys ctrl+o
    await "Open as existing configuration"
    type_path "$1"
}

start "$plant"

# The tree begins with its root, so the third row is a branch, which a double click opens.
move_to 2
xdotool click --repeat 2 --delay 60 1
await "$branch"
holds ANALYSERS
leave_dialog

# The ways of showing a branch's items differ, and the last is the first again. GTK shows small icons as a list.
keys Home Down Down # a branch
settled_list
report=$picture
for entry in i s ${under_wine:+l}; do
    before=$picture
    menu v "$entry"
    until_true 5 eval '[ "$(list_picture)" != "$before" ]' || fail "the list looks the same after View, $entry"
    settled_list
done
menu v r
until_true 5 eval '[ "$(list_picture)" = "$report" ]' || fail "View, Report is not what was shown at first"

# By comment, ascending also at the second click; a double click on the second row opens it.
for _ in 1 2; do click_list 60 header; done
click_list 10 2 --repeat 2 --delay 60
await "$item"
keys alt+i
holds Redox
leave_dialog

keys ctrl+s
answer Escape "$main" # neither yes nor no
keys ctrl+s
answer alt+n "Save configuration"
leave_dialog
same_bytes "$window_root/samples/water-works.xml" "$plant"
echo spoiled >"$plant"
keys ctrl+s
answer alt+y
answer alt+y # another program has changed the file
answer Return "$main"
same_bytes "$window_root/samples/water-works.xml" "$plant"
published TrevandixTcpIp "$plant"

menu f c
open_file "$plant"
await "$main"
until_loaded

# Closing asks after an edit; declined, the file stays as it was.
keys Home Down Down
add_branch Extra
menu f c
await "$box"
for key in Escape alt+F4; do # no answers: the question stays
    keys "$key"
    sleep 0.5
    await "$box"
done
answer alt+n "$main"
keys alt+F4
await_end
same_bytes "$window_root/samples/water-works.xml" "$plant"
