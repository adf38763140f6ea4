// Tests New, Open, Save, Save As, Close, Exit and publication as the user sees them, and the bytes of the
// saved files.
#include <gtest/gtest.h>

#include "Plant.h"
#include "platform/FileAccess.h"

namespace trevandix::testing {

namespace {

const std::string kRtuFile = fileText(
    {},
    {"\t\t<PLC>\r\n\t\t\t<name>B\xFCro</name>\r\n\t\t\t<id>3</id>\r\n\t\t\t<com>COM1</com>",
     "\t\t\t<baudrate>9600</baudrate>\r\n\t\t\t<parity>NO</parity>\r\n\t\t\t<stopbits>1</stopbits>",
     "\t\t\t<databits>8</databits>\r\n\t\t\t<flowcontrol>NONE</flowcontrol>\r\n\t\t\t<timeout>2000</timeout>",
     "\t\t\t<silent>10</silent>\r\n\t\t\t<tags>\r\n\t\t\t\t<ZONE>\r\n\t\t\t\t\t<EMPTY>\r\n\t\t\t\t\t</EMPTY>",
     "\t\t\t\t</ZONE>\r\n\t\t\t\t<tag>\r\n\t\t\t\t\t<name>Bits</name>\r\n\t\t\t\t\t<comment>a "
     "&#x20AC;</comment>",
     "\t\t\t\t\t<address>-5</address>\r\n\t\t\t\t\t<datatype>HREGISTER VT_BOOL ARRAY</datatype>",
     "\t\t\t\t\t<accessrights>READ</accessrights>\r\n\t\t\t\t\t<databit>3</databit>",
     "\t\t\t\t\t<elements>8</elements>\r\n\t\t\t\t</tag>\r\n\t\t\t</tags>\r\n\t\t</PLC>"},
    true);

// An open configuration with one unit and unsaved changes.
struct Changed : Workplace {
    Changed() {
        openText(kRtuFile);
        fileDialog.choice = std::nullopt;
        configuration.setSaved(false);
    }
};

}  // namespace

TEST(FileCommands, SamplesComeBackByteForByte) {
    Texts files{kRtuFile};
    for (const char* name : {"water-works.xml", "boiler-house-rtu.xml"})
        files.push_back(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / name));
    for (const std::string& bytes : files) {
        Workplace place;
        place.openText(bytes);
        EXPECT_EQ(place.messages.take(), Texts{});
        place.run("mnuSaveCfg");
        EXPECT_EQ(readFile(place.path("test.xml")), bytes);
    }
}

TEST(FileCommands, NewConfigurationIsEmptyAndSavedBesideTheProgram) {
    Workplace place;
    EXPECT_FALSE(place.window.treeVisible);
    place.newConfiguration(kRtu);
    const std::string file = toUtf8(place.folder / "TrevandixRTU.xml");
    EXPECT_TRUE(place.window.treeVisible && place.list.visible() && !place.list.sorted());
    EXPECT_EQ(place.configuration.tree.root()->text(), file);
    EXPECT_EQ(place.configuration.tree.selected(), place.configuration.tree.root());
    play(place, {{"mnuSaveCfg", "said " + file + " saved"}});
    EXPECT_EQ(place.registry.published, (Fields{{"TrevandixRTU", file}}));
    EXPECT_EQ(readFile(file), fileText({}, {}, true));
    // Closing the dialog by its title bar keeps the interface kind.
    behindTheDoor(place.configuration.state).unitCounter = 3;
    place.run("mnuNewCfg");
    EXPECT_EQ(place.configuration.state.unitCounter, 0);
    EXPECT_EQ(place.configuration.state.interfaceKind, kRtu);
}

