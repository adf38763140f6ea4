#!/usr/bin/env bash
# Deleting many items, and undoing that, takes time. Meanwhile the program must answer, and commands must act on the
# right nodes.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

# items NAME COUNT: a branch with COUNT items.
items() {
    printf '<%s>\n' "$1"
    seq -f "<tag><name>$1_%05.0f</name><comment/><address>1</address><datatype>HREGISTER VT_I2</datatype>" "$2" |
        sed 's|$|<accessrights>READ</accessrights></tag>|'
    printf '</%s>\n' "$1"
}
many=100000
if [ -n "$under_wine" ]; then many=30000; fi
{
    echo '<VOSKModBusTcpIpCfg><OPC_DA><PLC name="A" address="10.0.0.1" id="1" timeout="1000"><tags>'
    items FIRST $many
    items SECOND 1000
    items THIRD 1
    echo '</tags></PLC></OPC_DA></VOSKModBusTcpIpCfg>'
} >"$folder/plant.xml"
start "$folder/plant.xml"

go 2 Tab ctrl+a
keys Delete
answer alt+y
until_true 15 is_active "$main" # does not wait until the lines are removed
keys Tab Left Down Delete # the branch after the lines being removed
answer alt+y
until_true 15 is_active "$main"
keys Up Return # must open a branch, not a line that is being removed
await "$branch"
leave_dialog
find_item FIRST Return
leave_find
add_branch ADDED

save_as "$folder/written.xml"
left=$(grep -oE '<tag>|</?(FIRST|SECOND|ADDED|THIRD)>' "$folder/written.xml" | tr -d '\n')
[ "$left" = '<FIRST><ADDED></ADDED></FIRST><THIRD><tag></THIRD>' ] || fail "unexpected content: $left"

keys ctrl+z ctrl+z ctrl+z ctrl+y ctrl+z # each while lines are being inserted or removed
find_item SECOND_00500 Return
leave_find
keys Delete
answer alt+y "$main"
find_item FIRST Return
leave_find
keys ctrl+e
await "Change Items"
fill_text f FIRST
fill_text w OTHER
keys Return
await "Preview: Change Items"
keys Return
until_true 15 is_active "$main"
keys ctrl+z # waits until the names are given
save_as "$folder/undone.xml"
names() { grep -o '<name>[^<]*' "$1" | sort; }
changes=$(comm -3 <(names "$folder/plant.xml") <(names "$folder/undone.xml"))
[ "$changes" = '<name>SECOND_00500' ] || fail "unexpected changes: ${changes:0:200}"
leave_program
