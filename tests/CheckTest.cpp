// Tests the rules about configurations, each with the smallest configuration that breaks it.
#include "check/Check.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "Plant.h"
#include "check/HostNames.h"
#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix::testing {

namespace {

using Set = std::function<void(std::string_view)>;

/// What the plans below can set.
std::map<std::string, Set> fieldsOf(Workplace& place, const Key& key) {
    if (const auto record = place.configuration.items.find(key)) {
        clsItem& item = place.item(key);
        return {{"comment", [&](std::string_view text) { item.sComment(text); }},
                {"address", [&](std::string_view text) { item.nAddress(int32Value(text)); }},
                {"type", [&](std::string_view text) { item.sDataType(text); }},
                {"right", [&](std::string_view text) { item.sAccessRight(text); }},
                {"bit", [&](std::string_view text) { item.nBitNumber(toInt16(leadingNumber(text))); }},
                {"elements", [&](std::string_view text) { item.nElements(toInt16(leadingNumber(text))); }}};
    }
    if (const auto record = place.configuration.units.find(key)) {
        clsPLC& unit = behindTheDoor(*record);
        return {{"id", [&](std::string_view text) { unit.setUI(byteValue(text)); }},
                {"address", [&](std::string_view text) { unit.setAddress(text); }},
                {"timeout", [&](std::string_view text) { unit.setTimeout(int32Value(text)); }},
                {"com", [&](std::string_view text) { unit.setCom(text); }},
                {"baud", [&](std::string_view text) { unit.setBaud(int32Value(text)); }},
                {"parity", [&](std::string_view text) { unit.setParity(text); }},
                {"data", [&](std::string_view text) { unit.setDataBits(byteValue(text)); }},
                {"stop", [&](std::string_view text) { unit.setStopBits(byteValue(text)); }},
                {"flow", [&](std::string_view text) { unit.setFlowCtl(text); }},
                {"silent", [&](std::string_view text) { unit.setSilent(int32Value(text)); }}};
    }
    clsModBusType& type = behindTheDoor(*place.configuration.dataTypes.at(key));
    return {{"read", [&](std::string_view text) { type.setReadCode(byteValue(text)); }},
            {"write", [&](std::string_view text) { type.setWriteCode(byteValue(text)); }},
            {"single", [&](std::string_view text) { type.setSingleWrCode(byteValue(text)); }}};
}

void addType(Workplace& place, std::string_view name) {
    clsModBusType type;
    type.setName(name);
    if (const ModbusTable* table = tableOf(name)) {
        type.setReadCode(table->readCode);
        type.setWriteCode(table->writeCode);
        type.setSingleWrCode(table->singleWrCode);
    }
    place.configuration.addDataType(type);
}

void addUnit(Workplace& place, const std::string& name) {
    clsPLC& unit = plantUnit(place.configuration, name);
    unit.setUI(static_cast<std::uint8_t>(place.configuration.units.size()));
    unit.setTimeout(1000);
    unit.setCom("COM1");
    unit.setBaud(9600);
    unit.setParity("NO");
    unit.setDataBits(8);
    unit.setStopBits(1);
    unit.setFlowCtl("NONE");
}

/// The container is the longest beginning that is a node's key.
void addNamed(Workplace& place, const std::string& key) {
    for (std::size_t dot = key.rfind('.'); dot != std::string::npos && dot > 0;
         dot = key.rfind('.', dot - 1)) {
        TreeNode* container = place.configuration.tree.find(Key(key.substr(0, dot)));
        if (container == nullptr) continue;
        const std::string name = key.substr(dot + 1);
        if (container->tag() == NodeTag::ModBus) return addType(place, name);
        if (name.ends_with('/'))
            plantBranch(place.configuration, *container, name.substr(0, name.size() - 1));
        else
            plantItem(place.configuration, *container, name)
                .nAddress(static_cast<std::int32_t>(place.configuration.items.size()));
        return;
    }
    addUnit(place, key);
}

/// Builds by steps, separated by "; ". "U" is a unit, "U.A/" a branch, "U.x" an item, "ModBus.coil" a data
/// type; behind them fields: "U.x|address=5|type=coil:boolean". Other steps are those of `play`.
void build(Workplace& place, const std::string& steps) {
    for (const std::string& step : steps.empty() ? Texts{} : split(steps, "; ")) {
        if (step.starts_with("edit ") || step.starts_with("drag ") || step.starts_with("copy ") ||
            step.starts_with("mnu") || step.find(": ") != std::string::npos) {
            play(place, {{step, ""}});
            continue;
        }
        const Texts parts = split(step);
        if (!place.has(parts[0])) addNamed(place, parts[0]);
        for (std::size_t i = 1; i < parts.size(); ++i) {
            const std::size_t sign = parts[i].find('=');
            fieldsOf(place, Key(parts[0])).at(parts[i].substr(0, sign))(parts[i].substr(sign + 1));
        }
    }
}

/// A configuration in which nothing is wrong: the four data types and a unit U with an item i, and then what
/// the steps make of it. "rtu" in front makes one of serial units, "empty" one without data types and unit.
struct Planned : Workplace {
    explicit Planned(std::string steps) {
        const auto begins = [&](std::string_view word) {
            if (!steps.starts_with(word)) return false;
            steps.erase(0, word.size());
            return true;
        };
        newConfiguration(begins("rtu; ") ? kRtu : kTcpIp);
        messages.take();
        if (!begins("empty; "))
            build(*this,
                  "ModBus.input status; ModBus.coil; ModBus.input register; ModBus.holding register; U; U.i");
        build(*this, steps);
        configuration.setSaved(true);
    }
};

std::string joined(const Texts& texts) {
    std::string all;
    for (const std::string& text : texts) (all += &text == &texts[0] ? "" : " | ") += text;
    return all;
}

/// "KEY: TEXT | KEY: TEXT" of the rule; for no rule, "KEY: RULE" of all. Of the text only what comes before
/// the first comma or semicolon.
std::string told(const Configuration& configuration, std::string_view rule = {}) {
    Texts lines;
    const auto findings = check(configuration).value();
    for (const Finding& finding : findings) {
        EXPECT_NE(finding.text.find("; "), std::string::npos) << "no mending in " << finding.text;
        const std::size_t end = std::min(finding.text.find(", "), finding.text.find("; "));
        const std::string what = rule.empty() ? std::string(finding.rule->name) : finding.text.substr(0, end);
        if (rule.empty() || finding.rule->name == rule) lines.push_back(finding.object.str() + ": " + what);
    }
    return joined(lines);
}

}  // namespace

