// Tests how the reader handles valid and invalid files.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "Plant.h"
#include "platform/Text.h"

namespace trevandix::testing {

namespace {

const std::string kType =
    R"(		<DATATYPE name="HREGISTER" readcode = "3" writecode="16" singlewrcode="6"/>)";

std::string unit(const std::string& name, const std::string& tags, const std::string& id = "1") {
    return "\t\t<PLC name=\"" + name + "\" address = \"192.168.0.10\" id=\"" + id +
           "\" timeout=\"1000\">\r\n\t\t\t<tags>\r\n" + tags + "\t\t\t</tags>\r\n\t\t</PLC>";
}

std::string good() {
    return fileText({kType}, {unit("PLC1", tagText(4, "Run") + "\r\n")});
}

// A file that declares the encoding and has the comment.
std::string encoded(std::string_view encoding, std::string_view comment) {
    const std::string declared = encoding.empty() ? "" : " encoding=\"" + std::string(encoding) + '"';
    return replaced(replaced(good(), " encoding=\"ISO-8859-1\"", declared), "<comment>",
                    "<comment>" + std::string(comment));
}

std::string rtu(const std::string& fields) {
    return fileText({}, {"<PLC>" + fields + "</PLC>"}, true);
}

// Encodes as UTF-16, little endian, with byte-order mark.
std::string utf16(std::string_view text) {
    std::string bytes = "\xFF\xFE";
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = nextCodePoint(text, at);
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

// Expects one message with this beginning, and no open configuration.
void expectRefused(Workplace& place, const std::string& message) {
    const Texts texts = place.messages.take();
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_TRUE(texts[0].starts_with(message)) << texts[0];
    EXPECT_FALSE(place.configuration.state.configurationOpen);
}

}  // namespace

TEST(Reader, IgnoresCaseOrderAndUnknownElements) {
    Workplace place;
    place.openText(
        "<?xml version='1.0'?><!-- plant --><voskMODBUSrtucfg><other/><modbus>"
        "<DataType name='COIL' readcode='1' writecode='15' singlewrcode='5'/><x/></modbus>"
        "<?pi?><OPC_da>text<plc><unknown>1</unknown><Name>P</Name><silent>9</silent><baudrate>19200</"
        "baudrate>"
        "<ID>7</ID><com>COM3</com><Tags><area><Sub-1><TAG><elements>4x</elements><name>Run</name>"
        "<comment>a<b>c</b><![CDATA[d]]></comment><datatype>COIL VT_BOOL</datatype><address> 12abc</address>"
        "<accessrights>READ</accessrights></TAG></Sub-1></area></Tags></plc></OPC_da></voskMODBUSrtucfg>");
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.state.interfaceKind, kRtu);
    const clsPLC& plc = *place.configuration.units.at("P");
    EXPECT_EQ((std::vector<int>{plc.getUI(), plc.getBaud(), plc.getSilent()}), (std::vector{7, 19200, 9}));
    EXPECT_EQ(plc.getCom() + plc.getAddress(), "COM3");
    EXPECT_TRUE(place.configuration.dataTypes.contains("coil"));
    const clsItem& item = place.item("P.AREA.SUB-1.Run");
    EXPECT_EQ((std::vector<int>{item.nAddress(), item.nElements(), item.nBitNumber()}),
              (std::vector{12, 4, 0}));
    EXPECT_EQ(item.sComment() + item.sDataType(), "acdcoil:boolean");
    EXPECT_EQ(place.node("P").look().selectedImage, Image::Plc);
    EXPECT_TRUE(place.node("P.AREA").expanded() && place.node("P.AREA.SUB-1").expanded());
}

// Markup in well-formed files is read as XML defines it.
TEST(Reader, ReadsMarkupInWellFormedFilesAsXml) {
    const std::string from = "<address>1</address>";
    for (const std::string by :
         {"<address><![CDATA[77]]></address>", "<address><!-- was 76 -->77</address>",
          "<address>7<?x?><b>7</b></address>", "<address>&#55;7</address><address>5</address>"}) {
        Workplace place;
        place.openText(replaced(replaced(good(), from, by), "\" address", "\" note=\"x\" address"));
        EXPECT_EQ(place.messages.take(), Texts{});
        EXPECT_EQ(place.item("PLC1.Run").nAddress(), 77);
    }
    Workplace place;
    place.openText(rtu("<id>7<!-- pump --></id><name>P</name>"));
    EXPECT_EQ(place.configuration.units.at("P")->getUI(), 7);
}

// The same comment in every supported encoding, with and without markup.
TEST(Reader, ReadsEveryDeclaredEncoding) {
    const std::string euro = "Füllstand 5° €";
    for (const auto& [bytes, comment] :
         Fields{{encoded("ISO-8859-1", "F\xFCllstand 5\xB0"), "Füllstand 5°"},
                {encoded("ISO-8859-1", "F\xFCllstand 5\xB0 &#x20AC;"), euro},
                {encoded("UTF-8", euro), euro},
                {"\xEF\xBB\xBF" + encoded("UTF-8", euro), euro},
                {encoded("windows-1252", "F\xFCllstand 5\xB0 \x80"), euro},
                {utf16(encoded("UTF-16", euro)), euro},
                {encoded("koi8-r", "plain"), "plain"},
                {encoded("", euro), euro},
                {encoded("UTF-8", "   "), "   "},
                {encoded("UTF-8", "a &lt;b&gt; &#x20AC; &amp;amp;"), "a <b> € &amp;"},
                {encoded("UTF-8", "a<!-- no --><b>&lt;b&gt;</b>"), "a<b>"}}) {
        Workplace place;
        place.openText(bytes);
        ASSERT_EQ(place.messages.take(), Texts{});
        EXPECT_EQ(place.item("PLC1.Run").sComment(), comment);
    }
}

// A bad file gives a message and leaves no configuration open. It is not changed, and nothing can be saved
// over it. What was read before the failure stays.
TEST(Reader, RefusesBadFilesWithAMessage) {
    const std::string two = fileText({kType}, {unit("PLC1", tagText(4, "Run") + "\r\n"), unit("PLC1", "")});
    const auto with = [](std::string_view what, std::string_view by) { return replaced(good(), what, by); };
    const std::string address = "<address>1</address>";
    const std::string missing = " Error n. 91  Object variable not set: ";
    const std::string nameless = " Error n. 5  Invalid procedure call or argument: ";
    const Fields table{
        {"", " Error n. 1001  The file is not well-formed XML"},
        {"   ", " Error n. 1001"},
        {"plain text", " Error n. 1001"},
        {good().substr(0, good().size() / 2), " Error n. 1001  The file is not well-formed XML: line 7, "},
        {good() + "and more", " Error n. 1001  The file is not well-formed XML: line 20, "},
        {good() + good().substr(good().find('\n') + 1),
         " Error n. 1001  The file is not well-formed XML: line 20, "},
        {good() + '\0' + good(), " Error n. 1001  The file is not well-formed XML: line 20, "},
        {encoded("UTF-8", "a\r\n\xE4"), " Error n. 1001  The file is not well-formed XML: line 12, "},
        {encoded("", "\xED\xA0\x80"), " Error n. 1001  The file is not well-formed XML: line 11, "},
        {encoded("KOI8-R", "\xE4"),
         " Error n. 1001  The file is not well-formed XML: line 1, unknown encoding \"KOI8-R\""},
        {"<other/>", "The configuration file is not valid."},
        {with("1000", "soon"), " Error n. 13  Type mismatch: \"timeout\" is \"soon\" in BrowsePlc"},
        {with("id=\"1\"", "id=\"256\""), " Error n. 6  Overflow: \"id\" is \"256\" in BrowsePlc"},
        {with("readcode = \"3\"", "readcode = \"x\""),
         " Error n. 13  Type mismatch: \"readcode\" is \"x\" in ImportXML"},
        {with(address, "<address>3000000000</address>"),
         " Error n. 6  Overflow: \"address\" is \"3000000000\"; \"Run\" in PLC1 in BrowseBranch"},
        {with(address, ""), missing + "<tag> has no element \"address\"; \"Run\" in PLC1 in BrowseBranch"},
        {with("timeout=", "time="), missing + "<PLC> has no attribute \"timeout\" in BrowsePlc"},
        {with("PLC1", ""), nameless + "<PLC> gives no name: \"\" in BrowsePlc"},
        {with("HREGISTER\" ", "FOO\" "), nameless + "<DATATYPE> gives no name: \"FOO\" in ImportXML"},
        {rtu("<id>1</id>"), nameless + "<PLC> gives no name: \"\" in BrowsePlc"},
        {with("PLC1", "ModBus"), failure(kKeyNotUnique, "BrowsePlc")[0]},
        {with("PLC1", "holding register"), " Error n. 35602"},
        {two, failure(kKeyInCollection, "BrowsePlc")[0]},
    };
    for (const auto& [bytes, message] : table) {
        SCOPED_TRACE(message);
        Workplace place;
        place.openText(good(), "before.xml");
        place.openText(bytes);
        expectRefused(place, message);
        EXPECT_TRUE(place.window.menus["mnuOpenCfg"] && place.window.panel == "Loading File ....");
        EXPECT_EQ(place.has("PLC1.Run"), &bytes == &table.back().first);
        EXPECT_FALSE(place.window.menus["mnuSaveCfg"] || place.window.menus["mnuSaveAs"]);
        for (const char* command : {"mnuSaveCfg", "mnuSaveAs"}) place.run(command);
        EXPECT_EQ(readFile(place.path("test.xml")), bytes);
        EXPECT_EQ(place.messages.take(), Texts{});
        EXPECT_EQ(place.pointer.shapes.back(), Pointer::Default);
    }
    Workplace place;
    for (const auto& [path, message] :
         Fields{{place.path("missing.xml"), " Error n. 53  File not found in ImportXML"},
                {place.folder.string(), " Error n. 75  Path/File access error in ImportXML"}}) {
        place.editor.openFile(path);
        expectRefused(place, message);
    }
}

TEST(Reader, ReadsAndWritesDeeplyNestedBranches) {
    std::string deep = tagText(4, "Deep");
    for (int level = 0; level < 10'000; ++level) deep = "<B>" + deep + "</B>";
    Workplace place;
    place.openText(fileText({}, {unit("P", deep + "\r\n")}));
    EXPECT_TRUE(place.messages.take().empty());
    EXPECT_EQ(place.configuration.branches.size(), 10'000U);
    place.run("mnuSaveCfg");
    const std::string saved = readFile(place.path("test.xml"));
    EXPECT_NE(saved.find(std::string(10'005, '\t') + "<name>Deep</name>"), std::string::npos);
    place.run("mnuCloseCfg");
    EXPECT_EQ(place.configuration.tree.size(), 0U);
}

// Loading counts every item, and commands given meanwhile do no harm. Item numbers continue above 32767.
TEST(Reader, ShowsProgressAndIgnoresCommandsWhileLoading) {
    constexpr std::size_t kItems = 32'770;
    std::string tags;
    for (std::size_t i = 0; i < kItems; ++i) tags += tagText(4, "I" + std::to_string(i)) + "\r\n";
    Workplace place;
    int pumped = 0;
    place.window.onEvents = [&] {
        // Waits until the next events are due while items are being read.
        if (++pumped == 1) return std::this_thread::sleep_for(std::chrono::milliseconds(50));
        for (const char* command : {"mnuNewCfg", "mnuOpenCfg", "mnuSaveCfg", "mnuCloseCfg", "mnuDelete"})
            place.run(command);
        place.click("");
    };
    place.openText(fileText({}, {unit("P", tags)}));
    EXPECT_GT(pumped, 1);
    EXPECT_EQ(place.configuration.items.size(), kItems);
    EXPECT_TRUE(place.configuration.state.saved);
    EXPECT_EQ(place.window.panel, "");
    EXPECT_EQ(place.configuration.state.itemCounter, kItems + 1);
    place.window.onEvents = {};
    play(place, {{"ModBus; mnuAddMBType: cmbMBType=holding register; P; mnuAddItem: txtItemName=Next|"
                  "cmbModbusType=holding register|cmbDataType=boolean|txtAddress=1|cmbAccessRight=READ",
                  "list P: P"}});
    EXPECT_TRUE(place.has("P.Next"));
    EXPECT_EQ(place.configuration.state.itemCounter, kItems + 2);
    EXPECT_EQ(place.messages.take(), Texts{});
    EXPECT_EQ(place.configuration.state.unitCounter, 2);
    // The window ends the load with an exception; the editor works on.
    place.window.onEvents = [&] {
        if (place.window.panel.empty()) throw std::runtime_error("events");
    };
    for (int open = 0; open < 2; ++open, place.window.onEvents = {}) place.openText(good());
    EXPECT_TRUE(place.has("PLC1.Run"));
}

}  // namespace trevandix::testing
