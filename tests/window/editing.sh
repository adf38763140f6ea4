#!/usr/bin/env bash
# Copy, cut, paste and delete in list and tree, moving and copying by dragging, names and comments from the clipboard,
# the find window, and the context menu. The comments show the tree with row numbers from 0.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

plant=$folder/plant.xml
cp "$window_root/tests/window/expected/editing-start.xml" "$plant"
start "$plant"
# 0 file, 1 ModBus, 2 PLC1, 3 AREA (Level, Mode, Speed), 7 POOL (8 NEST (Valve), Run), 11 SPARE

go 3 Tab ctrl+a ctrl+c Tab # from the list
go 11 ctrl+v
steps ctrl+v # again: the names exist now
answer Return "$main"
go 4 ctrl+x # Level, from the tree
answer alt+y "$main"
go 7 ctrl+v
go 4 ctrl+c # Mode, into its own branch
go 3 ctrl+v
# 3 AREA (Mode, Mode_0, Speed), 7 POOL (8 NEST (Level, Valve), Run), 12 SPARE (Level, Mode, Speed)

go 12 Tab End Delete # Speed, in the list
answer alt+y "$main"
steps Tab
# After No, nothing is deleted.
go 12 Delete
answer alt+n "$main"

drag 11 3 # Run
# 3 AREA (Mode, Mode_0, Run, Speed), 8 POOL (9 NEST (Level, Valve)), 12 SPARE (Level, Mode)
drag 6 4 # an item accepts no drop
answer Return "$main"
press_right 7
move_to 12
keys Escape
xdotool mouseup 3
xdotool keydown ctrl
drag 9 12
xdotool keyup ctrl
# 12 SPARE (Level, Mode, 15 NEST (Level, Valve))

copied 'First\r\n Second \r\nThird\r\nFourth\r\n'
go 3 Tab ctrl+a
menu e Up Up Return
await "Replace Text"
confirm_dialog
copied 'one\ntwo\nthree\nfour'
steps ctrl+a
menu e Up Return
await "Replace Text"
leave_dialog
menu e Up Return
await "Replace Text"
confirm_dialog
steps Tab
go 3 # sorts the new names

# Find Next skips the first match, SPARE; F3 does the same.
while read -r text key name; do
    find_item "$text" "$key"
    keys Return
    await "$item"
    holds "$name"
    keys Escape
    await_tree
done <<<'S F3 Second
FOU Return Fourth'
leave_find

go 12 Menu
menu_entry b "$branch"
replaced Menu1
confirm_dialog
press_right 12
xdotool mouseup 3
menu_entry b "$branch"
leave_dialog

save_as "$folder/editing.xml"
same_bytes "$window_root/tests/window/expected/editing.xml" "$folder/editing.xml"
leave_program