TEST(Check, FindsWhatEachRuleSays) {
    // RULE: STEPS => FINDINGS => nearly the same steps / others, which find nothing at all
    Texts lines = split(R"(markup: U.i|comment=a & b => U.i: comment holds "&" => U.i|comment=12" > 'a' ]] >
markup: U.a]]> => U.a]]>: item name holds "]]>" => 
markup: 12" => 12": unit name holds a quotation mark => rtu; 12"
markup: U|address=< => U: IP address holds "<" => 
branch-name: U.A B/; U.A B.x => U.A B: branch name holds " " => U.Ä-1_/; U.Ä-1_.x
branch-name: U.A:B/; U.1A/; U. A/; U./; U.A€/; U.ÿ/ => U.A:B: branch name holds ":" | U.1A: branch name begins with "1" | U. A: branch name has a blank at its end | U.: branch name is empty | U.A€: branch name holds "€" | U.ÿ: branch name begins with "ÿ" => 
branch-called-tag: U.Tag/; U.Tag.x => U.Tag: branch name is the name of items => U.TAGS/; U.TAGS.tag
missing-name: U. => U.: item has no name => U.-
key-collision: U.A/; U.a/; U.B/; U.B.x => U.A: comes back under the same key as the branch U.a | U.a: comes back under the same key as the branch U.A => U.A/; U.A.B; U.B/; U.B.B
key-collision: U.a/; U.a.x; U.A.x => U.a.x: comes back under the same key as the item U.A.x | U.A.x: comes back under the same key as the item U.a.x => 
key-collision: U.aa/; U.aA/; U.Aa/; U.AA => U.aa: comes back under the same key as the branch U.aA and 2 more | U.aA: comes back under the same key as the branch U.aa and 2 more | U.Aa: comes back under the same key as the branch U.aa and 2 more | U.AA: comes back under the same key as the branch U.aa and 2 more => 
key-collision: empty; ModBus.coil; edit coil: cmbMBType=input status; input status => input status: comes back under the same key as the unit input status | input status: comes back under the same key as the data type input status => 
key-collision: drag ModBus to U; ModBus => ModBus: comes back under the same key as the ModBus folder => 
unknown-type: U.i|type=holding register:signed 64 bit => U.i: the file has no name for the type "holding register:signed 64 bit" => U.i|type=coil:boolean
unknown-type: U.i|type=my register:boolean; ModBus.my coil => my coil: the file has no name for the table "my coil" | U.i: the file has no name for the type "my register:boolean" => 
not-in-file: U.A/; copy U.A to ModBus; copy U.i to top; copy U.i to coil; V; drag V to U => coil.i: stands where the file has no place for it | ModBus.A: stands where the file has no place for it | U.V: stands where the file has no place for it | .i: stands where the file has no place for it => U.A/; drag U.i to U.A
node-without-record: empty; ModBus.coil; edit coil: cmbMBType=input status => coil: has lost its record => edit coil: txtReadCode=1
record-without-node: V; drag V to U => V: is not in the tree => V; U.V
missing-data-type: empty; ModBus.coil; U; U.i => U.i: no data type tells the server how to read the table "holding register" => empty; ModBus.holding register; U; U.i
access-right: U.i|type=input register:signed 16 bit|right=WRITE => U.i: the table "input register" can only be read => U.i|type=input register:signed 16 bit
access-right: holding register|write=0|single=0; U.i|right=READWRITE => U.i: the data type "holding register" has no write code => holding register|write=0; U.i|right=WRITE / holding register|single=0; U.i|right=WRITE
access-right: holding register|write=0; U.i|type=holding register:string|elements=2|right=WRITE => U.i: the data type "holding register" has no write code for several values => holding register|single=0; U.i|type=holding register:string|elements=2|right=WRITE
access-right: holding register|read=0 => U.i: the data type "holding register" has no read code => 
address-range: U.i|address=65536; U.j|address=-1 => U.i: address 65536 is outside 0 to 65535 | U.j: address -1 is outside 0 to 65535 => U.i|address=65535; U.j|address=0
address-range: U.i|address=65535|type=holding register:32 bit float => U.i: reaches to address 65536 => U.i|address=65534|type=holding register:32 bit float
address-range: U.i|address=65534|type=holding register:string|elements=5 => U.i: reaches to address 65536 => U.i|address=65534|type=holding register:unsigned 8 bit array|elements=4
address-range: U.i|address=65530|type=coil:boolean array|elements=7 => U.i: reaches to address 65536 => U.i|address=65530|type=coil:boolean array|elements=6
address-range: U.i|address=65535|type=holding register:boolean array|bit=1|elements=16 => U.i: reaches to address 65536 => U.i|address=65535|type=holding register:boolean array|elements=16
bit-range: U.i|type=holding register:boolean|bit=16; U.j|type=coil:boolean|bit=-1 => U.i: bit 16 is outside 0 to 15 | U.j: bit -1 is outside 0 to 15 => U.i|type=holding register:boolean|bit=15 / U.i|bit=16
no-elements: U.i|type=holding register:string; U.j|type=coil:boolean array|elements=-1 => U.i: has 0 elements | U.j: has -1 elements => U.i|type=holding register:string|elements=1
item-value: U.i|type=coil:signed 16 bit; U.j|type=holding register:array|elements=1; U.k|right=Read => U.i: the table "coil" has no values of type "signed 16 bit" | U.j: the table "holding register" has no values of type "array" | U.k: access right "Read" is none of READ => U.i|type=input status:boolean
same-identifier: V|id=1|address= 10.0.0.1; W|id=1 => U: identifier 1 at "10.0.0.1" is also that of V and 1 more | V: identifier 1 at "10.0.0.1" is also that of U and 1 more | W: identifier 1 at "10.0.0.1" is also that of U and 1 more => V|id=1|address=10.0.0.2
same-identifier: rtu; V|id=1|com=com1 => U: identifier 1 at "COM1" is also that of V | V: identifier 1 at "COM1" is also that of U => rtu; V|id=1|com=COM2
line-settings: rtu; V|baud=19200; W|data=7; X|stop=2; Y|parity=ODD; Z|flow=HARDWARE => V: baud rate "19200" | W: data bits "7" | X: stop bits "2" | Y: parity "ODD" | Z: flow control "HARDWARE" => rtu; V|baud=19200|com=COM2|timeout=5 / V|baud=19200
ip-address: U|address=10.0.0.256 => U: IP address "10.0.0.256" is neither an address nor a host name => U|address=plc-1.plant / U|address=fe80::1 / rtu; U|address=
port-name: rtu; U|com=COM => U: port name "COM" is no port => rtu; U|com=COM12 / U|com=
unit-value: rtu; U|baud=1200; V|com=COM2|data=9; W|com=COM3|stop=0; X|com=COM4|parity=no; Y|com=COM5|flow= => U: baud rate "1200" is not one of 2400 | V: data bits "9" is not one of 8 | W: stop bits "0" is not one of 1 | X: parity "no" is not one of NO | Y: flow control "" is not one of NONE => rtu; U|baud=115200|data=5|stop=2|parity=ODD|flow=HARDWARE / U|baud=1
overlap: U.j|address=1 => U.i: overlaps j (holding register 1) | U.j: overlaps i (holding register 1) => U.j|address=1|type=input register:signed 16 bit / V; V.i|address=1
overlap: U.i|type=holding register:boolean|bit=3; U.j|address=1|type=holding register:boolean|bit=3 => U.i: overlaps j (holding register 1 bit 3) | U.j: overlaps i (holding register 1 bit 3) => U.i|type=holding register:boolean|bit=3; U.j|address=1|type=holding register:boolean|bit=4
overlap: U.A/; U.A.j|address=0|type=holding register:32 bit float; U.k|address=1; U.l|address=1; U.m|address=1 => U.i: overlaps A.j (holding register 0 to 1) | U.A.j: overlaps i (holding register 1) | U.k: overlaps A.j (holding register 0 to 1) | U.l: overlaps A.j (holding register 0 to 1) | U.m: overlaps A.j (holding register 0 to 1) => U.j|type=holding register:string|elements=4; U.k|address=4
long-request: U.i|type=holding register:signed 16 bit array|elements=126; U.j|address=200|type=holding register:string|elements=247|right=READWRITE => U.i: takes 126 registers | U.j: takes 124 registers => U.i|type=holding register:signed 16 bit array|elements=125; U.j|address=200|type=holding register:string|elements=246|right=WRITE
long-request: U.i|type=coil:boolean array|elements=2001; U.j|address=3000|type=coil:boolean array|elements=1969|right=WRITE => U.i: takes 2001 bits | U.j: takes 1969 bits => U.i|type=coil:boolean array|elements=2000; U.j|address=3000|type=coil:boolean array|elements=1968|right=WRITE
capitals-only: U.I; u => U: differs from u in capitals only | U.i: differs from U.I in capitals only | U.I: differs from U.i in capitals only | u: differs from U in capitals only => U.A/; U.A.I
dot-in-name: U.a.b => U.a.b: name holds "." => U.a_b
blank-at-end: U.x ; V  => U.x : name has a blank at an end | V : name has a blank at an end => U.x y
default-name: U.New_Item_3; New Plc 0; U.NEWBRANCH0/; U.New Item 1 => U.New_Item_3: still has the name that the dialog proposed | U.NEWBRANCH0: still has the name that the dialog proposed | U.New Item 1: still has the name that the dialog proposed | New Plc 0: still has the name that the dialog proposed => U.My_New_Item_3; U.New
other-name: U.A/; U.A.j; U.B/; copy U.A.j to U.B; U.A: j; clipboard: k; mnuPasteName:  => U.B.j: comes back with the name "k" => edit U.i: txtItemName=k
empty-branch: V; drag V to U; drag U.V to top; U.B/; drag U.B to .V =>  => 
empty-branch: U.A/; U.A.B/ => U.A.B: holds no item => U.A/; U.A.x
function-code: coil|read=3; holding register|write=6; input status|single=5 => input status: single write code 5 is not that of the table | coil: read code 3 is not that of the table | holding register: write code 6 is not that of the table => coil|write=0|single=0
identifier-range: U|id=255 => U: identifier 255 is not one that the dialog takes => U|id=0; V|id=254
identifier-range: rtu; U|id=0; V|id=248 => U: identifier 0 is for messages to all devices | V: identifier 248 is reserved on a serial line => rtu; U|id=247
timeout: U|timeout=0 => U: timeout 0 ms leaves the device no time to answer => U|timeout=1|silent=-1
timeout: rtu; U|silent=-1 => U: silent interval -1 ms is negative => 
branch-capitals: U.A/; U.A.x; U.Area/; U.Area.x; U.é/; U.é.x => U.Area: branch names with small letters come back in capitals: "Area" and 1 more => U.AREA/; U.AREA.x)",
                        "\n");
    lines.emplace_back(
        "control-character: U.i|comment=a\tb => U.i: comment holds a TAB => U.i|comment=a\xC2\xA0");
    lines.emplace_back("control-character: U.a\r\nb => U.a\r\nb: item name holds a line break => ");
    lines.emplace_back(
        "control-character: rtu; U|flow=\xC2\x80 => U: flow control holds a control character => ");
    lines.emplace_back(
        "control-character: U.\xEF\xBF\xBE => U.\xEF\xBF\xBE: item name holds a control character => ");
    std::set<std::string> named;
    for (const std::string& line : lines) {
        SCOPED_TRACE(line);
        const Texts parts = split(line, " => ");
        const std::string rule = parts[0].substr(0, parts[0].find(": "));
        named.insert(rule);
        const Planned faulty(parts[0].substr(rule.size() + 2));
        EXPECT_EQ(told(faulty.configuration, rule), parts.at(1));
        for (const std::string& sound : parts.at(2).empty() ? Texts{} : split(parts[2], " / "))
            EXPECT_EQ(told(Planned(sound).configuration), "") << sound;
    }
    for (const Rule& rule : rules()) EXPECT_TRUE(named.contains(std::string(rule.name))) << rule.name;
}

