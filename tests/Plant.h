#pragma once

#include "FakePlatform.h"

namespace trevandix::testing {

inline const Texts kNameTaken{"Name already existing. Please use a different name"};
inline constexpr std::string_view kInvalidCall = "5  Invalid procedure call or argument";
inline constexpr std::string_view kOverflow = "6  Overflow";
inline constexpr std::string_view kKeyInCollection =
    "457  This key is already associated with an element of this collection";
inline constexpr std::string_view kKeyNotUnique = "35602  Key is not unique in collection";

/// The one message of a command that failed.
inline Texts failure(std::string_view error, const std::string& procedure) {
    return {" Error n. " + std::string(error) + " in " + procedure};
}

/// Runs a command; its dialog gets `script` and is closed afterwards.
inline void runDialog(Workplace& place, std::string_view command, FakeForms::Script script) {
    place.forms.scripts.push_back(std::move(script));
    place.run(command);
}

// Each adds a record with its node. Errors: as those of the configuration.
clsPLC& plantUnit(Configuration& configuration, const std::string& name,
                  std::string_view address = "10.0.0.1");
TreeNode& plantBranch(Configuration& configuration, TreeNode& container, const std::string& name);
clsItem& plantItem(Configuration& configuration, TreeNode& container, const std::string& name);

/// Adds records by their keys, parents first: "U" is a unit, "U.A/" a branch, "U.A.x" an item, "ModBus.coil"
/// a data type.
void plant(Workplace& place, const Texts& keys);

/// Drags with the right button. True where the pointer showed that the drop is allowed.
bool drag(Workplace& place, std::string_view source, std::string_view target, bool control = false);

/// A saved configuration with these records and an empty message log.
struct PlantedWorkplace : Workplace {
    explicit PlantedWorkplace(const Texts& keys, const std::filesystem::path& state = {});

    /// Clicks the node, and then the list rows with these texts.
    PlantedWorkplace& at(std::string_view key, const Texts& rows = {});
    /// Saves under the name in the folder; returns what the file holds then.
    std::string saved(const std::string& name = "test.xml");
    Texts wrong() const { return disagreements(configuration); }
};

/// What a user does, and what he sees then; the steps of a line, and what is seen, stand one after the other.
///
/// Steps, "; " between:            What is seen, " | " between:
///   U.A      click on the node      tree U: A(x y) B  all nodes below the node
///   U.A: x   and on rows of it      list U.A: x *y    the selected node, the rows, those that are selected
///   mnuCopy  the command            said M / M        the messages; where it is missing there may be none
///   button new  of the toolbar      mode 3            of the list
///   edit U   double click           saved, unsaved    the flag that Close and Exit go by
///   drag U to V  right button       state, counts, selection, notice   a field of the status bar
///   copy U to V  and control key    opens F           the dialogs
///   find: T, next: T  in the find window
///   sort: 1  a click on a header
///   clipboard: T  T gets onto it
///   no       to the next question
///
/// "top" is the first node. With ": FIELDS" after a command or "edit", these are filled and Enter is pressed.
void play(Workplace& place, const Fields& lines);

/// Works in the dialog that the steps open, and open again where it has closed: what is entered, and what it
/// shows then, both as a form tells it, with " | said M / M" for messages.
void work(Workplace& place, const std::string& steps, const Fields& lines);

/// Whether the parser accepts the bytes.
bool isXml(std::string_view bytes);

/// What a file of the configuration gives back, a line a node, in tree order: its place, branch names in
/// capitals, and its record.
Texts fileContents(const Configuration& configuration);

}  // namespace trevandix::testing
