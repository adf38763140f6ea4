#pragma once

#include <wx/panel.h>

#include <functional>

#include "platform/ListView.h"
#include "wx/WxInputGate.h"
#include "wx/WxListControls.h"

namespace trevandix {

/// The main window's list, `ListView1`: one control for report mode and one for the other modes; only the one
/// in use is visible.
class WxListView : public wxPanel, public ListDisplay {
public:
    using OpenMenu = std::function<void(wxWindow&, const wxPoint&)>;

    /// `list` and `gate` must outlive the view.
    WxListView(wxWindow* parent, ListView& list, WxInputGate& gate, OpenMenu openMenu);
    ~WxListView() override;

    void contentsChanged(bool columns, const std::optional<ListPlace>& place) override;
    ListPlace place() const override;
    void rowChanged(std::size_t row) override;
    void setVisible(bool visible) override;
    std::vector<std::size_t> selectedRows() const override;
    std::optional<std::size_t> currentRow() const override;
    void selectAll() override;

    /// True when the list is visible and can take the focus.
    bool usable() const;
    void focus() { shown_->SetFocus(); }
    /// Takes the focus and reports a click, as if the user had clicked the current row.
    void takeKeyboard() {
        focus();
        click();
    }

private:
    void watch(wxListCtrl& control);
    void watchRows(wxWindow& rows);
    void showFitting();
    void restore(const ListPlace& place);
    void click();
    void doubleClick();
    void onRightDown(wxMouseEvent& event);
    void onContextMenu(wxContextMenuEvent& event);
    void onKey(wxKeyEvent& event);
    bool beside(const wxPoint& point) const;

    ListView& list_;
    WxInputGate& gate_;
    OpenMenu openMenu_;
    WxReportList* report_;
    WxIconList* icons_ = nullptr;  // created on first use
    wxListCtrl* shown_;
    int quiet_ = 0;
};

}  // namespace trevandix
