// Compares what the checks find in random configurations with what saving, reading and a plain map of
// registers show.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "Plant.h"
#include "RandomPlant.h"
#include "check/Check.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix::testing {

namespace {

bool hasErrors(const Configuration& configuration) {
    return countFindings(check(configuration).value()).errors > 0;
}

/// The content of the file when it is opened; nothing if it is refused.
Texts opened(const std::string& path) {
    Configuration configuration;
    configuration.begin("");
    PugiXmlParser parser;
    try {
        if (ConfigurationReader(configuration, parser).read(path)) return fileContents(configuration);
    } catch (const RuntimeError&) {
    }
    return {};
}

/// What other parsers refuse and pugixml does not; and bytes that some of them take for letters.
bool isDoubtfulXml(const std::string& bytes) {
    const bool control = std::ranges::any_of(bytes, [](unsigned char c) {
        return (c < 0x20 && c != '\t' && c != '\n' && c != '\r') || (c >= 0x7F && c <= 0x9F);
    });
    const auto holds = [&](std::string_view text) { return bytes.find(text) != std::string::npos; };
    bool wrongName = false;
    for (std::size_t at = bytes.find("</"); at != std::string::npos; at = bytes.find("</", at + 1)) {
        const std::string name = bytes.substr(at, bytes.find('>', at) - at);
        wrongName = wrongName || name.find_first_of(":\xD7\xF7") != std::string::npos;
    }
    return control || wrongName || holds("]]>") || holds("&#xFFFE;");
}

/// A program may make blanks of these.
Texts withoutBreaks(Texts texts) {
    for (std::string& text : texts)
        std::ranges::replace_if(
            text, [](char c) { return c == '\t' || c == '\n'; }, ' ');
    return texts;
}

}  // namespace

TEST(CheckProperties, WithoutErrorsAConfigurationComesBack) {
    OwnFolder folder;
    const std::string path = (folder.path / "plant.xml").string();
    int sound = 0;
    int unreadable = 0;
    for (unsigned seed = 1; seed <= 1000; ++seed) {
        Configuration configuration;
        configuration.begin("");
        plantAtRandom(configuration, seed);
        configuration.setOpen(true);
        const std::string fault = firstUnreadable(configuration);
        const bool errors = hasErrors(configuration);
        ASSERT_TRUE(errors || fault.empty()) << seed;
        try {
            ConfigurationWriter(configuration).write(path);
        } catch (const RuntimeError&) {
            ASSERT_TRUE(errors) << seed;
            continue;
        }
        const std::string bytes = readFile(path);
        SCOPED_TRACE("seed " + std::to_string(seed) + " " + fault + "\n" + bytes);
        const bool xml = isXml(bytes) && !isDoubtfulXml(bytes);
        if (!errors) {
            ++sound;
            ASSERT_TRUE(xml);
            ASSERT_EQ(opened(path), fileContents(configuration));
        } else if (!fault.empty() && xml && disagreements(configuration).empty()) {
            const Texts meant = fileContents(configuration);
            ASSERT_TRUE(opened(path) != meant || withoutBreaks(meant) != meant);
        }
        unreadable += xml ? 0 : 1;
    }
    EXPECT_GT(sound, 400);
    EXPECT_GT(unreadable, 100);
}

TEST(CheckProperties, OverlapsAreThoseOfAMapOfBits) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        Configuration configuration;
        configuration.begin("");
        std::map<std::string, std::map<int, std::set<std::string>>> map;  // who has the bit
        std::map<std::string, std::pair<std::string, std::set<int>>> items;
        for (const std::string unit : {"U", "V"}) {
            plantUnit(configuration, unit);
            TreeNode& node = configuration.tree.at(Key(unit));
            for (std::size_t i = 1 + random() % 30; i > 0; --i) {
                std::string table;
                const std::string name = "i" + std::to_string(i);
                const std::set<int> bits = plantSomewhere(configuration, node, random, name, table);
                for (const int bit : bits) map[unit + table][bit].insert(name);
                items[unit + "." + name] = {unit + table, bits};
            }
        }
        std::map<std::string, std::string> found;
        const auto findings = check(configuration).value();
        for (const Finding& finding : findings) {
            if (finding.rule->name == "overlap") found[finding.object.str()] = finding.text;
        }
        for (const auto& [key, place] : items) {
            std::set<std::string> partners;
            for (const int bit : place.second) partners.merge(std::set(map[place.first][bit]));
            partners.erase(key.substr(2));
            EXPECT_EQ(found.contains(key), !partners.empty()) << key;
            if (partners.empty()) continue;
            const std::string& text = found[key];
            std::size_t named = 0;
            for (const std::string& partner : partners)
                named += text.find(" " + partner + " (") != std::string::npos;
            const std::size_t more = partners.size() - std::min<std::size_t>(partners.size(), 3);
            EXPECT_EQ(named, partners.size() - more) << key << " " << text;
            EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(text, '(')), named) << text;
            const std::string end = ") and " + std::to_string(more) + " more; ";
            EXPECT_EQ(text.find(end) != std::string::npos, more > 0) << text;
        }
    }
}

// Twice as many objects take about twice as many steps, however they stand.
TEST(CheckProperties, WorkGrowsWithTheNumberOfObjects) {
    using Plant = std::function<void(Configuration&, TreeNode & unit, int many)>;
    const auto branchAndItem = [](Configuration& c, TreeNode& node, const std::string& name) -> TreeNode& {
        TreeNode& branch = plantBranch(c, node, name);
        plantItem(c, branch, "New_Item_1");
        return branch;
    };
    const std::vector<Plant> plants{
        [](Configuration& c, TreeNode& unit, int many) {
            for (int i = 0; i < many; ++i) plantItem(c, unit, std::to_string(i));  // at one address
        },
        [&](Configuration& c, TreeNode& unit, int many) {
            TreeNode* deepest = &unit;
            for (int i = 0; i < many / 2; ++i) deepest = &branchAndItem(c, *deepest, "a");
        },
        [](Configuration& c, TreeNode& unit, int many) {
            for (int i = 0; i < many; ++i) {  // names that differ in capitals only
                std::string name = "abcdefghijklmnop";
                for (std::size_t letter = 0; letter < name.size(); ++letter) {
                    if ((i >> letter & 1) != 0) name[letter] = static_cast<char>(name[letter] - 'a' + 'A');
                }
                plantBranch(c, unit, name);
            }
        },
        [](Configuration& c, TreeNode&, int many) {
            for (int i = 0; i < many; ++i) plantUnit(c, std::to_string(i));  // with one identifier
        }};
    for (const Plant& plant : plants) {
        const auto asked = [&](int many) {
            Configuration configuration;
            configuration.begin("");
            plantUnit(configuration, "U");
            plant(configuration, configuration.tree.at(Key("U")), many);
            int count = 0;
            EXPECT_TRUE(check(configuration, [&] { return ++count < 0; }).has_value());
            return count;
        };
        const int once = asked(8000);
        EXPECT_GT(once, 10);
        EXPECT_LT(asked(16000), once * 2.5);
    }
}

}  // namespace trevandix::testing
