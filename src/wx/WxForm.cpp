#include "wx/WxForm.h"

#include <wx/button.h>
#include <wx/display.h>

#include <algorithm>
#include <utility>

#include "platform/RuntimeError.h"
#include "wx/WxBasics.h"
#include "wx/WxFormLayout.h"
#include "wx/WxFormList.h"
#include "wx/WxMap.h"
#include "wx/WxNative.h"

namespace trevandix {

namespace {

bool has(const FormSpec& shape, ControlKind kind) {
    return std::ranges::find(shape.controls, kind, &ControlSpec::kind) != shape.controls.end();
}

// Its size is the user's.
bool isLarge(const FormSpec& shape) {
    return has(shape, ControlKind::List) || has(shape, ControlKind::Map);
}

bool isResizable(const FormSpec& shape) {
    return has(shape, ControlKind::Grid) || isLarge(shape);
}

// The first size of a form with a list or a map, as a share of the main window: beside its tree or, if
// modal, instead of it.
struct Share {
    double width;
    double height;
};
constexpr Share kListShare{0.58, 0.5};
constexpr Share kMapShare{0.75, 0.85};
constexpr Share kModalShare{0.85, 0.85};
constexpr int kListMargin = 40;  // to that window's lower right corner, in device-independent pixels

}  // namespace

WxForm::WxForm(wxTopLevelWindow& main, const FormSpec& shape) : spec_(shape), main_(main) {
    const long style = wxDEFAULT_DIALOG_STYLE | (isResizable(shape) ? wxRESIZE_BORDER : 0);
    // The system gives the keyboard back to the parent when a dialog closes.
    wxWindow* parent = shape.modeless ? &main : dialogParent();
    dialog_ = new wxDialog(parent, wxID_ANY, toWx(shape.caption), wxDefaultPosition, wxDefaultSize, style,
                           toWx(shape.name));
    dialog_->SetIcons(main.GetIcons());
    WxFormLayout(shape, controls_, keys_).build(*dialog_);
    keyboard_.emplace(*dialog_, spec_, controls_, [this] { close(); });
    for (WxControl& control : controls_) connect(control);
    dialog_->SetEscapeId(wxID_NONE);
    dialog_->Bind(wxEVT_CHAR_HOOK, &WxForm::onKey, this);
    dialog_->Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { close(); });
    dialog_->Bind(wxEVT_ACTIVATE, [this](wxActivateEvent& event) {
        event.Skip();
        activationWaits_ = event.GetActive();
        dialog_->CallAfter([this] { tellActivated(); });
    });
    dialog_->Bind(wxEVT_CHILD_FOCUS, [this](wxChildFocusEvent& event) {
        event.Skip();
        keyboard_->markDefaultButton();
#ifdef __WXGTK__
        dialog_->Refresh();  // GTK leaves parts of the old focus ring on the screen
#endif
    });
    if (!shape.defaultButton.empty()) static_cast<wxButton*>(at(shape.defaultButton).window)->SetDefault();
    answerOthers();
}

WxForm::~WxForm() {
    if (!dialog_) return;
    dialog_->Hide();
    // The form may be deleted by a handler of its own dialog, so the dialog is destroyed only after the
    // handler has returned. Until then it sends no more events.
    dialog_->SetEvtHandlerEnabled(false);
    for (WxControl& control : controls_) control.window->SetEvtHandlerEnabled(false);
    dialog_->Destroy();
}

WxForm::Target WxForm::find(std::string_view name) const {
    for (WxControl& control : controls_) {
        if (control.shape->name == name) return {&control, false};
        if (!control.shape->labelName.empty() && control.shape->labelName == name) return {&control, true};
    }
    throw RuntimeError(ErrorNumber::ElementNotFound, name);
}

WxControl& WxForm::at(std::string_view name) const {
    return *find(name).control;
}

