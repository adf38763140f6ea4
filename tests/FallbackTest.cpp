// Files that are no XML because values are written as they are, and files that mean harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "FakePlatform.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "xmlfile/AmbiguousTexts.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix::testing {

namespace {

using Texts = std::vector<std::string>;

// A configuration with the means to write and read it, much quicker made than a whole editor.
struct Archive {
    Archive() { configuration.buildRoot(); }
    bool read(const std::string& path) {
        return ConfigurationReader(configuration, parser, messages, pointer, [] {}).ImportXML(path);
    }
    bool write(const std::string& path) {
        return ConfigurationWriter(configuration, messages, pointer).CreateXML(path);
    }

    Configuration configuration;
    PugiXmlParser parser;
    FakeMessages messages;
    FakePointer pointer;
};

// Everything a file can hold, in tree order, with the branch names as a file gives them back.
Texts contents(const Configuration& configuration) {
    Texts lines{configuration.state.interfaceKind};
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        std::string line(tagName(n->tag()));
        for (const TreeNode* up = n; up != &root; up = up->parent()) line += "|";
        line += n->tag() == NodeTag::Branch ? upperCased(n->text()) : n->text();
        if (n->tag() == NodeTag::Item) line += configuration.items.at(n->key())->GetXmlTag(0);
        if (n->tag() == NodeTag::Plc) {
            line += configuration.units.at(n->key())->GetXmlTag(configuration.state.interfaceKind);
        }
        if (n->tag() == NodeTag::DataType) line += configuration.dataTypes.at(n->key())->GetXmlTag();
        lines.push_back(line);
    }
    return lines;
}

class RandomPlant {
public:
    explicit RandomPlant(unsigned seed) : random_(seed) {
        // A few kinds of text for each plant, so that whole files are now and then well-formed by chance.
        for (int i = 0; i < 4; ++i) palette_.push_back(anyPiece());
    }

