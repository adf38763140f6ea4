// Tests the commands of the command line in-process; command-line.sh tests the built program.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <random>

#include "Plant.h"
#include "check/Check.h"
#include "cli/Trevandix.h"
#include "model/ValueTypes.h"
#include "platform/FileAccess.h"
#include "xmlfile/ConfigurationPrinter.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix::testing {

namespace {

struct TextSink : ByteSink {
    void write(std::string_view bytes) override { text += bytes; }
    std::string text;
};

struct CommandLine : ::testing::Test {
    std::string path(const std::string& name) const { return toUtf8(folder.path / name); }
    /// Runs the command and expects the exit code. Returns what it printed.
    std::string run(int code, const Texts& arguments, XmlParser& with) {
        TextSink out;
        err.text.clear();
        EXPECT_EQ(runTrevandix({out, err, [] { return std::string(); }, colours}, with, registry, arguments),
                  code)
            << err.text;
        return out.text;
    }
    std::string run(int code, const Texts& arguments) { return run(code, arguments, parser); }

    OwnFolder folder;
    PugiXmlParser parser;
    FakeRegistry registry;
    TextSink err;
    bool colours = false;
};

Texts linesOf(const std::string& text) {
    Texts lines;
    for (std::size_t at = 0; at < text.size(); at = text.find('\n', at) + 1)
        lines.push_back(text.substr(at, text.find('\n', at) - at));
    return lines;
}

/// Few names, so that two of them often agree; some hold dots, which makes the same key of different places.
void plantRandom(Configuration& configuration, std::mt19937& random) {
    const auto below = [&](unsigned limit) { return static_cast<unsigned>(random() % limit); };
    configuration.beginNew("");
    if (below(9) == 0) configuration.setInterfaceKind(kRtu);
    if (below(4) == 0) configuration.addDataType(clsModBusType::usual(modbusTables()[below(2)]));
    std::vector<TreeNode*> places;
    for (unsigned count = below(4); count > 0; --count) {
        const std::string name = Texts{"A", "A", "A.A", "B"}[below(4)];
        try {
            if (places.empty() || below(3) == 0) {
                plantUnit(configuration, name, below(8) == 0 ? "" : "10.0.0.1");
                places.push_back(configuration.tree.root()->lastChild());
            } else if (TreeNode& place = *places[below(static_cast<unsigned>(places.size()))];
                       below(2) == 0) {
                places.push_back(&plantBranch(configuration, place, name));
            } else {
                clsItem& item = plantItem(configuration, place, name);
                item.nElements(static_cast<std::int16_t>(below(2)));  // no part of the file
                if (below(8) == 0) item.sComment("x");
            }
        } catch (const RuntimeError&) {  // the key is taken
        }
    }
}

}  // namespace

// Against the records as the file holds them, in any order.
TEST_F(CommandLine, DiffIsEmptyForEqualContentOnly) {
    std::mt19937 random(1);
    std::size_t equal = 0;
    for (int round = 0; round < 600; ++round) {
        Texts contents[2];
        for (int side = 0; side < 2; ++side) {
            Configuration configuration;
            plantRandom(configuration, random);
            TextSink sink;
            Latin1Lines lines(sink);
            ConfigurationPrinter(configuration).printSome(lines, 100);
            std::string text = sink.text;
            for (std::size_t at = 0; side == 1 && (at = text.find("A>", at)) != std::string::npos; ++at)
                text[at] = 'a';  // in branches only
            const std::string file = path(std::to_string(side));
            writeFile(file, text);
            writeFile(path("formatted"), run(0, {"format", file}));
            EXPECT_EQ(run(0, {"diff", file, path("formatted")}), "");
            contents[side] = fileContents(configuration);
            std::ranges::sort(contents[side]);
        }
        const bool same = contents[0] == contents[1];
        equal += same ? 1 : 0;
        const std::string told = run(same ? 0 : 1, {"diff", path("0"), path("1")});
        ASSERT_EQ(told.empty(), same) << ::testing::PrintToString(contents) << told;
    }
    EXPECT_GT(equal, 20U);
}

