#include "editor/BulkPaste.h"

#include <algorithm>
#include <unordered_set>

#include "check/Check.h"
#include "dialogs/Dialog.h"
#include "editor/frmReplace.h"
#include "model/ItemRenaming.h"
#include "model/RecordField.h"
#include "platform/Text.h"
#include "xmlfile/Generale.h"

namespace trevandix {

namespace {

std::size_t columnOf(std::string_view header) {
    const auto columns = clsItem::columns();
    const auto column = std::ranges::find(columns, header, &clsItem::Column::header);
    return static_cast<std::size_t>(column - columns.begin());
}

}  // namespace

std::vector<std::string> clipboardLines(std::string_view text) {
    const std::string_view lineEnd = text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    std::vector<std::string> lines;
    while (!text.empty()) {
        const std::size_t end = text.find(lineEnd);
        lines.emplace_back(trimmed(text.substr(0, end)));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + lineEnd.size());
    }
    return lines;
}

std::optional<BulkPaste::Lines> BulkPaste::pastedLines() const {
    const std::string text = context_.platform.clipboard.text();
    if (!text.empty()) return clipboardLines(text);
    context_.platform.messages.show("Empty clipboard !");
    return std::nullopt;
}

void BulkPaste::mnuPasteName_Click() {
    context_.guarded("mnuPasteName_Click", [&] {
        const std::optional<Lines> lines = pastedLines();
        if (!lines) return;
        const Rows rows = context_.list.selectedRows();
        if (clashes(*lines, rows)) return void(context_.platform.messages.show("Name already existing"));
        if (!fits(*lines, rows)) return;
        const std::size_t address = columnOf("Address");
        std::vector<Lines> cells{{"Item name", "", "New Item name", "Address"}};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            cells.push_back({context_.list.rows().at(rows[i]).text, "<---", (*lines)[i],
                             std::string(context_.list.cell(rows[i], address))});
        }
        addRemarks(cells, *lines, rows);
        if (!showFrmReplace(context_.platform.forms, cells, inAddressOrder(rows))) return;
        applyNames(*lines, rows);
    });
}

// Adds a column to the preview when a new name would give an item a problem that it does not have now. Names
// that will be refused give none.
void BulkPaste::addRemarks(std::vector<Lines>& cells, const Lines& lines, const Rows& rows) const {
    std::vector<IntendedName> names;
    Rows named;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (forbiddenCharacter(lines[i])) continue;
        names.push_back({context_.list.rows().at(rows[i]).key, lines[i]});
        named.push_back(i);
    }
    Lines remarks = findingsAdded(context_.configuration, names);
    if (std::ranges::all_of(remarks, &std::string::empty)) return;
    for (Lines& line : cells) line.emplace_back();
    cells.front().back() = "Remark";
    for (std::size_t i = 0; i < named.size(); ++i) cells[named[i] + 1].back() = std::move(remarks[i]);
}

// True when a sibling that is not selected has one of the names. Skips lines with a ".", which are refused
// later, each for its own item.
bool BulkPaste::clashes(const Lines& lines, const Rows& rows) const {
    const TreeNode* node = context_.tree().selected();
    if (node == nullptr) return false;
    std::unordered_set<Key> selected;
    for (const std::size_t row : rows) selected.emplace(context_.list.rows().at(row).key);
    for (const std::string& line : lines) {
        if (line.find('.') != std::string::npos) continue;
        const Key key(node->key(), line);
        if (context_.configuration.items.contains(key) && !selected.contains(key)) return true;
    }
    return false;
}

// True when the rows are in the order of the Index column: by table, address and bit.
bool BulkPaste::inAddressOrder(const Rows& rows) const {
    const std::size_t index = columnOf("Index");
    return std::ranges::is_sorted(
        rows, [](std::string_view a, std::string_view b) { return compareIgnoringCase(a, b) < 0; },
        [&](std::size_t row) { return context_.list.cell(row, index); });
}

bool BulkPaste::fits(const Lines& lines, const Rows& rows) const {
    if (lines.size() != rows.size()) context_.platform.messages.show("Invalid selection");
    return lines.size() == rows.size();
}

// Renames all at once, so that selected items can swap their names.
void BulkPaste::applyNames(const Lines& lines, const Rows& rows) {
    std::vector<ItemRenaming> renamings;
    Rows renamed;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!passes(forbiddenCharacter(lines[i]), context_.platform.messages)) continue;
        renamings.push_back({context_.list.rows().at(rows[i]).key, lines[i]});
        renamed.push_back(rows[i]);
    }
    {
        const StructureTree::Batch batch(context_.tree());
        context_.configuration.renameItems(renamings);
    }
    std::optional<ErrorNumber> failure;
    bool anyRenamed = false;
    for (std::size_t i = 0; i < renamings.size(); ++i) {
        if (renamings[i].failure) {
            if (!failure) failure = renamings[i].failure;
            continue;
        }
        anyRenamed = true;
        context_.list.setKey(renamed[i], renamings[i].newKey);
        context_.list.setCell(renamed[i], 0, renamings[i].name);
    }
    // A paste that ends without an error counts as an edit, even where every line was refused.
    if (anyRenamed || !failure) context_.configuration.setSaved(false);
    if (failure) throw RuntimeError(*failure);
}

void BulkPaste::mnuPasteComment_Click() {
    context_.guarded("mnuPasteComment_Click", [&] {
        const std::optional<Lines> lines = pastedLines();
        if (!lines) return;
        const Rows rows = context_.list.selectedRows();
        if (!fits(*lines, rows)) return;
        const std::size_t address = columnOf("Address");
        std::vector<Lines> cells{{"Item comment", "", "New Item comment", "Item"}};
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const ListRow& row = context_.list.rows().at(rows[i]);
            cells.push_back({context_.configuration.items.at(row.key)->sComment(), "<---", (*lines)[i],
                             row.text + ", " + std::string(context_.list.cell(rows[i], address))});
        }
        if (!showFrmReplace(context_.platform.forms, cells, inAddressOrder(rows))) return;
        context_.configuration.setSaved(false);
        applyComments(*lines, rows);
    });
}

void BulkPaste::applyComments(const Lines& lines, const Rows& rows) {
    const std::size_t comment = columnOf("Comment");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        context_.configuration.setComment(context_.list.rows().at(rows[i]).key, lines[i]);
        context_.list.setCell(rows[i], comment, lines[i]);
    }
}

}  // namespace trevandix
