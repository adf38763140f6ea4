// Tests the window "Problems", the field of the status bar and the steps from problem to problem.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "Plant.h"
#include "check/Check.h"

namespace trevandix::testing {

namespace {

constexpr char kPump[] = "Intake.PUMPS.PUMP1.";

/// A sample without problems.
struct ProblemsWorkplace : Workplace {
    ProblemsWorkplace() {
        openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "water-works.xml"));
        messages.take();
    }
    /// What the user sees: the selected pump's part, the status bar, the rows of the window.
    std::string seen() {
        std::string notice = window.status[StatusField::Notice];
        notice = notice.substr(0, notice.find(':'));
        std::string rows;
        for (std::size_t row = 0; form != nullptr && form->open && row < form->contents->rowCount(); ++row) {
            const bool selected = std::ranges::count(form->rowsShown.selected, row) > 0;
            rows += (selected ? " *" : " ") + shortened(std::string(form->contents->cell(row, 1)));
        }
        return shortened(selectedKey()) + " | " + window.status[StatusField::Problems] + " | " + notice +
               " |" + rows;
    }
    /// Performs the steps ("@" stands for the pump) and checks what the user sees then.
    void follow(const Fields& lines) {
        for (auto [steps, wanted] : lines) {
            for (std::size_t at; (at = steps.find('@')) != std::string::npos;) steps.replace(at, 1, kPump);
            play(*this, {{steps, ""}});
            if (forms.shown == Texts{"frmProblems"}) form = forms.last;
            EXPECT_EQ(seen(), wanted) << steps;
        }
    }
    FakeForm* form = nullptr;

private:
    static std::string shortened(const std::string& key) {
        return (key + ".") == kPump     ? "pump"
               : key.starts_with(kPump) ? key.substr(std::size(kPump) - 1)
                                        : key;
    }
};

}  // namespace

TEST(Problems, CountsInWords) {
    for (const auto& [errors, warnings, words] :
         std::vector<std::tuple<std::size_t, std::size_t, const char*>>{
             {0, 0, "No problems"}, {1, 0, "1 error"}, {0, 1, "1 warning"}, {2, 5, "2 errors, 5 warnings"}})
        EXPECT_EQ(problemCounts({errors, warnings}), words);
}

TEST(Problems, StepsFollowTheEdits) {
    ProblemsWorkplace place;
    place.follow({
        {"@Speed_Actual; pause", "Speed_Actual | No problems |  |"},
        {"nextProblem", "Speed_Actual | No problems |  |"},  // opens the window
        {"nextProblem", "Speed_Actual | No problems | No problem to select |"},
        // Counted in the next pause, or at once where they are needed.
        {"edit @Start: txtComment=a & b", "pump | No problems |  |"},
        {"edit @Stop: txtComment=&; pause", "pump | 2 errors |  | *Start Stop"},
        {"edit @Running: txtItemName=New_Item_9; nextProblem",
         "Start | 2 errors, 1 warning | 1 of 3, error | *Start Stop New_Item_9"},
        {"nextProblem", "Stop | 2 errors, 1 warning | 2 of 3, error | Start *Stop New_Item_9"},
        // What is mended leaves its place to the next one, and comes back.
        {"edit @Stop: txtComment=stop; pause", "pump | 1 error, 1 warning |  | Start *New_Item_9"},
        {"nextProblem", "New_Item_9 | 1 error, 1 warning | 2 of 2, warning | Start *New_Item_9"},
        {"mnuUndo; pause", "Stop | 2 errors, 1 warning | Undone | Start Stop *New_Item_9"},
        {"nextProblem", "Start | 2 errors, 1 warning | 1 of 3, error | *Start Stop New_Item_9"},
        {"previousProblem", "New_Item_9 | 2 errors, 1 warning | 3 of 3, warning | Start Stop *New_Item_9"},
    });
    EXPECT_EQ(place.window.focus, FocusedView::Tree);
    place.form->close();
    place.follow({
        {"previousProblem", "Stop | 2 errors, 1 warning | 2 of 3, error |"},
        {"edit @Start: txtComment=start; pause", "pump | 1 error, 1 warning |  |"},
        {"nextProblem", "New_Item_9 | 1 error, 1 warning | 2 of 2, warning |"},
        {"nextProblem", "Stop | 1 error, 1 warning | 1 of 2, error |"},
        {"mnuProblems", "Stop | 1 error, 1 warning |  | *Stop New_Item_9"},
    });
    place.configuration.setSaved(true);
    place.follow({{"mnuCloseCfg", " |  |  |"}});
    EXPECT_EQ(place.form->text("lblCounts"), "No configuration");
    place.openText(readFile(std::filesystem::path(TREVANDIX_SAMPLES) / "boiler-house-rtu.xml"), "rtu.xml");
    place.follow({{"pause", " | No problems |  |"}});
}

