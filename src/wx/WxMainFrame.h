#pragma once

#include <wx/frame.h>
#include <wx/splitter.h>
#include <wx/timer.h>

#include <memory>

#include "editor/MainWindow.h"
#include "wx/WxBasics.h"
#include "wx/WxCommands.h"
#include "wx/WxInputGate.h"
#include "wx/WxListView.h"
#include "wx/WxServices.h"
#include "wx/WxStatus.h"
#include "wx/WxTreeDrag.h"
#include "wx/WxTreeView.h"

namespace trevandix {

/// The main window: menu bar, toolbar, tree and list side by side, import panel, status bar.
class WxMainFrame : public wxFrame, public MainWindow, public CommandBar {
public:
    /// All arguments must outlive the window.
    WxMainFrame(const CommandTables& tables, StructureTree& tree, ListView& list, WxPointer& pointer);
    ~WxMainFrame() override;

    /// Sets the receiver of the user's actions. Not owned; must live until `Form_Unload` has been called.
    void attach(MainWindowEvents* events) { gate_.attach(events); }
    /// Runs `work` like a command: no other command starts meanwhile.
    void perform(const std::function<void()>& work);
    /// Name and version of the XML parser, shown in the About box.
    void setParserName(const std::string& name) { parserName_ = toWx(name); }

    void setTreeVisible(bool visible) override;
    FocusedView focusedView() const override { return lastFocused_; }
    void focusTree() override;
    void showImportPanel(std::string_view text) override { importPanel_->show(toWx(text)); }
    void hideImportPanel() override { importPanel_->Hide(); }
    void setPercent(int percent) override { importPanel_->setPercent(percent); }
    void processEvents() override { gate_.pump(); }
    void redraw() override { gate_.redraw(); }
    void close() override;
    void showAboutBox() override;
    void addToRecentFiles(std::string_view filePath) override;
    void setStatus(StatusField field, std::string_view text) override;

    void DoGiveHelp(const wxString& text, bool show) override { status_->setHint(show ? text : wxString()); }

    void enableMenu(std::string_view name, bool enabled) override { commands_->enableMenu(name, enabled); }
    void enableButton(std::string_view key, bool enabled) override { commands_->enableButton(key, enabled); }

private:
    void buildViews(StructureTree& tree, ListView& list, WxPointer& pointer);
    void placeOnScreen();
    void openMenu(wxWindow& window, const wxPoint& point);
    void unload();
    void onSize(wxSizeEvent& event);
    void onTimer(wxTimerEvent& event);
    void onClose(wxCloseEvent& event);
    void onKey(wxKeyEvent& event);
    static bool movesInView(const wxKeyEvent& event);
    void onChildFocus(wxChildFocusEvent& event);
    void onActivate(wxActivateEvent& event);
    void restoreFocus();

    WxInputGate gate_{*this};
    wxTimer timer_{this};
    std::unique_ptr<WxCommands> commands_;
    wxPanel* body_ = nullptr;
    wxSplitterWindow* splitter_ = nullptr;
    wxPanel* treePane_ = nullptr;
    WxTreeView* tree_ = nullptr;
    WxListView* list_ = nullptr;
    WxImportPanel* importPanel_ = nullptr;
    WxStatusBar* status_ = nullptr;
    std::unique_ptr<WxTreeDrag> drag_;
    wxString parserName_;
    FocusedView lastFocused_ = FocusedView::None;
    wxRect firstPlace_;  // in screen coordinates, including title and frame
    bool placed_ = false;
    bool unloaded_ = false;
};

}  // namespace trevandix
