#pragma once

#include <wx/cursor.h>

#include "platform/Messages.h"
#include "platform/Services.h"

namespace trevandix {

/// The system's message boxes, in front of the window that is active.
class WxMessages : public Messages {
public:
    Answer show(std::string_view text, Buttons buttons, Icon icon) override;
};

/// The system's file dialogs. A filter is a description, "|" and a pattern such as "*.xml".
class WxFileDialog : public FileDialog {
public:
    std::optional<std::string> open(std::string_view title, std::string_view filter) override;
    /// Asks nothing about a file that exists. A name typed without extension gets the pattern's.
    std::optional<std::string> save(std::string_view title, std::string_view filter,
                                    std::string_view proposedName) override;
};

/// The system's clipboard. Empty when it holds no text or another program keeps it locked.
class WxClipboard : public Clipboard {
public:
    std::string text() override;
};

/// The mouse pointer of the whole program.
class WxPointer : public MousePointer {
public:
    ~WxPointer() override;

    /// `Default` ends every shape set before.
    void set(Pointer pointer) override;

    /// What the pointer shows while a node is dragged.
    enum class Drag { Move, Copy, Refused };
    /// Covers whatever has been set until `endDrag`.
    void showDrag(Drag drag);
    void endDrag();

private:
    void show();

    Pointer pointer_ = Pointer::Default;
    wxCursor dragCursor_;
    bool busy_ = false;
};

}  // namespace trevandix
