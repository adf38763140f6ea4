// Tests what the register map of a unit shows, and the window that shows it.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

#include "Plant.h"
#include "RandomPlant.h"
#include "map/MapLines.h"

namespace trevandix::testing {

namespace {

using Bits = std::map<int, std::set<std::string>>;  // who has the bit, or the address of a table of bits

/// Takes an item's place in the table away.
void spoil(clsItem& item, unsigned how) {
    if (how == 0) item.sDataType("coil");
    if (how == 1) item.nAddress(-1);
    if (how == 2) item.nAddress(65536);
    if (how == 3) item.sDataType("coil:boolean array");
    if (how == 3) item.nElements(0);
    if (how == 4) item.sDataType("holding register:boolean");
    if (how == 4) item.nBitNumber(99);
}

/// What the rows of a table show. Checks that they show all of the table and no more lanes than they have.
Bits shownBy(const TableMap& table) {
    Bits shown;
    std::int64_t next = 0;
    for (const MapRow& row : table.rows) {
        EXPECT_EQ(row.first, next);
        next = row.last + 1;
        const Span part = table.spanOf(row);
        for (std::size_t lane = 0; lane < TableMap::kLanes; ++lane) {
            for (const Stack& stack : table.stacksIn(lane, part)) {
                EXPECT_LT(lane, row.lanes);
                EXPECT_EQ(stack.count, table.pileOf(stack.first).size());
                for (const std::size_t i : table.pileOf(stack.first)) {
                    const auto& [item, span, itsLane] = table.blocks[i];
                    EXPECT_EQ(itsLane, lane);
                    for (auto bit = std::max(span.begin, part.begin); bit < std::min(span.end, part.end);
                         ++bit)
                        shown[static_cast<int>(bit)].insert(item.str());
                }
            }
        }
    }
    EXPECT_EQ(next, 65536);
    return shown;
}

}  // namespace

TEST(RegisterMap, ShowsEachBitInTheBlocksOfItsItemsAndNothingElse) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Configuration configuration;
        configuration.begin("");
        std::map<std::string, Bits> wanted;
        std::size_t homeless = 0;
        for (const std::string unit : {"U", "V"}) {
            plantUnit(configuration, unit);
            TreeNode& node = configuration.tree.at(Key(unit));
            TreeNode& branch = plantBranch(configuration, node, "B");
            for (std::size_t i = 1 + random() % 40; i > 0; --i) {
                std::string table;
                const auto bits = plantSomewhere(configuration, random() % 2 == 0 ? node : branch, random,
                                                 "i" + std::to_string(i), table);
                clsItem& item = behindTheDoor(*configuration.items.last());
                const bool spoilt = random() % 8 == 0;
                if (spoilt) spoil(item, static_cast<unsigned>(random() % 5));
                if (unit == "V") continue;
                homeless += spoilt ? 1 : 0;
                for (const int bit : spoilt ? std::set<int>() : bits)
                    wanted[table][table == "coil" ? bit / 16 : bit].insert(item.sKey().str());
            }
        }
        const RegisterMap map = registerMapOf(configuration, configuration.tree.at(Key("U")));
        EXPECT_EQ(map.homeless.size(), homeless);
        EXPECT_EQ(map.tables.size(), wanted.size());
        for (const TableMap& table : map.tables) {
            const Bits& bits = wanted[std::string(table.table->label)];
            EXPECT_EQ(shownBy(table), bits);
            const auto covers = [](const std::vector<Span>& spans, std::int64_t bit) {
                return std::ranges::any_of(spans, [&](const Span& span) {
                    return span.meets({bit, bit + 1});
                });
            };
            std::set<std::int64_t> used;
            for (int bit = 0; bit < 1000; ++bit) {
                const auto who = bits.find(bit);
                const std::size_t count = who == bits.end() ? 0 : who->second.size();
                EXPECT_EQ(covers(table.free, bit), count == 0) << bit;
                EXPECT_EQ(covers(table.overlaps, bit), count > 1) << bit;
                if (count > 0) used.insert(bit / table.unit);
            }
            EXPECT_EQ(table.usedAddresses, static_cast<std::int64_t>(used.size()));
            EXPECT_EQ(table.largestFree.end, 65536);
        }
    }
}

