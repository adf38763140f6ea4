#!/usr/bin/env bash
# Tests the built command line: arguments, exit code, output, and the files afterwards. TREVANDIX_PROGRAM is the
# program; one that ends in .exe runs under Wine.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
program=$(realpath "${TREVANDIX_PROGRAM:-$root/build/release/trevandix}")
run=("$program")
if [[ $program == *.exe ]]; then run=(wine "$program"); fi
export LC_ALL=C.UTF-8
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
failures=0

fail() {
    printf '%s\n' "$*" >&2
    failures=$((failures + 1))
}

# row CODE OUT ERR ARGUMENT...: runs the program, whose output must match the patterns. With `to` set, standard output
# goes there, with `from` set, standard input comes from there. No row may leave a backup behind.
row() {
    local code=$1 out=$2 err=$3 got=0
    shift 3
    "${run[@]}" "$@" >"${to:-$folder/.out}" 2>"$folder/.err" <"${from:-/dev/null}" || got=$?
    [ "$got" = "$code" ] || fail "$*: exit code $got"
    if [ -n "${to:-}" ]; then : >"$folder/.out"; fi
    # shellcheck disable=SC2053
    [[ $(cat "$folder/.out") == $out ]] || fail "$*: output $(head -c 2000 "$folder/.out")"
    # shellcheck disable=SC2053
    [[ $(cat "$folder/.err") == $err ]] || fail "$*: message $(cat "$folder/.err")"
    if compgen -G '*.bak*' >/dev/null; then fail "$*: left a backup"; fi
}

same() { cmp -s "$1" "$2" || fail "$1 is not $2"; }

tcp=$root/samples/water-works.xml
rtu=$root/samples/boiler-house-rtu.xml
cp "$tcp" tcp.xml
cp "$rtu" rtu.xml
cp "$tcp" Αντλία.xml
sed 's/<name>Clock</<name>Cl\&#27;[31m\&#133;ock</' tcp.xml >control.xml
sed '0,/<comment>/s//<comment>A \& B /' tcp.xml >marked.xml
sed '0,/<address>[0-9]*</s//<address>7</; s/PUMP1>/Pump1>/' tcp.xml >edited.xml
head -c 2000 tcp.xml >damaged.xml
echo '<svg/>' >wrong.xml
: >empty.xml
mkdir folder
missing='*"trevandix --help"*'

# What each command tells about itself, and wrong usage.
row 0 'Trevandix * [0-9]*.[0-9]*.[0-9]*' '' --version
for command in '' check diff format new list import publish; do row 0 '*Usage: *Exit code: *Example:*' '' $command --help; done
row 0 '.TH TREVANDIX*.SS trevandix check*.SS trevandix new*.SS trevandix import*' '' --man-page
row 2 '' "*COMMAND*$missing"
row 2 '' "*paint*$missing" paint tcp.xml
row 2 '' "*FILE*$missing" check
row 2 '' "*--loud*$missing" check --loud tcp.xml
row 2 '' "*xml*text*json*$missing" check --format xml tcp.xml
row 2 '' "*NEW*$missing" diff tcp.xml
row 2 '' "*in-place*$missing" format tcp.xml --in-place -o out.xml
row 2 '' "*plc*$missing" new plc -o out.xml
row 2 '' "*-o*$missing" new tcp
row 2 '' "*units*$missing" list tcp.xml --units --types
row 2 '' "*comma*$missing" list tcp.xml --separator dot
row 2 '' "*TABLE*$missing" import tcp.xml --in-place
row 2 '' "*-o*--in-place*$missing" import tcp.xml - --dry-run
row 2 '' "*in-place*$missing" import tcp.xml - --in-place -o out.xml

