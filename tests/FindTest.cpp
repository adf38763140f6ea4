#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

struct FindWorkplace : PlantedWorkplace {
    FindWorkplace()
        : PlantedWorkplace({"U", "U.Tank/", "U.Tank.MainTank", "U.x", "TANKS", "TANKS.tank9",
                            "U.Tank.\xC3\x84rger", "U.Tank.zz"}) {
        click("U.x");
        run("mnuFind");
        window.focus = FocusedView::None;
    }
    /// The selected node after typing the text and pressing the button.
    std::string search(std::string_view text, std::string_view button) {
        forms.last->type("txtFind", text);
        forms.last->press(button);
        return selectedKey();
    }
};

}  // namespace

TEST(Find, PrefixWithoutRegardToCaseInOrderOfAddition) {
    for (const auto& [text, key] : Fields{{"TANKS", "TANKS"},
                                          {"Tank9", "TANKS.tank9"},
                                          {"MAINt", "U.Tank.MainTank"},
                                          {"mod", "ModBus"},
                                          {"tank99", "U.x"},
                                          {"", "U.x"},
                                          {"\xC3\xA4R", "U.Tank.\xC3\x84rger"},
                                          {"ank", "U.x"}}) {
        FindWorkplace place;
        EXPECT_EQ(place.search(text, "cmdFind"), key);
        EXPECT_EQ(place.window.focus, key == "U.x" ? FocusedView::None : FocusedView::Tree);
        play(place, {{"", "list " + key + ": x"}});  // the rows are as they were
    }
}

TEST(Find, NextKeepsItsOwnCount) {
    FindWorkplace place;
    EXPECT_EQ(place.search("tank", "cmdNext"), "TANKS");
    EXPECT_EQ(place.search("tank", "cmdNext"), "TANKS.tank9");
    EXPECT_EQ(place.search("tank", "cmdFind"), "U.Tank");
    EXPECT_EQ(place.search("tank", "cmdNext"), "U.Tank");  // the fourth is not there
    place.forms.last->press("cmdCancel");
    place.run("cmdNext");  // the key does nothing with the window closed
    play(place, {{"mnuFind", "opens frmFind"}});
    EXPECT_EQ(place.search("tank", "cmdNext"), "TANKS");
    play(place, {{"mnuFind", "opens "}});  // comes to the front only
    place.run("cmdNext");
    EXPECT_EQ(place.selectedKey(), "TANKS.tank9");
    place.search("", "cmdNext");
    place.forms.last->press("cmdCancel");
    place.run("mnuFind");
    EXPECT_EQ(place.search("", "cmdNext"), "TANKS.tank9");  // counts all the same
    EXPECT_EQ(place.search("tank", "cmdNext"), "TANKS.tank9");
}

TEST(Find, ShowsWhatItFindsAndOutlivesTheConfiguration) {
    FindWorkplace place;
    EXPECT_EQ(place.forms.last->focused, "txtFind");
    place.configuration.tree.setExpanded(place.node("U"), false);
    place.search("main", "cmdFind");
    EXPECT_TRUE(place.node("U").expanded() && place.node("U.Tank").expanded());
    place.run("mnuCloseCfg");
    for (const char* button : {"cmdFind", "cmdNext"}) place.forms.last->press(button);
    place.editor.Form_Unload();
    place.run("cmdNext");
    EXPECT_TRUE(place.messages.texts.empty());
}

}  // namespace trevandix::testing
