#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/Configuration.h"
#include "table/Table.h"

namespace trevandix {

/// A value that is to change, as texts of the dialogs. An added object has no old ones.
struct FieldChange {
    std::string_view header;  ///< of its column
    std::string before;
    std::string after;
};

/// One object that is to be added or changed, or why it is not.
struct IntendedChange {
    std::size_t line = 0;  ///< of the table; 0 where there is none
    std::string object{};  ///< as the user reads it: "PLC1.Area.Level"
    bool adds = false;
    std::vector<FieldChange> fields{};
    std::string remark{};   ///< what else happens, such as "new branch Area"
    std::string refusal{};  ///< why nothing of it is done; empty if it is accepted

    bool refused() const { return !refusal.empty(); }
};

/// Called now and then with the rows or changes done and their number. It may throw to end the work; applying
/// then leaves everything as it was.
using TableProgress = std::function<void(std::size_t done, std::size_t all)>;

class Plan;

/// What is to change in a configuration. What would change nothing is not in it. What is judged is the state
/// after all accepted changes, by the rules of the dialogs. A value that does not change is refused only if
/// it depends on one that does.
///
/// From a table: rows whose objects exist change them, other rows add objects, with the branches they need.
/// Units, items and data types are found by their exact name, branches also ignoring case. Of several items
/// with one path each row takes the next. A row with a "New Name" that some earlier import has already given
/// (its object has all the row's values, and none called "Name" has them) changes nothing.
class ChangeSet {
public:
    /// Rows without a unit or branch of their own belong to the selected node. Neither refers to the table
    /// later.
    ChangeSet(const Configuration& configuration, const Table& table, const TableProgress& progress = {});
    /// Of objects of the kind, as planned for the configuration as it is.
    ChangeSet(const Configuration& configuration, NodeTag kind, std::unique_ptr<Plan> plan);
    ~ChangeSet();
    ChangeSet(ChangeSet&&) noexcept;
    ChangeSet& operator=(ChangeSet&&) noexcept;

    /// Of what kind the objects are: Item, Plc or DataType.
    NodeTag kind() const { return kind_; }
    /// In the order of the table's lines, or as they were intended.
    const std::vector<IntendedChange>& changes() const;
    std::size_t refused() const;
    std::size_t accepted() const { return changes().size() - refused(); }

    /// Adds to the remarks of items and of changed units what the checks would find at them, and do not find
    /// now. The configuration must be as it was. Calls `progress` every few milliseconds, always with an
    /// amount that says that all is done.
    void remarkFindings(const TableProgress& progress = {});

    /// The name of their step to undo, instead of "Import 3 changes".
    void setStepName(std::string name) { stepName_ = std::move(name); }
    /// Makes all accepted changes, as one step that can be undone, and marks the configuration as unsaved;
    /// without any it does nothing. Added nodes become visible. Errors:
    /// InvalidCall if the configuration, which must be the open one that was judged, has changed since; on
    /// any error it is as it was.
    void apply(Configuration& configuration, const TableProgress& progress = {}) const;

private:
    NodeTag kind_;
    std::uint64_t revision_;
    std::unique_ptr<Plan> plan_;
    std::string stepName_;
};

}  // namespace trevandix
