#pragma once

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "model/Configuration.h"
#include "platform/Form.h"
#include "platform/Messages.h"
#include "platform/RuntimeError.h"
#include "platform/Services.h"

namespace trevandix {

/// What the property dialogs work on. Nothing here is owned.
struct DialogContext {
    Forms& forms;
    Messages& messages;
    MousePointer& pointer;
    Configuration& configuration;
    /// Called after each change by a dialog that stays open; may be empty.
    std::function<void()> changed{};
};

/// Appends a stored value to a drop-down list that lacks it.
inline void offerStored(Form& form, std::string_view list, const std::string& value) {
    std::vector<std::string> entries = form.items(list);
    if (value.empty() || std::ranges::find(entries, value) != entries.end()) return;
    entries.push_back(value);
    form.setItems(list, entries);
}

/// Does the same and chooses the value, so that Ok keeps what nobody touched.
inline void chooseStored(Form& form, std::string_view list, const std::string& value) {
    offerStored(form, list, value);
    form.setText(list, value);
}

/// True when there is nothing to say; else shows what is wrong with the fields.
inline bool passes(const std::string& fault, Messages& messages) {
    if (!fault.empty()) messages.show(fault);
    return fault.empty();
}

/// One event of a dialog. `procedure` is the name that its error messages give.
template <typename Dialog>
struct EventRow {
    std::string_view control;
    std::string_view procedure;
    void (Dialog::*handler)();
};

/// Connects every event with its handler. A failure is shown and leaves the dialog open.
template <typename Dialog>
void connect(Form& form, Messages& messages, Dialog& dialog, std::initializer_list<EventRow<Dialog>> events) {
    for (const EventRow<Dialog>& event : events) {
        form.on(event.control, [&messages, &dialog, event] {
            reportErrors(messages, event.procedure, [&] { std::invoke(event.handler, dialog); });
        });
    }
}

}  // namespace trevandix
