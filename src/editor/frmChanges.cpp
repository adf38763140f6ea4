#include "editor/frmChanges.h"

#include <array>

#include "editor/ChangeRows.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kList = "lstChanges";

constexpr std::array kControls{
    ControlSpec{ControlKind::Heading, "lblCounts"},
    ControlSpec{ControlKind::Note, "txtNote", "Note"}.describedAs("What else is to be known"),
    ControlSpec{ControlKind::List, kList}.describedAs("Old and new text of every field that changes"),
    ControlSpec{ControlKind::Note, "txtChange", "Current change"}.describedAs("The whole text of the row"),
    ControlSpec{ControlKind::Check, "chkAccepted", "&Only what can be applied"}.describedAs(
        "Applies the changes that are not refused"),
    ControlSpec{ControlKind::Button, "cmdConfirm", "&Confirm", "", Place::ButtonRow}.describedAs(
        "Applies the changes"),
    ControlSpec{ControlKind::Button, "cmdCancel", "Cancel", "", Place::ButtonRow}.describedAs(
        "Closes without a change"),
};

struct Counts {
    std::size_t changed = 0, added = 0, refused = 0;
};

Counts count(std::span<const IntendedChange> changes) {
    Counts counts;
    for (const IntendedChange& change : changes)
        ++(change.refused() ? counts.refused : change.adds ? counts.added : counts.changed);
    return counts;
}

}  // namespace

std::string changeCounts(const ChangesToConfirm& shown) {
    const Counts counts = count(shown.changes);
    std::string text;
    const auto add = [&](std::size_t number, std::string_view what) {
        if (number == 0) return;
        text += text.empty() ? counted(number, shown.one, shown.many) : ", " + std::to_string(number);
        text += what;
    };
    add(counts.changed, " to change");
    add(counts.added, " to add");
    add(counts.refused, " refused");
    return text.empty() ? "Nothing to change" : text;
}

bool confirmChanges(Forms& forms, const ChangesToConfirm& shown) {
    const ChangeRows rows(shown.changes);
    const FormSpec shape{"frmChanges", shown.caption, kControls, "cmdConfirm", "cmdCancel", kList};
    const auto form = forms.create(shape);
    const Counts counts = count(shown.changes);
    bool confirmed = false;
    form->setText("lblCounts", changeCounts(shown));
    form->setText("txtNote", shown.note);
    form->setVisible("txtNote", !shown.note.empty());
    const bool any = counts.changed + counts.added > 0;
    form->setVisible("chkAccepted", any && counts.refused > 0);
    form->setEnabled("cmdConfirm", any && counts.refused == 0);
    const auto showText = [&] {
        const auto row = form->listPlace(kList).focused;
        form->setText("txtChange", row && *row < rows.rowCount() ? rows.text(*row) : "");
    };
    form->connectList(kList, rows, {.move = showText});
    showText();
    form->on("chkAccepted", [&] { form->setEnabled("cmdConfirm", form->checked("chkAccepted")); });
    form->on("cmdConfirm", [&] {
        confirmed = true;
        form->close();
    });
    form->on("cmdCancel", [&] { form->close(); });
    form->showModal();
    return confirmed;
}

}  // namespace trevandix
