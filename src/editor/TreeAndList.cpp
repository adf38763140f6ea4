#include "editor/TreeAndList.h"

#include <algorithm>

#include "model/RecordField.h"

namespace trevandix {

void TreeAndList::TreeView1_NodeClick(TreeNode& node) {
    context_.guarded("TreeView1_NodeClick", [&] {
        const PointerScope hourglass(context_.platform.pointer, Pointer::Hourglass);
        showContents(node);
        context_.tree().select(&node);
    });
    // Commands act on the rows that are still selected, so these decide which commands are enabled.
    if (context_.platform.window.focusedView() == FocusedView::List) ListView1_Click();
}

void TreeAndList::showContents(TreeNode& node) {
    const ListView::Update update(context_.list);
    context_.list.begin(node.key());
    context_.tree().keepSorted(node);
    enableFor(node);
    showColumns(node.tag());
    switch (node.tag()) {
        case NodeTag::Config:
            return showUnits();
        case NodeTag::ModBus:
            return showDataTypes();
        case NodeTag::DataType:
            return;
        case NodeTag::Plc:
            return showUnit(node);
        case NodeTag::Branch:
            return showBranch(node);
        case NodeTag::Item:
            return showItem(node);
    }
}

std::vector<const TreeNode*> TreeAndList::nodesOfRows() const {
    std::vector<const TreeNode*> nodes;
    for (const ListRow& row : context_.list.rows()) nodes.push_back(context_.tree().find(row.key));
    return nodes;
}

void TreeAndList::showAgain(std::span<const TreeNode* const> rows) {
    TreeNode* selected = context_.tree().selected();
    if (selected == nullptr) return;
    std::vector<const TreeNode*> shown{selected};  // a node of `rows` may be gone
    for (const TreeNode* child = selected->firstChild(); child != nullptr; child = child->nextSibling())
        shown.push_back(child);
    std::ranges::sort(shown);
    for (std::size_t row = 0; row < rows.size(); ++row)
        if (std::ranges::binary_search(shown, rows[row])) context_.list.setKey(row, rows[row]->key());
    TreeView1_NodeClick(*selected);
}

void TreeAndList::enableForSelected() const {
    if (const TreeNode* node = context_.tree().selected()) enableFor(*node);
}

// The first child of a branch alone decides whether the bulk pastes are enabled.
void TreeAndList::enableFor(const TreeNode& node) const {
    const TreeNode* first = node.firstChild();
    const bool pastes = node.tag() == NodeTag::Branch && first != nullptr && first->tag() == NodeTag::Item;
    context_.enable(pastes ? Situation::BranchWithItemFirst : situationOf(node.tag()));
}

void TreeAndList::showColumns(NodeTag tag) {
    const auto show = [&](auto columns) {
        for (const auto& column : columns) context_.list.addColumn(column.header, column.width);
        context_.list.setMode(ListMode::Report);
    };
    switch (tag) {
        case NodeTag::Config:
        case NodeTag::Plc:
            return show(clsPLC::columns());
        case NodeTag::ModBus:
            return show(clsModBusType::columns());
        case NodeTag::Branch:
            return show(clsItem::columns());
        case NodeTag::Item:  // without the index: a single row needs no sorting
            return show(clsItem::columns().first(clsItem::columns().size() - 1));
        case NodeTag::DataType:
            return;
    }
}

void TreeAndList::showUnits() {
    for (const auto& [key, unit] : context_.configuration.units) unit->AddToListView(context_.list);
}

void TreeAndList::showDataTypes() {
    for (const auto& [key, type] : context_.configuration.dataTypes) type->AddToListView(context_.list);
}

void TreeAndList::showUnit(const TreeNode& node) {
    context_.configuration.units.at(node.key())->AddToListView(context_.list);
}

void TreeAndList::showBranch(const TreeNode& node) {
    const TreeNode* child = node.firstChild();
    if (child == nullptr) return;
    context_.list.reserve(node.childCount());
    for (; child != nullptr; child = child->nextSibling()) {
        if (child->tag() == NodeTag::Item) showRow(*child, true);
    }
}

void TreeAndList::showItem(const TreeNode& node) {
    showRow(node, false);
}

// A record shared by two nodes has the key of only one of them, so the row gets the key of its own node.
void TreeAndList::showRow(const TreeNode& item, bool index) {
    context_.configuration.items.at(item.key())->AddToListView(context_.list, index);
    context_.list.setKey(context_.list.rows().size() - 1, item.key());
}

void TreeAndList::ListView1_Click() {
    context_.guarded("ListView1_Click", [&] {
        const auto row = context_.list.currentRow();
        if (!row) return;
        const NodeTag tag = context_.tree().at(context_.list.rows()[*row].key).tag();
        if (tag != NodeTag::Config && tag != NodeTag::ModBus) context_.enable(situationOf(tag));
    });
}

void TreeAndList::selectNodeOfCurrentRow() {
    const auto row = context_.list.currentRow();
    if (row) context_.tree().select(&context_.tree().at(context_.list.rows()[*row].key));
}

void TreeAndList::ListView1_ColumnClick(std::size_t column) {
    context_.guarded("ListView1_ColumnClick", [&] { context_.list.sortBy(column); });
}

}  // namespace trevandix
