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

#include "platform/Commands.h"
#include "platform/MainWindow.h"

namespace trevandix {

/// A toolbar whose groups of buttons go on in a further row where the window is too narrow for all of them.
class WxButtonBar : public wxPanel {
public:
    /// A sizer of `parent` gives it its place, over the whole width.
    explicit WxButtonBar(wxWindow* parent);

    /// A new group behind the others. Its owner adds the buttons and calls `Realize`.
    wxToolBar& addGroup();

private:
    void onParentSize(wxSizeEvent& event);
    /// Places the groups; returns the height that they need.
    int arrange(int width);

    std::vector<wxToolBar*> groups_;
};

/// Menu bar and toolbar of a frame, made from their tables. The frame gives the toolbar its place.
class WxCommands : public CommandBar {
public:
    using Choose = std::function<void(std::string_view name)>;

    /// What `tables` refers to must outlive it. `choose` gets the name of every enabled command that the user
    /// picks, `press` the key of every enabled button.
    WxCommands(wxFrame& frame, const CommandTables& tables, Choose choose, Choose press);

    void enableMenu(std::string_view name, bool enabled) override;
    void enableButton(std::string_view key, bool enabled) override;

    wxWindow* toolBar() const { return bar_; }

    /// Runs the command of a key that stands behind no menu entry. False when the key is no such one.
    bool followsShortcut(const wxKeyEvent& event) const;

    /// Opens the entries of some menus at a point of `window` and runs what is picked.
    void popUp(wxWindow& window, const wxPoint& point, std::initializer_list<std::string_view> menus);

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
