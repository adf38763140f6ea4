#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
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
    std::size_t line = 0;  ///< of the table
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

/// What a table is to change in a configuration: rows whose objects exist change them, other rows add
/// objects, with the branches they need. Rows that change nothing are not in it. What is judged is the state
/// after all accepted rows, by the rules of the dialogs; values that stay as they are are never refused.
///
/// Units, items and data types are found by their exact name, branches also ignoring case. Of several items
/// with one path each row takes the next. A row with a "New Name" that some earlier import has already given
/// (its object has all the row's values, and none called "Name" has them) changes nothing.
class ChangeSet {
public:
    /// Rows without a unit or branch of their own belong to the selected node. Neither refers to the table
    /// later.
    ChangeSet(const Configuration& configuration, const Table& table, const TableProgress& progress = {});
    ~ChangeSet();
    ChangeSet(ChangeSet&&) noexcept;
    ChangeSet& operator=(ChangeSet&&) noexcept;

    /// Of what kind the objects are: Item, Plc or DataType.
    NodeTag kind() const { return kind_; }
    /// In the order of the table's lines.
    const std::vector<IntendedChange>& changes() const;
    std::size_t refused() const;
    std::size_t accepted() const { return changes().size() - refused(); }

    /// Adds to the remarks of items what the checks would find at them, and do not find now. The
    /// configuration must be as it was.
    void remarkFindings();

    /// Makes all accepted changes, as one step that can be undone, and marks the configuration as unsaved;
    /// without any it does nothing. Added nodes become visible. Errors: InvalidCall if the configuration,
    /// which must be the open one that was judged, has changed since; on any error it is as it was.
    void apply(Configuration& configuration, const TableProgress& progress = {}) const;

private:
    NodeTag kind_;
    std::uint64_t revision_;
    std::unique_ptr<Plan> plan_;
};

}  // namespace trevandix
