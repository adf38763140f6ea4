# shellcheck shell=bash
# Shared functions of the window tests. A test drives the real program with real key presses and a real mouse pointer on
# its own virtual display, and checks the resulting files. TREVANDIX_PROGRAM is the program; one that ends in .exe runs
# under Wine (tools/windows.sh display provides the display and Wine's folder).
#
# Tests wait for conditions, not for fixed times, wherever possible: for the title of the active window, or for a file.
# After a failure, build/window-tests contains a screenshot and the program's output.

set -euo pipefail
window_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
flow=$(basename "$0" .sh)
program=$(realpath "${TREVANDIX_PROGRAM:-$window_root/build/release/trevandix-editor}")
results=$window_root/build/window-tests
under_wine=$([[ $program == *.exe ]] && echo yes || true)

main="VOSK Automation - Trevandix Configuration Editor"
box="Trevandix Configuration Editor"
export LC_ALL=C.UTF-8

folder=$(mktemp -d)
editor=
servers=() # display and window manager, if started here

# A separate home folder, so that the user's settings have no effect. Wine has its own.
if [ -z "$under_wine" ]; then
    export HOME=$folder/home XDG_CONFIG_HOME=$folder/config XDG_RUNTIME_DIR=$folder/run
    export XDG_STATE_HOME=$folder/state XDG_DATA_HOME=$folder/data XDG_CACHE_HOME=$folder/cache
    export GDK_BACKEND=x11 GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1 GTK_THEME=Adwaita
    unset WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS
    mkdir -p "$HOME" "$XDG_CONFIG_HOME"
    mkdir -m 700 "$XDG_RUNTIME_DIR"
    # Without -noreset the display restarts when its first client leaves, and refuses others meanwhile.
    Xvfb -displayfd 3 -noreset -screen 0 "${WINDOW_TEST_SCREEN:-1280x900}x24" -nolisten tcp 3>"$folder/display" 2>/dev/null &
    servers=($!)
    for _ in {1..200}; do if [ -s "$folder/display" ]; then break; else sleep 0.05; fi; done
    DISPLAY=:$(cat "$folder/display")
    export DISPLAY
    openbox >"$folder/openbox" 2>&1 &
    servers+=($!)
else
    rm -rf "${WINEPREFIX:?}"/drive_c/users/*/AppData/Local/VOSKAutomation # recovery files of a failed test
fi
mkdir -p "$results"

finish() {
    local code=$? picture=$results/$flow${under_wine:+-wine}.png
    if [ "$code" != 0 ]; then
        import -window root "$picture" 2>/dev/null || true
        cp "$folder/output" "${picture%.png}.log" 2>/dev/null || true
        echo "$flow: failed; picture: $picture" >&2
    fi
    if [ -n "$editor" ]; then kill "$editor" 2>/dev/null || true; fi
    if [ ${#servers[@]} != 0 ]; then kill "${servers[@]}" 2>/dev/null || true; fi
    rm -rf "$folder"
}
trap finish EXIT

fail() {
    local frame=0
    printf '%s: %s\n' "$flow" "$*" >&2
    while caller "$frame" >&2; do frame=$((frame + 1)); done
    exit 1
}

# until_true SECONDS COMMAND...: returns 0 when the command succeeds, 1 after SECONDS.
until_true() {
    local end=$((SECONDS + $1 + 1))
    shift
    until "$@"; do
        if [ "$SECONDS" -ge "$end" ]; then return 1; fi
        sleep 0.03
    done
}

active_title() { xdotool getactivewindow getwindowname 2>/dev/null; }
is_active() { [ "$(active_title)" = "$1" ] && [ "$(xdotool getwindowfocus getwindowname 2>/dev/null)" = "$1" ]; }

# Waits until the window with this title has the focus.
await() {
    until_true 15 is_active "$1" || fail "expected the window \"$1\", the active one is \"$(active_title)\""
    settle # Wine learns it later than the window manager
}

# Under Wine: waits until the program and Wine's server are idle, for three seconds at most. On a busy machine they wait
# for the CPU, which does not count as idle.
settle() {
    if [ -z "$under_wine" ]; then return; fi
    local calm=0 end=$((SECONDS + 3))
    while [ "$calm" -lt 5 ] && [ "$SECONDS" -lt "$end" ]; do
        sleep 0.01
        if at_work; then calm=0; else calm=$((calm + 1)); fi
    done
}
at_work() {
    local process thread state
    for process in "$editor" "${wine_servers[@]}"; do
        for thread in /proc/"$process"/task/*/stat; do
            { read -r state <"$thread"; } 2>/dev/null || continue
            state=${state##*) }
            case $state in R* | D*) return 0 ;; esac
        done
    done
    return 1
}

# The path in the program's notation.
native() {
    if [ -n "$under_wine" ]; then printf 'Z:%s' "${1//\//\\}"; else printf '%s' "$1"; fi
}