TEST(Problems, WindowSelectsSortsAndCopies) {
    ProblemsWorkplace place;
    place.follow({{"edit @Start: txtComment=&; edit @Stop: txtComment=&", "pump |  |  |"},
                  {"edit @Running: txtItemName=New_Item_9", "pump |  |  |"}});
    place.editor.statusClicked(StatusField::Counts);
    EXPECT_EQ(place.forms.shown.back(), "frmItems");
    place.editor.statusClicked(StatusField::Problems);
    place.form = place.forms.last;
    const std::string counts = " | 2 errors, 1 warning | ";
    place.follow({{"", "pump" + counts + " | *Start Stop New_Item_9"}});
    FakeForm& form = *place.form;
    form.rowsShown = {{1, 2}, 2};  // as with Shift and the arrow keys
    form.inList.sort(1);
    place.follow({{"", "pump" + counts + " | *New_Item_9 Start *Stop"}});
    EXPECT_EQ(form.rowsShown.focused, 0U);
    form.inList.move();
    EXPECT_TRUE(form.text("txtProblem").starts_with(std::string(kPump) + "New_Item_9: "))
        << form.text("txtProblem");
    form.inList.copy();
    const std::string copied = place.clipboard.contents;
    EXPECT_EQ(split(copied, "\n").size(), 3U);
    EXPECT_TRUE(copied.starts_with("warning\t" + std::string(kPump) + "New_Item_9\t")) << copied;
    form.press("cmdCopy");
    EXPECT_EQ(split(place.clipboard.contents, "\n").size(), 4U);
    place.clipboard.locked = true;
    form.press("cmdCopy");
    EXPECT_EQ(place.window.status[StatusField::Notice], "Not copied: another program uses the clipboard");
    form.press("cmdSelect");
    place.follow({{"", "New_Item_9" + counts + "1 of 3, warning | *New_Item_9 Start Stop"}});
    form.rowsShown = {{2}, 2};
    form.inList.open();
    place.follow({{"", "Stop" + counts + "3 of 3, error | New_Item_9 Start *Stop"}});
    // A row whose problem was mended since the last check selects nothing.
    place.follow({{"edit @Stop: txtComment=stop; @Speed_Actual",
                   "Speed_Actual" + counts + " | New_Item_9 Start *Stop"}});
    form.press("cmdSelect");
    place.follow({{"", "Speed_Actual | 1 error, 1 warning | This problem is gone | New_Item_9 *Start"}});
}

TEST(Problems, InterruptedChecksLeaveEverythingAsItWas) {
    ProblemsWorkplace place;
    place.follow({{"pause; edit @Stop: txtComment=&", "pump | No problems |  |"}});
    place.editor.paused([] { return true; });
    place.follow({{"", "pump | No problems |  |"}, {"pause", "pump | 1 error |  |"}});
    // Nothing is checked while a file is being read.
    place.window.onEvents = [&] {
        place.editor.paused([] { return false; });
        EXPECT_EQ(place.window.status[StatusField::Problems], "");
    };
    place.openText(readFile(place.folder / "test.xml"), "again.xml");
    place.messages.take();
}

// Sorting can be interrupted at any time, and is stable.
TEST(Problems, RowsAreSortedLikeAPlainVector) {
    std::mt19937 random(1);
    std::vector<Rule> kinds{{"a", Severity::Warning, "", ""}, {"b", Severity::Error, "", ""}};
    std::vector<Finding> findings;
    for (int i = 0; i < 5000; ++i)
        findings.push_back(
            {&kinds[random() % 2], Key("k" + std::to_string(random() % 900)), std::to_string(i)});
    for (const std::size_t column : {0U, 1U, 2U}) {
        ProblemRows rows;
        ProblemRows::Marks marks;
        rows.sortBy(column, marks);
        int asked = 0;
        for (int patience = 0; !rows.replace(findings, marks, [&] { return asked++ == patience; });
             asked = 0) {
            EXPECT_EQ(rows.rowCount(), 0U);
            ++patience;
        }
        EXPECT_GT(asked, 5);
        std::vector<Finding> plain = findings;
        const auto cell = [&](const Finding& finding) -> std::string {
            if (column == 0) return finding.rule == &kinds[1] ? "error" : "warning";
            return column == 1 ? finding.object.str() : finding.text;
        };
        std::ranges::stable_sort(plain, {}, cell);
        for (std::size_t row = 0; row < plain.size(); ++row) ASSERT_EQ(rows.at(row).text, plain[row].text);
    }
}

}  // namespace trevandix::testing
