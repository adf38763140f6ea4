#!/usr/bin/env bash
# A serial RTU configuration by keys alone, with what goes wrong on the way: a failed unit check closes the dialog, a
# refused name keeps it open, cancelled dialogs leave nothing behind.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"
declare -A tables=(["holding register"]=1)

# serial NAME IDENTIFIER PORT BAUD: the dialog filled, not confirmed; baud rate by its place in the list.
serial() {
    open_dialog u "$unit"
    fill_unit "$1" "$2" 500 "$3"
    keys Tab
    choose "$4"
}

start
new_configuration Down # chooses, not merely moves
keys Down
add_type 4
keys Up
serial Boiler 3 COM3 5
keys Tab
choose 2 # even parity
keys Tab
replaced 7
leave_combo
replaced 2
leave_combo
choose 2 # hardware flow control
keys Tab
replaced 25
confirm_dialog
keys Home

serial Burner 4 COM3 3 # the same port at another rate
keys Return
answer Return "$main"
serial Boiler 4 COM4 3 # the name is taken: the dialog stays
keys Return
answer Return "$unit"
fill_text u Burner
confirm_dialog

open_dialog b "$branch"
replaced Nothing
leave_dialog
open_dialog b "$branch"
confirm_dialog # NewBranch0
open_dialog i "$item"
fill_item "holding register" Level "" 65536 6 3
keys Return # beyond the last address
answer Return "$item"
fill_text a 65535
keys alt+e
leave_dialog
open_dialog i "$item"
fill_item "holding register" Low "" 40 15 2
fill_text n 12
confirm_dialog

save_as "$folder/new-rtu.xml" ctrl+shift+s
same_bytes "$window_root/tests/window/expected/new-rtu.xml" "$folder/new-rtu.xml"
published TrevandixRTU "$folder/new-rtu.xml"
menu f c
leave_program
