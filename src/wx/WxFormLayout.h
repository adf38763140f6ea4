#pragma once

#include <wx/gbsizer.h>
#include <wx/sizer.h>

#include <deque>

#include "wx/WxControl.h"

namespace trevandix {

/// Creates the controls of a form from its table and places them: labels in one column, fields in the next,
/// buttons in a row at the bottom or in a column on the right.
class WxFormLayout {
public:
    /// Appends the controls to `controls`, whose elements must keep their addresses.
    WxFormLayout(const FormSpec& shape, std::deque<WxControl>& controls, AccessKeys& keys)
        : spec_(shape), controls_(controls), keys_(keys) {}

    /// Creates all controls in the dialog.
    void build(wxWindow& dialog);

private:
    /// The form itself or one frame, while it is being filled.
    struct Area {
        wxWindow& parent;
        wxGridBagSizer* grid;
        wxSizer* buttonColumn = nullptr;
        wxSizer* buttonRow = nullptr;
        wxSizer* cell = nullptr;  ///< sizer of the current row
        int row = -1;
        bool hasOptions = false;
    };

    wxSizer* fill(wxWindow& parent, std::string_view frame);
    void add(Area& area, const ControlSpec& shape, const ControlSpec* next);
    void addFrame(Area& area, const ControlSpec& shape);
    void startRow(Area& area, WxControl& control, const ControlSpec* next);
    const ControlSpec* nextIn(std::string_view frame, const ControlSpec* after) const;
    void nameGrid(wxWindow& grid, const ControlSpec& shape);
    static bool fillsArea(ControlKind kind);
    static bool fillsWidth(ControlKind kind);

    const FormSpec& spec_;
    std::deque<WxControl>& controls_;
    AccessKeys& keys_;
};

}  // namespace trevandix