// Prints the whole list when it differs.
TEST(Check, TheManualListsTheRules) {
    std::string list = "| Rule | Severity | What is wrong | What to do |\n|---|---|---|---|\n";
    for (const Rule& rule : rules()) {
        for (const std::string_view part :
             {rule.name, severityName(rule.severity), rule.meaning, rule.mending})
            (list += "| ").append(part) += ' ';
        list += "|\n";
    }
    const std::string manual = readFile(TREVANDIX_MANUAL);
    EXPECT_NE(manual.find(list), std::string::npos) << list;
}

TEST(Check, NamesTheFirstUnreadableText) {
    for (const auto& [steps, told] :
         Fields{{"U.j|comment=12\"; U.A/", ""},
                {"U.A/; U.A.Tag/; U.<", "U.A.Tag: branch name is the name of items"},
                {"U. /", "U. : branch name has a blank at its end"},
                {"U.\n\x01", "U.\\n\\x01: item name holds a line break"},
                {"rtu; U|com=<", "U: port name holds \"<\""}})
        EXPECT_EQ(firstUnreadable(Planned(steps).configuration), told);
}

TEST(Check, ShowsNamesOnOneLineAndNotTooLong) {
    const auto shown = [](const std::string& steps, std::string_view rule) {
        return told(Planned(steps).configuration, rule);
    };
    const std::string n(100, 'n');
    EXPECT_TRUE(
        shown("U.a\xE2\x80\xA8\x01|address=1", "overlap").starts_with("U.i: overlaps a\\u2028\\x01 ("));
    EXPECT_TRUE(shown("U." + n + "\xC3\xA4" + n + "|address=1", "overlap")
                    .starts_with("U.i: overlaps ..." + n.substr(82) + "\xC3\xA4" + n + " ("));
    EXPECT_TRUE(shown("U|address=-" + n + n.substr(82) + "\xC3\xA4", "ip-address")
                    .starts_with("U: IP address \"-" + n + n.substr(82) + "...\" is"));
}