# Files that are none.
for file in absent.xml:'File not found' folder:'Path/File*' damaged.xml:'*not well-formed*: line *' empty.xml:'*not well-formed*' \
    wrong.xml:'The configuration file is not valid.'; do
    for command in check 'diff tcp.xml' 'format -o out.xml' 'list -o out.xml'; do
        # shellcheck disable=SC2086
        row 2 '' "trevandix: ${file%%:*}: ${file#*:}" $command "${file%%:*}"
    done
    row 2 '' "trevandix: ${file%%:*}: *" format --in-place "${file%%:*}"
    row 2 '' "trevandix: ${file%%:*}: *" import --in-place "${file%%:*}" -
done
row 2 '' '*out/new.xml: *' new tcp -o out/new.xml
row 2 '' '*folder: *' new tcp --force -o folder

# check
row 0 '' '' check tcp.xml rtu.xml Αντλία.xml
row 1 'marked.xml: error: *: *: *&*' '' check tcp.xml marked.xml
row 2 'marked.xml: error: *' 'trevandix: damaged.xml: *' check damaged.xml marked.xml
row 0 '{"rules":\[{"rule":*"files":\[{"file":"Αντλία.xml","findings":\[\]}\],"errors":0,"warnings":0}' '' \
    check --format json Αντλία.xml

# diff
cp tcp.xml new
row 0 '' '' diff new Αντλία.xml
row 1 '~ [A-Z]*: address [0-9]* -> 7' '' diff tcp.xml edited.xml
sed '/>Heartbeat</,/rights/ { s/VT_UI2</VT_UI2 ARRAY</; s/<accessrights>/<elements>3<\/elements>&/ }' tcp.xml >array.xml
row 1 '~ *.Heartbeat: datatype "IREGISTER VT_UI2" -> "IREGISTER VT_UI2 ARRAY"'$'\n''~ *.Heartbeat: elements "" -> 3' '' \
    diff tcp.xml array.xml
for tags in '<A><B/></A>' '<A/><A.B/>'; do
    printf '<VOSKModBusTcpIpCfg><OPC_DA><PLC name="P" address="" id="1" timeout="1"><tags>%s</tags></PLC></OPC_DA></%s>' \
        "$tags" VOSKModBusTcpIpCfg >"dots${#tags}.xml"
done
row 1 '~ P.A.B: name B -> A.B' '' diff dots11.xml dots10.xml
row 1 '- [!+~]*.Clock'$'\n''+ *.Cl\\u001B[[]31m\\u0085ock' '' diff tcp.xml control.xml
row 1 '~ interface TrevandixTcpIp -> TrevandixRTU*' '' diff tcp.xml rtu.xml

# format and new
for file in tcp rtu; do
    to=out.xml row 0 '' '' format $file.xml
    same out.xml $file.xml
    rm out.xml
done
row 0 '' '' format edited.xml -o κενό.xml
row 1 '~ *' '' diff tcp.xml κενό.xml
row 2 '' 'trevandix: κενό.xml: *--force*' format tcp.xml -o κενό.xml
row 1 '~ *' '' diff tcp.xml κενό.xml
row 0 '' '' format tcp.xml -o κενό.xml --force
same κενό.xml tcp.xml
to=out.xml row 0 '' 'trevandix: marked.xml: warning: *"&"*' format marked.xml
row 0 '' '' diff marked.xml out.xml
rm out.xml
tr -d '\t' <tcp.xml >flat.xml
row 0 '' '' format flat.xml --in-place
same flat.xml tcp.xml
for kind in tcp rtu; do
    row 0 '' '' new $kind -o new-$kind.xml
    row 0 '' '' check new-$kind.xml
    grep '<DATATYPE' tcp.xml | sort | cmp -s - <(grep '<DATATYPE' new-$kind.xml | sort) || fail "new $kind: data types"
done
row 1 '~ interface TrevandixTcpIp -> TrevandixRTU' '' diff new-tcp.xml new-rtu.xml
row 2 '' '*--force*' new rtu -o new-tcp.xml
row 0 '' '' new rtu -o new-tcp.xml --force
same new-tcp.xml new-rtu.xml

