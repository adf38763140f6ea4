// Tests tables with plants and edits made at random: what is exported comes back, and what is accepted can be
// applied, undone and imported again.
#include <gtest/gtest.h>

#include <random>

#include "Plant.h"
#include "RandomSteps.h"
#include "model/ValueTypes.h"
#include "table/Plan.h"
#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix::testing {

namespace {

constexpr std::array kKinds{NodeTag::DataType, NodeTag::Plc, NodeTag::Item};
constexpr std::array kSeparators{Separator::Comma, Separator::Semicolon, Separator::Tab};

std::string file(const Configuration& configuration, NodeTag kind, Separator separator = Separator::Comma) {
    return csvFile(exportTable(configuration, kind), separator);
}

/// Reads the same bytes as the file, without the wait of a real save; false if it cannot be written or read.
bool reopen(const Configuration& configuration, Configuration& again, const std::filesystem::path& path) {
    try {
        std::filesystem::remove(path);
        {
            OutputFile out(path.string());
            Latin1Lines lines(out);
            ConfigurationPrinter printer(configuration, ConfigurationPrinter::Purpose::File);
            while (printer.printSome(lines, 1000)) {
            }
            out.close();
        }
        PugiXmlParser parser;
        again.begin("again.xml");
        return ConfigurationReader(again, parser).read(path.string(), Origin::OwnWriter);
    } catch (const RuntimeError&) {
        return false;
    }
}

/// Units, branches, items and data types with texts that spreadsheets find difficult.
void plantAtRandom(Workplace& place, unsigned seed) {
    static const Texts kPieces =
        split("=|+|-|@|'|''|\"|,|;|x|5|-5|+1.5| |.|\\|\\0|0|\xCE\xA3\xCF\x84|\xC3\xA4");
    std::mt19937 random(seed);
    const auto text = [&] {
        std::string all;
        for (auto pieces = random() % 4; pieces > 0; --pieces) all += kPieces[random() % kPieces.size()];
        return all;
    };
    place.newConfiguration(seed % 2 == 0 ? kTcpIp : kRtu);
    Configuration& c = place.configuration;
    for (const ModbusTable& table : modbusTables()) c.addDataType(clsModBusType::usual(table));
    for (int unit = 0; unit < 3; ++unit) {
        clsPLC record;
        UnitFields fields = clsPLC::proposed();
        fields.name = text() + "u" + std::to_string(unit);
        fields.identifier = std::to_string(unit);
        record.SetByForm(fields, c.state.interfaceKind);
        TreeNode* container = &c.addUnit(record);
        for (int item = 0; item < 12; ++item) {
            if (random() % 4 == 0)
                container = &plantBranch(c, *container,
                                         std::string(1, "AZa"[item % 3]) + ".b-" + std::to_string(item));
            ItemFields entered;
            entered.name = "I-" + std::to_string(item);
            entered.comment = text();
            entered.table = "holding register";
            entered.type = valueTypes()[random() % valueTypes().size()].label;
            entered.address = std::to_string(random() % 65536);
            entered.bit = hasBitNumber(entered.table, entered.type) ? "3" : "0";
            entered.elements = "7";
            entered.accessRight = "WRITE";
            clsItem made;
            made.SetByForm(entered, container->key());
            c.addItem(made, *container);
        }
    }
}

/// Puts cells of other rows of the column, and now and then an odd text, into random places.
Cells mixed(const std::vector<Cells>& rows, std::mt19937& random) {
    static const Texts kOdd = split("|q|q2|A|9|COM7|=1|a b|0|\\0|Q.R|coil|boolean");
    Cells row = rows[1 + random() % (rows.size() - 1)];
    for (auto changes = random() % 4; changes > 0; --changes) {
        const std::size_t column = random() % row.size();
        const std::size_t other = rows[0][column] == "New Name" ? column - 1 : column;
        row[column] =
            random() % 3 > 0 ? rows[1 + random() % (rows.size() - 1)][other] : kOdd[random() % kOdd.size()];
    }
    return row;
}

/// Imports mixed rows of each kind: what is accepted can be applied and undone, and changes nothing the
/// second time. Counts what is accepted and refused.
void importMixed(Configuration& configuration, unsigned seed, std::array<std::size_t, 2>& counts) {
    std::mt19937 random(seed);
    for (const NodeTag kind : kKinds) {
        std::vector<Cells> rows = exportTable(configuration, kind);
        std::vector<Cells> edited{rows[0]};
        for (std::size_t row = 1; row < rows.size(); ++row) edited.push_back(mixed(rows, random));
        // Who exchanges names by nothing but them does it again the second time.
        const bool renames = seed % 2 == 0 && kind != NodeTag::DataType;
        if (!renames) std::ranges::replace(edited[0], std::string("New Name"), std::string("Unknown"));
        const Table table = readTable(csvText(edited, Separator::Comma));
        const auto contents = [&] {
            return std::pair(exportTable(configuration, kind), disagreements(configuration));
        };
        const auto before = contents();
        const ChangeSet set(configuration, table);
        counts[0] += set.accepted();
        counts[1] += set.refused();
        ASSERT_NO_THROW(set.apply(configuration)) << seed;
        ASSERT_TRUE(renames || ChangeSet(configuration, table).accepted() == 0) << seed;
        if (set.accepted() == 0) continue;
        const auto after = contents();
        ASSERT_EQ(after.second, before.second) << seed;
        configuration.undo();
        ASSERT_EQ(contents(), before) << seed;
        configuration.redo();
        ASSERT_EQ(contents(), after) << seed;
    }
}

}  // namespace

