#pragma once

#include <wx/cursor.h>
#include <wx/filedlg.h>

#include "platform/Services.h"

namespace trevandix {

/// The system's message boxes, in front of the active window.
class WxMessages : public Messages {
public:
    Answer show(std::string_view text, Buttons buttons, Icon icon) override;
};

/// The system's file dialogs. They begin in the folder that was used last: Windows remembers it, GTK does
/// not. A filter is a description, "|" and a pattern such as "*.xml".
class WxFileDialog : public FileDialog {
public:
    std::optional<std::string> open(std::string_view title, std::string_view filter) override;
    /// Does not ask before replacing a file. Adds the pattern's extension to a name without one.
    std::optional<std::string> save(std::string_view title, std::string_view filter,
                                    std::string_view proposedName) override;

private:
    std::optional<std::string> choose(wxFileDialog& dialog);

    wxString folder_;
};

/// The system's clipboard. While another program has locked it, it holds no text and takes none.
class WxClipboard : public Clipboard {
public:
    std::string text() override;
    bool setText(std::string_view text) override;
};

/// The mouse pointer of the whole program.
class WxPointer : public MousePointer {
public:
    ~WxPointer() override;

    /// `Default` ends any shape set before.
    void set(Pointer pointer) override;

    /// Pointer shapes while a node is dragged.
    enum class Drag { Move, Copy, Refused };
    /// Overrides the shape set by `set` until `endDrag`.
    void showDrag(Drag drag);
    void endDrag();

private:
    void show();

    Pointer pointer_ = Pointer::Default;
    wxCursor dragCursor_;
    bool busy_ = false;
};

}  // namespace trevandix
