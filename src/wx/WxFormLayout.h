#pragma once

#include <wx/gbsizer.h>
#include <wx/sizer.h>

#include <deque>

#include "wx/WxControl.h"

namespace trevandix {

/// Turns a form's table into controls in their places: labels in one column, fields in the next, buttons in a
/// row at the bottom or in a column on the right.
class WxFormLayout {
public:
    /// The controls are appended to `controls`, which keeps their addresses.
    WxFormLayout(const FormSpec& shape, std::deque<WxControl>& controls, AccessKeys& keys)
        : spec_(shape), controls_(controls), keys_(keys) {}

    /// Fills a dialog.
    void build(wxWindow& dialog);

private:
    /// What is being filled: the form itself or one frame.
    struct Area {
        wxWindow& parent;
        wxGridBagSizer* grid;
        wxSizer* buttonColumn = nullptr;
        wxSizer* buttonRow = nullptr;
        wxSizer* cell = nullptr;  ///< of the current row
        int row = -1;
        bool hasOptions = false;
    };

    wxSizer* fill(wxWindow& parent, std::string_view frame);
    void add(Area& area, const ControlSpec& shape, const ControlSpec* next);
    void addFrame(Area& area, const ControlSpec& shape);
    void startRow(Area& area, WxControl& control, const ControlSpec* next);
    const ControlSpec* nextIn(std::string_view frame, const ControlSpec* after) const;
    void nameGrid(wxWindow& grid, const ControlSpec& shape);
    static bool fillsWidth(ControlKind kind);

    const FormSpec& spec_;
    std::deque<WxControl>& controls_;
    AccessKeys& keys_;
};

}  // namespace trevandix
