#!/usr/bin/env bash
# What a screen reader is told of every window: each control has a name and a description, and the selected row of tree
# and list is said.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

# A bus of its own. What it starts for screen readers keeps its socket in the home that lib.sh has made; elsewhere it
# would take the place of another run's.
dbus-daemon --session --print-address=3 3>"$folder/bus" &
servers+=($!)
until_true 10 test -s "$folder/bus" || fail "no bus for screen readers"
DBUS_SESSION_BUS_ADDRESS=$(cat "$folder/bus")
export DBUS_SESSION_BUS_ADDRESS
unset NO_AT_BRIDGE

# told TITLE [NAME]: what is shown comes to the screen reader a little later.
told() {
    await "$1"
    until_true 5 asked "$@" || fail "$1: $(cat "$folder/told")"
}
asked() { /usr/bin/python3 "$window_root/tests/window/accessible.py" "$@" 2>"$folder/told"; }

plant=$folder/plant.xml
cp "$window_root/samples/water-works.xml" "$plant"
start "$plant"
go 2 # a branch
told "$main" "Configuration: ANALYSERS"
keys Tab Down
told "$main" "Contents: Conductivity"
keys alt+v l
keys Down
told "$main" "Contents: "
keys alt+v r shift+Tab Home Down Down

open_dialog b "$branch"
told "$branch" "Branch name"
leave_dialog
open_dialog i "$item"
told "$item" "Item Name"
keys alt+g
told "$item"
keys Escape # the panel
leave_dialog
keys Home alt+o u
told "$unit" "Unit Name"
leave_dialog
keys ctrl+f
told "Find Item" "Type the name"
leave_dialog
copied 'Chlorine\r\nConductance\r\nRedox_Potential\r\n'
go 2 Tab ctrl+a alt+e Up Up Return
told "Replace Text" Confirm
leave_dialog
keys alt+a Return
told "About Trevandix Configuration Editor" Ok
leave_dialog
keys ctrl+n
told "Select ModBus interface"
confirm_dialog
keys Down alt+o a
told "$types" # a list of this toolkit tells nobody that it has the keyboard
leave_dialog
keys alt+F4
answer alt+n
await_end
