#!/usr/bin/env bash
# A path with letters of many scripts: opened from the command line, saved, saved with a change, published.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

plants="$folder/Αντλίες 水 💧"
plant="$plants/насос Ωmega 泵 🏭.xml"
mkdir "$plants"
cp "$window_root/samples/water-works.xml" "$plant"

save() {
    local boxes
    keys ctrl+s
    for ((boxes = $1; boxes > 0; --boxes)); do answer alt+y; done
    answer Return
    await "$main"
}

start "$plant"
until_loaded
echo spoiled >"$plant"
save 2 # another program has changed the file; overwrite it
same_bytes "$window_root/samples/water-works.xml" "$plant"
published TrevandixTcpIp "$plant"

keys Home Down Down
add_branch Added
save 1
grep -q '<Added>' "$plant" || fail "the change was not saved"
published TrevandixTcpIp "$plant"
[ "$(ls "$plants")" = "$(basename "$plant")" ] || fail "there is more than the file: $(ls "$plants")"
menu f x
await_end
