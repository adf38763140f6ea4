#pragma once

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Configuration.h"
#include "model/Refusal.h"
#include "platform/Form.h"
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

/// One row of a dialog's table: a control and the text of `Fields` that it holds.
template <typename Fields>
struct FieldControl {
    ControlSpec control;
    std::string Fields::*text = nullptr;  ///< nullptr for a control that holds no field
};

/// The controls of a dialog's table, for its FormSpec.
template <typename Row, std::size_t size>
constexpr std::array<ControlSpec, size> controlsOf(const std::array<Row, size>& rows) {
    return [&]<std::size_t... i>(std::index_sequence<i...>) {
        return std::array{rows[i].control...};
    }
    (std::make_index_sequence<size>());
}

/// What the form's controls hold.
template <typename Fields, typename Rows>
Fields textsOf(const Form& form, const Rows& rows) {
    Fields texts;
    for (const auto& row : rows) {
        if (row.text != nullptr) texts.*row.text = form.text(row.control.name);
    }
    return texts;
}

/// Adds a stored value to a drop-down list that lacks it.
inline void offerStored(Form& form, std::string_view list, const std::string& value) {
    std::vector<std::string> entries = form.items(list);
    if (value.empty() || std::ranges::find(entries, value) != entries.end()) return;
    entries.push_back(value);
    form.setItems(list, entries);
}

/// Offers a stored value and chooses it, so that Ok keeps a value that the user has not changed.
inline void chooseStored(Form& form, std::string_view list, const std::string& value) {
    offerStored(form, list, value);
    form.setText(list, value);
}

/// What a field for several objects shows where they differ.
inline constexpr std::string_view kDifferent = "(different)";
inline void keepCommon(std::string& common, const std::string& other) {
    if (common != other) common = kDifferent;
}

inline constexpr std::string_view kNothingChanges = "Nothing would change.";

/// Checks that the key is free while the dialog is still open: the record is added only after it has closed.
/// Errors: KeyInCollection.
template <typename Record>
void requireFree(const KeyedCollection<Record>& records, const Key& key) {
    if (records.contains(key)) throw RuntimeError(ErrorNumber::KeyInCollection);
}

/// True when nothing is refused; else shows the reason.
inline bool passes(const std::optional<Refusal>& refused, Messages& messages) {
    if (refused) messages.show(refused->message);
    return !refused;
}

/// True when no sibling of the kind has the name; else shows a message. The siblings are the children of the
/// selected node or, when it is being edited, the nodes beside it. Shows an error and returns false when
/// there is one.
bool CheckDuplNames(NodeTag tag, std::string_view name, const StructureTree& tree, bool edit,
                    Messages& messages);

/// One event of a dialog. Error messages name `procedure`.
template <typename Dialog>
struct EventRow {
    std::string_view control;
    std::string_view procedure;
    void (Dialog::*handler)();
};

/// Connects each event with its handler. An error is shown and leaves the dialog open.
template <typename Dialog>
void connect(Form& form, Messages& messages, Dialog& dialog, std::initializer_list<EventRow<Dialog>> events) {
    for (const EventRow<Dialog>& event : events) {
        form.on(event.control, [&messages, &dialog, event] {
            reportErrors(messages, event.procedure, [&] { std::invoke(event.handler, dialog); });
        });
    }
}

}  // namespace trevandix
