#include "wx/WxControl.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/combobox.h>
#include <wx/radiobut.h>
#include <wx/statbox.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include <algorithm>
#include <utility>

#include "wx/WxBasics.h"
#include "wx/WxColumns.h"
#include "wx/WxFormList.h"
#include "wx/WxMap.h"
#include "wx/WxNative.h"

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
    // Windows hides the selection of a text box without focus itself.
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
    // Both together are AltGr, which types a character.
    const bool command = modifiers == wxMOD_CONTROL || modifiers == wxMOD_ALT;
    const bool refused = writes && !command && !keeps(filter_, static_cast<char32_t>(character));
    event.Skip(!refused);
    if (!refused) return;
    refused_ = true;
    window_.CallAfter([this] { finishKey(); });
}

// GTK deletes the selected text even when the typed character is refused, so it is restored here.
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
    // wx moves the caret again after a paste.
    window_.CallAfter([this, result] { entry_.SetSelection(result.from, result.to); });
}

namespace {

constexpr int kFieldPadding = 10;  // above and below the text together
constexpr int kNoteLines = 3;

// Some toolkits do not grow their fields with the font.
void setSize(wxControl& field, int columns) {
    const int text = field.GetCharWidth() * columns;
    const int height = field.GetCharHeight() + field.FromDIP(kFieldPadding);
    field.SetMinSize(wxSize(field.GetSizeFromTextSize(text).GetWidth(),
                            std::max(height, field.GetBestSize().GetHeight())));
}

template <typename Field>
Field* makeField(wxWindow& parent, const ControlSpec& shape) {
    auto* field = new Field(&parent, wxID_ANY);
    setSize(*field, shape.columns);
    return field;
}

wxWindow* makeNote(wxWindow& parent) {
    auto* note = new wxTextCtrl(&parent, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize,
                                wxTE_MULTILINE | wxTE_READONLY);
    note->SetMinSize(wxSize(-1, kNoteLines * note->GetCharHeight() + note->FromDIP(kFieldPadding)));
    return note;
}

wxWindow* makeWindow(wxWindow& parent, const ControlSpec& shape, const wxString& caption, bool startsGroup) {
    switch (shape.kind) {
        case ControlKind::Heading:
            return new wxStaticText(&parent, wxID_ANY, caption);
        case ControlKind::Text:
            return makeField<wxTextCtrl>(parent, shape);
        case ControlKind::Choice:
            return makeField<wxChoice>(parent, shape);
        case ControlKind::Combo:
            return makeField<wxComboBox>(parent, shape);
        case ControlKind::Check:
            return new wxCheckBox(&parent, wxID_ANY, caption);
        case ControlKind::Option:
            return new wxRadioButton(&parent, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize,
                                     startsGroup ? wxRB_GROUP : 0);
        case ControlKind::Button:
            return new wxButton(&parent, wxID_ANY, caption);
        case ControlKind::Frame:
            return new wxStaticBox(&parent, wxID_ANY, caption);
        case ControlKind::Grid:
            return new WxGrid(&parent);
        case ControlKind::List:
            return new WxFormList(&parent);
        case ControlKind::Map:
            return new WxMap(&parent);
        case ControlKind::Note:
            return makeNote(parent);
    }
    return nullptr;
}

bool takesAccessKey(ControlKind kind) {
    return kind != ControlKind::Heading && kind != ControlKind::Frame && kind != ControlKind::Grid &&
           kind != ControlKind::List && kind != ControlKind::Map && kind != ControlKind::Note;
}

}  // namespace

