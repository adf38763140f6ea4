#!/usr/bin/env bash
# Checks what a screen reader gets: each control has a name and a description, the selected row of tree and list is
# announced, and the status bar tells what a command did.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

# A separate bus. The accessibility service keeps its socket in the home folder made by lib.sh, so that runs do not
# disturb each other.
dbus-daemon --session --print-address=3 3>"$folder/bus" &
servers+=($!)
until_true 10 test -s "$folder/bus" || fail "the D-Bus session did not start"
DBUS_SESSION_BUS_ADDRESS=$(cat "$folder/bus")
export DBUS_SESSION_BUS_ADDRESS
unset NO_AT_BRIDGE

# told TITLE [TEXT]: tries for a while, because screen readers get changes with a delay.
told() {
    await "$1"
    until_true 5 asked "$@" || fail "$1: $(cat "$folder/told")"
}
asked() { /usr/bin/python3 "$window_root/tests/window/accessible.py" "$@" 2>"$folder/told"; }

plant=$folder/plant.xml
sed 's|>Redox</name>|>New_Item_1</name>|' "$window_root/samples/water-works.xml" >"$plant"
start "$plant"
go 2 # a branch
told "$main" "Configuration: ANALYSERS"
keys Tab Down
told "$main" "Contents: Conductivity"
keys alt+v l
keys Down
told "$main" "Contents: "
keys alt+v r shift+Tab Home Down Down

keys Delete
answer alt+y "$main"
keys ctrl+z
told "$main" "Undone: Delete branch ANALYSERS. Ctrl+Y redoes it"

open_dialog b "$branch"
told "$branch" "Branch name"
leave_dialog
open_dialog i "$item"
told "$item" "Item Name"
keys alt+g
told "$item"
keys Escape # closes the panel
leave_dialog
keys Home alt+o u
told "$unit" "Unit Name"
leave_dialog
keys ctrl+f
told "Find Item" "Type the name"
leave_dialog
for dialog in "e:Change Items" "d:Duplicate Unit" "g:Go to Address"; do
    go 1 "ctrl+${dialog%%:*}"
    told "${dialog#*:}"
    leave_dialog
done
copied 'Chlorine\r\nConductance\r\nRedox_Potential\r\n'
go 2 Tab ctrl+a alt+e Up Up Return
told "Replace Text" Confirm
leave_dialog
keys F8
told "Problems" "Problems: warning Dosing.ANALYSERS.New_Item_1"
leave_dialog
go 2 F9
told "Register Map" "Register Map: Dosing.CHLORINE.PUMP.Fault, input status 20"
keys Right
told "Register Map" "Register Map: Dosing.CHLORINE.PUMP.Running, input status 21"
keys alt+f
told "Next Free Address" # a GTK drop-down list does not announce the focus
keys Escape
await "Register Map"
leave_dialog
keys alt+a Return
told "About Trevandix Configuration Editor" Ok
leave_dialog
keys ctrl+n
told "Select ModBus interface"
confirm_dialog
keys Down alt+o a
told "$types" # a GTK drop-down list does not announce the focus
leave_dialog
keys alt+F4
answer alt+n
await_end
