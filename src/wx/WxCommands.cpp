#include "wx/WxCommands.h"

#include <algorithm>
#include <utility>

#include "Version.h"
#include "wx/WxAccessibleName.h"
#include "wx/WxIcons.h"
#include "wx/WxText.h"

namespace trevandix {

namespace {

wxString label(const MenuEntrySpec& entry) {
    wxString text = toWx(entry.caption);
    if (!entry.shortcut.empty()) text += "\t" + toWx(entry.shortcut);
    return text;
}

const MenuEntrySpec* findEntry(const CommandTables& tables, std::string_view name) {
    for (const MenuSpec& menu : tables.menus) {
        const auto entry = std::ranges::find(menu.entries, name, &MenuEntrySpec::name);
        if (entry != menu.entries.end()) return &*entry;
    }
    return nullptr;
}

wxString toolTip(const MenuEntrySpec& entry) {
    wxString text = wxMenuItem::GetLabelText(toWx(entry.caption));
    if (!entry.shortcut.empty()) text += " (" + toWx(entry.shortcut) + ")";
    return text;
}

}  // namespace

WxCommands::WxCommands(wxFrame& frame, const CommandTables& tables, Choose choose, Choose press)
    : frame_(frame), shortcuts_(tables.shortcuts), choose_(std::move(choose)), press_(std::move(press)) {
    buildMenus(tables.menus);
    buildToolBar(tables);
}

void WxCommands::buildMenus(std::span<const MenuSpec> menus) {
    auto* bar = new wxMenuBar;
    const auto add = [this](wxMenu& menu, std::string_view name, const wxString& text,
                            std::string_view hint) {
        const wxWindowIDRef id = wxWindow::NewControlId();
        entries_.push_back({name, menu.Append(id, text, toWx(hint))});
        setAccessibleDescription(*entries_.back().item);
        frame_.Bind(wxEVT_MENU, &WxCommands::onMenu, this, id);
    };
    for (const MenuSpec& shape : menus) {
        auto* menu = new wxMenu;
        for (const MenuEntrySpec& entry : shape.entries) {
            if (entry.name.empty()) {
                menu->AppendSeparator();
            } else {
                add(*menu, entry.name, label(entry), entry.hint);
            }
        }
        // A menu bar holds menus only, so a command of its own stands in one.
        if (shape.entries.empty())
            add(*menu, shape.name, toWx(shape.caption) + " " + toWx(kProduct) + "...", "Version and maker");
        menus_.push_back({shape.name});
        bar->Append(menu, toWx(shape.caption));
    }
    frame_.SetMenuBar(bar);
}

void WxCommands::buildToolBar(const CommandTables& tables) {
    bar_ = new WxButtonBar(&frame_);
    wxToolBar* group = nullptr;
    int number = -1;
    for (const ToolButtonSpec& shape : tables.buttons) {
        if (std::exchange(number, shape.group) != shape.group) {
            if (group != nullptr) {
                group->AddSeparator();
                group->Realize();
            }
            group = &bar_->addGroup();
        }
        const MenuEntrySpec* entry = findEntry(tables, shape.command);
        const wxString name = toWx(entry != nullptr ? entry->caption : shape.key);
        const wxString tip = entry != nullptr ? toolTip(*entry) : name;
        const int id = wxWindow::NewControlId();
        group->AddTool(id, wxMenuItem::GetLabelText(name), iconBundle(shape.image, kToolbarIconSize),
                       fadedIconBundle(shape.image, kToolbarIconSize), wxITEM_NORMAL, tip);
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

// The shortcut of an entry goes with the entry, whether or not the menu around it can be opened.
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
    for (const ShortcutSpec& shape : shortcuts_) {
        wxAcceleratorEntry key;
        if (!key.FromString(toWx(shape.shortcut))) continue;
        if (key.GetKeyCode() != event.GetKeyCode() || key.GetFlags() != event.GetModifiers()) continue;
        choose_(shape.command);
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

void WxCommands::popUp(wxWindow& window, const wxPoint& point,
                       std::initializer_list<std::string_view> menus) {
    wxMenu popup;
    for (const std::string_view menu : menus) appendEntries(popup, menu);
    const int id = window.GetPopupMenuSelectionFromUser(popup, point);
    const auto entry =
        std::ranges::find_if(entries_, [id](const Entry& each) { return each.item->GetId() == id; });
    if (entry != entries_.end() && entry->enabled) choose_(entry->name);
}

}  // namespace trevandix