// Each field of each record in the samples, changed alone.
TEST_F(CommandLine, DiffTellsEachChangedFieldInOneLine) {
    std::size_t tried = 0;
    for (const std::string name : {"water-works.xml", "boiler-house-rtu.xml"}) {
        const std::string file = TREVANDIX_SAMPLES "/" + name;
        const std::string text = readFile(file);
        for (const std::string field :
             {"address", "comment", "datatype", "accessrights", "databit", "elements", "id", "timeout", "com",
              "baudrate", "parity", "stopbits", "databits", "flowcontrol", "silent", "readcode", "writecode",
              "singlewrcode"}) {
            for (const auto& [begin, end] : {std::pair<std::string, std::string>{"<" + field + ">", "<"},
                                             {" " + field + "=\"", "\""},
                                             {" " + field + " = \"", "\""}}) {
                const std::size_t at = text.find(begin);
                if (at == std::string::npos) continue;
                const std::size_t from = at + begin.size();
                const std::string old = text.substr(from, text.find(end, from) - from);
                const std::string table = old.starts_with('H') ? "IREGISTER" : "HREGISTER";
                const std::string now = field == "datatype" ? table + old.substr(old.find(' '))
                                        : old == "7"        ? "8"
                                                            : "7";
                writeFile(path("changed"), std::string(text).replace(from, old.size(), now));
                const Texts lines = linesOf(run(1, {"diff", file, path("changed")}));
                ASSERT_EQ(lines.size(), 1U) << field << ::testing::PrintToString(lines);
                EXPECT_TRUE(lines[0].starts_with("~ ")) << lines[0];
                EXPECT_NE(lines[0].find(": " + field + " "), std::string::npos) << lines[0];
                ++tried;
            }
        }
    }
    EXPECT_EQ(tried, 30U);
}

TEST_F(CommandLine, CheckTellsTheSameAsTextAndAsJson) {
    PlantedWorkplace place({"U", "U.A/", "U.A.x", "U.A.y\x1B"});
    place.item("U.A.y\x1B").sComment("1 < 2");
    place.saved("found.xml");
    const std::string file = place.path("found.xml");
    const auto findings = check(place.configuration).value();
    ASSERT_FALSE(findings.empty());
    const auto json = nlohmann::json::parse(run(2, {"check", "--format", "json", file, path("absent")}));
    std::string told;
    Texts objects;
    for (const auto& finding : json["files"][0]["findings"]) {
        const auto text = [&](const char* name) { return finding[name].get<std::string>(); };
        objects.push_back(text("object"));
        told += file + ": " + text("severity") + ": " + text("object") + ": " + text("rule") + ": " +
                text("text") + "\n";
    }
    std::string shown;
    for (const char c : told) shown += c == '\x1B' ? "\\u001B" : std::string(1, c);
    EXPECT_EQ(run(1, {"check", file}), shown);
    EXPECT_EQ(objects.size(), findings.size());
    EXPECT_EQ(json["errors"], countFindings(findings).errors);
    EXPECT_EQ(json["rules"].size(), rules().size());
    EXPECT_EQ(json["files"][1]["unreadable"], path("absent") + ": File not found");
}

// A file that another program writes between reading and writing stays as that program left it.
TEST_F(CommandLine, WritingKeepsTheWorkOfOthers) {
    struct SlowParser : PugiXmlParser {
        std::unique_ptr<XmlDocument> load(const std::string& filePath) override {
            auto document = PugiXmlParser::load(filePath);
            writeFile(filePath, "the work of others");
            return document;
        }
    } slow;
    const std::string file = path("plant.xml");
    const std::string table = path("types.csv");
    writeFile(table, "Name,Read Code\ncoil,3\n");
    for (const Texts& arguments :
         {Texts{"format", file, "--in-place"}, Texts{"format", file, "-o", file, "--force"},
          Texts{"import", file, table, "--in-place"}}) {
        run(0, {"new", "rtu", "-o", file, "--force"});
        run(2, arguments, slow);
        EXPECT_EQ(readFile(file), "the work of others");
        EXPECT_TRUE(err.text.find("Another program") != std::string::npos) << err.text;
    }
}

TEST_F(CommandLine, ColoursAreForTerminals) {
    run(0, {"new", "rtu", "-o", path("a")});
    run(0, {"new", "tcp", "-o", path("b")});
    const std::string line = run(1, {"diff", path("a"), path("b")});
    colours = true;
    EXPECT_EQ(run(1, {"diff", path("a"), path("b")}), "\x1B[33m" + replaced(line, "\n", "\x1B[0m\n"));
}

TEST_F(CommandLine, PublishesWithTheRightsThatTheUserGives) {
    writeFile(folder.path / "plant.xml", fileText({}, {}, true));
    const auto publishes = [&](int code, const Texts& options, const std::string& message) {
        Texts arguments{"publish", path("./plant.xml")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        run(code, arguments);
        EXPECT_NE(err.text.find(": " + message), std::string::npos) << err.text;
        EXPECT_EQ(registry.published, code == 0 ? Fields({{"TrevandixRTU", path("plant.xml")}}) : Fields());
    };
    registry.refuses = true;
    publishes(1, {}, "not published: the system refused; --elevate");
    registry.answer = Publication::NobodyToAsk;
    publishes(1, {"--elevate"}, "not published: nobody is at the desktop");
    registry.answer = Publication::Done;
    registry.mapped = true;
    publishes(0, {"--elevate"}, "warning: the server's account");
    registry = {};
    registry.asks = false;
    publishes(2, {"--elevate"}, "--elevate is for Windows only");
}

}  // namespace trevandix::testing
