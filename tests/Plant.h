#pragma once

#include "FakePlatform.h"

namespace trevandix::testing {

inline const Texts kNameTaken{"Name already existing. Please use a different name"};
inline constexpr std::string_view kInvalidCall = "5  Invalid procedure call or argument";
inline constexpr std::string_view kOverflow = "6  Overflow";
inline constexpr std::string_view kKeyInCollection =
    "457  This key is already associated with an element of this collection";
inline constexpr std::string_view kKeyNotUnique = "35602  Key is not unique in collection";

/// The message of a failed command.
inline Texts failure(std::string_view error, const std::string& procedure) {
    return {" Error n. " + std::string(error) + " in " + procedure};
}

/// Runs a command that opens a dialog; `script` works in the dialog, which then closes.
inline void runDialog(Workplace& place, std::string_view command, FakeForms::Script script) {
    place.forms.scripts.push_back(std::move(script));
    place.run(command);
}

// Each adds a record and its node. Errors: those of `Configuration`.
clsPLC& plantUnit(Configuration& configuration, const std::string& name,
                  std::string_view address = "10.0.0.1");
TreeNode& plantBranch(Configuration& configuration, TreeNode& container, const std::string& name);
clsItem& plantItem(Configuration& configuration, TreeNode& container, const std::string& name);

/// Adds records by key, parents first: "U" is a unit, "U.A/" a branch, "U.A.x" an item, "ModBus.coil" a data
/// type.
void plant(Workplace& place, const Texts& keys);

/// Drags with the right mouse button. Returns whether the pointer showed that the drop is allowed.
bool drag(Workplace& place, std::string_view source, std::string_view target, bool control = false);

/// A saved configuration with these records and no recorded messages.
struct PlantedWorkplace : Workplace {
    explicit PlantedWorkplace(const Texts& keys, const std::filesystem::path& state = {});

    /// Clicks the node, then the list rows with these texts.
    PlantedWorkplace& at(std::string_view key, const Texts& rows = {});
    /// Saves under this name in `folder` and returns the file's content.
    std::string saved(const std::string& name = "test.xml");
    Texts wrong() const { return disagreements(configuration); }
};

/// Performs user steps and checks what the user sees. Each line holds steps, separated by "; ", and the
/// expected state, separated by " | ".
///
/// Steps                                      Expected state
///   U.A       clicks the node                  tree U: A(x y) B   all nodes below the node
///   U.A: x    then the list row x              list U.A: x *y     selected node, rows, * for selected rows
///   mnuCopy   runs the command                 said M / M         messages; without "said" none are allowed
///   button new     presses the toolbar button  mode 3             view mode of the list
///   edit U         double click                saved, unsaved     the saved flag
///   drag U to V    right mouse button          state, counts, selection, problems, notice   a field of the
///                                                                 status bar
///   copy U to V    the same with Ctrl          opens F            the dialogs opened
///   find: T, next: T    in the find window
///   sort: 1        clicks a list header
///   clipboard: T   puts T on the clipboard
///   pause          lets the checks run
///   no             answers No to the next question
///
/// "top" is the root. ": FIELDS" after a command or "edit" fills the dialog and presses its default button.
void play(Workplace& place, const Fields& lines);

/// Performs the steps, which open a dialog, and works in it; opens it again when it has closed. Each line:
/// what to enter, and what the form shows then (see `FakeForm`), with " | said M / M" for messages.
void work(Workplace& place, const std::string& steps, const Fields& lines);

/// True if the parser accepts the bytes.
bool isXml(std::string_view bytes);

/// The content of the configuration's file: one line per node in tree order, with its path (branch names in
/// capitals) and its record.
Texts fileContents(const Configuration& configuration);

}  // namespace trevandix::testing
