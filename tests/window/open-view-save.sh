#!/usr/bin/env bash
# Opens a file from the command line, shows it in all view modes, sorts it with the mouse, saves it with each answer to
# the overwrite question, closes it and opens it again; then an invalid command line and the question when leaving.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

plant=$folder/plant.xml
cp "$window_root/samples/water-works.xml" "$plant"

# These print a text instead of starting, without a display.
if [ -z "$under_wine" ]; then
    DISPLAY='' "$program" --help | grep '^Usage: ' >/dev/null || fail "--help shows no usage"
    code=0
    "$program" "$plant" "$plant" 2>"$folder/told" || code=$?
    [ "$code" = 2 ] || fail "two files end with code $code"
    grep 'one file at a time' "$folder/told" >/dev/null || fail "two files: $(cat "$folder/told")"
fi

open_file() {
    keys ctrl+o
    await_file_dialog "Open as existing configuration"
    type_path "$1"
}

start "$plant"

# The third row is a branch; a double click opens its dialog.
move_to 2
xdotool click --repeat 2 --delay 60 1
await "$branch"
holds ANALYSERS
leave_dialog

# The view modes look different, and Report restores the first view. GTK shows small icons as a list.
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
until_true 5 eval '[ "$(list_picture)" = "$report" ]' || fail "View, Report differs from the first view"

# Sorts by comment, ascending even at the second click; a double click opens the second row.
for _ in 1 2; do click_list 60 header; done
click_list 10 2 --repeat 2 --delay 60
await "$item"
keys alt+i
holds Redox
leave_dialog

keys ctrl+s
answer Escape "$main" # is Cancel
keys ctrl+s
answer alt+n
await_file_dialog "Save configuration"
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

# Close asks after an edit; after No the file is unchanged.
keys Home Down Down
add_branch Extra
menu f c
await "$box"
for key in Escape alt+F4; do # these do not answer the question
    keys "$key"
    sleep 0.5
    await "$box"
done
answer alt+n "$main"
keys alt+F4
await_end
same_bytes "$window_root/samples/water-works.xml" "$plant"