void WxForm::connect(WxControl& control) {
    const auto act = [&control](wxCommandEvent&) { runCopy(control.handler); };
    switch (control.shape->kind) {
        case ControlKind::Button:
            control.window->Bind(wxEVT_BUTTON, act);
            break;
        case ControlKind::Check:
            control.window->Bind(wxEVT_CHECKBOX, act);
            break;
        case ControlKind::Option:
            control.window->Bind(wxEVT_RADIOBUTTON, act);
            break;
        case ControlKind::Choice:
            control.window->Bind(wxEVT_CHOICE, act);
            break;
        case ControlKind::Combo:
            control.window->Bind(wxEVT_COMBOBOX, act);
            break;
        default:
            break;
    }
}

std::string WxForm::text(std::string_view name) const {
    const auto [control, labelOnly] = find(name);
    return labelOnly ? control->caption : control->text();
}

void WxForm::setText(std::string_view name, std::string_view text) {
    const auto [control, labelOnly] = find(name);
    if (labelOnly) {
        control->caption = text;
        const char previous = AccessKeys::keyOf(fromWx(control->label->GetLabel()));
        control->label->SetLabel(toWx(keys_.marked(text, previous)));
    } else {
        control->setText(text, keys_);
    }
    if (shown_ && control->box == nullptr && !control->isField()) fit();
}

void WxForm::setItems(std::string_view name, const std::vector<std::string>& items) {
    at(name).setItems(items);
}

std::vector<std::string> WxForm::items(std::string_view name) const {
    return at(name).entries;
}

bool WxForm::enabled(std::string_view name) const {
    const auto [control, labelOnly] = find(name);
    return labelOnly ? control->label->IsThisEnabled() : control->window->IsThisEnabled();
}

void WxForm::setEnabled(std::string_view name, bool enabled) {
    const auto [control, labelOnly] = find(name);
    if (control->label != nullptr) control->label->Enable(enabled);
    if (!labelOnly) control->window->Enable(enabled);
}

bool WxForm::visible(std::string_view name) const {
    const auto [control, labelOnly] = find(name);
    return labelOnly ? control->label->IsShown() : control->window->IsShown();
}

void WxForm::setVisible(std::string_view name, bool visible) {
    const auto [control, labelOnly] = find(name);
    if (control->label != nullptr) control->label->Show(visible);
    if (!labelOnly) control->window->Show(visible);
    if (shown_) fit();
}

bool WxForm::checked(std::string_view name) const {
    return at(name).checked();
}

void WxForm::setChecked(std::string_view name, bool checked) {
    at(name).setChecked(checked);
}

void WxForm::setFocus(std::string_view name) {
    at(name).focus();
}

void WxForm::setCells(std::string_view name, const std::vector<std::vector<std::string>>& rows) {
    at(name).setCells(rows);
    if (shown_) fit();
}

WxFormList& WxForm::listAt(std::string_view name) const {
    return static_cast<WxFormList&>(*at(name).window);
}

void WxForm::connectList(std::string_view name, const ListContents& contents, ListHandlers handlers) {
    listAt(name).show(contents, std::move(handlers));
}

void WxForm::refreshList(std::string_view name, const ListPlace& place) {
    if (dialog_) listAt(name).refresh(place);
}

ListPlace WxForm::listPlace(std::string_view name) const {
    return dialog_ ? listAt(name).place() : ListPlace();
}

WxMapArea& WxForm::mapAt(std::string_view name) const {
    return static_cast<WxMap&>(*at(name).window).area();
}

void WxForm::connectMap(std::string_view name, const MapContents& contents, MapHandlers handlers) {
    mapAt(name).show(contents, std::move(handlers));
}

void WxForm::refreshMap(std::string_view name) {
    if (dialog_) mapAt(name).refresh();
}

void WxForm::on(std::string_view name, Handler handler) {
    at(name).handler = std::move(handler);
}

