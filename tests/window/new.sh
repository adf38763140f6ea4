#!/usr/bin/env bash
# Creates configurations by keyboard only. TCP/IP: all data types, a unit, nested branches, items of every table and
# value type added singly, in series and as a group; an item and a branch are edited; Save As, then Save. Serial RTU: a
# unit with all its lists, a cancelled dialog, an item that is first refused.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

start
new_configuration
keys Down # the ModBus folder
for entry in 1 2 3 4; do add_type "$entry"; done
keys Up
open_dialog u "$unit"
fill_unit PLC1 10.0.0.5 7 1500
confirm_dialog

open_dialog i "$item"
fill_item coil Run "" 5 1 3
fill_text a 5
keys ctrl+a x # not a digit: the address stays
keys alt+e
typed Coils # the name has the focus and is selected
fill_item coil "" "" 20 2 2
fill_text n 16
keys alt+e
fill_item "input status" Door "" 0 1 1
pasted c 'cabinet 1\r\ncabinet 2' # only the first line and cell
pasted a '3\t55'
confirm_dialog

add_branch Area
add_branch Tank1
open_dialog i "$item"
fill_item "holding register" "Le vel!&1" "tank level" 100 4 3 # the filter drops space and signs
keys alt+e alt+e
fill_item "holding register" Alarm "" 10 1 1 # bits that continue in the next register
fill_bit 14
keys alt+e alt+e alt+e
fill_item "input register" Temp probe 200 6 1
keys alt+g
keys Escape alt+g # closes the panel only
replaced 3
keys Return # presses the panel's button
fill_item "holding register" Flags "" 300 7 3
fill_bit 10
fill_text n 20
confirm_dialog

add_branch Types
open_dialog i "$item"
for type in {1..15}; do
    fill_item "holding register" "V$type" "" "$((500 + 10 * type))" "$type" 3
    case $type in
        1) fill_bit 3 ;;
        7) fill_bit 4 && fill_text n 5 ;;
        8 | 9 | 1?) fill_text n 2 ;;
    esac
    keys alt+e
done
leave_dialog

# Enter opens the dialog of an item and of a branch.
keys Down Return
await "$item"
fill_text i Edited
fill_text c "was V1"
confirm_dialog
keys Return
await "$branch"
replaced Kinds
confirm_dialog

save_as "$folder/new-tcp.xml"
same_bytes "$window_root/tests/window/expected/new-tcp.xml" "$folder/new-tcp.xml"
published TrevandixTcpIp "$folder/new-tcp.xml"

rm "$folder/new-tcp.xml"
keys ctrl+s # the file does not exist: no question
answer Return "$main"
same_bytes "$window_root/tests/window/expected/new-tcp.xml" "$folder/new-tcp.xml"

menu f c
new_configuration Down # Down must choose, not only move the focus
keys Down
add_type 4
keys Up
open_dialog u "$unit"
fill_unit Boiler 3 500 COM3
keys Tab
choose 5
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
open_dialog b "$branch"
replaced Nothing
leave_dialog
open_dialog b "$branch"
confirm_dialog # NewBranch0
open_dialog i "$item"
tables["holding register"]=1
fill_item "holding register" Level "" 65536 6 3
keys Return # above the last address
answer Return "$item"
fill_text a 65535
confirm_dialog
save_as "$folder/new-rtu.xml" ctrl+shift+s
same_bytes "$window_root/tests/window/expected/new-rtu.xml" "$folder/new-rtu.xml"
published TrevandixRTU "$folder/new-rtu.xml"
leave_program