namespace {

/// Plants items as "name type address.bit xELEMENTS" in the holding registers, or coils for a boolean without
/// ".bit".
void plantRegisters(Configuration& configuration, const std::string& items) {
    configuration.begin("");
    plantUnit(configuration, "U");
    configuration.setOpen(true);
    for (const std::string& text : split(items, ", ")) {
        const Texts words = split(text, " ");
        clsItem& item = plantItem(configuration, configuration.tree.at(Key("U")), words[0]);
        static const std::map<std::string, std::string> kTypes{
            {"word", "holding register:signed 16 bit"},
            {"float", "holding register:32 bit float"},
            {"words", "holding register:signed 16 bit array"},
            {"text", "holding register:string"},
            {"bit", "holding register:boolean"},
            {"bits", "holding register:boolean array"},
            {"coil", "coil:boolean"},
            {"coils", "coil:boolean array"}};
        item.sDataType(kTypes.at(words[1]));
        item.nAddress(std::stoi(words[2]));
        const std::size_t dot = words[2].find('.');
        if (dot != std::string::npos)
            item.nBitNumber(static_cast<std::int16_t>(std::stoi(words[2].substr(dot + 1))));
        if (words.size() > 3) item.nElements(static_cast<std::int16_t>(std::stoi(words[3].substr(1))));
    }
}

/// The lines: "0: a 48-80, <b/1 64-80>!64-80" is an address, blocks with lane and parts, which come from the
/// line before or go on in the next, and overlaps.
std::string drawn(const MapLines& lines) {
    std::string all;
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        const MapLine line = lines.line(i);
        if (line.kind == MapLine::Kind::Scale) continue;
        all += line.text;
        if (line.kind == MapLine::Kind::Row) all += ":";
        for (const MapPart& part : line.held) {
            all += std::string(part.fromHere ? " " : " <") + (part.selected ? "*" : "") + part.name;
            if (part.lane > 0) all += "/" + std::to_string(part.lane);
            all += " " + std::to_string(part.begin) + "-" + std::to_string(part.end);
            all += part.untilHere ? "" : ">";
        }
        for (const auto& [begin, end] : line.overlaps)
            all += "!" + std::to_string(begin) + "-" + std::to_string(end);
        all += "\n";
    }
    return all;
}

}  // namespace

TEST(RegisterMap, Lines) {
    for (const auto& [items, wanted] :
         Fields{{"", ""},
                {"a float 3, b word 4, c bit 5.3, d words 10 x20, e word 100",
                 "holding register: 24 used, 65512 free, 1 overlap\n"
                 "largest free stretch 65435 (101 to 65535)\n"
                 "0: *a 48-80 c 83-84 d 160-256> b/1 64-80!64-80\n"
                 "16: <d 0-224\n"
                 "free: 70 registers, 30 to 99\n"
                 "96: e 64-80\n"
                 "free: 65435 registers, 101 to 65535\n"},
                {"a word 33, b coil 70, c coils 71 x3, d words 65530 x6, e text 65530 x13",
                 "coil: 4 used, 65532 free\nlargest free stretch 65462 (74 to 65535)\n"
                 "0:\n"
                 "64: b 6-7 c 7-10\n"
                 "free: 65462 bits, 74 to 65535\n"
                 "holding register: 7 used, 65529 free, 1 overlap\n"
                 "largest free stretch 65496 (34 to 65529)\n"
                 "free: 33 registers, 0 to 32\n"
                 "32: *a 16-32\n"
                 "free: 65496 registers, 34 to 65529\n"
                 "65520: d 160-256 e/1 160-256!160-256\n"},
                // The bits of a word, longest first; what finds no lane stands in a pile.
                {"a bit 0.0, b word 0, c bit 0.0, d bit 0.0, e bit 0.2, f float 0, g word 4",
                 "holding register: 3 used, 65533 free, 1 overlap\n"
                 "largest free stretch 65531 (5 to 65535)\n"
                 "0: f 0-32 g 64-80 b/1 0-16 3 items/2 0-1 e/2 2-3 *a/2 0-1!0-16\n"
                 "free: 65531 registers, 5 to 65535\n"}}) {
        Configuration configuration;
        if (!items.empty()) plantRegisters(configuration, items);
        MapLines lines(configuration);
        if (!items.empty()) lines.replace(registerMapOf(configuration, configuration.tree.at(Key("U"))));
        lines.setCurrent(Key("U.a"));
        lines.setSelected(true);
        EXPECT_EQ(drawn(lines), wanted) << items;
    }
}

TEST(RegisterMap, SaysWhereAnItemIsOrWhyNot) {
    Configuration configuration;
    plantRegisters(configuration,
                   "a word 40, b bits 40.3 x20, c word 41, d text 65530 x100, e bit 50.99, f words 60 x0, "
                   "g word 70000, h bits 70.2 x3");
    MapLines lines(configuration);
    lines.replace(registerMapOf(configuration, configuration.tree.at(Key("U"))));
    for (const auto& [item, wanted] : Fields{
             {"U.a", "holding register 40, signed 16 bit, overlaps U.b"},
             {"U.b", "holding register 40 bit 3 to 41 bit 6, boolean array of 20, overlaps U.a and 1 other"},
             {"U.d", "holding register 65530 to 65579, beyond the end of the table, string of 100"},
             {"U.e", "holding register 50 bit 99 has no place: bits are 0 to 15, boolean"},
             {"U.f", "holding register 60 has no place: no elements, signed 16 bit array of 0"},
             {"U.g", "holding register 70000 has no place: addresses are 0 to 65535, signed 16 bit"},
             {"U.h", "holding register 70 bits 2 to 4, boolean array of 3"}}) {
        lines.setCurrent(Key(item));
        EXPECT_EQ(lines.item(), Key(item));
        std::string spoken = lines.spoken();
        if (const auto right = spoken.find(", READ"); right != std::string::npos) spoken.erase(right, 6);
        EXPECT_EQ(spoken, item + ", " + wanted);
    }
    for (const char* next : {"U.e", "U.f", "U.g", "U.e"}) {
        EXPECT_EQ(lines.nextHomeless(), Key(next));
        lines.setCurrent(lines.nextHomeless());
    }
}

