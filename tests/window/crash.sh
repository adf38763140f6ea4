#!/usr/bin/env bash
# The program is killed with unsaved work; the next start offers it, takes it back, and tidies up when it ends.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

if [ -n "$under_wine" ]; then
    state=$(winepath -u "$(wine cmd /c 'echo %LOCALAPPDATA%' | tr -d '\r')")/VOSKAutomation/trevandix-editor
else
    state=$XDG_STATE_HOME/trevandix-editor
fi

start
new_configuration
add_unit PLC1 10.0.0.5 7 1500
add_branch Unsaved
until_true 10 eval "grep -qs '<Unsaved>' '$state'/*.xml" || fail "the work is not kept: $(ls "$state" 2>&1)"
kill -9 "$editor"
{ wait "$editor"; } 2>"$folder/killed" || true

start_asked
answer alt+y
await "$main"
save_as "$folder/recovered.xml"
grep -q '<UNSAVED>' "$folder/recovered.xml" || fail "the work was not recovered"
grep -q 'PLC name="PLC1"' "$folder/recovered.xml" || fail "the unit was not recovered"
menu f x
await_end
[ -z "$(ls "$state")" ] || fail "left behind: $(ls "$state")"