TEST(Check, KnowsAddressesAndHostNames) {
    for (const std::string& text : Texts{"0.0.0.0", "255.255.255.255", "::", "::1", "1::", "fe80::1:2",
                                         "1:2:3:4:5:6:7:8", "::ffff:10.0.0.1", "1:2:3:4:5:6:10.0.0.1"})
        EXPECT_TRUE(isIpAddress(text)) << text;
    for (const std::string& text : Texts{"", "10.0.0", "10.0.0.0.1", "10.0.0.256", "10.0.0.01", "10..0.1",
                                         "10.0.0.1 ", "1:2", "1:2:3:4:5:6:7::8", "1::2::3",
                                         "12345::", "g::", ":1::", "10.0.0.1::", "1:2:3:4:5:6:7:10.0.0.1"})
        EXPECT_FALSE(isIpAddress(text) || isHostName(text)) << text;
    for (const std::string& text : Texts{"plc", "PLC_1", "p-1.plant.example", "10.plc", std::string(63, 'a')})
        EXPECT_TRUE(isHostName(text)) << text;
    for (const std::string& text :
         Texts{"-plc", "plc-", "a..b", ".", "a.", "a b", "a:502", "\xC3\xA4", std::string(64, 'a')})
        EXPECT_FALSE(isHostName(text)) << text;
    EXPECT_FALSE(isHostName(std::string(63, 'a') + "." + std::string(63, 'a') + "." + std::string(63, 'a') +
                            "." + std::string(62, 'a')));
}

