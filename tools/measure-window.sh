#!/usr/bin/env bash
# tools/measure-window.sh PROGRAM [ITEMS]: measures common actions in the real window, with a file of ITEMS items
# (default: 100,000), a tenth of them in one branch. Uses its own virtual display. A program that ends in .exe runs
# under Wine; start the script with "tools/windows.sh display" then.
#
# Prints the CPU time of the program's main thread from a key press until the program is idle again, so other work on
# the machine does not count. This includes drawing in many short steps, so the window is blocked for less time than
# that. For a Windows program, window-answers.cpp also measures how long the window does not answer; this does depend on
# other work on the machine.
set -euo pipefail
program=$(realpath "$1")
items=${2:-100000}
main="VOSK Automation - Trevandix Configuration Editor"
box="Trevandix Configuration Editor"

if [ -z "${WINDOW_TEST_DISPLAY:-}" ] && [[ $program != *.exe ]]; then
    export WINDOW_TEST_DISPLAY=own
    exec xvfb-run -a -s "-noreset -screen 0 1280x900x24 -nolisten tcp" bash "$0" "$@"
fi

folder=$(mktemp -d)
trap 'kill $editor $manager 2>/dev/null || true; rm -rf "$folder"' EXIT
editor="" manager=""
export HOME=${WINEPREFIX:+$HOME}
HOME=${HOME:-$folder}
if [[ $program != *.exe ]]; then
    export XDG_CONFIG_HOME=$folder XDG_STATE_HOME=$folder GDK_BACKEND=x11 GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1
    openbox >/dev/null 2>&1 &
    manager=$!
fi

plant() {
    awk -v items="$items" '
        function line(text) { printf "%s\r\n", text }
        function branch(name, from, to,   i) {
            line("\t\t\t\t<" name ">")
            for (i = from; i < to; i++)
                printf "\t\t\t\t\t<tag>\r\n\t\t\t\t\t\t<name>Signal_%d</name>\r\n\t\t\t\t\t\t<comment>measured value %d</comment>\r\n" \
                    "\t\t\t\t\t\t<address>%d</address>\r\n\t\t\t\t\t\t<datatype>%s VT_I2</datatype>\r\n" \
                    "\t\t\t\t\t\t<accessrights>READ</accessrights>\r\n\t\t\t\t\t</tag>\r\n", i, i * 7919 % items, i * 31 % 65536, i < 65536 ? "HREGISTER" : "IREGISTER"
            line("\t\t\t\t</" name ">")
        }
        BEGIN {
            line("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"); line("<VOSKModBusTcpIpCfg>"); line("\t<MODBUS>")
            line("\t\t<DATATYPE name=\"HREGISTER\" readcode = \"3\" writecode=\"16\" singlewrcode=\"6\"/>")
            line("\t\t<DATATYPE name=\"IREGISTER\" readcode = \"4\" writecode=\"0\" singlewrcode=\"0\"/>")
            line("\t</MODBUS>"); line("\t<OPC_DA>")
            line("\t\t<PLC name=\"A\" address = \"10.0.0.1\" id=\"1\" timeout=\"1000\">"); line("\t\t\t<tags>")
            branch("ALL", 0, items / 10)
            for (at = items / 10; at < items; at += 100) branch("GROUP" at, at, at + 100)
            line("\t\t\t</tags>"); line("\t\t</PLC>"); line("\t</OPC_DA>"); line("</VOSKModBusTcpIpCfg>")
        }' >"$1"
}

# CPU time so far, in milliseconds.
busy() { awk '{ printf "%d\n", $1 / 1000000 }' "/proc/$thread/task/$thread/schedstat"; }

# Waits until the program is idle and prints the CPU time used since $1.
rested() {
    local since=$1 before=-1 now still=0
    while [ $still -lt 6 ]; do
        sleep 0.1
        now=$(busy)
        if [ $((now - before)) -le 3 ]; then still=$((still + 1)); else still=0; fi
        before=$now
    done
    echo $((now - since))
}

# Prints the longest time, in ms, for which a Windows program's window did not answer since the last call; "-" for
# others.
silent() {
    if [[ $program != *.exe ]]; then
        echo -
        return
    fi
    local _
    : >"$folder/silent"
    for _ in {1..100}; do if [ -s "$folder/silent" ]; then break; else sleep 0.05; fi; done
    cat "$folder/silent"
}

# measured WHAT ACTION...: performs the action and prints its cost.
measured() {
    local what=$1 start spent
    shift
    rested 0 >/dev/null
    silent >/dev/null
    start=$(busy)
    "$@"
    spent=$(rested "$start")
    printf '| %s | %s | %s |\n' "$what" "$spent" "$(silent)"
}

