#pragma once

#include <wx/dialog.h>
#include <wx/weakref.h>

#include <deque>
#include <optional>

#include "wx/WxControl.h"
#include "wx/WxFormKeys.h"

namespace trevandix {

class WxFormList;
class WxMapArea;

/// A form, shown as a dialog of the main window, or if modal, of the active one.
class WxForm : public Form {
public:
    /// `shape` must outlive the form; `main` need not.
    WxForm(wxTopLevelWindow& main, const FormSpec& shape);
    ~WxForm() override;

    std::string text(std::string_view name) const override;
    void setText(std::string_view name, std::string_view text) override;
    void setItems(std::string_view name, const std::vector<std::string>& items) override;
    std::vector<std::string> items(std::string_view name) const override;
    /// The control's own state, even while its frame is disabled.
    bool enabled(std::string_view name) const override;
    void setEnabled(std::string_view name, bool enabled) override;
    bool visible(std::string_view name) const override;
    void setVisible(std::string_view name, bool visible) override;
    bool checked(std::string_view name) const override;
    void setChecked(std::string_view name, bool checked) override;
    void setFocus(std::string_view name) override;
    void setCells(std::string_view name, const std::vector<std::vector<std::string>>& rows) override;
    void connectList(std::string_view name, const ListContents& contents, ListHandlers handlers) override;
    void refreshList(std::string_view name, const ListPlace& place) override;
    ListPlace listPlace(std::string_view name) const override;
    void connectMap(std::string_view name, const MapContents& contents, MapHandlers handlers) override;
    void refreshMap(std::string_view name) override;
    void on(std::string_view name, Handler handler) override;
    void onClosed(Handler handler) override { closed_ = std::move(handler); }
    void onActivated(Handler handler) override { activated_ = std::move(handler); }
    void showModal() override;
    void showModeless() override;
    void close() override;

private:
    /// What a name refers to: a control with its label, or only the label.
    struct Target {
        WxControl* control;
        bool labelOnly;
    };
    Target find(std::string_view name) const;
    WxControl& at(std::string_view name) const;
    static void connect(WxControl& control);
    void tellActivated();
    void onKey(wxKeyEvent& event);
    WxFormList& listAt(std::string_view name) const;
    WxMapArea& mapAt(std::string_view name) const;
    void fit();
    wxPoint firstPlace() const;
    void place();
    wxSize firstSize() const;
    void prepare();

    const FormSpec& spec_;
    wxTopLevelWindow& main_;
    wxWeakRef<wxDialog> dialog_;  // the main window deletes it when it closes first
    AccessKeys keys_;
    mutable std::deque<WxControl> controls_;
    std::optional<WxFormKeys> keyboard_;
    Handler closed_;
    Handler activated_;
    bool activationWaits_ = false;
    bool shown_ = false;
    bool placed_ = false;  ///< has been shown before
};

/// Creates the forms of the main window.
class WxForms : public Forms {
public:
    /// `main` must outlive this object, but not the forms.
    explicit WxForms(wxTopLevelWindow& main) : main_(main) {}
    std::unique_ptr<Form> create(const FormSpec& shape) override;

private:
    wxTopLevelWindow& main_;
};

}  // namespace trevandix
