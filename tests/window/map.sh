#!/usr/bin/env bash
# Register Map: F9 opens it, keys, wheel and clicks reach items, it shows an edit and its undo, and copies a free address.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

map="Register Map"

# shows NAME: opens the dialog of the current block, whose item has this name, and leaves it again.
shows() {
    keys Return
    names "$1"
}
names() {
    await "$item"
    keys alt+i
    holds "$1"
    keys Escape
    await "$map"
}
close_map() {
    keys Escape
    await_tree
}

# Its last item gets so long that it fills the window.
plant=$folder/plant.xml
sed "/<address>310</,/<.tag>/s/<elements>12</<elements>4000</" "$window_root/samples/water-works.xml" >"$plant"
grep -c '<elements>4000<' "$plant" | grep -qx 1 || fail "no item is long"
start "$plant"
go 1 F9 # a unit
await "$map"
keys Right Right
shows Empty
keys Return
await "$item"
keys alt+i
replaced Works
keys Return
await "$map"
shows Works
keys ctrl+z
shows Empty

keys End Left
shows Filled
eval "$(xdotool getactivewindow getwindowgeometry --shell)"
xdotool mousemove --window "$WINDOW" $((WIDTH / 2)) $((HEIGHT / 2)) click --repeat 6 --delay 50 5
settle
xdotool click 1
shows Batch_Number
keys Left
# Elsewhere, so that the click before is no part of a double click.
xdotool mousemove_relative 30 0 click --repeat 2 --delay 60 1
names Batch_Number

# The current block proposes its type.
copied nothing
keys Home alt+f
await "Next Free Address"
keys Return
await "$map"
until_true 5 eval '[ "$(xclip -o -selection clipboard)" = 24 ]' || fail "copied is $(xclip -o -selection clipboard)"
close_map
leave_program