WxControl WxControl::make(wxWindow& parent, const ControlSpec& shape, bool startsGroup, AccessKeys& keys) {
    WxControl control;
    control.shape = &shape;
    wxString caption = toWx(shape.caption);
    control.caption = fromWx(wxControl::RemoveMnemonics(caption));
    if (takesAccessKey(shape.kind)) caption = toWx(keys.marked(shape.caption));
    if (control.isField() && !caption.empty()) {
        control.label = new wxStaticText(&parent, wxID_ANY, caption);
        if (!shape.labelName.empty()) control.label->SetName(toWx(shape.labelName));
    }
    control.window = makeWindow(parent, shape, caption, startsGroup);
    control.window->SetName(toWx(shape.name));
    if (auto* entry = dynamic_cast<wxTextEntry*>(control.window))
        control.box = std::make_unique<WxTextBox>(*control.window, *entry, shape.filter);
    const bool ownName =
        !control.isField() && shape.kind != ControlKind::Grid && shape.kind != ControlKind::Note;
    setAccessibleName(*control.window, ownName ? wxString() : toWx(control.caption), toWx(shape.description));
    return control;
}

bool WxControl::isList() const {
    return shape->kind == ControlKind::Choice || shape->kind == ControlKind::Combo;
}

bool WxControl::isField() const {
    return shape->kind == ControlKind::Text || isList();
}

bool WxControl::listIsOpen() const {
#ifdef __WXMSW__
    return isList() && ::SendMessage(static_cast<HWND>(window->GetHandle()), CB_GETDROPPEDSTATE, 0, 0) != 0;
#else
    return false;  // an open list handles these keys itself
#endif
}

std::string WxControl::text() const {
    if (box != nullptr) return box->text();
    if (shape->kind != ControlKind::Choice) return caption;
    const int chosen = static_cast<wxChoice*>(window)->GetSelection();
    return chosen == wxNOT_FOUND ? std::string() : entries[static_cast<std::size_t>(chosen)];
}

void WxControl::setText(std::string_view text, AccessKeys& keys) {
    if (box != nullptr) {
        box->setText(text);
    } else if (shape->kind == ControlKind::Choice) {
        const auto entry = std::ranges::find(entries, text);
        static_cast<wxChoice*>(window)->SetSelection(
            entry == entries.end() ? wxNOT_FOUND : static_cast<int>(entry - entries.begin()));
    } else if (shape->kind == ControlKind::Heading) {
        caption = text;
        static_cast<wxStaticText*>(window)->SetLabelText(toWx(text));
    } else {
        const wxString value = toWx(text);
        caption = fromWx(wxControl::RemoveMnemonics(value));
        window->SetLabel(takesAccessKey(shape->kind)
                             ? toWx(keys.marked(text, AccessKeys::keyOf(fromWx(window->GetLabel()))))
                             : value);
    }
}

void WxControl::setItems(const std::vector<std::string>& items) {
    if (!isList()) return;
    entries = items;
    auto* list = static_cast<wxChoice*>(window);
    wxArrayString texts;
    int widest = 0;
    for (const std::string& item : items) {
        texts.push_back(toWx(BoxText::oneLine(item)));
        widest = std::max(widest, list->GetTextExtent(texts.back()).GetWidth());
    }
    list->Set(texts);
    list->SetSelection(wxNOT_FOUND);
    const int needed = list->GetSizeFromTextSize(widest).GetWidth();
    const wxSize least = list->GetMinSize();
    if (needed > least.GetWidth()) list->SetMinSize(wxSize(needed, least.GetHeight()));
}

bool WxControl::checked() const {
    if (shape->kind == ControlKind::Check) return static_cast<wxCheckBox*>(window)->GetValue();
    return shape->kind == ControlKind::Option && static_cast<wxRadioButton*>(window)->GetValue();
}

void WxControl::setChecked(bool checked) {
    if (shape->kind == ControlKind::Check) static_cast<wxCheckBox*>(window)->SetValue(checked);
    if (shape->kind == ControlKind::Option) static_cast<wxRadioButton*>(window)->SetValue(checked);
}

void WxControl::setCells(const std::vector<std::vector<std::string>>& rows) {
    if (shape->kind == ControlKind::Grid) static_cast<WxGrid*>(window)->setCells(rows);
}

void WxControl::focus() {
    (shape->kind == ControlKind::Map ? &static_cast<WxMap*>(window)->area() : window)->SetFocus();
    if (shape->kind == ControlKind::Text) static_cast<wxTextCtrl*>(window)->SelectAll();
}

}  // namespace trevandix
