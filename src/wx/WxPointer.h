#pragma once

#include <wx/cursor.h>

#include "platform/Services.h"

namespace trevandix {

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