TEST(Check, FindsNothingInTheSamples) {
    for (const char* name : {"water-works.xml", "boiler-house-rtu.xml"}) {
        Workplace place;
        place.openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / name));
        EXPECT_EQ(told(place.configuration), "");
        place.run("mnuCloseCfg");
        EXPECT_EQ(told(place.configuration), "");
    }
}

TEST(Check, SaysWhatIntendedNamesWouldAdd) {
    const Planned place("U.B/; U.B.a; U.B.b; U.B.c; U.B.New_Item_1; U.B.C/; U.B.C.x");
    const auto added = [&](const std::string& names) {  // "KEY NEW; KEY NEW"
        std::vector<IntendedName> intended;
        for (const std::string& name : split(names, "; "))
            intended.push_back(
                {Key("U.B." + name.substr(0, name.find(' '))), name.substr(name.find(' ') + 1)});
        Texts texts;
        for (const std::string& text : findingsAdded(place.configuration, intended))
            texts.push_back(text.substr(0, text.find_first_of(",;")));
        return joined(texts);
    };
    EXPECT_EQ(added("a b; b a; c z; New_Item_1 New_Item_2; gone &"), " |  |  |  | ");
    EXPECT_EQ(added("a B; b x&; c C"),
              " | item name holds \"&\" | comes back under the same key as the branch U.B.C");
    EXPECT_EQ(added("a new_item_5; c B"),
              "still has the name that the dialog proposed | differs from U.B.b in capitals only");
}

// Bounds the work between two questions, which a key press has to wait for, whatever the plant looks like.
TEST(Check, AsksOftenAndStopsAtOnce) {
    Workplace place;
    place.newConfiguration(kTcpIp);
    build(place, "U; U.B/");
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        plantBranch(place.configuration, place.node("U"), number);
        plantItem(place.configuration, place.node("U.B"), "New_Item_" + number).sComment("a\tb&");
    }
    int asked = 0;
    const auto findings = check(place.configuration, [&] { return ++asked < 0; });
    EXPECT_GT(asked, 30);
    EXPECT_GT(findings.value().size(), 15'000U);
    for (int last = 1; last <= asked; ++last) {
        int questions = 0;
        EXPECT_EQ(check(place.configuration, [&] { return ++questions == last; }), std::nullopt);
        EXPECT_EQ(questions, last);
    }
}

}  // namespace trevandix::testing