TEST(Table, RandomPlantsComeBackThroughEachSeparator) {
    for (unsigned seed = 0; seed < 30; ++seed) {
        Workplace place;
        plantAtRandom(place, seed);
        Workplace other;
        other.newConfiguration(place.configuration.state.interfaceKind);
        for (const NodeTag kind : kKinds) {
            const std::string text = file(place.configuration, kind, kSeparators.at(seed % 3));
            const ChangeSet set(other.configuration, readTable(text));
            ASSERT_EQ(set.refused(), 0U) << seed;
            set.apply(other.configuration);
            ASSERT_EQ(file(other.configuration, kind, kSeparators.at(seed % 3)), text) << seed;
        }
        EXPECT_EQ(fileContents(other.configuration), fileContents(place.configuration));
        Configuration again;
        ASSERT_TRUE(reopen(place.configuration, again, place.folder / "again.xml"));
        for (const NodeTag kind : kKinds)
            EXPECT_TRUE(ChangeSet(again, readTable(file(place.configuration, kind))).changes().empty())
                << seed;
    }
}

TEST(Table, WhatIsAcceptedCanBeAppliedAndUndone) {
    std::array<std::size_t, 2> counts{};
    for (unsigned seed = 0; seed < 100 && !HasFatalFailure(); ++seed) {
        Workplace place;
        plantAtRandom(place, seed / 2);
        importMixed(place.configuration, seed, counts);
    }
    for (unsigned seed = 1; seed <= 20 && !HasFatalFailure(); ++seed) {
        Desk desk;
        for (const Step& step : walk(seed, 300, seed % 4 == 0).steps) {
            if (step.verb == "undo" && seed % 2 == 0) break;
            desk.apply(step);
        }
        if (desk.configuration().tree.root() != nullptr)
            importMixed(behindTheDoor(desk.configuration()), seed, counts);
    }
    EXPECT_GT(std::min(counts[0], counts[1]), 500U);
}

TEST(Table, AnythingImportedWhereItComesFromChangesNothing) {
    const OwnFolder folder;
    int reopened = 0;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        const Walk walked = walk(seed, 400, seed % 4 == 0);
        Desk desk;
        for (std::size_t step = 0; step < walked.steps.size(); ++step) {
            desk.apply(walked.steps[step]);
            if (step % 20 != 19 || desk.configuration().tree.root() == nullptr) continue;
            for (const NodeTag kind : kKinds) {
                const Table table = readTable(file(desk.configuration(), kind));
                ASSERT_TRUE(ChangeSet(desk.configuration(), table).changes().empty())
                    << "seed " << seed << " step " << step;
                Configuration again;
                if (!reopen(desk.configuration(), again, folder.path / "again.xml")) continue;
                ASSERT_TRUE(ChangeSet(again, table).changes().empty()) << "seed " << seed << " step " << step;
                reopened += table.rows.empty() ? 0 : 1;
            }
        }
    }
    EXPECT_GT(reopened, 100);
}

}  // namespace trevandix::testing
