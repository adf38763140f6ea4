#include "wx/WxCommands.h"

#include <wx/dcclient.h>
#include <wx/textentry.h>

#include <algorithm>
#include <utility>

#include "Version.h"
#include "wx/WxBasics.h"
#include "wx/WxIcons.h"
#include "wx/WxNative.h"

namespace trevandix {

WxButtonBar::WxButtonBar(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "Toolbar1") {
    m_container.DisableSelfFocus();
    parent->Bind(wxEVT_SIZE, &WxButtonBar::onParentSize, this);
}

// Runs before the parent's own layout, which then gives the toolbar the height it needs.
void WxButtonBar::onParentSize(wxSizeEvent& event) {
    event.Skip();
    SetMinSize(wxSize(-1, arrange(GetParent()->GetClientSize().GetWidth())));
}

wxToolBar& WxButtonBar::addGroup() {
    auto* group = new wxToolBar(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                wxTB_FLAT | wxTB_HORIZONTAL | wxTB_NODIVIDER | wxTB_NOALIGN);
    setAccessibleName(*group, "Commands", "The commands that are used most");
    groups_.push_back(group);
    return *group;
}

int WxButtonBar::arrange(int width) {
    int left = 0;
    int top = 0;
    int bottom = 0;
    bool moved = false;
    for (wxToolBar* group : groups_) {
        const wxSize size = group->GetBestSize();
        if (left > 0 && left + size.GetWidth() > width) {
            left = 0;
            top = bottom;
        }
        moved = moved || group->GetPosition() != wxPoint(left, top);
        group->SetSize(wxRect(wxPoint(left, top), size));
        left += size.GetWidth();
        bottom = std::max(bottom, top + size.GetHeight());
    }
    // Windows moves a window by copying its pixels, including those of a window in front of it.
    if (moved) CallAfter([this] { GetParent()->Refresh(); });
    return bottom;
}

namespace {

constexpr int kMenuWidth = 360;  // of a caption that names an object, in device-independent pixels

wxString label(const CommandSpec& command) {
    wxString text = toWx(command.caption);
    // A menu bar can only hold menus, so a command on the menu bar becomes a menu with one entry.
    if (command.menu == command.name) text += " " + toWx(kProduct) + "...";
    if (!command.shortcut.empty()) text += "\t" + toWx(command.shortcut);
    return text;
}

wxString toolTip(const CommandSpec& command) {
    wxString text = wxMenuItem::GetLabelText(toWx(command.caption));
    if (!command.shortcut.empty()) text += " (" + toWx(command.shortcut) + ")";
    return text;
}

/// The commands with a button, in the order of the buttons.
std::vector<const CommandSpec*> withButton(std::span<const CommandSpec> commands) {
    std::vector<const CommandSpec*> shown;
    for (const CommandSpec& command : commands) {
        if (!command.button.key.empty()) shown.push_back(&command);
    }
    std::ranges::sort(shown, {}, [](const CommandSpec* command) { return command->button.place; });
    return shown;
}

}  // namespace

WxCommands::WxCommands(wxFrame& frame, const CommandTables& tables, Choose choose, Choose press)
    : frame_(frame), commands_(tables.commands), choose_(std::move(choose)), press_(std::move(press)) {
    buildMenus(tables.menus);
    buildToolBar();
}

void WxCommands::buildMenus(std::span<const MenuSpec> menus) {
    auto* bar = new wxMenuBar;
    for (const MenuSpec& shape : menus) {
        auto* menu = new wxMenu;
        for (const CommandSpec& command : commands_) {
            if (command.menu == shape.name) appendCommand(*menu, command);
        }
        menus_.push_back({shape.name});
        bar->Append(menu, toWx(shape.caption));
    }
    frame_.SetMenuBar(bar);
}

void WxCommands::appendCommand(wxMenu& menu, const CommandSpec& command) {
    if (command.name.empty()) {
        menu.AppendSeparator();
        return;
    }
    const wxWindowIDRef id = wxWindow::NewControlId();
    entries_.push_back({command.name, menu.Append(id, label(command), toWx(command.hint))});
    setAccessibleDescription(*entries_.back().item);
    frame_.Bind(wxEVT_MENU, &WxCommands::onMenu, this, id);
}

void WxCommands::buildToolBar() {
    bar_ = new WxButtonBar(&frame_);
    wxToolBar* group = nullptr;
    int number = -1;
    for (const CommandSpec* command : withButton(commands_)) {
        const ToolButtonSpec& shape = command->button;
        if (const int tens = shape.place / 10; std::exchange(number, tens) != tens) {
            if (group != nullptr) {
                group->AddSeparator();
                group->Realize();
            }
            group = &bar_->addGroup();
        }
        const std::string_view image = shape.image.empty() ? shape.key : shape.image;
        const int id = wxWindow::NewControlId();
        group->AddTool(id, wxMenuItem::GetLabelText(toWx(command->caption)),
                       iconBundle(image, kToolbarIconSize), fadedIconBundle(image, kToolbarIconSize),
                       wxITEM_NORMAL, toolTip(*command));
        frame_.Bind(wxEVT_TOOL, &WxCommands::onTool, this, id);
        buttons_.push_back({shape.key, group, id});
    }
    if (group != nullptr) group->Realize();
}

void WxCommands::enableMenu(std::string_view name, bool enabled) {
    const auto menu = std::ranges::find(menus_, name, &Menu::name);
    if (menu != menus_.end()) {
        if (std::exchange(menu->enabled, enabled) == enabled) return;
        frame_.GetMenuBar()->EnableTop(static_cast<std::size_t>(menu - menus_.begin()), enabled);
        return;
    }
    const auto entry = std::ranges::find(entries_, name, &Entry::name);
    if (entry == entries_.end() || std::exchange(entry->enabled, enabled) == enabled) return;
    entry->item->Enable(enabled);
}

void WxCommands::enableButton(std::string_view key, bool enabled) {
    const auto button = std::ranges::find(buttons_, key, &Button::key);
    if (button == buttons_.end() || std::exchange(button->enabled, enabled) == enabled) return;
    button->bar->EnableTool(button->id, enabled);
}

// Shortcuts work even while the menu that holds the entry is disabled.
void WxCommands::onMenu(wxCommandEvent& event) {
    const auto entry = std::ranges::find_if(
        entries_, [&](const Entry& each) { return each.item->GetId() == event.GetId(); });
    if (entry != entries_.end() && entry->enabled) choose_(entry->name);
}

void WxCommands::onTool(wxCommandEvent& event) {
    const auto button = std::ranges::find(buttons_, event.GetId(), &Button::id);
    if (button != buttons_.end() && button->enabled) press_(button->key);
}

bool WxCommands::followsShortcut(const wxKeyEvent& event) const {
    // In a text box, Ctrl with a letter is the box's own.
    const auto* box = dynamic_cast<wxTextEntry*>(wxWindow::FindFocus());
    if (event.ControlDown() && box != nullptr && box->IsEditable()) return false;
    for (const CommandSpec& command : commands_) {
        if (!command.menu.empty() || command.shortcut.empty()) continue;
        wxAcceleratorEntry key;
        if (!key.FromString(toWx(command.shortcut))) continue;
        if (key.GetKeyCode() != event.GetKeyCode() || key.GetFlags() != event.GetModifiers()) continue;
        choose_(command.name);
        return true;
    }
    return false;
}

void WxCommands::appendEntries(wxMenu& popup, std::string_view menu) {
    const auto top = std::ranges::find(menus_, menu, &Menu::name);
    if (top == menus_.end()) return;
    if (popup.GetMenuItemCount() > 0) popup.AppendSeparator();
    for (const wxMenuItem* item :
         frame_.GetMenuBar()->GetMenu(static_cast<std::size_t>(top - menus_.begin()))->GetMenuItems()) {
        if (item->IsSeparator()) {
            popup.AppendSeparator();
        } else {
            popup.Append(item->GetId(), item->GetItemLabel(), item->GetHelp())->Enable(item->IsEnabled());
        }
    }
}

// Returns the entry's id.
int WxCommands::appendEntry(wxMenu& popup, const ContextEntry& entry) const {
    if (entry.command.empty()) return popup.AppendSeparator()->GetId();
    wxString caption = toWx(entry.caption);
    caption.Replace("\t", " ");  // would begin a shortcut
    // A menu as wide as a very long name would not fit on the screen.
    wxClientDC dc(&frame_);
    caption = wxControl::Ellipsize(caption, dc, wxELLIPSIZE_MIDDLE, frame_.FromDIP(kMenuWidth),
                                   wxELLIPSIZE_FLAGS_NONE);
    wxString text = wxControl::EscapeMnemonics(caption);
    const auto command = std::ranges::find(commands_, entry.command, &CommandSpec::name);
    if (command != commands_.end() && !command->shortcut.empty()) text += "\t" + toWx(command->shortcut);
    wxMenuItem* item = popup.Append(wxID_ANY, text);
    item->Enable(entry.enabled);
    return item->GetId();
}

void WxCommands::popUp(wxWindow& window, const wxPoint& point, std::initializer_list<std::string_view> menus,
                       const std::vector<ContextEntry>& more) {
    wxMenu popup;
    for (const std::string_view menu : menus) appendEntries(popup, menu);
    popup.AppendSeparator();
    std::vector<int> ids;
    for (const ContextEntry& entry : more) ids.push_back(appendEntry(popup, entry));
    const int id = window.GetPopupMenuSelectionFromUser(popup, point);
    if (const auto own = std::ranges::find(ids, id); own != ids.end())
        return choose_(more[static_cast<std::size_t>(own - ids.begin())].command);
    const auto entry =
        std::ranges::find_if(entries_, [id](const Entry& each) { return each.item->GetId() == id; });
    if (entry != entries_.end() && entry->enabled) choose_(entry->name);
}

}  // namespace trevandix