TEST(RegisterMap, KeysAndClicksReachEveryBlock) {
    Configuration configuration;
    plantRegisters(configuration,
                   "a word 0, b word 4, c words 20 x30, d word 22, e bit 200.1, f bit 200.1, "
                   "g bit 200.1, h bit 200.1, i word 210, y coil 0, z coil 100");
    MapLines lines(configuration);
    lines.replace(registerMapOf(configuration, configuration.tree.at(Key("U"))));
    const auto nameOf = [&](const MapLines::Place& place) { return lines.itemAt(place).str().substr(2); };
    const std::map<char, MapMove> moves{{'<', MapMove::Left},   {'>', MapMove::Right},   {'^', MapMove::Up},
                                        {'v', MapMove::Down},   {'h', MapMove::Home},    {'e', MapMove::End},
                                        {'u', MapMove::PageUp}, {'d', MapMove::PageDown}};
    for (const auto& [keys, wanted] : Fields{{">>>>>>>>>>>", "zabcdefghi"},
                                             {"e<<<<<<<<<<<", "ihgfedcbazy"},
                                             {"vvvvvvvv", "zbcei"},
                                             {"e^^^^^^", "iecbzy"},
                                             {"hddddd", "yaei"},
                                             {"euuu", "iczy"}}) {
        lines.setCurrent(Key("U.y"));
        std::string way;
        for (const char key : keys) {
            const auto next = lines.moved(moves.at(key), 4);
            if (!next) continue;
            if (way.empty() || way.back() != nameOf(*next).front()) way += nameOf(*next);
            lines.setCurrent(lines.itemAt(*next));
        }
        EXPECT_EQ(way, wanted) << keys;
    }
}

TEST(RegisterMap, NextFree) {
    struct Case {
        const char* items;
        std::int64_t length;  // bits
        bool bits;
        std::int64_t behind;  // register
        std::int64_t wanted;  // bit; -1 for none
    };
    for (const Case& each : std::vector<Case>{
             {"a word 0, b word 3", 16, false, 0, 16},
             {"a word 0, b word 3", 32, false, 2, 64},
             {"a word 0, b word 3", 32, false, 4, 64},
             {"a word 0, b word 3", 48, false, 0, 64},
             {"a bit 0.3, b word 1", 4, true, 0, 4},
             {"a bit 0.3, b word 1", 13, true, 0, 32},
             {"a bit 0.3, b word 1", 16, false, 0, 32},
             {"a word 8, b word 65535", 16, false, 65536, 0},
             {"a word 0, b words 1 x32767, c words 32768 x32767", 16, false, 9, 65535 * 16},
             {"a word 0, b words 1 x32767, c words 32768 x32767", 32, false, 0, -1},
         }) {
        Configuration configuration;
        plantRegisters(configuration, each.items);
        const RegisterMap map = registerMapOf(configuration, configuration.tree.at(Key("U")));
        const auto found = nextFree(map.tables.front(), each.length, each.bits, each.behind * 16);
        EXPECT_EQ(found ? found->begin : -1, each.wanted) << each.items << " " << each.length;
    }
}

