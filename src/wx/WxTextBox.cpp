#include "wx/WxTextBox.h"

#include <algorithm>
#include <utility>

#include "wx/WxText.h"

namespace trevandix {

WxTextBox::WxTextBox(wxWindow& window, wxTextEntry& entry, KeyFilter filter)
    : window_(window), entry_(entry), filter_(filter) {
    window.Bind(wxEVT_TEXT, &WxTextBox::onText, this);
    window.Bind(wxEVT_CHAR, &WxTextBox::onChar, this);
    window.Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        event.Skip();
        finishKey();
    });
#ifdef __WXMSW__
    // The system itself hides the selection of a text box without the keyboard.
    if (dynamic_cast<wxTextCtrl*>(&window) != nullptr) return;
#endif
    window.Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        entry_.SelectNone();
    });
}

std::string WxTextBox::text() const {
    return stored_.text(fromWx(entry_.GetValue()));
}

void WxTextBox::setText(std::string_view text) {
    entry_.ChangeValue(toWx(BoxText::oneLine(text)));
    before_ = entry_.GetValue();
    stored_.set(text, fromWx(before_));
}

void WxTextBox::onChar(wxKeyEvent& event) {
    const wxChar character = event.GetUnicodeKey();
    const bool writes = character >= ' ' && character != WXK_DELETE;
    const int modifiers = event.GetModifiers() & (wxMOD_CONTROL | wxMOD_ALT);
    const bool command = modifiers == wxMOD_CONTROL || modifiers == wxMOD_ALT;  // both together type as AltGr
    const bool refused = writes && !command && !keeps(filter_, static_cast<char32_t>(character));
    event.Skip(!refused);
    if (!refused) return;
    refused_ = true;
    window_.CallAfter([this] { finishKey(); });
}

// GTK deletes the selection also for a character that is refused.
void WxTextBox::finishKey() {
    if (refused_ && erased_) put(*erased_);
    refused_ = false;
    erased_.reset();
}

void WxTextBox::put(const Marked& marked) {
    before_ = marked.text;
    entry_.ChangeValue(marked.text);
    entry_.SetSelection(marked.from, marked.to);
}

void WxTextBox::onText(wxCommandEvent& event) {
    event.Skip();
    const wxString before = std::exchange(before_, entry_.GetValue());
    const wxString& after = before_;
    const std::size_t shorter = std::min(before.length(), after.length());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.length() - 1 - tail] == after[after.length() - 1 - tail])
        ++tail;
    const wxString inserted = after.Mid(head, after.length() - head - tail);
    if (inserted.empty()) {
        erased_ = Marked{before, static_cast<long>(head), static_cast<long>(before.length() - tail)};
        window_.CallAfter([this] { finishKey(); });
        return;
    }
    const wxString kept = toWx(entered(filter_, fromWx(inserted)));
    if (kept == inserted) return;
    const long end = static_cast<long>(head + kept.length());
    Marked result{after.Left(head) + kept + after.Right(tail), end, end};
    if (kept.empty()) result = {before, static_cast<long>(head), static_cast<long>(before.length() - tail)};
    put(result);
    // The toolkit places the caret once more when a paste is complete.
    window_.CallAfter([this, result] { entry_.SetSelection(result.from, result.to); });
}

}  // namespace trevandix
