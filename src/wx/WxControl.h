#pragma once

#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/window.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/AccessKeys.h"
#include "platform/Form.h"

namespace trevandix {

/// Filters what the user types, pastes or drops into a text box or an editable list with `entered`. Input of
/// which nothing is left changes neither text nor selection.
class WxTextBox {
public:
    /// `window` and `entry` are the same control; it must not raise events once this is gone.
    WxTextBox(wxWindow& window, wxTextEntry& entry, KeyFilter filter);

    std::string text() const;
    /// What the program itself puts there is not filtered.
    void setText(std::string_view text);

private:
    /// A text with what is selected in it.
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
    std::optional<Marked> erased_;  ///< what the present key has deleted
    bool refused_ = false;          ///< the present key writes a character that is discarded
};

/// One control of a form on the screen, with its label.
struct WxControl {
    const ControlSpec* shape = nullptr;
    wxWindow* window = nullptr;        ///< owned by the dialog
    wxStaticText* label = nullptr;     ///< in front of a field that has a caption
    std::string caption;               ///< as shown, without access key
    Form::Handler handler;             ///< what the user's action runs; may be empty
    std::unique_ptr<WxTextBox> box;    ///< of a text box and of a list that takes typed text
    std::vector<std::string> entries;  ///< of a list

    /// Makes the control and what stands in front of it as children of `parent`, in this order.
    static WxControl make(wxWindow& parent, const ControlSpec& shape, bool startsGroup, AccessKeys& keys);

    bool isList() const;
    /// A text box or a list.
    bool isField() const;
    /// The list hangs open, so that Enter and Escape belong to it.
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
