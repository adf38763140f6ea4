// Tests files that are not well-formed because values are not escaped, and malicious files.
#include <gtest/gtest.h>

#include <optional>
#include <random>

#include "Plant.h"
#include "check/Check.h"
#include "platform/FileAccess.h"
#include "xmlfile/ConfigurationReader.h"
#include "xmlfile/ConfigurationWriter.h"
#include "xmlfile/Mending.h"

namespace trevandix::testing {

namespace {

// Reads a file without a whole editor, which is much faster.
struct Opened : Configuration {
    explicit Opened(const std::string& path) {
        begin("");
        PugiXmlParser parser;
        EXPECT_TRUE(ConfigurationReader(*this, parser).read(path));
    }
};

struct Written : Configuration {
    Written() { begin(""); }
    void write(const std::string& path) const { ConfigurationWriter(*this).write(path); }
};

// Adds random units, branches and items whose texts combine a few pieces, so that some files are well-formed
// by chance. Seeds divisible by four use only texts that are safe in XML.
void fillAtRandom(Configuration& configuration, unsigned seed) {
    static const Texts kPieces = split(
        "A|b|Tank 1|1| |-|+|&|<|>|\"|'|]]>|/|=|!|?|;|#|tag|TAG|<tag>|</tag>|</comment>|<comment>|</name>|"
        "<name>|<b>|</b>|<br/>|<!--|-->|<![CDATA[|<?x|?>|<PLC>|</PLC>|\" x=\"|\" id=\"|"
        "&amp;|&lt;|&#65;|&#x41;|&#x20ac;|&#x;|&copy;|\x01|\xC2\x80|\xC3\xBC|\xC3\x9F|"
        "\xC3\xBF|\xE2\x82\xAC|\xF0\x9F\x98\x80|\xCE\xB1|<!DOCTYPE|\xEC\x8A\x80|\xCA\x81|\xE2\x80\xA8");
    std::mt19937 random(seed);
    const auto pick = [&](std::size_t count) { return random() % count; };
    Texts palette;
    for (const char* piece : {"\xC3\xA9-0", "\xC3\xA9-1", "\xC3\xA9-2", "\xC3\xA9-3"})
        palette.push_back(seed % 4 == 0 ? piece : kPieces[pick(kPieces.size())]);
    const auto text = [&] {
        std::string all;
        for (std::size_t pieces = pick(5); pieces > 0; --pieces) all += palette[pick(palette.size())];
        return all;
    };
    configuration.setInterfaceKind(pick(2) == 0 ? kRtu : kTcpIp);
    TreeNode* container = nullptr;
    for (std::size_t step = 2 + pick(14); step > 0; --step) {
        // Unique, even in upper case.
        const std::string name = (seed % 4 == 0 ? "n" : "") + text() + std::to_string(step);
        if (container == nullptr || pick(10) == 0) {
            plantUnit(configuration, name, text()).setCom(text());
            container = &configuration.tree.at(Key(name));
        } else if (pick(2) == 0) {
            TreeNode& branch = plantBranch(configuration, *container, name);
            if (pick(2) == 0) container = &branch;
        } else {
            clsItem& item = plantItem(configuration, *container, name);
            item.sComment(text());
            if (pick(2) == 0) item.sDataType("coil:boolean array");
        }
    }
}

struct Folder : Workplace {
    /// Opens the bytes, which must be refused; returns the single message.
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

// Both well-formed files and those that the parser refuses come back with the same content.
TEST(Mending, SavedFilesOpenWithTheSameContent) {
    constexpr unsigned kPlants = 1000;
    unsigned refused = 0;
    unsigned readable = 0;
    Workplace place;
    const std::string path = place.path("plant.xml");
    for (unsigned seed = 1; seed <= kPlants; ++seed) {
        Written written;
        fillAtRandom(written, seed);
        written.write(path);
        const bool all = firstUnreadable(written).empty();
        const bool xml = isXml(readFile(path));
        if (xml && !all) continue;  // some text is read as markup
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + readFile(path));
        EXPECT_TRUE(xml || !all);
        ++(xml ? readable : refused);
        ASSERT_EQ(fileContents(Opened(path)), fileContents(written));
    }
    EXPECT_GT(refused, kPlants / 2);
    EXPECT_GT(readable, kPlants / 5);
}

// Uses each text as a comment and as a name. Checks how the mended file contains it and that reading restores
// it.
TEST(Mending, EscapesValuesAndEncodesBranchNames) {
    const Fields table{
        {"", ""},
        {"plain", "plain"},
        {"TAG", "TAG"},
        {"1. ", "1. "},
        {"Pumps & valves", "Pumps &#38; valves"},
        {"T < 5 °", "T &#60; 5 °"},
        {"<b>x</b><!-- y -->", "&#60;b>x&#60;/b>&#60;!-- y -->"},
        {"</comment>", "&#60;/comment>"},
        {"12\" pipe", "12&#34; pipe"},
        {"A/B € \xF0\x9F\x98\x80", "A/B € \xF0\x9F\x98\x80"},
        {"&amp;&#65;&#x41;&#x20ac;&#x020AC;", "&#38;amp;&#38;#65;&#38;#x41;&#38;#x20ac;&#38;#x020AC;"},
        {"&#x;&#xD83D;&#x110000;&#x20AC", "&#38;#x;&#38;#xD83D;&#38;#x110000;&#38;#x20AC"},
        {"tab\tand\x01", "tab&#9;and&#1;"},
        {"two\r\n\tlines", "two&#13;&#10;&#9;lines"},
    };
    Workplace place;
    const std::string path = place.path("x.xml");
    for (const auto& [text, escaped] : table) {
        SCOPED_TRACE(text);
        const std::string name = text.find('\n') == std::string::npos ? text : "one line";
        Written written;
        const Key unit = plantUnit(written, "U" + name, name).sKey();
        TreeNode& branch = plantBranch(written, written.tree.at(unit), name);
        plantItem(written, branch, text).sComment(text);
        plantBranch(written, written.tree.at(unit), "<");
        written.write(path);
        EXPECT_NE(mended(readFile(path)).find("<comment>" + escaped + "</comment>"), std::string::npos);
        EXPECT_EQ(fileContents(Opened(path)), fileContents(written));
    }
}

TEST(Mending, StatusBarNamesTheFirstTextThatOtherProgramsCannotRead) {
    PlantedWorkplace place({"P", "P.Run"});
    place.item("P.Run").sComment("a & b");
    place.saved();
    EXPECT_EQ(place.window.status[StatusField::Notice],
              "P.Run: comment holds \"&\", so other programs cannot read this file.\n"
              "Published to the server: " +
                  place.path("test.xml"));
}

// Files that are neither well-formed nor written by the editor.
TEST(Mending, ErrorsNameLineAndReason) {
    const std::string bad = oneItem("a<b");
    const std::string front = " Error n. 1001  The file is not well-formed XML: line ";
    const Fields table{
        {replaced(bad, "\t\t</PLC>\r\n", ""), "16, expected </PLC> in ImportXML"},
        {replaced(bad, "<address>1<", "<adress>1<"), "11, expected <address> in ImportXML"},
        {bad + "x", "19, expected the end of the file in ImportXML"},
        {replaced(bad, "<tag>", "<TAG>"), "10, Error parsing start element tag in ImportXML"},
        {replaced(bad, "\t\t\t</tags>", replaced(tagText(4, "b"), "<tag>", "<TAG>") + "\r\n\t\t\t</tags>"),
         "15, expected <tag> in ImportXML"},
        {replaced(bad, "ISO-8859-1", "UTF-8"), "10, Error parsing start element tag in ImportXML"},
    };
    Folder place;
    for (const auto& [bytes, message] : table) EXPECT_EQ(place.refusal(bytes), front + message);
    // What may have happened to it on its way is no fault.
    const std::string mark = "\xEF\xBB\xBF";
    std::string unixLines = bad;
    std::erase(unixLines, '\r');
    for (const auto& [bytes, comment] : Fields{{unixLines, "a<b"},
                                               {bad + "\r\n \t\n", "a<b"},
                                               {mark + replaced(bad, "a<b", "a<\xC3\xA4"), "a<\xC3\xA4"}}) {
        place.openText(bytes);
        EXPECT_EQ(place.item("P.Run").sComment(), comment);
    }
    EXPECT_EQ(place.refusal(mark + replaced(bad, "a<b", "a<\xE4")), front + "10, invalid UTF-8 in ImportXML");
    place.openText(replaced(oneItem(""), "P\" address", "P\" id=\"5\" address"));
    EXPECT_TRUE(place.has("P\" id=\"5"));
}

// A file that lacks one character or one line is refused or opens with all its items. A value must never
// swallow the lines of the next item.
TEST(Mending, DamagedFilesAreRefusedOrKeepAllItems) {
    for (const auto& [comment, kind] :
         Fields{{"plain", "TrevandixRTU"}, {"a<b", "TrevandixRTU"}, {"a<b", "TrevandixTcpIp"}}) {
        PlantedWorkplace place({"P", "P.B/", "P.B.I", "P.B.J", "Q", "Q.B/", "Q.B.I", "Q.B.J", "ModBus.coil",
                                "ModBus.holding register"});
        place.configuration.setInterfaceKind(kind);
        for (const auto& [key, item] : place.configuration.items) behindTheDoor(*item).sComment(comment);
        const std::string whole = place.saved();
        int refused = 0;
        const auto check = [&](std::size_t at, std::size_t length) {
            const std::string less = std::string(whole).erase(at, length);
            writeFile(place.path("less.xml"), less);
            SCOPED_TRACE(less);
            std::optional<Opened> opened;
            try {
                opened.emplace(place.path("less.xml"));
            } catch (const RuntimeError&) {
                return void(++refused);
            }
            const Configuration& found = *opened;
            EXPECT_EQ(found.units.size(), 2U);
            EXPECT_EQ(found.items.size(), 4U);
            EXPECT_TRUE(comment == "plain" || found.dataTypes.size() == 2);
            for (const auto& [key, item] : found.items)
                EXPECT_EQ((item->sName() + item->sComment()).find('\n'), std::string::npos);
        };
        for (std::size_t at = 0; at < whole.size(); ++at) check(at, 1);
        for (std::size_t at = 0; at < whole.size(); at = whole.find('\n', at) + 1) {
            const std::size_t length = whole.find('\n', at) + 1 - at;
            if (whole.substr(at, length).find("<DATATYPE") == std::string::npos) check(at, length);
        }
        EXPECT_GT(refused, static_cast<int>(whole.size() / 3));
    }
}

// Such files need bounded time and memory, and the message names the cause.
TEST(HostileFiles, AreRefusedWithAReason) {
    using namespace std::string_literals;
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
        {comment16("\0\0@\0"s), "line 10, NUL"},
        {wide + "x", "half a UTF-16 character"},
        {wide + "\0\0<\0"s, "line 19, NUL"},
    };
    Folder place;
    for (const auto& [bytes, part] : table) {
        const std::string message = place.refusal(bytes);
        EXPECT_NE(message.find(part), std::string::npos) << message;
    }
    for (const char* none : {"&#xD83D;", "&#56832;", "&#0;", "&#x110000;", "&#4294967361;"}) {
        const std::string message = place.refusal(replaced(oneItem(none), "ISO-8859-1", "UTF-8"));
        EXPECT_NE(message.find("line 10, a reference to no character"), std::string::npos) << message;
        place.openText(oneItem(none));  // of the writer's shape: then it is what somebody typed
        EXPECT_EQ(place.item("P.Run").sComment(), none);
    }
    place.openText(comment16("\x3D\xD8\x00\xDE"s));
    EXPECT_EQ(place.item("P.Run").sComment(), "\xF0\x9F\x98\x80");
    // Document type entities are not expanded, because nested entities can grow without limit.
    const std::string entities = "<!DOCTYPE x [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;\">]>\r\n<VOSK";
    place.openText(replaced(oneItem("&b;"), "<VOSK", entities));
    EXPECT_EQ(place.item("P.Run").sComment(), "&b;");
}

// Refused by its size, before memory is allocated.
TEST(HostileFiles, TooLargeFilesAreNotRead) {
    Workplace place;
    const std::string path = place.path("huge.xml");
    writeFile(path, "x");
    std::error_code failed;  // makes a sparse file if the file system can
    std::filesystem::resize_file(path, kLargestFile + 1, failed);
    if (failed) GTEST_SKIP() << "no file of that size here";
    place.editor.openFile(path);
    EXPECT_EQ(place.messages.take(),
              failure("7  Out of memory: the file has more than 1024 MiB", "ImportXML"));
}

}  // namespace trevandix::testing