    void fill(Configuration& configuration) {
        const bool rtu = random_() % 2 == 0;
        configuration.state.interfaceKind = rtu ? kRtu : kTcpIp;
        for (int units = 1 + pick(2); units > 0; --units) {
            auto unit = std::make_shared<clsPLC>();
            unit->setName("U" + text());
            unit->setUI(static_cast<std::uint8_t>(pick(256)));
            unit->setTimeout(pick(100'000));
            if (rtu) {
                unit->setCom(text());
                unit->setBaud(9600);
                unit->setParity("EVEN");
                unit->setFlowCtl("NONE");
            } else {
                unit->setAddress(text());
            }
            unit->sKey(unit->getName());
            orRefused([&] { fill(configuration, configuration.addUnit(unit, true), 4); });
        }
    }

private:
    static constexpr std::string_view kPieces[]{"A",
                                                "b",
                                                "Tank 1",
                                                "1",
                                                " ",
                                                "-",
                                                "+",
                                                "&",
                                                "<",
                                                ">",
                                                "\"",
                                                "'",
                                                "]]>",
                                                "/",
                                                "=",
                                                "!",
                                                "?",
                                                ";",
                                                "#",
                                                "tag",
                                                "TAG",
                                                "<tag>",
                                                "</tag>",
                                                "</comment>",
                                                "<comment>",
                                                "</name>",
                                                "<name>",
                                                "<b>",
                                                "</b>",
                                                "<br/>",
                                                "<!--",
                                                "-->",
                                                "<![CDATA[",
                                                "<?x",
                                                "?>",
                                                "<PLC>",
                                                "</PLC>",
                                                "\" x=\"",
                                                "\" id=\"",
                                                "\" address = \"",
                                                "&amp;",
                                                "&lt;",
                                                "&#65;",
                                                "&#x41;",
                                                "&#x20AC;",
                                                "&#x20ac;",
                                                "&#x;",
                                                "&copy;",
                                                "\t",
                                                "\n",
                                                "\r\n",
                                                "\x01",
                                                "\xC2\x80",
                                                "\xC3\xBC",
                                                "\xC3\x9F",
                                                "\xC3\xBF",
                                                "\xE2\x82\xAC",
                                                "\xF0\x9F\x98\x80",
                                                "\xCE\xB1",
                                                "<!DOCTYPE"};

    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    std::string anyPiece() {
        if (pick(4) != 0) return std::string(kPieces[random_() % std::size(kPieces)]);
        std::string character;
        auto c = static_cast<char32_t>(0x20 + pick(pick(2) == 0 ? 0x2E0 : 0xD000));
        if (c == '.') c = 'x';  // a name with a "." has a key that may be another's
        appendUtf8(character, c);
        return character;
    }

    std::string text() {
        std::string text;
        for (int pieces = pick(5); pieces > 0; --pieces) text += palette_[random_() % palette_.size()];
        return text;
    }

    // Names may clash by chance; the plant then goes without.
    template <typename Step>
    static void orRefused(Step step) {
        try {
            step();
        } catch (const RuntimeError&) {
        }
    }

    void fill(Configuration& configuration, TreeNode& container, int deepest) {
        for (int children = pick(4); children > 0; --children) {
            if (deepest > 0 && pick(2) == 0) {
                auto branch = std::make_shared<clsBranch>();
                branch->sName(text());
                branch->sKey(Key(container.key(), branch->sName()));
                orRefused(
                    [&] { fill(configuration, configuration.addBranch(branch, container), deepest - 1); });
                continue;
            }
            auto item = std::make_shared<clsItem>();
            item->sName(text());
            item->sComment(text());
            item->nAddress(pick(65536));
            item->sDataType(pick(2) == 0 ? "coil:boolean array" : "holding register:signed 16 bit");
            item->sAccessRight("READ");
            item->sKey(Key(container.key(), item->sName()));
            orRefused([&] { configuration.addItem(item, container); });
        }
    }

    std::mt19937 random_;
    Texts palette_;
};

struct Folder : Workplace {
    std::string file(std::string_view bytes) {
        writeFile(folder / "test.xml", bytes);
        return path("test.xml");
    }
    /// The one message of a file that is refused.
    std::string refusal(std::string_view bytes) {
        openText(bytes);
        EXPECT_FALSE(configuration.state.configurationOpen);
        const Texts texts = messages.take();
        return texts.size() == 1 ? texts[0] : std::to_string(texts.size()) + " messages";
    }
};

std::string oneUnit(const std::string& lines) {
    return fileText({}, {"\t\t<PLC name=\"P\" address = \"\" id=\"1\" timeout=\"1000\">\r\n\t\t\t<tags>\r\n" +
                         lines + "\t\t\t</tags>\r\n\t\t</PLC>"});
}

}  // namespace

// Whatever names and comments hold: opened again they are the same, or the user was told which may not be.
TEST(Fallback, WhatIsSavedIsOpened) {
    constexpr unsigned kPlants = 3000;
    Workplace place;
    const std::string path = place.path("plant.xml");
    unsigned notXml = 0;
    unsigned told = 0;
    for (unsigned seed = 1; seed <= kPlants; ++seed) {
        Archive written;
        RandomPlant(seed).fill(written.configuration);
        const Texts ambiguous = ambiguousTexts(written.configuration);
        ASSERT_TRUE(written.write(path));
        if (!ambiguous.empty()) {
            ++told;
            continue;
        }
        Archive opened;
        const bool good = opened.read(path);
        ASSERT_TRUE(good) << "seed " << seed << opened.messages.texts[0] << "\n" << readFile(path);
        ASSERT_EQ(contents(opened.configuration), contents(written.configuration)) << "seed " << seed << "\n"
                                                                                   << readFile(path);
        try {
            PugiXmlParser().load(path);
        } catch (const RuntimeError&) {
            ++notXml;
        }
    }
    RecordProperty("notXml", static_cast<int>(notXml));
    RecordProperty("told", static_cast<int>(told));
    EXPECT_GT(notXml, kPlants / 4);
    EXPECT_LT(told, kPlants * 2 / 3);
}

// Texts that engineers type, each alone in its file: none may need a notice, and each comes back.
TEST(Fallback, OrdinaryTextsComeBackWithoutANotice) {
    for (const std::string text : {"Pumps & valves",
                                   "T < 5 \xC2\xB0"
                                   "C",
                                   "a <- b",
                                   "<none>",
                                   "<br/>",
                                   "<b>x</b>",
                                   "a<!-- b -->c",
                                   "</comment>",
                                   "R&D;",
                                   "12\" pipe",
                                   "Tank > Pump",
                                   " blanks ",
                                   "A ",
                                   "1st",
                                   "-",
                                   "",
                                   "A/B",
                                   "<![CDATA[x]]>",
                                   "\xE2\x82\xAC",
                                   "Level=5"}) {
        Workplace place;
        Archive written;
        auto unit = std::make_shared<clsPLC>();
        unit->setName(text.empty() ? "U" : text);
        unit->setAddress(text);
        unit->sKey(unit->getName());
        TreeNode& node = written.configuration.addUnit(unit, true);
        auto branch = std::make_shared<clsBranch>();
        branch->sName(text);
        branch->sKey(Key(node.key(), text));
        TreeNode& folder = written.configuration.addBranch(branch, node);
        auto item = std::make_shared<clsItem>();
        item->sName("I");
        item->sComment(text);
        item->sKey(Key(folder.key(), "I"));
        written.configuration.addItem(item, folder);
        const bool markup = text.find('<') != std::string::npos && text.find('>') != std::string::npos;
        EXPECT_EQ(ambiguousTexts(written.configuration).size(), markup ? 1U : 0U)
            << text;  // the branch's name alone
        ASSERT_TRUE(written.write(place.path("x.xml")));
        Archive opened;
        ASSERT_TRUE(opened.read(place.path("x.xml"))) << text << opened.messages.texts[0];
        EXPECT_EQ(contents(opened.configuration), contents(written.configuration)) << text;
    }
}

TEST(Fallback, SaysQuietlyWhatMayComeBackAsSomethingElse) {
    Workplace place;
    place.openText(oneUnit(tagText(4, "Run") + "\r\n" + tagText(4, "Stop") + "\r\n"));
    place.run("mnuSaveCfg");
    EXPECT_EQ(place.window.status[StatusField::Notice].find("May read differently"), std::string::npos);
    place.item("P.Run").sComment("a &amp; b");
    place.messages.take();
    place.run("mnuSaveCfg");
    EXPECT_EQ(place.window.status[StatusField::Notice],
              "May read differently when opened: comment of P.Run. Published to the server: " +
                  place.path("test.xml"));
    EXPECT_EQ(place.messages.take().size(), 2U);  // the usual question and "saved", no box more

    // Names that are one in capitals: the file could not be opened with both.
    for (const char* name : {"Area", "AREA"}) {
        auto branch = std::make_shared<clsBranch>();
        branch->sName(name);
        branch->sKey(Key(Key("P"), name));
        place.configuration.addBranch(branch, place.node("P"));
    }
    EXPECT_EQ(ambiguousTexts(place.configuration), (Texts{"comment of P.Run", "name of branch P.AREA"}));
}

// Another program's files in the same shape: escaped text and markup are XML's.
TEST(Fallback, LeavesXmlToTheParser) {
    const std::string shape =
        oneUnit(tagText(4, "Run", "HREGISTER VT_I2", 1, "a &lt;b&gt; &#x20AC; &amp;amp;") + "\r\n");
    const std::string free =
        "<VOSKModBusTcpIpCfg><OPC_DA><PLC name='P' address='' id='1' timeout='1'><tags><tag><name>Run</name>"
        "<comment>a<!-- no --> <b>&lt;b&gt;</b> &#x20AC; &amp;amp;</comment><address>1</address>"
        "<datatype/><accessrights/></tag></tags></PLC></OPC_DA></VOSKModBusTcpIpCfg>";
    for (const std::string& bytes : {shape, free}) {
        Workplace place;
        place.openText(bytes);
        ASSERT_EQ(place.messages.take(), Texts{});
        std::string comment = place.item("P.Run").sComment();
        std::erase(comment, ' ');
        EXPECT_EQ(comment, "a<b>\xE2\x82\xAC&amp;");
    }
}

// Neither XML nor the writer's shape: the place that reading got to, and what is wrong there.
TEST(Fallback, NamesLineAndReason) {
    const std::string bad = oneUnit(tagText(4, "Run", "HREGISTER VT_I2", 1, "a<b") + "\r\n");
    const std::string front = " Error n. 1001  The file is not well-formed XML: line ";
    const auto with = [&](std::string_view what, std::string_view by) {
        std::string text = bad;
        return text.replace(text.find(what), what.size(), by);
    };
    Folder place;
    EXPECT_EQ(place.refusal(with("\t\t</PLC>\r\n", "")), front + "16, expected </PLC> in ImportXML");
    EXPECT_EQ(place.refusal(with("<address>1<", "<adress>1<")),
              front + "10, expected </comment> and <address> behind it in ImportXML");
    EXPECT_EQ(place.refusal(bad + "x"), front + "19, expected the end of the file in ImportXML");
    EXPECT_TRUE(place.refusal(with("ISO-8859-1", "UTF-8")).starts_with(front + "10, ")) << "the parser's own";
    place.openText(with("\r\n", "\r\n"));
    EXPECT_TRUE(place.configuration.state.configurationOpen);
    std::string unixLines = bad;
    std::erase(unixLines, '\r');
    place.openText(unixLines);
    EXPECT_EQ(place.item("P.Run").sComment(), "a<b");
}

// Bounded time and memory, and a message that says what is wrong.
TEST(HostileFiles, AreRefusedInTime) {
    using namespace std::string_literals;
    const auto start = std::chrono::steady_clock::now();
    Folder place;
    const auto refusedWith = [&](std::string_view bytes, std::string_view part) {
        const std::string message = place.refusal(bytes);
        EXPECT_NE(message.find(part), std::string::npos) << message;
    };

    std::string nested;
    for (int level = 0; level < 1'000'000; ++level) nested += "<B>";
    for (int level = 0; level < 1'000'000; ++level) nested += "</B>";
    refusedWith(oneUnit(nested), " Error n. 7  Out of memory: the branches nest too deeply");

    const std::string comment = oneUnit(tagText(4, "Run", "HREGISTER VT_I2", 1, "@") + "\r\n");
    const auto with = [&](std::string_view by) {
        return std::string(comment).replace(comment.find('@'), 1, by);
    };
    refusedWith(with("a\0b"s), "line 10, expected text, not a NUL byte");
    refusedWith(with("<\0b"s), "line 10, ");
    refusedWith(comment.substr(0, 200) + std::string(5000, '\0'), "not a NUL byte");

    const auto utf16 = [&](std::string_view text) {
        std::string bytes = "\xFF\xFE";
        for (const char c : text) bytes += {c, '\0'};
        return bytes;
    };
    const std::string wide = utf16(with("@@"));
    const auto place16 = wide.find("@\0@\0"s);
    refusedWith(std::string(wide).replace(place16, 4, "\x3D\xD8@\0"s), "half a UTF-16 pair");
    refusedWith(std::string(wide).replace(place16, 4, "\x00\xDE@\0"s), "half a UTF-16 pair");
    refusedWith(wide + "x", "half a UTF-16 character");
    for (const char* half : {"&#xD83D;", "&#56832;"}) {
        const std::string bytes = with(half);
        refusedWith(std::string(bytes).replace(bytes.find("ISO-8859-1"), 10, "UTF-8"),
                    "line 10, half a UTF-16 pair");
        place.openText(bytes);  // of the writer's shape: then it is what somebody typed
        EXPECT_EQ(place.item("P.Run").sComment(), half);
    }
    place.openText(std::string(wide).replace(place16, 4, "\x3D\xD8\x00\xDE"s));
    EXPECT_EQ(place.item("P.Run").sComment(), "\xF0\x9F\x98\x80");

    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

// Entities of a document type are not expanded: ten levels of ten stay a few letters.
TEST(HostileFiles, EntityBombsStaySmall) {
    std::string bomb = "<?xml version=\"1.0\"?><!DOCTYPE x [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 10; ++i) {
        bomb += "<!ENTITY a" + std::to_string(i) + " \"";
        for (int k = 0; k < 10; ++k) bomb += "&a" + std::to_string(i - 1) + ";";
        bomb += "\">";
    }
    const std::string body = oneUnit(tagText(4, "Run", "HREGISTER VT_I2", 1, "&a9;") + "\r\n");
    Workplace place;
    place.openText(bomb + "]>" + body.substr(body.find("<VOSK")));
    ASSERT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.item("P.Run").sComment(), "&a9;");
}

// A file beyond the limit is refused by its size, before any memory is taken for it.
TEST(HostileFiles, HugeFilesAreNotRead) {
    Folder place;
    const std::string path = place.file("x");
    std::error_code failed;  // takes no room on the disk, where the disk knows how to
    std::filesystem::resize_file(path, kLargestFile + 1, failed);
    if (failed) GTEST_SKIP() << "no file of that size here";
    Archive archive;
    EXPECT_FALSE(archive.read(path));
    EXPECT_EQ(archive.messages.take(),
              Texts{" Error n. 7  Out of memory: the file has more than 1024 MiB in ImportXML"});
}

}  // namespace trevandix::testing