# An option where OUT was forgotten, and elements that are no part of a configuration: no file loses them unasked.
row 2 '' '*OUT begins with "-"*' format tcp.xml -o --force
sed '0,/<tags>/s//<tagz>/; 0,/<\/tags>/s//<\/tagz>/' tcp.xml >skipped.xml
cp skipped.xml kept.xml
row 0 '' '*skipped.xml: warning: <tagz> in Intake *' check skipped.xml
row 1 '' '*<tagz> in Intake *' check --strict skipped.xml
row 0 '*"skipped":"<tagz> in Intake"*"warnings":1*' '*<tagz>*' check --format json skipped.xml
row 2 '' '*<tagz> in Intake *--force*' format skipped.xml --in-place
same skipped.xml kept.xml
sed '0,/<\/tag>/s//<scale>2<\/scale>&/' tcp.xml >skipped.xml
row 2 '' '*<scale> in Intake.*--force*' format skipped.xml --in-place
row 0 '' '*' format skipped.xml --in-place --force
same skipped.xml tcp.xml

# list, whose tables import takes back without a change, and in any order into an empty configuration
for kind in tcp rtu; do
    for option in '' '--units --separator tab' '--types --separator semicolon'; do
        table=table${option:2:5}.csv
        # shellcheck disable=SC2086
        row 0 '' '' list $kind.xml $option -o "$table" --force
        # shellcheck disable=SC2086
        to=printed.csv row 0 '' '' list $kind.xml $option
        same printed.csv "$table"
        tr -d '\t' <$kind.xml >flat.xml
        cp flat.xml untouched.xml
        from=$table row 0 '' '' import flat.xml - --in-place
        same flat.xml untouched.xml
        row 0 '' '' import flat.xml "$table" -o back.xml --force
        same back.xml $kind.xml
    done
    row 0 '' '' new $kind -o bare.xml --force
    sed -i '/DATATYPE/d' bare.xml
    row 0 '+ ModBus.*+ *' '' import bare.xml table.csv tableunits.csv tabletypes.csv --in-place
    row 0 '' '' diff $kind.xml bare.xml
