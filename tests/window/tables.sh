#!/usr/bin/env bash
# Tables: copied and pasted where they come from, imported from a file with refused rows, and undone.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

original=$window_root/samples/water-works.xml
cp "$original" "$folder/plant.xml"
start "$folder/plant.xml"

# What is pasted where it was copied changes nothing, so Enter does nothing.
go 2 ctrl+shift+c
until_true 5 eval 'xclip -o -selection clipboard | grep -q "^Dosing.ANALYSERS.Redox"' || fail "nothing was copied"
xclip -o -selection clipboard >"$folder/table.txt"
keys ctrl+shift+v
await "Paste Table"
keys Return Escape
await_tree
save_as "$folder/same.xml"
same_bytes "$original" "$folder/same.xml"

# A row with another comment, a new item, and two rows that are refused.
{
    printf 'Unit;Branch;Name;Comment;ModBus Type;Data Type;Address;Access Rights\r\n'
    printf 'Dosing;ANALYSERS;Redox;Redox-Potential;input register;signed 16 bit;16;READ\r\n'
    printf 'Dosing;ANALYSERS.Spare;Turbidity;"NTU; spare";input register;32 bit float;30;READ\r\n'
    printf 'Dosing;ANALYSERS;Conductivity;;no table;signed 16 bit;16;READ\r\n'
    printf 'Nowhere;;Redox;;input register;signed 16 bit;16;READ\r\n'
} >"$folder/table.csv"
keys Menu
# Undo and Redo, which are disabled, are left out by GTK.
# shellcheck disable=SC2046
steps $(times "$(if [ -n "$under_wine" ]; then echo 5; else echo 3; fi)" Up) Return
await_file_dialog "Import table"
type_path "$folder/table.csv"
await "Import Table"
steps alt+o
confirm_dialog
save_as "$folder/changed.xml"
changes=$( (diff "$original" "$folder/changed.xml" || true) | grep -oE '^[<>].*<(comment|name|Spare)>.*' | tr -d '\t\r')
[ "$changes" = "< <comment>redox potential, mV</comment>
> <comment>Redox-Potential</comment>
> <Spare>
> <name>Turbidity</name>
> <comment>NTU; spare</comment>" ] || fail "unexpected changes: $changes"

steps ctrl+z
save_as "$folder/undone.xml"
same_bytes "$original" "$folder/undone.xml"
leave_program