// Makes the dialog large enough to show all texts and its title uncut, at most as large as the screen.
void WxForm::fit() {
    const wxSize screen = wxDisplay(dialog_.get()).GetClientArea().GetSize();
    const wxSize most = dialog_->WindowToClientSize(screen);
    wxSize least = dialog_->GetSizer()->CalcMin();
    least.IncTo(wxSize(widthForTitle(*dialog_, dialog_->GetTitle()), 0));
    least.DecTo(most);
    wxSize size = least;
    if (isLarge(spec_)) {
        size.IncTo(placed_ ? dialog_->GetClientSize() : firstSize());
        size.DecTo(most);
    }
    // GTK would show a dialog again one pixel wide whose size is set and stays the same.
    if (!placed_ || size != dialog_->GetClientSize()) {
        dialog_->SetMinClientSize(wxDefaultSize);
        dialog_->SetClientSize(size);
        dialog_->SetMinClientSize(least);
    }
    dialog_->Layout();  // also what is shown or hidden in the same size
}

wxSize WxForm::firstSize() const {
    const wxSize main = main_.GetClientSize();
    const Share share = !spec_.modeless ? kModalShare : has(spec_, ControlKind::Map) ? kMapShare : kListShare;
    return {static_cast<int>(main.GetWidth() * share.width),
            static_cast<int>(main.GetHeight() * share.height)};
}

// In the middle of the main window's client area: GTK learns the sizes of window frames late or never. A
// modeless form with a list or a map stays beside the tree, in which its rows are looked up.
wxPoint WxForm::firstPlace() const {
    const wxRect area(main_.ClientToScreen(wxPoint()), main_.GetClientSize());
    const wxRect form = wxRect(dialog_->GetClientSize()).CentreIn(area);
    if (!spec_.modeless || !isLarge(spec_)) return form.GetTopLeft();
    return area.GetBottomRight() - wxPoint(form.GetWidth(), form.GetHeight()) -
           dialog_->FromDIP(wxPoint(kListMargin, kListMargin));
}

void WxForm::place() {
    const wxRect screen = wxDisplay(&main_).GetClientArea();
    const wxSize size = dialog_->GetSize();
    wxPoint place = firstPlace();
    place.x = std::max(screen.GetLeft(), std::min(place.x, screen.GetRight() - size.GetWidth()));
    place.y = std::max(screen.GetTop(), std::min(place.y, screen.GetBottom() - size.GetHeight()));
    dialog_->Move(place);
}

// Answers in between, as Wine takes tens of milliseconds each to make, to fill and to size a dialog.
void WxForm::prepare() {
    answerOthers();
    fit();
    answerOthers();
    if (!std::exchange(placed_, true)) place();
    shown_ = true;
    if (!spec_.initialFocus.empty()) {
        at(spec_.initialFocus).focus();
        return;
    }
    const auto first = std::ranges::find_if(controls_, [](const WxControl& each) {
        return each.window->CanAcceptFocus() && each.window->IsEnabled();
    });
    if (first != controls_.end()) first->focus();
}

void WxForm::showModal() {
    if (!dialog_) return;
    const FocusKeeper focus;
    prepare();
    dialog_->ShowModal();
    answerOthers();
}

void WxForm::showModeless() {
    if (!dialog_) return;
    if (!dialog_->IsShown()) prepare();
    dialog_->Show();
    dialog_->Raise();
}

void WxForm::close() {
    if (!dialog_ || !shown_) return;
    shown_ = false;
    if (dialog_->IsModal()) {
        dialog_->EndModal(wxID_CANCEL);
    } else {
        dialog_->Hide();
    }
    runCopy(closed_);
}

void WxForm::tellActivated() {
    if (std::exchange(activationWaits_, false)) runCopy(activated_);
}

void WxForm::onKey(wxKeyEvent& event) {
    tellActivated();  // otherwise the handler would run after the key and select the typed text
    keyboard_->onKey(event);
}

std::unique_ptr<Form> WxForms::create(const FormSpec& shape) {
    return std::make_unique<WxForm>(main_, shape);
}

}  // namespace trevandix