# start [FILE]: starts the program and waits until its window is shown and the file is open. start_asked expects a
# question instead.
start() {
    launch "$main" "$@"
    if [ $# -gt 0 ]; then until_loaded; fi
}
start_asked() { launch "$box" "$@"; }
launch() { # TITLE [FILE]
    local title=$1 command=("$program")
    shift
    if [ -n "$under_wine" ]; then command=(wine "$program"); fi
    if [ $# -gt 0 ]; then command+=("$(native "$1")"); fi
    until_true 10 xdotool get_desktop >/dev/null 2>&1 || fail "no window manager: $(cat "$folder/openbox")"
    "${command[@]}" >"$folder/output" 2>&1 &
    editor=$!
    main_id=
    wine_servers=()
    if [ -n "$under_wine" ]; then until_true 10 find_wine_servers || fail "Wine has no server"; fi
    until_true 30 is_active "$title" || fail "the program does not show the window \"$title\""
    said_at_start=$(wc -c <"$folder/output") # GTK always complains about the first toolbar layout
}
find_wine_servers() {
    local process
    for process in $(pgrep wineserver); do
        if grep -qzxF "WINEPREFIX=$WINEPREFIX" "/proc/$process/environ" 2>/dev/null; then wine_servers+=("$process"); fi
    done
    [ ${#wine_servers[@]} != 0 ]
}

# Waits for the program to end and checks its exit code and output.
await_end() {
    local code=0
    until_true 15 eval "! kill -0 $editor 2>/dev/null" || fail "the program did not end"
    wait "$editor" || code=$?
    editor=
    [ "$code" = 0 ] || fail "the program ended with code $code"
    if [ -n "$under_wine" ]; then return; fi
    if tail -c "+$((said_at_start + 1))" "$folder/output" | grep -E 'CRITICAL|assert' >&2; then
        fail "GTK printed warnings"
    fi
}

# Milliseconds between key presses; Wine loses faster ones.
if [ -n "$under_wine" ]; then key_delay=20; else key_delay=4; fi
keys() { xdotool key --delay "$key_delay" "$@"; }
typed() { xdotool type --delay "$key_delay" -- "$1"; }
times() { for ((n = 0; n < $1; ++n)); do printf '%s ' "$2"; done; }

# choose N: chooses the N-th entry, from 1, of the drop-down list that has the focus.
choose() {
    # shellcheck disable=SC2046
    keys Home $(times $(($1 - 1)) Down)
}

# replaced TEXT: replaces the text of the text box that has the focus.
replaced() {
    keys ctrl+a
    if [ -n "$1" ]; then typed "$1"; else keys BackSpace; fi
}

# answer KEY [TITLE]: answers the message box and waits for the window with this title. A new box may miss a key press,
# so this tries several times.
answer() {
    local asked
    await "$box"
    asked=$(xdotool getactivewindow)
    for _ in {1..5}; do
        keys "$1"
        if until_true 1 is_gone "$asked"; then
            if [ -n "${2:-}" ]; then await "$2"; fi
            return
        fi
    done
    fail "$1 does not answer the message box"
}
is_gone() { ! xdotool getwindowname "$1" >/dev/null 2>&1; }

# menu LETTER KEY...: opens a menu of the menu bar and presses further keys. Wine may lose keys before the menu is
# shown, or ignore them while a command runs.
menu() {
    if [ -z "$under_wine" ]; then
        keys "alt+$1" "${@:2}"
        return
    fi
    local windows
    windows=$(visible_windows)
    for _ in {1..5}; do
        keys "alt+$1"
        if until_true 1 eval '[ "$(visible_windows)" -gt "$windows" ]'; then
            settle
            steps "${@:2}"
            return
        fi
    done
    fail "the menu alt+$1 does not open"
}
visible_windows() { xdotool search --onlyvisible --class "$(basename "$program")" 2>/dev/null | wc -l; }

save_as() { # PATH [KEY of the command]
    if [ -n "${2:-}" ]; then keys "$2"; else menu f a; fi
    await_file_dialog "Save configuration"
    type_path "$1"
    await "$main"
    until_true 10 is_whole "$1" || fail "no whole file was written to $1"
}
is_whole() { tail -n 1 "$1" 2>/dev/null | grep -q '^</.*Cfg>'; }

# same_bytes EXPECTED WRITTEN
same_bytes() {
    cmp -s "$1" "$2" && return
    cp "$2" "$results/$flow.xml"
    diff <(cat -A "$1") <(cat -A "$2") >&2 || true
    fail "the file differs from the expected one; it is kept as build/window-tests/$flow.xml"
}

# published KIND PATH: checks the path that the server would find.
published() {
    local view value
    if [ -z "$under_wine" ]; then
        value=$XDG_CONFIG_HOME/VOSKAutomation/$1.ini
        until_true 5 grep -qsx "ConfigFile=$2" "$value" || fail "published is \"$(cat "$value")\", expected $2"
        return
    fi
    for view in 32 64; do # "reg query" prints only one code page
        wine reg export "HKLM\\Software\\VOSKAutomation\\$1" "$(native "$folder/published.reg")" /y "/reg:$view" >/dev/null
        value=$(iconv -f UTF-16 -t UTF-8 "$folder/published.reg" | tr -d '\r' | sed -n 's/^"ConfigFile"="\(.*\)"$/\1/p')
        [ "${value//\\\\/\\}" = "$(native "$2")" ] ||
            fail "published in view $view is \"$value\", expected \"$(native "$2")\""
    done
}

# Commands are refused while a file is read. Find changes nothing.
until_loaded() {
    until_true 60 find_opens || fail "the file is not open"
    keys Escape
    await "$main"
}
find_opens() {
    keys ctrl+f
    until_true 0 is_active "Find Item"
}

# holds TEXT: checks the text of the text box that has the focus, using the clipboard.
holds() {
    local value
    printf '' | xclip -selection clipboard
    keys ctrl+a ctrl+c
    until_true 5 eval '[ -n "$(xclip -o -selection clipboard 2>/dev/null)" ]' || fail "nothing was copied"
    value=$(xclip -o -selection clipboard)
    [ "$value" = "$1" ] || fail "the field holds \"$value\", expected \"$1\""
}

# Waits for the system's file dialog. GTK prints warnings if one closes while it still lists its folder.
await_file_dialog() { # TITLE
    await "$1"
    if [ -z "$under_wine" ]; then sleep 1; fi
}

# type_path PATH: types it into the system's file dialog.
type_path() {
    keys ctrl+a
    typed "$(native "$1")"
    keys Return
}

# Sets WINDOW, WIDTH and HEIGHT of the main window. Searches for its id only once, because a search fails if another
# window disappears meanwhile.
main_id=
main_window() {
    if [ -z "$main_id" ]; then until_true 10 find_main_window || fail "no main window"; fi
    eval "$(xdotool getwindowgeometry --shell "$main_id")"
}
find_main_window() {
    main_id=$(xdotool search --onlyvisible --name "^$main\$" 2>/dev/null | head -n 1) && [ -n "$main_id" ]
}

# click_list PERCENT ROW [OPTION...]: clicks a row of the list, or "header".
click_list() {
    main_window
    local top=79 height=23 row=$2
    if [ -n "$under_wine" ]; then top=64 height=16; fi
    if [ "$row" = header ]; then row=0; fi
    xdotool mousemove --window "$WINDOW" $((WIDTH * 41 / 100 + WIDTH * $1 * 59 / 10000)) $((top + height * row)) \
        click "${@:3}" 1
}

# A checksum of the list's picture; settled_list stores it in `picture` once it no longer changes.
list_picture() {
    main_window
    import -window "$WINDOW" -crop "$((WIDTH * 55 / 100))x$((HEIGHT * 6 / 10))+$((WIDTH * 42 / 100))+70" rgb:- | md5sum
}
settled_list() {
    local before=
    while
        picture=$(list_picture)
        [ "$picture" != "$before" ]
    do
        before=$picture
        sleep 0.1
    done
}

# Presses keys that each depend on the result of the one before. Wine accepts keys before it has shown that result.
steps() {
    if [ -z "$under_wine" ]; then
        if [ $# != 0 ]; then keys "$@"; fi
        return
    fi
    local key
    for key in "$@"; do
        keys "$key"
        settle
    done
}

# go ROW [KEY...]: selects a row of the tree, counted from 0, and presses further keys.
go() {
    # shellcheck disable=SC2046
    keys Home $(times "$1" Down)
    settle
    steps "${@:2}"
}

# Moves the pointer over a row of the tree.
move_to() {
    main_window
    local top=80 height=23
    if [ -n "$under_wine" ]; then top=63 height=16; fi
    xdotool mousemove --window "$WINDOW" 110 $((top + height * $1))
}

press_right() {
    move_to "$1"
    xdotool mousedown 3
    settle
}

# drag FROM TO: drags with the right button, across a row in between.
drag() {
    press_right "$1"
    move_to $((($1 + $2) / 2))
    settle
    move_to "$2"
    settle
    xdotool mouseup 3
    settle
}

# Puts a text in printf format on the clipboard.
copied() {
    # shellcheck disable=SC2059
    printf "$1" | xclip -selection clipboard
}

# menu_entry KEY TITLE: chooses an entry of the context menu. xdotool cannot wait for that menu, so this tries until the
# dialog opens.
menu_entry() {
    until_true 10 entry_opens "$@" || fail "the menu does not open \"$2\""
}
entry_opens() {
    sleep 0.2
    keys "$1"
    until_true 0 is_active "$2"
}