TEST(FileCommands, SaveAsksBeforeOverwriting) {
    Changed place;
    const std::string question = "said File " + place.path("test.xml") + " already existing. Overwrite?";
    place.messages.answers = {Answer::Cancel};
    play(place, {{"mnuSaveCfg", question + " | unsaved"},
                 {"no; mnuSaveCfg", question + " | unsaved"}});  // opens Save As, which is cancelled
    EXPECT_EQ(place.messages.buttons, Buttons::YesNoCancel);
    EXPECT_EQ(place.fileDialog.calls.back(),
              "Save configuration|configuration files |*.xml|TrevandixRTU.xml");
    EXPECT_TRUE(place.registry.published.empty());
    const std::string other = place.path("other.xml");
    place.fileDialog.choice = other;
    play(place, {{"no; mnuSaveCfg", question + " | saved"}});
    EXPECT_EQ(readFile(other), kRtuFile);
    EXPECT_EQ(place.window.recent, (Texts{place.path("test.xml"), other}));  // opened, saved
    EXPECT_EQ(place.configuration.tree.root()->text(), other);
    place.registry.refuses = true;  // causes no message
    play(place, {{"mnuSaveCfg",
                  "saved | said File " + other + " already existing. Overwrite? / " + other + " saved"}});
}

TEST(FileCommands, FailedSaveIsReportedOnceAndNotPublished) {
    Changed place;
    std::filesystem::create_directory(place.folder / "folder.xml");
    const std::string longest = place.path(std::string(252, 'n'));
    writeFile(longest, "");
    for (const auto& [path, error] : Fields{
             {place.path("missing/x.xml"), "53  File not found"},
             {place.path("folder.xml"), "75  Path/File access error"},
#ifdef __linux__
             {"/proc/version", "70  Permission denied"},
             {longest,
              "75  Path/File access error: the name is too long for the "
              "\".bak\" behind it that saving needs"},
#endif
         }) {
        place.fileDialog.choice = path;
        play(place,
             {{"mnuSaveAs", "unsaved | state Unsaved changes | said " + failure(error, "CreateXML")[0]}});
        EXPECT_TRUE(place.registry.published.empty());
    }
}

// The questions when there are unsaved changes, and the effect of each answer.
TEST(FileCommands, NewOpenAndCloseAskToSaveChanges) {
    for (const std::string command : {"mnuNewCfg", "mnuOpenCfg", "mnuCloseCfg"}) {
        const std::string question = command == "mnuCloseCfg"
                                         ? "said Do you want to save this configuration?"
                                         : "said Do you want to save active configuration?";
        Changed stays;
        stays.messages.answers = {Answer::Yes, Answer::Cancel};  // save, but do not overwrite
        play(stays, {{command, "opens  | tree top: B\xC3\xBCro(ZONE(EMPTY) Bits) ModBus | " + question +
                                   " / File " + stays.path("test.xml") + " already existing. Overwrite?"}});
        EXPECT_TRUE(stays.configuration.state.configurationOpen);

        Changed goes;
        play(goes, {{"no; " + command, question}});
        if (command == "mnuOpenCfg") {  // the file dialog is cancelled
            EXPECT_EQ(goes.fileDialog.calls.back(),
                      "Open as existing configuration|configuration files |*.xml");
        }
        EXPECT_EQ(goes.configuration.units.empty(), command != "mnuOpenCfg");

        Changed unchanged;
        unchanged.configuration.setSaved(true);
        play(unchanged, {{command, ""}});
    }
}

TEST(FileCommands, CloseAndExitAskOnceAndEndTheConfiguration) {
    Changed place;
    place.messages.answers = {Answer::No};
    place.run("mnuCloseCfg");
    EXPECT_FALSE(place.configuration.state.configurationOpen);
    EXPECT_FALSE(place.window.treeVisible || place.list.visible());
    EXPECT_FALSE(place.window.menus["mnuSaveCfg"] || place.window.menus["mnuEdit"]);
    EXPECT_TRUE(place.window.menus["mnuOpenCfg"]);

    for (const Answer answer : {Answer::Yes, Answer::No}) {
        for (const bool exits : {true, false}) {
            Changed leaving;
            // The window closes even if saving was cancelled.
            leaving.messages.answers = {answer, Answer::Cancel};
            if (exits) leaving.run("mnuExit");
            EXPECT_EQ(leaving.window.closed, exits);
            EXPECT_EQ(leaving.messages.texts.empty(), !exits);
            leaving.editor.Form_Unload();  // does not ask again
            const Texts asked = leaving.messages.take();
            EXPECT_EQ(asked.size(), answer == Answer::Yes ? 2U : 1U);
            EXPECT_EQ(asked[0], "Do you want to save active configuration?");
            EXPECT_TRUE(leaving.configuration.units.empty());
        }
    }
}

}  // namespace trevandix::testing
