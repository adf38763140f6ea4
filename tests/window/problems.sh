#!/usr/bin/env bash
# Problems: the window opens, selects an object and follows its mending and the undo; F8 steps without it.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

problems=Problems

# listed TEXT: checks the objects in the window, using the clipboard.
listed() {
    printf '' | xclip -selection clipboard
    keys ctrl+a ctrl+c
    until_true 5 eval '[ -n "$(xclip -o -selection clipboard 2>/dev/null)" ]' || fail "nothing was copied"
    until_true 2 lists "$1" || fail "the window lists \"$(objects)\", expected \"$1\""
}
objects() { xclip -o -selection clipboard | tr -d '\r' | cut -f 1,2 | tr '\t\n' ' ,'; }
lists() { [ "$(objects)" = "$1" ]; }

# Closes a dialog or the window. Under Wine the window manager does not know which window gets the keyboard.
close_by() {
    keys "$1"
    await_tree
}

# opens NAME: opens the dialog of the selected item, which has this name. Afterwards the item's branch is selected.
opens() {
    await_tree
    keys Return
    await "$item"
    keys alt+i
    holds "$1"
}

plant=$folder/plant.xml
sed -e 's|>Conductivity</name>|>New_Item_1</name>|' -e '1,300s|<comment>start command|<comment>start \&amp; stop|' \
    "$window_root/samples/water-works.xml" >"$plant"
cmp -s "$plant" "$window_root/samples/water-works.xml" && fail "no faults were made"
start "$plant"

keys F8
await "$problems"
listed "error Intake.PUMPS.PUMP1.Start,error Intake.PUMPS.PUMP2.Start,warning Dosing.ANALYSERS.New_Item_1,"
keys Home Down Return
opens Start
fill_text c "start command"
close_by Return
keys ctrl+F8
await "$problems"
listed "error Intake.PUMPS.PUMP1.Start,warning Dosing.ANALYSERS.New_Item_1,"
close_by Escape

keys ctrl+z F8
opens Start
close_by Escape
keys F8
opens New_Item_1
close_by Escape
keys shift+F8 shift+F8 shift+F8
opens New_Item_1
close_by Escape

# A click on the field of the status bar, with no notice beside it.
keys Home
main_window
xdotool mousemove --window "$WINDOW" $((WIDTH - 100)) $((HEIGHT - 12)) click 1
await "$problems"
listed "error Intake.PUMPS.PUMP1.Start,error Intake.PUMPS.PUMP2.Start,warning Dosing.ANALYSERS.New_Item_1,"
close_by Escape
save_as "$folder/written.xml"
grep -c 'start & stop' "$folder/written.xml" | grep -qx 2 || fail "the undo did not bring the comment back"
leave_program
