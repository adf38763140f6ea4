#!/usr/bin/env bash
# pictures.sh [FOLDER]: takes the screenshots for the documents from the running program (TREVANDIX_PROGRAM), driven as
# in the window tests. The default FOLDER is docs/pictures.
. "$(dirname "$0")/../tests/window/lib.sh"
. "$window_root/tests/window/dialogs.sh"

pictures=$(realpath -m "${1:-$window_root/docs/pictures}")
mkdir -p "$pictures"

# shot NAME: the active window with its frame and an open menu, reduced to few colours.
shot() {
    local picture=$pictures/$1.png
    sleep 0.4 # until drawing has finished
    import -screen -frame -window "$(xdotool getactivewindow)" png:- |
        convert - -strip +dither -colors 128 -depth 8 -define png:compression-level=9 "$picture"
}

# shot_of NAME TITLE [KEY...]: the same for a dialog; the keys then close it.
shot_of() {
    await "$2"
    shot "$1"
    keys "${@:3}"
    await "$main"
}

plant=${folder%/*}/plant # a short path for the screenshots
mkdir "$plant"
trap 'finish; rm -r "$plant"' EXIT
cp "$window_root"/samples/*.xml "$plant"
start "$plant/water-works.xml"

go 2 # a branch
shot main-window
for view in i:icons s:small-icons l:list; do
    menu v "${view%:*}"
    shot "view-${view#*:}"
done
menu v r

menu o b
shot_of branch "$branch" Escape
open_dialog i "$item"
fill_item "holding register" Flow "m3/h" 100 6 3
shot item
keys alt+g
shot item-group
keys Return # adds one item
leave_dialog
go 3 Return
shot_of item-edit "$item" Escape
go 0
menu o u
shot_of unit-tcp "$unit" Escape
keys ctrl+f
shot_of find "Find Item" Escape
copied 'Chlorine\r\nConductance\r\nFlow_Rate\r\nRedox_Potential\r\n'
go 2 Tab ctrl+a
menu e Up Up Return
shot_of replace "Replace Text" Escape
keys F6
go 2 ctrl+e
shot_of change-items "Change Items" Escape
keys ctrl+d
await "Duplicate Branch"
shot duplicate
fill_text m 20
keys Return
await "Preview: Duplicate Branch"
shot preview
keys Escape
await "Duplicate Branch"
leave_dialog
keys ctrl+g
await "Go to Address"
fill_text a 1000
keys Return
shot_of go-to-address "Go to Address" Escape
keys ctrl+s
shot_of question "$box" Escape
menu a Return
until_true 5 eval '[ "$(active_title)" != "$main" ]' || fail "no about box"
shot about
keys Escape
await "$main"

go 1 F9
await "Register Map"
keys Down Down
shot_of map "Register Map" Escape

sed -e 's|>Conductivity</name>|>New_Item_1</name>|' -e '1,300s|<comment>start command|<comment>start \&amp; stop|' \
    -e 's|<address>101</address>|<address>100</address>|' "$plant/water-works.xml" >"$plant/faulty.xml"
keys ctrl+o
answer alt+n
await_file_dialog "Open as existing configuration"
type_path "$plant/faulty.xml"
await "$main"
until_loaded
keys F8
await "Problems"
keys Down
shot_of problems Problems Escape

go 2 Menu
shot table-menu
keys Escape
copied 'Unit,Branch,Name,New Name,Comment,Address\r\nDosing,ANALYSERS,Chlorine_Free,,"free chlorine, µg/l",110\r\n'\
'Dosing,ANALYSERS,Redox,Redox_Potential,"redox potential, mV",118\r\n'\
'Dosing,ANALYSERS.PH_METER,Value,,pH after dosing,114\r\n'
keys ctrl+shift+v
shot_of table-changes "Paste Table" Escape
copied 'Unit,Branch,Name,Comment,ModBus Type,Address,Data Type,Access Rights\r\n'\
'Dosing,ANALYSERS,Redox,"redox potential, mV",input register,16,unsigned 16 bit,READ\r\n'\
'Dosing,ANALYSERS,Chlorine_Total,"total chlorine, mg/l",input register,70000,32 bit float,READ\r\n'\
'Dosing,ANALYSERS.TURBIDITY,Value,NTU,input register,40,32 bit float,READ\r\n'\
'Dosing,ANALYSERS.TURBIDITY,New_Item_1,spare,input register,41,signed 16 bit,READ\r\n'
keys ctrl+shift+v
shot_of table-preview "Paste Table" Escape

find_item Air_Time Return # one of those that now overlap
leave_find
keys F9
shot_of map-overlap "Register Map" Escape

keys ctrl+n
await "Select ModBus interface"
shot select
keys Down Return
await "$main"
keys Down
menu o a
await "$types"
choose 4
shot_of data-type "$types" Escape
keys Up
menu o u
shot_of unit-rtu "$unit" Escape
keys alt+F4
answer alt+n
await_end
ls -l "$pictures"
