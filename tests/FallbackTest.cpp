// Files that are no XML because values are written as they are, and files that mean harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "Plant.h"
#include "platform/FileAccess.h"
#include "platform/Text.h"
#include "xmlfile/AmbiguousTexts.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"

namespace trevandix::testing {

namespace {

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

class RandomPlant {
public:
    explicit RandomPlant(unsigned seed) : random_(seed) {
        // A few kinds of text for each plant, so that whole files are now and then well-formed by chance.
        for (int i = 0; i < 4; ++i) palette_.push_back(anyPiece());
    }

    void fill(Configuration& configuration) {
        configuration.state.interfaceKind = pick(2) == 0 ? kRtu : kTcpIp;
        TreeNode* container = nullptr;
        for (int step = 2 + pick(14); step > 0; --step) {
            try {
                if (container == nullptr || pick(10) == 0) {
                    clsPLC& unit = plantUnit(configuration, "U" + text(), text());
                    unit.setCom(text());
                    container = &configuration.tree.at(unit.sKey());
                } else if (pick(2) == 0) {
                    TreeNode& branch = plantBranch(configuration, *container, text());
                    if (pick(2) == 0) container = &branch;
                } else {
                    clsItem& item = plantItem(configuration, *container, text());
                    item.sComment(text());
                    if (pick(2) == 0) item.sDataType("coil:boolean array");
                }
            } catch (const RuntimeError&) {  // names may clash by chance; the plant then goes without
            }
        }
    }

private:
    int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    std::string anyPiece() {
        static const Texts kPieces = split(
            "A|b|Tank 1|1| |-|+|&|<|>|\"|'|]]>|/|=|!|?|;|#|tag|TAG|<tag>|</tag>|</comment>|<comment>|</name>|"
            "<name>|<b>|</b>|<br/>|<!--|-->|<![CDATA[|<?x|?>|<PLC>|</PLC>|\" x=\"|\" id=\"|\" address = \"|"
            "&amp;|&lt;|&#65;|&#x41;|&#x20AC;|&#x20ac;|&#x;|&copy;|\t|\n|\r\n|\x01|\xC2\x80|\xC3\xBC|"
            "\xC3\x9F|"
            "\xC3\xBF|\xE2\x82\xAC|\xF0\x9F\x98\x80|\xCE\xB1|<!DOCTYPE");
        if (pick(4) != 0) return kPieces[random_() % kPieces.size()];
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

    std::mt19937 random_;
    Texts palette_;
};

struct Folder : Workplace {
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

std::string oneItem(std::string_view comment) {
    return oneUnit(tagText(4, "Run", "HREGISTER VT_I2", 1, comment) + "\r\n");
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
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + readFile(path));
        Archive opened;
        ASSERT_TRUE(opened.read(path)) << opened.messages.texts[0];
        ASSERT_EQ(fileContents(opened.configuration), fileContents(written.configuration));
        try {
            PugiXmlParser().load(path);
        } catch (const RuntimeError&) {
            ++notXml;
        }
    }
    EXPECT_GT(notXml, kPlants / 4);
    EXPECT_LT(told, kPlants * 2 / 3);
}

// Texts that engineers type, each alone in its file: none may need a notice but as a branch's name, and each
// comes back.
TEST(Fallback, OrdinaryTextsComeBackWithoutANotice) {
    for (const std::string& text :
         split("Pumps & valves|T < 5 \xC2\xB0|a <- b|<none>|<br/>|<b>x</b>|a<!-- b -->c|</comment>|R&D;|"
               "12\" pipe|Tank > Pump| blanks |A |1st|-||A/B|<![CDATA[x]]>|\xE2\x82\xAC|Level=5")) {
        SCOPED_TRACE(text);
        Workplace place;
        Archive written;
        const Key unit = plantUnit(written.configuration, text.empty() ? "U" : text, text).sKey();
        TreeNode& branch = plantBranch(written.configuration, written.configuration.tree.at(unit), text);
        plantItem(written.configuration, branch, "I").sComment(text);
        const bool markup = text.find('<') != std::string::npos && text.find('>') != std::string::npos;
        EXPECT_EQ(ambiguousTexts(written.configuration).size(), markup ? 1U : 0U);
        ASSERT_TRUE(written.write(place.path("x.xml")));
        Archive opened;
        ASSERT_TRUE(opened.read(place.path("x.xml"))) << opened.messages.texts[0];
        EXPECT_EQ(fileContents(opened.configuration), fileContents(written.configuration));
    }
}

TEST(Fallback, SaysQuietlyWhatMayComeBackAsSomethingElse) {
    Workplace place;
    const std::string published = "Published to the server: " + place.path("test.xml");
    place.openText(oneItem(""));
    for (const auto& [comment, notice] :
         Fields{{"a & b", ""}, {"a &amp; b", "May read differently when opened: comment of P.Run. "}}) {
        place.item("P.Run").sComment(comment);
        place.run("mnuSaveCfg");
        EXPECT_EQ(place.window.status[StatusField::Notice], notice + published);
        EXPECT_EQ(place.messages.take().size(), 2U);  // the usual question and "saved", no box more
    }

    // Names that are one in capitals: the file could not be opened with both.
    for (const char* name : {"Area", "AREA"}) plantBranch(place.configuration, place.node("P"), name);
    EXPECT_EQ(ambiguousTexts(place.configuration), (Texts{"comment of P.Run", "name of branch P.AREA"}));
}

// Another program's files, in the same shape or not: escaped text and markup are XML's.
TEST(Fallback, LeavesXmlToTheParser) {
    for (const std::string& bytes :
         {oneItem("a &lt;b&gt; &#x20AC; &amp;amp;"),
          replaced(oneItem("a<!-- no --> <b>&lt;b&gt;</b> &#x20AC; &amp;amp;"), "<tags>\r\n", "<tags>")}) {
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
    const std::string bad = oneItem("a<b");
    const std::string front = " Error n. 1001  The file is not well-formed XML: line ";
    const auto with = [&](std::string_view what, std::string_view by) { return replaced(bad, what, by); };
    Folder place;
    EXPECT_EQ(place.refusal(with("\t\t</PLC>\r\n", "")), front + "16, expected </PLC> in ImportXML");
    EXPECT_EQ(place.refusal(with("<address>1<", "<adress>1<")),
              front + "10, expected </comment> and <address> behind it in ImportXML");
    EXPECT_EQ(place.refusal(bad + "x"), front + "19, expected the end of the file in ImportXML");
    EXPECT_TRUE(place.refusal(with("ISO-8859-1", "UTF-8")).starts_with(front + "10, ")) << "the parser's own";
    std::string unixLines = bad;
    std::erase(unixLines, '\r');
    place.openText(unixLines);
    EXPECT_EQ(place.item("P.Run").sComment(), "a<b");
}

// A file with a line or a character less is refused, or opens with all its items: never does a value reach
// into the next item's lines and take them for its own.
TEST(Fallback, DamagedFilesLoseNothingWithoutAWord) {
    for (const std::string comment : {"plain", "R&D"}) {
        PlantedWorkplace place({"P", "P.B/", "P.B.I", "P.B.J", "Q", "Q.B/", "Q.B.I", "Q.B.J"});
        for (const char* name : {"coil", "holding register"}) addDataType(place, name);
        place.configuration.state.interfaceKind = comment == "plain" ? kTcpIp : kRtu;
        for (const auto& [key, item] : place.configuration.items) item->sComment(comment);
        const std::string whole = place.saved();
        int refused = 0;
        const auto check = [&](std::size_t at, std::size_t length) {
            const std::string less = std::string(whole).erase(at, length);
            writeFile(place.path("less.xml"), less);
            Archive opened;
            if (!opened.read(place.path("less.xml"))) return void(++refused);
            SCOPED_TRACE(less);
            const Configuration& found = opened.configuration;
            EXPECT_EQ(found.units.size(), 2U);
            EXPECT_EQ(found.items.size(), 4U);
            std::string texts;
            for (const auto& [key, item] : found.items) texts += item->sName() + item->sComment();
            for (const auto& [key, unit] : found.units) texts += unit->getName() + unit->getAddress();
            for (const auto& [key, type] : found.dataTypes) texts += type->getName();
            EXPECT_EQ(texts.find('\n'), std::string::npos);
        };
        for (std::size_t at = 0; at < whole.size(); ++at) check(at, 1);
        for (std::size_t at = 0; at < whole.size(); at = whole.find('\n', at) + 1) {
            const std::size_t length = whole.find('\n', at) + 1 - at;
            if (whole.substr(at, length).find("<DATATYPE") == std::string::npos) check(at, length);
        }
        EXPECT_GT(refused, static_cast<int>(whole.size() / 3));
    }
}

// Bounded time and memory, and a message that says what is wrong.
TEST(HostileFiles, AreRefusedInTime) {
    using namespace std::string_literals;
    const auto start = std::chrono::steady_clock::now();
    std::string nested;
    for (const char* tag : {"<B>", "</B>"}) {
        for (int level = 0; level < 1'000'000; ++level) nested += tag;
    }
    std::string wide = "\xFF\xFE";
    for (const char c : oneItem("@@")) wide += {c, '\0'};
    const auto comment16 = [&](const std::string& bytes) { return replaced(wide, "@\0@\0"s, bytes); };
    const std::vector<std::pair<std::string, std::string>> table{
        {oneUnit(nested), " Error n. 7  Out of memory: the branches nest too deeply"},
        {oneItem("a\0b"s), "line 10, expected text, not a NUL byte"},
        {oneItem("<\0b"s), "line 10, "},
        {oneItem("").substr(0, 200) + std::string(5000, '\0'), "not a NUL byte"},
        {comment16("\x3D\xD8@\0"s), "half a UTF-16 pair"},
        {comment16("\x00\xDE@\0"s), "half a UTF-16 pair"},
        {wide + "x", "half a UTF-16 character"},
    };
    Folder place;
    for (const auto& [bytes, part] : table) {
        const std::string message = place.refusal(bytes);
        EXPECT_NE(message.find(part), std::string::npos) << message;
    }
    for (const char* half : {"&#xD83D;", "&#56832;"}) {
        const std::string message = place.refusal(replaced(oneItem(half), "ISO-8859-1", "UTF-8"));
        EXPECT_NE(message.find("line 10, half a UTF-16 pair"), std::string::npos) << message;
        place.openText(oneItem(half));  // of the writer's shape: then it is what somebody typed
        EXPECT_EQ(place.item("P.Run").sComment(), half);
    }
    place.openText(comment16("\x3D\xD8\x00\xDE"s));
    EXPECT_EQ(place.item("P.Run").sComment(), "\xF0\x9F\x98\x80");
    // Entities of a document type are not expanded, so that none can grow beyond all bounds.
    const std::string entities = "<!DOCTYPE x [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;\">]>\r\n<VOSK";
    place.openText(replaced(oneItem("&b;"), "<VOSK", entities));
    EXPECT_EQ(place.item("P.Run").sComment(), "&b;");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
}

// A file beyond the limit is refused by its size, before any memory is taken for it.
TEST(HostileFiles, HugeFilesAreNotRead) {
    Workplace place;
    const std::string path = place.path("huge.xml");
    writeFile(path, "x");
    std::error_code failed;  // takes no room on the disk, where the disk knows how to
    std::filesystem::resize_file(path, kLargestFile + 1, failed);
    if (failed) GTEST_SKIP() << "no file of that size here";
    Archive archive;
    EXPECT_FALSE(archive.read(path));
    EXPECT_EQ(archive.messages.take(),
              failure("7  Out of memory: the file has more than 1024 MiB", "ImportXML"));
}

}  // namespace trevandix::testing
