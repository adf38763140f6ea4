#!/usr/bin/env bash
# The manual's chapter "From one pump to twelve", step by step, and everything undone.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

# previewed TITLE: goes on from the dialog to its preview and confirms that.
previewed() {
    keys Return
    await "Preview: $1"
    confirm_dialog
}

start
new_configuration Down # serial
keys Down              # the ModBus folder
for entry in 1 2 3 4; do add_type "$entry"; done
keys Up
open_dialog u "$unit"
fill_unit Station1 1 1000 COM1
confirm_dialog
add_branch PUMP1
open_dialog i "$item"
fill_item coil Start "start pump 1" 0 1 3
keys alt+e
fill_item "holding register" Speed "speed of pump 1" 100 6 1
keys alt+e
fill_item "holding register" Hours "hours of pump 1" 102 3 1
confirm_dialog

keys ctrl+d
await "Duplicate Branch"
fill_text m 10
fill_text u 5
previewed "Duplicate Branch"

find_item Station1 Return
leave_find
keys ctrl+e
await "Change Items"
keys alt+a
choose 2 # comments
fill_text f "PUMP 1"
fill_text w "the pump"
previewed "Change Items"

keys ctrl+d
await "Duplicate Unit"
previewed "Duplicate Unit"

keys ctrl+e
await "Change Items"
fill_text b 0
previewed "Change Items"

keys ctrl+l
await "Line Settings"
keys alt+b
choose 3
previewed "Line Settings"

keys ctrl+g
await "Go to Address"
fill_text a 5
keys Return
await "$main"
keys Return
await "$item"
keys alt+i
holds Hours
leave_dialog

save_as "$folder/twelve.xml"
wanted=$(for pump in {0..5}; do echo $((102 + 10 * pump)) $((100 + 10 * pump)) $((10 * pump)); done
    for pump in {0..5}; do echo $((4 * pump)) $((4 * pump + 2)) "$pump"; done)
[ "$(grep -oP '<address>\K\d+' "$folder/twelve.xml" | paste -d ' ' - - -)" = "$wanted" ] || fail "wrong addresses"
grep -oP '<(PUMP\d|baudrate>\d+|comment>start .*(?=<))' "$folder/twelve.xml" | sort | uniq -c | tr -s ' \n' ' ' \
    >"$folder/parts"
[ "$(cat "$folder/parts")" = " 2 <PUMP1 2 <PUMP2 2 <PUMP3 2 <PUMP4 2 <PUMP5 2 <PUMP6 2 <baudrate>19200 12 <comment>start the pump " ] ||
    fail "wrong parts: $(cat "$folder/parts")"

keys ctrl+z ctrl+z ctrl+z ctrl+z ctrl+z
save_as "$folder/one.xml"
[ "$(grep -c '<PUMP' "$folder/one.xml")" = 1 ] || fail "not everything was undone"
leave_program