# measure WHAT KEY...: presses the keys one after the other and measures the last one.
measure() {
    local what=$1 last=${*: -1}
    shift
    if [ $# -gt 1 ]; then xdotool key --delay 20 "${@:1:$#-1}"; fi
    measured "$what" xdotool key "$last"
}

# Clicks the header of the comments, whose order differs from that of the names.
sort_column() {
    local WINDOW WIDTH HEIGHT top=79
    if [[ $program == *.exe ]]; then top=64; fi
    eval "$(xdotool getactivewindow getwindowgeometry --shell)"
    xdotool mousemove --window "$WINDOW" $((WIDTH * 70 / 100)) $top
    measured "sort them by their comments" xdotool click 1
}

# scroll WHAT X Y: turns the mouse wheel at a point of the window, two notches per frame of 60 Hz, and prints the cost
# per frame. Scrolling is smooth if a frame takes much less than 16 ms.
scroll() {
    local frames=100 start
    xdotool mousemove --window "$(xdotool getactivewindow)" "$2" "$3"
    rested 0 >/dev/null
    start=$(busy)
    xdotool click --repeat $((frames * 2)) --delay 8 5
    awk -v what="$1" -v spent="$(rested "$start")" -v frames=$frames \
        'BEGIN { printf "| %s | %.1f | |\n", what, spent / frames }'
}

await() {
    local _
    for _ in {1..600}; do
        if [ "$(xdotool getactivewindow getwindowname 2>/dev/null)" = "$1" ]; then return; fi
        sleep 0.05
    done
    echo "no window \"$1\"" >&2
    exit 1
}

# Closes the find window. Under Wine the keyboard is in the main window, so it must be closed with the mouse.
leave_find() {
    local WINDOW WIDTH HEIGHT
    if [[ $program == *.exe ]]; then
        eval "$(xdotool getwindowgeometry --shell "$(xdotool search --onlyvisible --name "^Find Item$")")"
        xdotool mousemove --window "$WINDOW" $((WIDTH - 40)) $((HEIGHT - 25)) click 1
    else
        xdotool key Escape
    fi
    await "$main"
}

start_program() { # FILE
    if [[ $program == *.exe ]]; then wine "$program" "Z:${1//\//\\}" & else "$program" "$1" & fi
    editor=$!
    thread=$editor
    await "$main"
}

if [[ $program == *.exe ]]; then
    x86_64-w64-mingw32-g++-posix -std=c++20 -O2 -static -municode -o "$folder/answers.exe" "$(dirname "$0")/window-answers.cpp"
fi
plant "$folder/plant.xml"
start_program "$folder/plant.xml" 2>/dev/null
printf '| on %s items | ms | longest without an answer, ms |\n|---|---|---|\n' "$items"
printf '| start and open | %s | |\n' "$(rested 0)"
if [[ $program == *.exe ]]; then wine "$folder/answers.exe" "$main" "Z:${folder//\//\\}\\silent" 2>/dev/null & fi
measure "select the unit" Home Down
measure "select a branch of a tenth" Down
scroll "scroll its rows, each frame" 700 300
scroll "scroll the tree, each frame" 200 300
measure "open the register map of the unit" Home Down F9
await "Register Map"
scroll "scroll it, each frame" 300 300
measure "go to its last block" End
measure "go to the block before" Left
xdotool key Escape
await "$main"
measure "select the branch again" Home Down Down
xdotool key Tab
measure "select all its rows" ctrl+a
sort_column
measure "close the whole tree" Home shift+Tab Home Left
measure "open it again" Right
xdotool key ctrl+f
await "Find Item"
xdotool type "Signal_$((items - 1))"
measure "find the last item" Return
leave_find
measure "select the item found" Up Down
measure "select the branch again" Home Down Down
xdotool key ctrl+e
await "Change Items"
xdotool key alt+f
xdotool type Signal
xdotool key alt+w
xdotool type Value
measure "show new names of the branch's items" Return
await "Preview: Change Items"
measure "give them these names" Return
await "$main"
measure "undo that" ctrl+z
xdotool key ctrl+e
await "Change Items"
xdotool key alt+v 1 Return
await "Preview: Change Items"
measure "move their addresses" Return
await "$main"
xdotool key ctrl+z
measure "open the item dialog" alt+o i
await "Item Properties"
xdotool key alt+m Home alt+d Home alt+r Home alt+i
xdotool type Added
xdotool key alt+a
xdotool type 1
measure "add an item" Return
# Above 32,767 items a message box reports that the item counter is full.
until [ "$(xdotool getactivewindow getwindowname)" = "$main" ]; do
    xdotool key Escape
    sleep 0.3
done
xdotool key Tab ctrl+a Delete
await "$box"
measure "delete all rows of the branch" Return
measure "undo that" ctrl+z
measure "redo it" ctrl+y
xdotool key ctrl+s
await "$box"
measure "save" Return
await "$box"
xdotool key Return
await "$main"

# changed_table AWK: changes the table in the clipboard by a program for awk.
changed_table() {
    xclip -o -selection clipboard >"$folder/table.txt"
    awk -F'\t' -v OFS='\t' "$1" "$folder/table.txt" | xclip -i -selection clipboard
}
xdotool key shift+Tab Home
measure "copy all items as a table" ctrl+shift+c
for change in 'comments and addresses:NR > 1 { $5 = $5 "b"; $7 = ($7 + 1) % 65536 } 1' 'added items:NR > 1 { $2 = $2 "_New" } 1'; do
    changed_table "${change#*:}"
    measure "preview of a table, ${change%%:*}" ctrl+shift+v
    await "Paste Table"
    scroll "scroll it, each frame" 700 400
    measure "apply it" Return
    await "$main"
done
