#include "platform/wx/WxTextBox.h"

#include <algorithm>

#include "platform/wx/WxText.h"

namespace trevandix {

WxTextBox::WxTextBox(wxWindow* parent, KeyFilter filter) : wxTextCtrl(parent, wxID_ANY), filter_(filter) {
    if (filter == KeyFilter::None) return;
    Bind(wxEVT_CHAR, &WxTextBox::onChar, this);
    Bind(wxEVT_TEXT, &WxTextBox::onText, this);
}

void WxTextBox::setText(const wxString& text) {
    before_ = text;
    ChangeValue(text);
}

void WxTextBox::onChar(wxKeyEvent& event) {
    const wxChar character = event.GetUnicodeKey();
    const bool writes = character >= ' ' && character != WXK_DELETE;
    const int modifiers = event.GetModifiers() & (wxMOD_CONTROL | wxMOD_ALT);
    const bool command = modifiers == wxMOD_CONTROL || modifiers == wxMOD_ALT;  // both together type as AltGr
    event.Skip(!writes || command || keeps(filter_, static_cast<char32_t>(character)));
}

void WxTextBox::onText(wxCommandEvent& event) {
    event.Skip();
    const wxString after = GetValue();
    const Outcome outcome = applied(filter_, before_, after);
    before_ = outcome.text;
    if (outcome.text == after) return;
    ChangeValue(outcome.text);
    SetInsertionPoint(outcome.caret);
    // The toolkit places the caret once more when a paste is complete.
    CallAfter([this, caret = outcome.caret] { SetInsertionPoint(caret); });
}

WxTextBox::Outcome WxTextBox::applied(KeyFilter filter, const wxString& before, const wxString& after) {
    const std::size_t shorter = std::min(before.length(), after.length());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) ++head;
    std::size_t tail = 0;
    while (tail < shorter - head && before[before.length() - 1 - tail] == after[after.length() - 1 - tail])
        ++tail;
    const wxString inserted = after.Mid(head, after.length() - head - tail);
    const wxString kept = toWx(filtered(filter, fromWx(inserted)));
    return {after.Left(head) + kept + after.Right(tail), static_cast<long>(head + kept.length())};
}

}  // namespace trevandix
