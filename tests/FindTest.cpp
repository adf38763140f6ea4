#include <gtest/gtest.h>

#include "Plant.h"

namespace trevandix::testing {

namespace {

struct FindWorkplace : PlantedWorkplace {
    FindWorkplace()
        : PlantedWorkplace({"U", "U.Tank/", "U.Tank.MainTank", "U.x", "TANKS", "TANKS.tank9",
                            "U.Tank.\xC3\x84rger", "U.Tank.zz"}) {
        at("U.x").run("mnuFind");
        window.focus = FocusedView::None;
    }
};

}  // namespace

TEST(Find, MatchesPrefixesIgnoringCaseInOrderOfAddition) {
    for (const auto& [text, key] : Fields{{"TANKS", "TANKS"},
                                          {"Tank9", "TANKS.tank9"},
                                          {"MAINt", "U.Tank.MainTank"},
                                          {"mod", "ModBus"},
                                          {"tank99", "U.x"},
                                          {"", "U.x"},
                                          {"\xC3\xA4R", "U.Tank.\xC3\x84rger"},
                                          {"ank", "U.x"}}) {
        FindWorkplace place;
        play(place, {{"find: " + text, "list " + key + ": x"}});  // the list is unchanged
        EXPECT_EQ(place.window.focus, key == "U.x" ? FocusedView::None : FocusedView::Tree);
    }
}

TEST(Find, FindNextCountsIndependentlyOfFind) {
    FindWorkplace place;
    play(place, {{"next: tank", "list TANKS: x"},
                 {"next: tank", "list TANKS.tank9: x"},
                 {"find: tank", "list U.Tank: x"},
                 {"next: tank", "list U.Tank: x"}});  // there is no fourth match
    place.forms.last->press("cmdCancel");
    place.run("cmdNext");  // F3 does nothing while the window is closed
    play(place, {{"mnuFind", "opens frmFind"},
                 {"next: tank", "list TANKS: x"},
                 {"mnuFind", "opens "}});  // only raises the open window
    place.run("cmdNext");
    play(place, {{"", "list TANKS.tank9: x"}, {"next: ", ""}});
    place.forms.last->press("cmdCancel");
    play(place, {{"mnuFind; next: ", "list TANKS.tank9: x"},  // an empty text counts too
                 {"next: tank", "list TANKS.tank9: x"}});
}

TEST(Find, ShowsTheMatchAndSurvivesClosingTheConfiguration) {
    FindWorkplace place;
    EXPECT_EQ(place.forms.last->focused, "txtFind");
    place.configuration.tree.setExpanded(place.node("U"), false);
    play(place, {{"find: main", ""}});
    EXPECT_TRUE(place.node("U").expanded() && place.node("U.Tank").expanded());
    play(place, {{"mnuCloseCfg; find: main; next: main", ""}});
    place.editor.Form_Unload();
    place.run("cmdNext");
    EXPECT_EQ(place.messages.take(), Texts{});
}

}  // namespace trevandix::testing
