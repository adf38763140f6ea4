#!/usr/bin/env bash
# Undo and redo: deleting a branch, renaming a unit, pasting names and dropping a unit onto a unit.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

original=$window_root/samples/water-works.xml
cp "$original" "$folder/plant.xml"
start "$folder/plant.xml"
# 1 Dosing, 2 ANALYSERS, 10 CHLORINE (Dose_Actual, Dose_Setpoint)

go 2 Delete
answer alt+y "$main"
go 1 F2
await "$unit"
replaced Doses
confirm_dialog
copied 'Given\r\nWanted\r\n'
go 2 Tab ctrl+a
menu e Up Up Return
await "Replace Text"
confirm_dialog
steps Tab
save_as "$folder/changed.xml"
changes=$(grep -oE 'ANALYSERS|"Doses"|>(Given|Wanted)<' "$folder/changed.xml" | tr -d '\n')
[ "$changes" = '"Doses">Given<>Wanted<' ] || fail "unexpected changes: $changes"

go 2 Left
go 1 Left
drag 1 3 # Doses onto Intake
steps ctrl+z ctrl+z ctrl+z
keys Menu
steps Up Up Return # Undo, the entry above Redo
save_as "$folder/undone.xml"
same_bytes "$original" "$folder/undone.xml"

go 1 ctrl+y ctrl+shift+z ctrl+y
save_as "$folder/redone.xml"
same_bytes "$folder/changed.xml" "$folder/redone.xml"
leave_program
