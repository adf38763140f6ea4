#pragma once

#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Form.h"

namespace trevandix {

/// Runs a copy of the handler, which may delete the form and thereby itself.
inline void runCopy(Form::Handler handler) {
    if (handler) handler();
}

/// Filters what the user types, pastes or drops into a text box or editable list, using `entered`. Input that
/// the filter discards completely changes neither text nor selection.
class WxTextBox {
public:
    /// `window` and `entry` are the same control. It must not send events after this object is destroyed.
    WxTextBox(wxWindow& window, wxTextEntry& entry, KeyFilter filter);

    std::string text() const;
    /// Sets a text without filtering it.
    void setText(std::string_view text);

private:
    /// A text and its selection.
    struct Marked {
        wxString text;
        long from;
        long to;
    };
    void onChar(wxKeyEvent& event);
    void onText(wxCommandEvent& event);
    void put(const Marked& marked);
    void finishKey();

    wxWindow& window_;
    wxTextEntry& entry_;
    KeyFilter filter_;
    BoxText stored_;
    wxString before_;
    std::optional<Marked> erased_;  ///< what the current key has deleted
    bool refused_ = false;          ///< the current key types a character that is discarded
};

/// A control of a form and its label.
struct WxControl {
    const ControlSpec* shape = nullptr;
    wxWindow* window = nullptr;        ///< owned by the dialog
    wxStaticText* label = nullptr;     ///< of a field with a caption, else nullptr
    std::string caption;               ///< as shown, without the access key
    Form::Handler handler;             ///< runs on the user's action; may be empty
    std::unique_ptr<WxTextBox> box;    ///< of a text box or editable list
    std::vector<std::string> entries;  ///< of a list

    /// Creates the label and then the control as children of `parent`.
    static WxControl make(wxWindow& parent, const ControlSpec& shape, bool startsGroup, AccessKeys& keys);

    bool isList() const;
    /// True for a text box or a list.
    bool isField() const;
    /// True while the drop-down is open, which then handles Enter and Escape.
    bool listIsOpen() const;
    std::string text() const;
    void setText(std::string_view text, AccessKeys& keys);
    void setItems(const std::vector<std::string>& items);
    bool checked() const;
    void setChecked(bool checked);
    void setCells(const std::vector<std::vector<std::string>>& rows);
    void focus();
};

}  // namespace trevandix
