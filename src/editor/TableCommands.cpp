#include "editor/TableCommands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <utility>

#include "check/Wording.h"
#include "editor/WorkProgress.h"
#include "editor/frmChanges.h"
#include "platform/FileAccess.h"
#include "platform/SafeFile.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kImportFilter = "tables |*.csv;*.txt;*.tsv";
constexpr std::string_view kExportFilter = "tables |*.csv";

struct Noun {
    std::string_view one, many, inFileName;
};

Noun nounOf(NodeTag kind) {
    if (kind == NodeTag::Item) return {"item", "items", "items"};
    return kind == NodeTag::Plc ? Noun{"unit", "units", "units"}
                                : Noun{"data type", "data types", "data-types"};
}

NodeTag kindBelow(const TreeNode& node) {
    return node.tag() == NodeTag::ModBus || node.tag() == NodeTag::DataType ? NodeTag::DataType
                                                                            : NodeTag::Item;
}

std::string extensionOf(std::string_view filePath) {
    return upperCased(toUtf8(fromUtf8(filePath).extension()));
}

std::string unknownColumns(const Table& table) {
    if (table.unknownColumns.empty()) return {};
    std::string text = "Unknown columns, which are ignored: ";
    for (std::size_t i = 0; i < table.unknownColumns.size(); ++i)
        text.append(i == 0 ? "" : ", ").append(trevandix::quoted(table.unknownColumns[i]));
    return text;
}

}  // namespace

bool TableCommands::isTableFile(std::string_view filePath) {
    constexpr std::array<std::string_view, 3> kExtensions{".CSV", ".TXT", ".TSV"};
    return std::ranges::find(kExtensions, extensionOf(filePath)) != kExtensions.end();
}

std::vector<ContextEntry> TableCommands::contextEntries() const {
    const bool some = open() && context_.tree().selected() != nullptr;
    return {{"mnuCopyTable", "Copy as Table", some},
            {"mnuPasteTable", "Paste Table...", open()},
            {"mnuExportTable", "Export Table...", some},
            {"mnuImportTable", "Import Table...", open()}};
}

TableCommands::Export TableCommands::selected() const {
    std::vector<const TreeNode*> tops;
    if (context_.platform.window.focusedView() == FocusedView::List) {
        for (const std::size_t row : context_.list.selectedRows())
            tops.push_back(&context_.tree().at(context_.list.rows().at(row).key));
    }
    if (tops.empty()) {
        tops.push_back(context_.tree().selected());
        return {kindBelow(*tops.front()),
                exportTable(context_.configuration, kindBelow(*tops.front()), tops)};
    }
    const NodeTag kind = tops.front()->tag();
    return {kind, exportTable(context_.configuration, kind, tops)};
}

void TableCommands::mnuCopyTable_Click() {
    context_.guarded("mnuCopyTable_Click", [&] {
        if (!open() || context_.tree().selected() == nullptr) return;
        const PointerScope hourglass(context_.platform.pointer, Pointer::Hourglass);
        const Export table = selected();
        const Noun noun = nounOf(table.kind);
        const bool copied = context_.platform.clipboard.setText(csvText(table.rows, Separator::Tab));
        context_.news.tell(copied ? counted(table.rows.size() - 1, noun.one, noun.many) + " copied as a table"
                                  : "Not copied: another program uses the clipboard");
    });
}

void TableCommands::mnuExportTable_Click() {
    context_.guarded("mnuExportTable_Click", [&] {
        if (!open() || context_.tree().selected() == nullptr) return;
        const Export table = selected();
        const Noun noun = nounOf(table.kind);
        const auto plant = fromUtf8(context_.state().filePath).stem();
        const auto path = context_.platform.fileDialog.save(
            "Export table", kExportFilter, toUtf8(plant) + "-" + std::string(noun.inFileName) + ".csv");
        if (!path || path->empty()) return;
        Messages& messages = context_.platform.messages;
        if (fileExists(*path) && !messages.confirms("File " + *path + " already existing. Overwrite?"))
            return;
        const PointerScope hourglass(context_.platform.pointer, Pointer::Hourglass);
        const Separator separator = extensionOf(*path) == ".CSV" ? Separator::Comma : Separator::Tab;
        const std::string bytes = csvFile(table.rows, separator);
        SafeFile().replace(*path, [&](OutputFile& file) { file.write(bytes); });
        context_.news.tell(counted(table.rows.size() - 1, noun.one, noun.many) + " exported to " + *path);
    });
}

void TableCommands::mnuPasteTable_Click() {
    context_.guarded("mnuPasteTable_Click", [&] {
        if (!open()) return;
        const std::string text = context_.platform.clipboard.text();
        if (text.empty()) return void(context_.platform.messages.show("Empty clipboard !"));
        import("Paste Table", "Clipboard", text);
    });
}

void TableCommands::mnuImportTable_Click() {
    context_.guarded("mnuImportTable_Click", [&] {
        if (!open()) return;
        const auto path = context_.platform.fileDialog.open("Import table", kImportFilter);
        if (path && !path->empty()) import("Import Table", *path, readWholeFile(*path));
    });
}

void TableCommands::importFile(const std::string& filePath) {
    context_.guarded("mnuImportTable_Click", [&] {
        if (open()) return import("Import Table", filePath, readWholeFile(filePath));
        context_.platform.messages.show("Open a configuration before you import " + filePath + ".");
    });
}

// Says what is wrong with the text and where, as one message.
bool TableCommands::read(const std::string& source, const std::string& bytes, Table& table) const {
    try {
        table = readTable(bytes);
        return true;
    } catch (const RuntimeError& error) {
        if (error.number() != ErrorNumber::TableFormat) throw;
        context_.platform.messages.show(source + ": " + error.what());
        return false;
    }
}

void TableCommands::import(std::string_view caption, const std::string& source, const std::string& bytes) {
    std::optional<ChangeSet> changes;
    std::string note;
    NodeTag kind{};
    {
        ChangeWork work(context_.platform, "Reading Table ....");
        Table table{};
        if (!read(source, bytes, table)) return;
        changes.emplace(context_.configuration, table, work.progress());
        changes->remarkFindings(work.progress());
        note = unknownColumns(table);
        kind = table.kind;
    }
    const Noun noun = nounOf(kind);
    if (!confirmChanges(context_.platform.forms, {caption, changes->changes(), noun.one, noun.many, note}))
        return context_.news.tell("Nothing changed");
    apply(*changes);
}

void TableCommands::apply(const ChangeSet& changes) {
    {
        ChangeWork work(context_.platform, "Applying Changes ....");
        const StructureTree::Batch batch(context_.tree());
        const std::vector<const TreeNode*> rows = views_.nodesOfRows();
        changes.apply(context_.configuration, work.progress());
        views_.showAgain(rows);
    }
    context_.news.tell("Done: " + std::string(context_.configuration.undoName()) + ". Ctrl+Z undoes it");
}

}  // namespace trevandix
