#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/EditorContext.h"

namespace trevandix {

/// A text as the lines that it stands for: cut at each CR LF, or at each LF where there is no CR LF at all,
/// and freed of blanks at both ends. A line end at the very end adds no line.
std::vector<std::string> clipboardLines(std::string_view text);

/// Gives the lines of the clipboard's text to the selected items, as names or as comments, after showing old
/// and new side by side, and the address of each. Refuses before anything has changed.
class BulkPaste {
public:
    explicit BulkPaste(const EditorContext& context) : context_(context) {}

    void mnuPasteName_Click();
    void mnuPasteComment_Click();

private:
    using Rows = std::vector<std::size_t>;
    using Lines = std::vector<std::string>;
    /// The clipboard's lines; nothing, after a message, when it is empty.
    std::optional<Lines> pastedLines() const;
    bool clashes(const Lines& lines, const Rows& rows) const;
    bool inAddressOrder(const Rows& rows) const;
    bool fits(const Lines& lines, const Rows& rows) const;
    void applyNames(const Lines& lines, const Rows& rows);
    void applyComments(const Lines& lines, const Rows& rows);

    const EditorContext& context_;
};

}  // namespace trevandix
