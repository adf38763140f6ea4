#!/usr/bin/env bash
# Unpacks the portable zip, made from TREVANDIX_PROGRAM, into a folder with spaces and umlauts. The program must open
# and publish its own sample, and F1 must open its own manual.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

unpacked="$folder/Größe und Menge"
unzip -q "$(dirname "$program")/trevandix-editor.zip" -d "$unpacked"
cmp -s "$program" "$unpacked/trevandix-editor/trevandix-editor.exe" || fail "the zip contains another program"
program=$unpacked/trevandix-editor/trevandix-editor.exe

# Replaces the browser, which Wine does not have, with a script that copies the file it is given.
classes='HKLM\Software\Classes'
kept=$(native "$folder/shown.html")
printf 'new ActiveXObject("Scripting.FileSystemObject").CopyFile(WScript.Arguments.Item(0), "%s");' \
    "${kept//\\/\\\\}" >"$folder/keep.js"
forget_browser() { for key in .html shown; do wine reg delete "$classes\\$key" /f >/dev/null 2>&1 || true; done; }
trap 'finish; forget_browser' EXIT
wine reg add "$classes\\.html" /ve /d shown /f >/dev/null
wine reg add "$classes\\shown\\shell\\open\\command" /ve /f >/dev/null \
    /d "wscript.exe \"$(native "$folder/keep.js")\" \"%1\""

sample=$unpacked/trevandix-editor/samples/boiler-house-rtu.xml
start "$sample"
keys F1
until_true 20 cmp -s "$unpacked/trevandix-editor/manual/manual.html" "$folder/shown.html" || fail "F1 shows nothing"
keys ctrl+s
answer alt+y
answer Return "$main"
published TrevandixRTU "$sample"
leave_program
