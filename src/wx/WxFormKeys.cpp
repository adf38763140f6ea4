#include "wx/WxFormKeys.h"

#include <wx/button.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include <algorithm>
#include <vector>

#include "wx/WxBasics.h"
#include "wx/WxHelp.h"

namespace trevandix {

const WxControl* WxFormKeys::named(std::string_view name) const {
    const auto named =
        std::ranges::find(controls_, name, [](const WxControl& each) { return each.shape->name; });
    return named == controls_.end() ? nullptr : &*named;
}

bool WxFormKeys::pressFromKeyboard(const WxControl* button) {
    if (button == nullptr || !button->window->IsEnabled() || !button->window->IsShownOnScreen()) return false;
#ifdef __WXMSW__
    // The key is still in the message queue, where a message box opened by the button would take it as its
    // answer. A posted message is handled after this key and before the next one.
    const auto handle = reinterpret_cast<LPARAM>(button->window->GetHandle());
    ::PostMessage(static_cast<HWND>(button->window->GetParent()->GetHandle()), WM_COMMAND,
                  MAKEWPARAM(button->window->GetId(), BN_CLICKED), handle);
#else
    runCopy(button->handler);
#endif
    return true;
}

// The default button, or while it is disabled or hidden, the button beside the focused control; Enter never
// cancels.
const WxControl* WxFormKeys::buttonForEnter() const {
    const auto usable = [](const WxControl& each) {
        return each.shape->kind == ControlKind::Button && each.window->IsEnabled() &&
               each.window->IsShownOnScreen();
    };
    const WxControl* button = named(spec_.defaultButton);
    if (button != nullptr && usable(*button)) return button;
    const wxWindow* focused = wxWindow::FindFocus();
    const auto beside = std::ranges::find_if(controls_, [&](const WxControl& each) {
        return usable(each) && each.shape->name != spec_.cancelButton && focused != nullptr &&
               each.window->GetParent() == focused->GetParent();
    });
    return beside == controls_.end() ? nullptr : &*beside;
}

// wx supports access keys of labels on Windows only. Buttons are pressed here as well: GTK would show one
// pressed for a quarter of a second and lose the keys typed meanwhile.
bool WxFormKeys::followAccessKey(const wxKeyEvent& event) {
    if (event.GetModifiers() != wxMOD_ALT) return false;
    const wxChar typed = static_cast<wxChar>(wxToupper(event.GetUnicodeKey()));
    if (typed == 0) return false;
    for (WxControl& control : controls_) {
        const bool button = control.shape->kind == ControlKind::Button;
        const wxWindow* captioned = button ? control.window : control.label;
        if (captioned == nullptr || AccessKeys::keyOf(fromWx(captioned->GetLabel())) != typed) continue;
        if (button) return pressFromKeyboard(&control);
        if (!control.window->IsEnabled() || !control.window->IsShownOnScreen()) continue;
        control.focus();
        return true;
    }
    return false;
}

// Draws the button that Enter presses as the default button. On Windows wx removes this mark when another
// button loses the focus.
void WxFormKeys::markDefaultButton() {
    const bool onButton = dynamic_cast<wxButton*>(wxWindow::FindFocus()) != nullptr;
    if (onButton || dialog_.IsBeingDeleted()) return;
    if (const WxControl* button = buttonForEnter()) static_cast<wxButton*>(button->window)->SetDefault();
}

void WxFormKeys::onEscape() {
    if (pressFromKeyboard(named(spec_.cancelButton))) return;
    const auto frame = std::ranges::find_if(controls_, [](const WxControl& each) {
        return each.shape->kind == ControlKind::Frame && each.handler && each.window->IsShown() &&
               each.window->IsEnabled();
    });
    frame == controls_.end() ? close_() : runCopy(frame->handler);
}

// On Windows wx treats arrow keys like Tab: they move the focus without choosing an option.
bool WxFormKeys::chooseByArrow(const wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const bool forward = key == WXK_DOWN || key == WXK_RIGHT;
    if (event.GetModifiers() != 0 || (!forward && key != WXK_UP && key != WXK_LEFT)) return false;
    const auto focused = std::ranges::find(controls_, wxWindow::FindFocus(), &WxControl::window);
    if (focused == controls_.end() || focused->shape->kind != ControlKind::Option) return false;
    std::vector<WxControl*> options;
    for (WxControl& each : controls_) {
        const bool sameGroup =
            each.shape->kind == ControlKind::Option && each.shape->frame == focused->shape->frame;
        if (sameGroup && each.window->IsEnabled() && each.window->IsShown()) options.push_back(&each);
    }
    const auto at = static_cast<std::size_t>(std::ranges::find(options, &*focused) - options.begin());
    WxControl& next = *options[(at + (forward ? 1 : options.size() - 1)) % options.size()];
    next.setChecked(true);
    next.focus();
    runCopy(next.handler);
    return true;
}

void WxFormKeys::onKey(wxKeyEvent& event) {
    if (followsManualKey(event)) return;
    const int key = event.GetKeyCode();
    const bool plain = event.GetModifiers() == 0 && std::ranges::none_of(controls_, &WxControl::listIsOpen);
    if (plain && key == WXK_ESCAPE) {
        onEscape();
        return;
    }
    if (plain && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)) {
        // A focused button handles Enter itself.
        const bool onButton = dynamic_cast<wxButton*>(wxWindow::FindFocus()) != nullptr;
        if (!onButton && pressFromKeyboard(buttonForEnter())) return;
    }
    if (chooseByArrow(event) || followAccessKey(event)) return;
    // A modeless dialog passes function keys, undo and redo on to the main window.
    wxKeyEvent forMain(event);
    const bool function = key >= WXK_F1 && key <= WXK_F24;
    const bool undo = event.ControlDown() && (key == 'Z' || key == 'Y');
    if (dialog_.IsModal() || !(function || undo) ||
        !dialog_.GetParent()->GetEventHandler()->ProcessEvent(forMain))
        event.Skip();
}

}  // namespace trevandix