done
[[ $(head -c 7 table.csv) == $'\xEF\xBB\xBFUnit' ]] || fail 'no mark'
row 2 '' '*table.csv: *--force*' list tcp.xml -o table.csv
row 2 '' '*would replace the configuration.*' list tcp.xml -o ./tcp.xml --force
printf 'Name,New Name\n%s,a\0b\n' "$(sed -n 's/.*PLC name="\([^"]*\)".*/\1/p' tcp.xml | head -1)" >zero.csv
row 1 '' '*no valid text*' import tcp.xml zero.csv --in-place
row 2 '' '*out/table.csv: *' list tcp.xml -o out/table.csv
to=/dev/full row 2 '' 'trevandix: Disk full: standard output' list tcp.xml

# The plant of the manual, made from its tables by its commands: block N of the chapter.
block() {
    awk -v block="$1" '/^### Tables on the command line/ { chapter = 1 }
        chapter && /^```/ { inside = !inside; count += inside; next }
        chapter && inside && count == block' "$root/docs/manual.md"
}
block 1 >units.csv
block 2 >items.csv
block 3 | while read -r _ arguments; do "${run[@]}" $arguments </dev/null; done >made.txt 2>&1
block 4 >told.txt
same made.txt told.txt
[ -s told.txt ] || fail "the manual tells nothing"
rm plant.xml

# import
cp tcp.xml plant.xml
printf '%s\r\n' Name,Colour,Timeout Intake,red,700 Ζ,red,700 $'A\eB,red,1' ,red,1 >Πίνακας.csv
changes='~ Intake: Timeout 2000 -> 700'
refusals='trevandix: Πίνακας.csv: warning: *"Colour"*'$'\n''Πίνακας.csv: line 3: Ζ: *'$'\n''Πίνακας.csv: line 4: A\\u001BB:*'$'\n''Πίνακας.csv: line 5: [!:]*'
row 1 "$changes" "$refusals"$'\n''trevandix: 3 rows *--skip-refused*' import plant.xml Πίνακας.csv --in-place
row 1 "$changes" "$refusals" import plant.xml Πίνακας.csv --in-place --dry-run --skip-refused
same plant.xml tcp.xml
row 1 "$changes" "$refusals" import plant.xml Πίνακας.csv --in-place --skip-refused
row 1 '~ Intake: timeout 2000 -> 700' '' diff tcp.xml plant.xml
printf 'Name;Timeout\nIntake;800\n' >first.csv
printf 'Name;Timeout\nIntake;900\n' >second.csv
row 0 '~ Intake: Timeout 700 -> 800'$'\n''~ Intake: Timeout 800 -> 900' '' import plant.xml first.csv second.csv -o 900.xml
row 2 '' '*900.xml: *--force*' import plant.xml first.csv -o 900.xml
printf 'Name,Name\n' >twice.csv
for table in absent.csv:'File not found' folder:'Path/File*' twice.csv:'The text is not a table: line 1: *'; do
    row 2 '' "trevandix: ${table%%:*}: ${table#*:}" import plant.xml first.csv "${table%%:*}" --in-place
done
from=twice.csv row 2 '' 'trevandix: standard input: *line 1: *' import plant.xml - --in-place
row 1 '~ *700 -> 900' '' diff plant.xml 900.xml

# publish, also as the child with more rights does
export XDG_CONFIG_HOME=$folder/settings
absolute=$folder
if [[ $program == *.exe ]]; then absolute=Z:${folder//\//\\}; fi
published() {
    if [[ $program == *.exe ]]; then
        wine reg query 'HKLM\Software\VOSKAutomation\TrevandixRTU' /v ConfigFile
    else
        cat settings/VOSKAutomation/TrevandixRTU.ini
    fi | tr -d '\r' | tr '\\' / | grep -q "[=:]$folder/$1\$" || fail "$1: not published"
}
cp "$rtu" other.xml
row 0 '' '' publish folder/../other.xml
row 2 '' '*damaged.xml: *' publish damaged.xml
for values in 'TrevandixRTU rtu.xml' "Other $absolute/rtu.xml" TrevandixRTU; do
    # shellcheck disable=SC2086
    row 2 '' "*--publish-values*$missing" --publish-values $values
done
published other.xml
row 0 '' '' --publish-values TrevandixRTU "$absolute/rtu.xml"
published rtu.xml
if [[ $program != *.exe ]]; then
    XDG_CONFIG_HOME=$folder/tcp.xml row 1 '' "trevandix: $folder/rtu.xml: not published: the system refused" publish rtu.xml
fi

# Standard output that takes nothing: a full disk, a pipe that nobody reads.
to=/dev/full row 2 '' 'trevandix: Disk full: standard output' format tcp.xml
to=/dev/full row 2 '' 'trevandix: Disk full: standard output' --version
exec {pipe}> >(exec true)
wait $!
to=/dev/fd/$pipe row 0 '' '' format tcp.xml
to=/dev/fd/$pipe row 1 '' '' diff tcp.xml rtu.xml

# What only Linux has.
if [[ $program != *.exe ]]; then
    ln -s absent.xml dangling.xml
    row 2 '' 'trevandix: dangling.xml: File not found' check dangling.xml
    ln -s flat.xml link.xml
    ln tcp.xml $'line\nbreak\e[0m.xml'
    row 2 '' '*line\\u000Abreak\\u001B[[]0m.xml: *--force*' format link.xml -o $'line\nbreak\e[0m.xml'
    chmod 600 flat.xml
    row 0 '' '' format link.xml --in-place
    if [ ! -L link.xml ] || [ "$(stat -c %a flat.xml)" != 600 ]; then fail "link or rights are lost"; fi
    (trap '' PIPE && to=/dev/fd/$pipe row 0 '' '' format tcp.xml)
    if [ "$(id -u)" != 0 ]; then
        chmod 000 rtu.xml
        row 2 '' 'trevandix: rtu.xml: Permission denied' check rtu.xml
    fi
fi

if [ "$failures" != 0 ]; then
    echo "$failures rows failed" >&2
    exit 1
fi
