#include "table/Table.h"

#include <algorithm>
#include <unordered_set>

#include "platform/RuntimeError.h"
#include "platform/Text.h"
#include "table/BranchPath.h"
#include "table/Columns.h"

namespace trevandix {

namespace {

[[noreturn]] void refuseTable(std::size_t line, const std::string& reason) {
    throw RuntimeError(ErrorNumber::TableFormat, "line " + std::to_string(line) + ": " + reason);
}

// What counts of a header.
std::string essence(std::string_view header) {
    std::string text = upperCased(header);
    std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return text;
}

template <typename Columns>
std::vector<std::string> essences(const Columns& columns) {
    std::vector<std::string> headers;
    for (const auto& column : columns) headers.push_back(essence(column.header));
    return headers;
}

std::vector<std::string> essencesOf(NodeTag kind) {
    if (kind == NodeTag::Item) return essences(kItemColumns);
    return kind == NodeTag::Plc ? essences(kUnitColumns) : essences(kTypeColumns);
}

NodeTag kindOf(const std::vector<std::string>& headers) {
    const auto has = [&](std::string_view header) {
        return std::ranges::find(headers, essence(header)) != headers.end();
    };
    if (has("Unit") || has("Branch")) return NodeTag::Item;
    return has("Read Code") ? NodeTag::DataType : NodeTag::Plc;
}

void readHeader(Table& table, const CsvRow& row) {
    std::vector<std::string> headers;
    for (const std::string& cell : row.cells) headers.push_back(essence(cell));
    table.kind = kindOf(headers);
    const std::vector<std::string> known = essencesOf(table.kind);
    table.places.resize(known.size());
    for (std::size_t i = 0; i < headers.size(); ++i) {
        const auto column = std::ranges::find(known, headers[i]);
        if (column == known.end()) {
            if (!headers[i].empty()) table.unknownColumns.push_back(row.cells[i]);
            continue;
        }
        auto& place = table.places[static_cast<std::size_t>(column - known.begin())];
        if (place) refuseTable(row.line, "there are two columns \"" + row.cells[i] + '"');
        place = i;
    }
    const auto name = std::ranges::find(known, essence("Name")) - known.begin();
    if (!table.places[static_cast<std::size_t>(name)]) refuseTable(row.line, "there is no column \"Name\"");
}

/// Finds the cells of one object after the other, in the order of the tree.
class Exporter {
public:
    Exporter(const Configuration& configuration, NodeTag kind) : configuration_(configuration), kind_(kind) {
        if (kind == NodeTag::Item) addHeader(kItemColumns);
        if (kind == NodeTag::Plc) addHeader(kUnitColumns);
        if (kind == NodeTag::DataType) addHeader(kTypeColumns);
    }

    void add(const TreeNode& node) {
        if (node.tag() != kind_) return;
        if (kind_ == NodeTag::Item) addItem(node);
        if (kind_ == NodeTag::Plc) addUnit(node);
        if (kind_ == NodeTag::DataType) addType(node);
    }
    std::vector<Cells> take() { return std::move(rows_); }

private:
    template <typename Columns>
    void addHeader(const Columns& columns) {
        Cells& header = rows_.emplace_back();
        for (const auto& column : columns) header.emplace_back(column.header);
    }

    template <typename Columns, typename Fields>
    Cells& addRow(const Columns& columns, Fields fields) {
        Cells& row = rows_.emplace_back(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (columns[i].text != nullptr) row[i] = std::move(fields.*columns[i].text);
        }
        return row;
    }

    void addItem(const TreeNode& node) {
        const auto record = configuration_.items.find(node.key());
        if (record == nullptr) return;
        enter(*node.parent());
        if (unit_ == nullptr) return;
        Cells& row = addRow(kItemColumns, record->texts());
        row[columnCalled("Unit", kItemColumns)] = unit_->text();
        row[columnCalled("Branch", kItemColumns)] = branch_;
    }

    void addUnit(const TreeNode& node) {
        if (unitAround(configuration_, &node) != &node) return;
        const auto record = configuration_.units.find(node.key());
        addRow(kUnitColumns, record->texts(configuration_.state.interfaceKind));
    }

    void addType(const TreeNode& node) {
        const auto record = configuration_.dataTypes.find(node.key());
        if (record != nullptr) addRow(kTypeColumns, record->texts());
    }

    // Notes unit and branches of the items in the container.
    void enter(const TreeNode& container) {
        if (container_ == &container) return;
        container_ = &container;
        unit_ = unitAround(configuration_, &container);
        std::vector<const TreeNode*> branches;
        for (const TreeNode* up = &container; unit_ != nullptr && up != unit_; up = up->parent())
            branches.push_back(up);
        branch_.clear();
        std::for_each(branches.rbegin(), branches.rend(),
                      [&](const TreeNode* branch) { appendBranch(branch_, branch->text()); });
    }

    const Configuration& configuration_;
    NodeTag kind_;
    std::vector<Cells> rows_;
    const TreeNode* container_ = nullptr;  // of the last item
    const TreeNode* unit_ = nullptr;
    std::string branch_;
};

// The next node in the order of the tree that is not below this one.
const TreeNode* nextBehind(const TreeNode* node) {
    while (node != nullptr && node->nextSibling() == nullptr) node = node->parent();
    return node == nullptr ? nullptr : node->nextSibling();
}

}  // namespace

const std::string* Table::cell(const CsvRow& row, std::size_t column) const {
    static const std::string empty;
    const auto& place = places[column];
    if (!place) return nullptr;
    return *place < row.cells.size() ? &row.cells[*place] : &empty;
}

Table readTable(std::string_view bytes) {
    Table table{};
    table.rows = readCsv(bytes);
    const auto blank = [](const CsvRow& row) { return std::ranges::all_of(row.cells, &std::string::empty); };
    std::erase_if(table.rows, blank);
    if (table.rows.empty()) refuseTable(1, "there is no header");
    readHeader(table, table.rows.front());
    table.rows.erase(table.rows.begin());
    return table;
}

std::vector<Cells> exportTable(const Configuration& configuration, NodeTag kind,
                               std::span<const TreeNode* const> tops) {
    Exporter exporter(configuration, kind);
    const std::unordered_set<const TreeNode*> wanted(tops.begin(), tops.end());
    const TreeNode* root = configuration.tree.root();
    for (const TreeNode* node = root; node != nullptr;) {
        if (!wanted.contains(node)) {
            node = nextBelow(*node, *root);
            continue;
        }
        for (const TreeNode* each = node; each != nullptr; each = nextBelow(*each, *node))
            exporter.add(*each);
        node = nextBehind(node);
    }
    return exporter.take();
}

std::vector<Cells> exportTable(const Configuration& configuration, NodeTag kind) {
    const TreeNode* root = configuration.tree.root();
    return exportTable(configuration, kind, {&root, 1});
}

}  // namespace trevandix
