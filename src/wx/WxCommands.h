#pragma once

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/toolbar.h>

#include <functional>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "editor/CommandTable.h"
#include "editor/MainWindow.h"

namespace trevandix {

/// A toolbar that wraps its groups of buttons into further rows when the window is too narrow.
class WxButtonBar : public wxPanel {
public:
    /// The parent's sizer must give it the full width.
    explicit WxButtonBar(wxWindow* parent);

    /// Appends a group. The caller adds the buttons and calls `Realize`.
    wxToolBar& addGroup();

private:
    void onParentSize(wxSizeEvent& event);
    /// Places the groups and returns the height they need.
    int arrange(int width);

    std::vector<wxToolBar*> groups_;
};

/// Menu bar and toolbar of a frame, built from tables. The frame places the toolbar.
class WxCommands : public CommandBar {
public:
    using Choose = std::function<void(std::string_view name)>;

    /// What `tables` refers to must outlive this object. `choose` receives the name of each enabled command
    /// that the user picks, `press` the key of each enabled button.
    WxCommands(wxFrame& frame, const CommandTables& tables, Choose choose, Choose press);

    void enableMenu(std::string_view name, bool enabled) override;
    void enableButton(std::string_view key, bool enabled) override;

    wxWindow* toolBar() const { return bar_; }

    /// Runs the command of a shortcut that belongs to no menu entry. False when the key is no such shortcut.
    bool followsShortcut(const wxKeyEvent& event) const;

    /// Opens a popup menu with the entries of `menus` and then `more` at a point of `window`, and runs the
    /// chosen command.
    void popUp(wxWindow& window, const wxPoint& point, std::initializer_list<std::string_view> menus,
               const std::vector<ContextEntry>& more);

private:
    struct Entry {
        std::string_view name;
        wxMenuItem* item;
        bool enabled = true;
    };
    struct Menu {
        std::string_view name;
        bool enabled = true;
    };
    struct Button {
        std::string_view key;
        wxToolBar* bar;
        int id;
        bool enabled = true;
    };

    void buildMenus(std::span<const MenuSpec> menus);
    void appendCommand(wxMenu& menu, const CommandSpec& command);
    void buildToolBar();
    void appendEntries(wxMenu& popup, std::string_view menu);
    int appendEntry(wxMenu& popup, const ContextEntry& entry) const;
    void onMenu(wxCommandEvent& event);
    void onTool(wxCommandEvent& event);

    wxFrame& frame_;
    std::span<const CommandSpec> commands_;
    Choose choose_;
    Choose press_;
    WxButtonBar* bar_ = nullptr;
    std::vector<Menu> menus_;
    std::vector<Entry> entries_;
    std::vector<Button> buttons_;
};

}  // namespace trevandix
