#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/EditorContext.h"

namespace trevandix {

/// Splits a text at each CR LF, or at each LF if it has no CR LF, and removes the blanks at both ends of each
/// line. A line end at the end of the text adds no line.
std::vector<std::string> clipboardLines(std::string_view text);

/// Gives the selected items the lines of the clipboard as names or comments, in the order of the list, after
/// showing old and new texts and asking for confirmation. Changes nothing if there are not as many lines as
/// items, or if an item beside them has one of the names.
class BulkPaste {
public:
    explicit BulkPaste(const EditorContext& context) : context_(context) {}

    void mnuPasteName_Click();
    void mnuPasteComment_Click();

private:
    using Rows = std::vector<std::size_t>;
    using Lines = std::vector<std::string>;
    /// The clipboard's lines. Shows a message and returns nothing when the clipboard is empty.
    std::optional<Lines> pastedLines() const;
    bool clashes(const Lines& lines, const Rows& rows) const;
    bool inAddressOrder(const Rows& rows) const;
    void addRemarks(std::vector<Lines>& cells, const Lines& lines, const Rows& rows) const;
    bool fits(const Lines& lines, const Rows& rows) const;
    void applyNames(const Lines& lines, const Rows& rows);
    void applyComments(const Lines& lines, const Rows& rows);

    const EditorContext& context_;
};

}  // namespace trevandix
