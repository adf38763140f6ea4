#!/usr/bin/env bash
# Random input in the real main window: after each step, selection, rows and tree must agree with the editor.
. "$(dirname "$0")/lib.sh"

user=("$(dirname "$program")/trevandix-random-user")
if [ -n "$under_wine" ]; then user=(wine "$window_root/build/windows-obj/trevandix-random-user.exe"); fi
until_true 10 xdotool get_desktop >/dev/null 2>&1 || fail "no window manager: $(cat "$folder/openbox")"
"${user[@]}" 250 1 || fail "the window and the editor do not agree"
