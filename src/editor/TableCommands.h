#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"
#include "table/ChangeSet.h"

namespace trevandix {

/// Tables for spreadsheets: copied or exported from the selected rows of the list if it has the focus, else
/// from everything at and below the selected node; pasted or imported after a preview.
class TableCommands {
public:
    TableCommands(const EditorContext& context, TreeAndList& views) : context_(context), views_(views) {}

    void mnuCopyTable_Click();
    void mnuPasteTable_Click();
    void mnuExportTable_Click();
    void mnuImportTable_Click();
    /// As if the file had been chosen in Import Table.
    void importFile(const std::string& filePath);
    /// Whether the name ends as those of tables do.
    static bool isTableFile(std::string_view filePath);

    std::vector<ContextEntry> contextEntries() const;

private:
    /// The rows with their header, and of what kind of objects they are.
    struct Export {
        NodeTag kind;
        std::vector<Cells> rows;
    };
    Export selected() const;
    bool open() const { return context_.state().configurationOpen && context_.tree().root() != nullptr; }
    void import(std::string_view caption, const std::string& source, const std::string& bytes);
    bool read(const std::string& source, const std::string& bytes, Table& table) const;
    void apply(const ChangeSet& changes);

    const EditorContext& context_;
    TreeAndList& views_;
};

}  // namespace trevandix
