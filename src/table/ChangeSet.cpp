#include "table/ChangeSet.h"

#include <algorithm>
#include <utility>

#include "platform/Form.h"
#include "platform/Text.h"
#include "table/Plan.h"

namespace trevandix {

namespace {

// A name in a row's place, which the columns in front of "Name" say.
std::string inPlace(const Table& table, const CsvRow& row, std::size_t nameColumn, const std::string& name) {
    std::string text;
    for (std::size_t column = 0; column < nameColumn; ++column) {
        const std::string* cell = table.cell(row, column);
        if (cell != nullptr) text += *cell;
        text += '\0';
    }
    return text + name;
}

std::unique_ptr<Plan> planned(const Configuration& configuration, const Table& table,
                              const TableProgress& progress) {
    if (table.kind == NodeTag::DataType) return planTypes(configuration, table, progress);
    const bool items = table.kind == NodeTag::Item;
    const auto plan = items ? planItems : planUnits;
    std::unique_ptr<Plan> first = plan(configuration, table, progress, {});
    if (first->doubtful || std::ranges::none_of(first->changes, &IntendedChange::refused)) return first;
    const Renamings done(table,
                         items ? columnCalled("Name", kItemColumns) : columnCalled("Name", kUnitColumns));
    if (done.empty()) return first;
    std::unique_ptr<Plan> second = plan(configuration, table, progress, done);
    return second->changes.empty() ? std::move(second) : std::move(first);
}

}  // namespace

Renamings::Renamings(const Table& table, std::size_t name) : name_(name) {
    for (const CsvRow& row : table.rows) {
        const std::string* wanted = table.cell(row, name + 1);
        if (wanted != nullptr && !wanted->empty() && *wanted != *table.cell(row, name))
            given_.insert(inPlace(table, row, name, *wanted));
    }
}

bool Renamings::isDone(const Table& table, const CsvRow& row) const {
    return given_.contains(inPlace(table, row, name_, *table.cell(row, name_)));
}

std::string boxRefusal(std::string_view header, KeyFilter filter, const std::string& text) {
    if (entered(filter, text) == text) return {};
    if (entered(KeyFilter::None, text) != text)
        return std::string(header) + " has a line break or TAB, or is no valid text";
    const bool name = filter == KeyFilter::ItemName;
    return std::string(header) + ' ' + quoted(text) + " has other characters than " +
           (name ? "letters A to Z, digits, \"-\" and \"_\"" : "digits, \"-\", \".\" and blanks");
}

std::vector<std::size_t> doubtfulRings(const std::vector<std::size_t>& next,
                                       const std::vector<bool>& fitsBoth) {
    std::vector<std::size_t> rows;
    std::vector<std::size_t> walk(next.size(), kNoRow);  // that came by first
    for (std::size_t start = 0; start < next.size(); ++start) {
        std::size_t at = start;
        for (; at != kNoRow && walk[at] == kNoRow; at = next[at]) walk[at] = start;
        if (at == kNoRow || walk[at] != start) continue;
        std::vector<std::size_t> ring{at};
        for (std::size_t row = next[at]; row != at; row = next[row]) ring.push_back(row);
        if (std::ranges::any_of(ring, [&](std::size_t row) { return fitsBoth[row]; }))
            rows.insert(rows.end(), ring.begin(), ring.end());
    }
    return rows;
}

ChangeSet::ChangeSet(const Configuration& configuration, const Table& table, const TableProgress& progress)
    : ChangeSet(configuration, table.kind, planned(configuration, table, progress)) {}

ChangeSet::ChangeSet(const Configuration& configuration, NodeTag kind, std::unique_ptr<Plan> plan)
    : kind_(kind), revision_(configuration.revision()), plan_(std::move(plan)) {}

ChangeSet::~ChangeSet() = default;
ChangeSet::ChangeSet(ChangeSet&&) noexcept = default;
ChangeSet& ChangeSet::operator=(ChangeSet&&) noexcept = default;

const std::vector<IntendedChange>& ChangeSet::changes() const {
    return plan_->changes;
}

std::size_t ChangeSet::refused() const {
    return static_cast<std::size_t>(std::ranges::count_if(changes(), &IntendedChange::refused));
}

void ChangeSet::remarkFindings(const TableProgress& progress) {
    const std::function<bool()> alive = [&] {
        if (progress) progress(1, 1);
        return false;
    };
    Pulse pulse(alive);
    plan_->remarkFindings(pulse);
}

void ChangeSet::apply(Configuration& configuration, const TableProgress& progress) const {
    if (configuration.revision() != revision_) throw RuntimeError(ErrorNumber::InvalidCall);
    const std::size_t count = accepted();
    if (count == 0) return;
    const StructureTree::Batch batch(configuration.tree);
    Configuration::Step step(configuration);
    try {
        plan_->apply(configuration, progress);
    } catch (...) {
        step.takeBack();
        throw;
    }
    step.setName(!stepName_.empty() ? stepName_ : "Import " + counted(count, "change", "changes"));
    configuration.setSaved(false);
}

}  // namespace trevandix
