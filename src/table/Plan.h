#pragma once

#include <algorithm>
#include <bit>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "check/Check.h"
#include "check/Wording.h"
#include "model/Refusal.h"
#include "platform/RuntimeError.h"
#include "table/ChangeSet.h"
#include "table/Columns.h"

// What the change sets of the three kinds have in common.

namespace trevandix {

/// Changes that are judged together, and how they are made.
class Plan {
public:
    virtual ~Plan() = default;
    /// Makes the accepted changes within a step. Errors: those of `Configuration`; what was done before
    /// stays.
    virtual void apply(Configuration& configuration, const TableProgress& progress) const = 0;

    /// Adds to the remarks what the checks would find at accepted items and changed units, and do not find
    /// now.
    virtual void remarkFindings(Pulse&) {}

    std::vector<IntendedChange> changes;
    bool doubtful = false;  ///< rows exchange names, perhaps not for the first time
};

/// How rows with a "New Name" are read that fit both the object of that name and the one with the old name.
class Renamings {
public:
    /// As not done yet.
    Renamings() = default;
    /// As done already, where another row gave the old name to another object. `name` is the column "Name":
    /// in front of it stand those of the place, behind it "New Name".
    Renamings(const Table& table, std::size_t name);

    /// No row gives another name.
    bool empty() const { return given_.empty(); }
    bool isDone(const Table& table, const CsvRow& row) const;

private:
    std::size_t name_ = 0;
    std::unordered_set<std::string> given_;  // the new names with their places
};

std::unique_ptr<Plan> planItems(const Configuration& configuration, const Table& table,
                                const TableProgress& progress, const Renamings& renamings);
std::unique_ptr<Plan> planUnits(const Configuration& configuration, const Table& table,
                                const TableProgress& progress, const Renamings& renamings);
std::unique_ptr<Plan> planTypes(const Configuration& configuration, const Table& table,
                                const TableProgress& progress);

/// Tells of the progress of some work now and then.
class Progress {
public:
    Progress(const TableProgress& tell, std::size_t all) : tell_(tell), all_(all) {}
    void step() {
        constexpr std::size_t kOften = 256;
        if (tell_ && done_++ % kOften == 0) tell_(done_, all_);
    }

private:
    const TableProgress& tell_;
    std::size_t all_;
    std::size_t done_ = 0;
};

/// Columns of a table by number.
using ColumnSet = std::uint32_t;
constexpr bool contains(ColumnSet set, std::size_t column) {
    return (set >> column & 1U) != 0;
}

/// The columns that hold values.
template <typename Columns>
ColumnSet valueColumns(const Columns& columns) {
    ColumnSet set = 0;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].text != nullptr) set |= 1U << i;
    return set;
}

/// The columns whose texts differ.
template <typename Columns, typename Fields>
ColumnSet differences(const Columns& columns, const Fields& a, const Fields& b) {
    ColumnSet different = 0;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].text != nullptr && a.*columns[i].text != b.*columns[i].text) different |= 1U << i;
    }
    return different;
}

/// The columns that must be judged when these have changed.
template <typename Columns>
ColumnSet judged(const Columns& columns, ColumnSet changed) {
    ColumnSet set = changed;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        for (std::size_t other = 0; other < columns.size(); ++other) {
            const auto text = columns[other].text;
            const bool followed = text != nullptr && std::ranges::count(columns[i].follows, text) > 0;
            if (followed && contains(changed, other)) set |= 1U << i;
        }
    }
    return set;
}

/// Puts the row's cells into the fields, the object's name excepted. Says whether one differs.
template <typename Columns, typename Fields>
bool putCells(const Columns& columns, const Table& table, const CsvRow& row, Fields& fields) {
    bool different = false;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string* cell = columns[i].text == nullptr ? nullptr : table.cell(row, i);
        if (cell == nullptr || columns[i].header == "Name" || fields.*columns[i].text == *cell) continue;
        fields.*columns[i].text = *cell;
        different = true;
    }
    return different;
}

template <typename Columns, typename Fields>
std::vector<FieldChange> fieldChanges(const Columns& columns, ColumnSet changed, const Fields& before,
                                      const Fields& after) {
    std::vector<FieldChange> fields;
    fields.reserve(static_cast<std::size_t>(std::popcount(changed)));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (contains(changed, i))
            fields.push_back({columns[i].header, before.*columns[i].text, after.*columns[i].text});
    }
    return fields;
}

/// Why a box of a dialog would not take the text; empty if it takes it.
std::string boxRefusal(std::string_view header, KeyFilter filter, const std::string& text);

/// The first reason against the values of these columns: what the boxes do not take, what the dialog's check
/// refuses, what its lists do not offer. `choices(column)` is what the list of a column offers; nullptr for
/// no list.
template <typename Columns, typename Fields, typename Choices>
std::string reasonAgainst(const Columns& columns, ColumnSet set, const Fields& fields,
                          const std::vector<Refusal>& refusals, Choices choices) {
    std::string reason;
    for (std::size_t i = 0; i < columns.size() && reason.empty(); ++i) {
        if (contains(set, i))
            reason = boxRefusal(columns[i].header, columns[i].filter, fields.*columns[i].text);
    }
    for (std::size_t i = 0; i < refusals.size() && reason.empty(); ++i) {
        for (std::size_t column = 0; column < columns.size(); ++column)
            if (contains(set, column) && columns[column].field == refusals[i].field)
                reason = refusals[i].message;
    }
    for (std::size_t i = 0; i < columns.size() && reason.empty(); ++i) {
        const auto* offered = contains(set, i) ? choices(i) : nullptr;
        if (offered == nullptr) continue;
        const std::string& text = fields.*columns[i].text;
        if (std::ranges::find(*offered, text) != offered->end()) continue;
        reason =
            std::string(columns[i].header) + ' ' + trevandix::quoted(text) + " is not in the dialog's list";
    }
    return reason;
}

/// For values that no list offers.
inline const std::vector<std::string>* noChoices(std::size_t) {
    return nullptr;
}

inline const std::string kNameTaken = "The name is taken";

/// The reason against a row whose object an earlier row is about.
inline std::string secondRow(std::size_t line) {
    return "Line " + std::to_string(line) + " is about the same object";
}
inline std::string nothingToRename(std::string_view name) {
    return "There is no " + trevandix::quoted(name) + " to rename";
}

/// No row.
inline constexpr std::size_t kNoRow = static_cast<std::size_t>(-1);
/// Rows that exchange names in a ring, where one of them fits both the object that has its old name and the
/// one that has its new name: the names may have been exchanged already. `next` is for each row the one that
/// renames the object whose name it wants, or `kNoRow`.
std::vector<std::size_t> doubtfulRings(const std::vector<std::size_t>& next,
                                       const std::vector<bool>& fitsBoth);
inline constexpr std::string_view kDoubtful =
    "No column tells whether the names have been exchanged already; add one in which the objects differ";

}  // namespace trevandix
