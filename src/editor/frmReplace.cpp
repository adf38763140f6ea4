#include "editor/frmReplace.h"

#include <array>

namespace trevandix {

namespace {

constexpr std::string_view kOutOfOrder =
    "The rows are not in address order. A click on the Index header sorts them.";

constexpr std::array kControls{
    ControlSpec{ControlKind::Grid, "Grid1", "", "", Place::NextRow, 80}.describedAs(
        "Old and new text of every selected item"),
    ControlSpec{ControlKind::Heading, "lblOrder"},
    ControlSpec{ControlKind::Button, "Command2", "Confirm", "", Place::ButtonRow}.describedAs(
        "Replaces the texts"),
    ControlSpec{ControlKind::Button, "Command1", "Cancel", "", Place::ButtonRow}.describedAs(
        "Closes without a change"),
};
constexpr FormSpec kForm{"frmReplace", "Replace Text", kControls, "Command2", "Command1", "Command2"};

}  // namespace

bool showFrmReplace(Forms& forms, const std::vector<std::vector<std::string>>& rows, bool inOrder) {
    bool confirmed = false;
    const auto form = forms.create(kForm);
    form->setCells("Grid1", rows);
    form->setText("lblOrder", kOutOfOrder);
    form->setVisible("lblOrder", !inOrder);
    const auto leave = [&](bool confirm) {
        confirmed = confirm;
        form->close();
    };
    form->on("Command1", [&] { leave(false); });
    form->on("Command2", [&] { leave(true); });
    form->showModal();
    return confirmed;
}

}  // namespace trevandix
