#include "editor/frmSelect.h"

#include <array>

namespace trevandix {

namespace {

constexpr std::array kControls{
    ControlSpec{ControlKind::Frame, "frmInterface"},
    ControlSpec{ControlKind::Option, "optTcpip", "ModBus Tcp/Ip", "frmInterface"}.describedAs(
        "Devices on the network"),
    ControlSpec{ControlKind::Option, "optRTU", "ModBus Serial RTU", "frmInterface"}.describedAs(
        "Devices on serial lines"),
    ControlSpec{ControlKind::Button, "cmdOk", "Ok", "", Place::ButtonRow}.describedAs(
        "Starts the configuration"),
};
constexpr FormSpec kForm{"frmSelect", "Select ModBus interface", kControls, "cmdOk", "", "optTcpip"};

}  // namespace

void showFrmSelect(Forms& forms, EditingState& state) {
    const auto form = forms.create(kForm);
    form->setChecked("optTcpip", true);
    form->on("cmdOk", [&] {
        if (form->checked("optTcpip")) {
            state.interfaceKind = kTcpIp;
        } else if (form->checked("optRTU")) {
            state.interfaceKind = kRtu;
        }
        form->close();
    });
    form->showModal();
}

}  // namespace trevandix
