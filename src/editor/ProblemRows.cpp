#include "editor/ProblemRows.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "platform/Text.h"

namespace trevandix {

namespace {

/// A finding stays the same while its rule finds something at its object, whatever the text says then.
struct Identity {
    const Rule* rule;
    Key object;

    explicit Identity(const Finding& finding) : rule(finding.rule), object(finding.object) {}
    bool operator==(const Identity&) const = default;
};
struct IdentityHash {
    std::size_t operator()(const Identity& identity) const {
        return identity.object.hash() ^ std::hash<const Rule*>()(identity.rule);
    }
};

/// Findings that are marked, to be found in other rows.
class Marked {
public:
    Marked(const ProblemRows& rows, const ProblemRows::Marks& marks) {
        for (const std::size_t row : marks.selected) selected_.emplace(rows.at(row));
        if (!marks.gone) current_.emplace(rows.at(marks.row));
    }
    /// `row` is the current one where its finding is gone.
    ProblemRows::Marks in(const ProblemRows& rows, std::size_t row) const {
        ProblemRows::Marks marks{{}, row, true};
        if (selected_.empty() && !current_) return marks;
        for (std::size_t at = 0; at < rows.rowCount(); ++at) {
            const Identity identity(rows.at(at));
            if (selected_.contains(identity)) marks.selected.push_back(at);
            if (identity != current_) continue;
            marks.row = at;
            marks.gone = false;
        }
        return marks;
    }

private:
    std::unordered_set<Identity, IdentityHash> selected_;
    std::optional<Identity> current_;
};

constexpr std::size_t kSeverity = 0;
constexpr std::size_t kObject = 1;
constexpr std::ptrdiff_t kRun = 1024;  // sorted in about a millisecond

}  // namespace

const std::vector<ListColumn>& ProblemRows::columns() const {
    static const std::vector<ListColumn> kColumns{{"Severity", 0.14}, {"Object", 0.36}, {"Problem", 0.48}};
    return kColumns;
}

std::string_view ProblemRows::cellOf(const Finding& finding, std::size_t column) {
    if (column == kSeverity) return severityName(finding.rule->severity);
    if (column != kObject) return finding.text;
    return finding.object.empty() ? std::string_view("(whole file)") : finding.object.view();
}

// Merges sorted runs, so that it can stop in between.
std::optional<ProblemRows::Order> ProblemRows::sorted(const std::vector<Finding>& findings,
                                                      std::size_t column,
                                                      const std::function<bool()>& interrupted) {
    const auto less = [&](std::uint32_t left, std::uint32_t right) {
        const Finding& a = findings[left];
        const Finding& b = findings[right];
        if (column == kSeverity) return a.rule->severity < b.rule->severity;
        return compareIgnoringCase(cellOf(a, column), cellOf(b, column)) < 0;
    };
    Order order(findings.size());
    std::iota(order.begin(), order.end(), 0U);
    const auto count = std::ssize(order);
    const auto place = [&](std::ptrdiff_t at) { return order.begin() + std::min(at, count); };
    for (std::ptrdiff_t from = 0; from < count; from += kRun) {
        if (interrupted()) return std::nullopt;
        std::stable_sort(place(from), place(from + kRun), less);
    }
    Order merged(order.size());
    for (std::ptrdiff_t run = kRun; run < count; run *= 2) {
        auto out = merged.begin();
        for (std::ptrdiff_t from = 0; from < count; from += 2 * run) {
            auto left = place(from);
            auto right = place(from + run);
            while (left != place(from + run) || right != place(from + 2 * run)) {
                if ((out - merged.begin()) % kRun == 0 && interrupted()) return std::nullopt;
                const bool fromRight =
                    left == place(from + run) || (right != place(from + 2 * run) && less(*right, *left));
                *out++ = fromRight ? *right++ : *left++;
            }
        }
        order.swap(merged);
    }
    return order;
}

bool ProblemRows::replace(std::vector<Finding> findings, Marks& marks,
                          const std::function<bool()>& interrupted) {
    std::optional<Order> order = sorted(findings, sortColumn_, interrupted);
    if (!order) return false;
    const Marked marked(*this, marks);
    findings_ = std::move(findings);
    order_ = std::move(*order);
    marks = marked.in(*this, marks.row);
    return true;
}

void ProblemRows::sortBy(std::size_t column, Marks& marks) {
    const Marked marked(*this, marks);
    sortColumn_ = column;
    order_ = *sorted(findings_, column, [] { return false; });
    marks = marked.in(*this, marks.row);
}

void ProblemRows::appendLine(std::string& text, std::size_t row) const {
    for (std::size_t column = 0; column < columns().size(); ++column)
        text.append(column == 0 ? "" : "\t").append(cell(row, column));
    text += '\n';
}

std::string ProblemRows::text(std::span<const std::size_t> rows) const {
    std::string all;
    for (const std::size_t row : rows) appendLine(all, row);
    return all;
}

std::string ProblemRows::text() const {
    std::string all;
    for (std::size_t row = 0; row < rowCount(); ++row) appendLine(all, row);
    return all;
}

}  // namespace trevandix