namespace {

struct MapWorkplace : Workplace {
    MapWorkplace() {
        openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml"));
        messages.take();
    }
    /// The selected node, the current block, the heading, the notice or message.
    std::string seen() {
        std::string news = window.status[StatusField::Notice];
        for (const std::string& text : messages.take()) news = text;
        if (form == nullptr) return selectedKey() + " | " + news;
        const std::string current = form->text("txtBlock");
        return selectedKey() + " | " + current.substr(0, current.find(',')) + " | " + form->text("lblUnit") +
               " | " + news.substr(0, news.find('.'));
    }
    /// A part of the last row of that address, such as "32 8.0" for bit 0 of its register 8.
    MapPoint point(const std::string& text) const {
        const Texts words = split(text, " ");
        const Texts place = split(words[1], ".");
        for (std::size_t line = form->map->lineCount(); line-- > 0;) {
            const double bit = std::stod(place[0]) * 16 + std::stod(place[1]) + 0.5;
            if (form->map->line(line).text == words[0]) return {line, bit / 256, 0};
        }
        throw std::logic_error("no row " + text);
    }
    void act(const std::string& step) {
        const std::string rest = step.substr(std::min(step.size(), step.find(' ') + 1));
        if (step == "right") return form->inMap.move(MapMove::Right, 10);
        if (step.starts_with("click ")) return form->inMap.click(point(rest));
        if (step.starts_with("double ")) return form->inMap.open(point(rest));
        if (step == "free") return form->press("cmdFree");
        if (step == "new") {
            forms.scripts.emplace_back([this](FakeForm&) { EXPECT_EQ(form->text("lblUnit"), "No unit"); });
            return run("mnuNewCfg");
        }
        if (step == "pause") return editor.paused([] { return false; });
        if (step.starts_with("mnu")) {
            run(step);
        } else if (step.starts_with("dialog ")) {
            forms.scripts.emplace_back([rest](FakeForm& dialog) {
                dialog.fill(rest);
                dialog.press(dialog.shape.defaultButton);
            });
        } else {
            click(step == "top" ? "" : step);
        }
        if (form == nullptr) form = forms.last;
    }
    FakeForm* form = nullptr;
};

}  // namespace

TEST(RegisterMap, WindowFollows) {
    MapWorkplace place;
    const std::string dosing = " | Dosing: 46 items | ";
    for (const auto& [steps, wanted] : Fields{
             {"mnuRegisterMap", " | No register map: nothing in a unit is selected"},
             {"Dosing; mnuRegisterMap", "Dosing | Dosing.CHLORINE.PUMP.Fault" + dosing},
             {"click 32 8.0", "Dosing.PANEL.Lamp_Test | Dosing.PANEL.Lamp_Test" + dosing},
             {"click 32 8.1", "Dosing.PANEL.Lamp_Test | Dosing.PANEL.Lamp_Test" + dosing},
             {"right", "Dosing.PANEL.Lamp_Pattern | Dosing.PANEL.Lamp_Pattern" + dosing},
             {"Dosing.PANEL", "Dosing.PANEL | Dosing.PANEL.Lamp_Pattern" + dosing},
             // The dialog of another item, then the undo of its new name.
             {"click 32 8.0; dialog txtItemName=Test; double 32 8.0",
              "Dosing.PANEL.Test | Dosing.PANEL.Test" + dosing},
             {"mnuUndo",
              "Dosing.PANEL.Lamp_Test | Dosing.PANEL.Lamp_Test" + dosing + "Undone: Rename item Test"},
             {"mnuDelete",
              "Dosing.PANEL | Dosing.PANEL.Lamp_Pattern | Dosing: 45 items | "
              "Are you sure you want to delete Lamp_Test ?"},
             {"mnuUndo",
              "Dosing.PANEL.Lamp_Test | Dosing.PANEL.Lamp_Test" + dosing + "Undone: Delete item Lamp_Test"},
             {"dialog cmbModbusType=holding register|cmbDataType=signed 16 bit array|txtElements=5; free",
              "Dosing.PANEL.Lamp_Test | Free: holding register 76 to 80; address 76 copied" + dosing +
                  "Free: holding register 76 to 80; address 76 copied"},
             {"dialog txtElements=32; free",
              "Dosing.PANEL.Lamp_Test | Free: holding register 116 to 147; address 116 copied" + dosing +
                  "Free: holding register 116 to 147; address 116 copied"},
             {"dialog txtElements=0; free",
              "Dosing.PANEL.Lamp_Test | Free: holding register 116 to 147; address 116 copied" + dosing +
                  "Number of elements field is not valid"},
             {"dialog cmbModbusType=coil|cmbDataType=boolean; free",
              "Dosing.PANEL.Lamp_Test | Free: coil 21; address 21 copied" + dosing +
                  "Free: coil 21; address 21 copied"},
             {"right", "Dosing.FLOCCULANT.PUMP.Enable | Dosing.FLOCCULANT.PUMP.Enable" + dosing},
             {"dialog cmbModbusType=holding register|cmbDataType=32 bit float array|txtElements=32767; free",
              "Dosing.FLOCCULANT.PUMP.Enable | Not enough room in holding register: no free stretch is long "
              "enough" +
                  dosing + "Not enough room in holding register: no free stretch is long enough"},
             {"Intake.PUMPS", "Intake.PUMPS | Intake.PUMPS.PUMP1.Available | Intake: 68 items | "},
             {"top; pause", " | Intake.PUMPS.PUMP1.Available | Intake: 68 items | "},
             {"new", " |  | No unit | "},
         }) {
        for (const std::string& step : split(steps, "; ")) place.act(step);
        EXPECT_EQ(place.seen(), wanted) << steps;
    }
}

}  // namespace trevandix::testing
