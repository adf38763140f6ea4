#include "editor/frmSelect.h"

#include <array>

#include "model/clsPLC.h"

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

std::optional<std::string_view> showFrmSelect(Forms& forms) {
    std::optional<std::string_view> kind;
    const auto form = forms.create(kForm);
    form->setChecked("optTcpip", true);
    form->on("cmdOk", [&] {
        if (form->checked("optTcpip")) {
            kind = kTcpIp;
        } else if (form->checked("optRTU")) {
            kind = kRtu;
        }
        form->close();
    });
    form->showModal();
    return kind;
}

}  // namespace trevandix
