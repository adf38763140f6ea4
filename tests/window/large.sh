#!/usr/bin/env bash
# Deleting many items takes a tree its time: meanwhile the program goes on answering, and what is done then is done to
# the right nodes.
. "$(dirname "$0")/lib.sh"
. "$(dirname "$0")/dialogs.sh"

# plant FIRST SECOND ADDED: so many items in two branches, and a branch in the third, or none.
plant() {
    awk -v first="$1" -v second="$2" -v added="$3" '
        function line(text) { printf "%s\r\n", text }
        function items(name, count,   i) {
            line("\t\t\t\t<" name ">")
            for (i = 1; i <= count; i++) {
                line("\t\t\t\t\t<tag>")
                line(sprintf("\t\t\t\t\t\t<name>%s_%05d</name>", name, i))
                line("\t\t\t\t\t\t<comment></comment>")
                line("\t\t\t\t\t\t<address>" i "</address>")
                line("\t\t\t\t\t\t<datatype>HREGISTER VT_I2</datatype>")
                line("\t\t\t\t\t\t<accessrights>READ</accessrights>")
                line("\t\t\t\t\t</tag>")
            }
        }
        BEGIN {
            line("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>"); line("<VOSKModBusTcpIpCfg>"); line("\t<MODBUS>")
            line("\t\t<DATATYPE name=\"HREGISTER\" readcode = \"3\" writecode=\"16\" singlewrcode=\"6\"/>")
            line("\t</MODBUS>"); line("\t<OPC_DA>")
            line("\t\t<PLC name=\"A\" address = \"10.0.0.1\" id=\"1\" timeout=\"1000\">"); line("\t\t\t<tags>")
            items("FIRST", first)
            if (added != "") { line("\t\t\t\t\t<" added ">"); line("\t\t\t\t\t</" added ">") }
            line("\t\t\t\t</FIRST>")
            if (second > 0) { items("SECOND", second); line("\t\t\t\t</SECOND>") }
            items("THIRD", 1); line("\t\t\t\t</THIRD>")
            line("\t\t\t</tags>"); line("\t\t</PLC>"); line("\t</OPC_DA>"); line("</VOSKModBusTcpIpCfg>")
        }'
}

many=100000
if [ -n "$under_wine" ]; then many=30000; fi
plant $many 1000 "" >"$folder/plant.xml"
start "$folder/plant.xml"

go 2 Tab ctrl+a
keys Delete
answer alt+y
until_true 15 is_active "$main" # nothing is waited for beyond that
keys Tab Left Down Delete       # the branch behind the lines that go
answer alt+y
until_true 15 is_active "$main"
keys Up Return # a line that goes, or a branch: either way a branch is opened
await "$branch"
leave_dialog
find_item FIRST Return
leave_find
add_branch ADDED

plant 0 0 ADDED >"$folder/expected.xml"
save_as "$folder/written.xml"
same_bytes "$folder/expected.xml" "$folder/written.xml"
leave_program
