#include "wx/WxMainFrame.h"

#include <wx/display.h>
#include <wx/dnd.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

#include "Version.h"
#include "platform/Proportions.h"
#include "wx/WxBasics.h"
#include "wx/WxHelp.h"
#include "wx/WxIcons.h"
#include "wx/WxNative.h"
#include "wx/WxTreeMeasure.h"

namespace trevandix {

namespace {

constexpr double kScreenShare = 0.8;
constexpr double kTreeShare = 0.4;  // of the width
constexpr int kTick = 250;          // milliseconds
constexpr auto kPause = std::chrono::milliseconds(300);
constexpr int kSmallestPane = 120;
constexpr int kSmallestWidth = 320;
constexpr int kSmallestHeight = 300;

wxString windowCaption() {
    return toWx(kCompany) + " - " + toWx(kProduct);
}

/// Opens a file dropped from another program; of several files, the first.
class FileDrop : public wxFileDropTarget {
public:
    /// `window` and `gate` must outlive it.
    FileDrop(wxTopLevelWindow& window, WxInputGate& gate) : window_(window), gate_(gate) {}

    // Posts the event, because opening may ask questions and the other program must not wait for the answers.
    // The questions appear in front of that program, so the window is raised.
    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override {
        if (files.empty() || gate_.busy()) return false;
        bringToFront(window_);
        gate_.post(WxInputGate::Kind::Single,
                   [path = fromWx(files.front())](MainWindowEvents& events) { events.fileDropped(path); });
        return true;
    }

private:
    wxTopLevelWindow& window_;
    WxInputGate& gate_;
};

// Keeps the sash at a share of the width (0 to 1); once the user has moved it, at the user's share.
void keepSashInProportion(wxSplitterWindow& splitter, double share) {
    const auto kept = std::make_shared<Proportions>();
    constexpr int kWhole = 1000;
    kept->keep({static_cast<int>(std::lround(share * kWhole))}, kWhole);
    splitter.SetSashGravity(share);  // with gravity 0 the control never sends SASH_POS_RESIZE
    splitter.Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [&splitter, kept](wxSplitterEvent& event) {
        const int sash = event.GetSashPosition();
        if (sash > 0) kept->keep({sash}, splitter.GetClientSize().GetWidth());
    });
    splitter.Bind(wxEVT_SPLITTER_SASH_POS_RESIZE, [&splitter, kept](wxSplitterEvent& event) {
        event.SetSashPosition(kept->scaled(splitter.GetClientSize().GetWidth()).front());
    });
}

}  // namespace

WxMainFrame::WxMainFrame(const CommandTables& tables, StructureTree& tree, ListView& list, WxPointer& pointer)
    : wxFrame(nullptr, wxID_ANY, windowCaption(), wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE,
              "frmEditing") {
    SetIcons(programIcons());
    placeOnScreen();
    commands_ = std::make_unique<WxCommands>(
        *this, tables,
        [this](std::string_view command) {
            gate_.run([command](MainWindowEvents& events) { events.commandChosen(command); });
        },
        [this](std::string_view key) {
            gate_.run([key](MainWindowEvents& events) { events.Toolbar1_ButtonClick(key); });
        });
    status_ = new WxStatusBar(this, [this](StatusField field) {
        gate_.run([field](MainWindowEvents& events) { events.statusClicked(field); });
    });
    SetStatusBar(status_);
    SetDropTarget(new FileDrop(*this, gate_));  // applies to all child windows
#ifdef __WXGTK__
    // wx would wait for the window manager and show the window without size and position first.
    m_deferShow = false;
#endif
    buildViews(tree, list, pointer);
    Bind(wxEVT_SIZE, &WxMainFrame::onSize, this);
    Bind(wxEVT_CLOSE_WINDOW, &WxMainFrame::onClose, this);
    Bind(wxEVT_TIMER, &WxMainFrame::onTimer, this, timer_.GetId());
    timer_.Start(kTick);
    Bind(wxEVT_CHAR_HOOK, &WxMainFrame::onKey, this);
    Bind(wxEVT_CHILD_FOCUS, &WxMainFrame::onChildFocus, this);
    Bind(wxEVT_ACTIVATE, &WxMainFrame::onActivate, this);
}

WxMainFrame::~WxMainFrame() {
    gate_.attach(nullptr);
    drag_.reset();
    DestroyChildren();  // before the members that they use are destroyed
}

void WxMainFrame::placeOnScreen() {
    const wxDisplay display(this);
    const wxSize screen = display.GetGeometry().GetSize();
    wxSize smallest = FromDIP(wxSize(kSmallestWidth, kSmallestHeight));
    smallest.DecTo(display.GetClientArea().GetSize() * kScreenShare);
    SetMinSize(smallest);
    firstPlace_ =
        wxRect(wxSize(static_cast<int>(screen.x * kScreenShare), static_cast<int>(screen.y * kScreenShare)))
            .CentreIn(display.GetClientArea());
    SetSize(firstPlace_);
}

// Some window managers add title and frame only when they show the window, which makes it larger.
void WxMainFrame::onSize(wxSizeEvent& event) {
    event.Skip();
    if (placed_ || GetSize() == firstPlace_.GetSize() || IsMaximized()) return;
    placed_ = true;
    CallAfter([this] { SetSize(firstPlace_); });
}

void WxMainFrame::buildViews(StructureTree& tree, ListView& list, WxPointer& pointer) {
    greyInactiveSelections();
    measureTreesQuickly();
    const auto workspace = wxSystemSettings::GetColour(wxSYS_COLOUR_APPWORKSPACE);
    body_ = new wxPanel(this);
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(commands_->toolBar(), wxSizerFlags().Expand());
    GetSizer()->Add(body_, wxSizerFlags(1).Expand());
    body_->SetBackgroundColour(workspace);
    splitter_ = new wxSplitterWindow(body_, wxID_ANY, wxDefaultPosition, GetClientSize(),
                                     wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    splitter_->SetMinimumPaneSize(FromDIP(kSmallestPane));
    treePane_ = new wxPanel(splitter_);
    treePane_->SetBackgroundColour(workspace);
    tree_ = new WxTreeView(treePane_, tree, gate_);
    treePane_->SetSizer(new wxBoxSizer(wxVERTICAL));
    treePane_->GetSizer()->Add(tree_, wxSizerFlags(1).Expand());
    const auto menu = [this](wxWindow& window, const wxPoint& point) { openMenu(window, point); };
    list_ = new WxListView(splitter_, list, gate_, menu);
    list_->SetBackgroundColour(workspace);
    drag_ = std::make_unique<WxTreeDrag>(*tree_, gate_, pointer,
                                         [this](const wxPoint& p) { openMenu(*tree_, p); });
    tree_->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { openMenu(*tree_, tree_->menuPlace()); });
    tree_->Bind(wxEVT_TREE_ITEM_MENU, [this](wxTreeEvent&) { openMenu(*tree_, tree_->menuPlace()); });
    tree_->Hide();

    splitter_->SplitVertically(treePane_, list_, static_cast<int>(GetClientSize().GetWidth() * kTreeShare));
    keepSashInProportion(*splitter_, kTreeShare);
    importPanel_ = new WxImportPanel(body_);
    body_->SetSizer(new wxBoxSizer(wxVERTICAL));
    body_->GetSizer()->Add(splitter_, wxSizerFlags(1).Expand());
    body_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        importPanel_->recentre();
    });
}

void WxMainFrame::perform(const std::function<void()>& work) {
    gate_.run([&work](MainWindowEvents&) { work(); });
}

void WxMainFrame::setTreeVisible(bool visible) {
    if (tree_->IsShown() == visible) return;
    tree_->Show(visible);
    treePane_->Layout();
    if (!visible) return;
    tree_->showSelection();
    tree_->SetFocus();
}

void WxMainFrame::focusTree() {
    if (!IsActive()) Raise();
    tree_->SetFocus();
    lastFocused_ = FocusedView::Tree;
}

void WxMainFrame::openMenu(wxWindow& window, const wxPoint& point) {
    // Handles pending events first: a right click selects a node, which decides what is enabled.
    perform([] {});
    const MainWindowEvents* events = gate_.attached();
    if (events != nullptr)
        commands_->popUp(window, point, {"mnuObjects", "mnuEdit"}, events->contextEntries());
}

void WxMainFrame::unload() {
    if (std::exchange(unloaded_, true)) return;
    if (MainWindowEvents* events = gate_.attached()) events->Form_Unload();
    gate_.attach(nullptr);
}

void WxMainFrame::close() {
    unload();
    Destroy();
}

void WxMainFrame::onTimer(wxTimerEvent&) {
    placed_ = true;  // later size changes are the user's
    const auto now = std::chrono::steady_clock::now();
    // Bypasses the gate: this never touches what a command or a dialog is working on.
    if (MainWindowEvents* events = gate_.attached()) events->idle(now, gate_.lastInput());
    const bool drags = GetCapture() != nullptr;
    if (!drags && now - gate_.lastInput() >= kPause)
        gate_.run([](MainWindowEvents& events) { events.paused(inputWaits); });
}

void WxMainFrame::onClose(wxCloseEvent& event) {
    if (gate_.busy() && event.CanVeto()) {
        gate_.closeLater();
        event.Veto();
        return;
    }
    close();
}

void WxMainFrame::setStatus(StatusField field, std::string_view text) {
    status_->setNews(field, toWx(text));
}

void WxMainFrame::showAboutBox() {
    WxAboutBox box(this, parserName_);
    box.ShowModal();
}

void WxMainFrame::addToRecentFiles(std::string_view filePath) {
    trevandix::addToRecentFiles(toWx(filePath));
}

// These keys repeat quickly; only the last one needs handling.
bool WxMainFrame::movesInView(const wxKeyEvent& event) {
    static constexpr std::array kKeys{WXK_UP,     WXK_DOWN,     WXK_LEFT, WXK_RIGHT,
                                      WXK_PAGEUP, WXK_PAGEDOWN, WXK_HOME, WXK_END};
    return std::ranges::find(kKeys, event.GetKeyCode()) != kKeys.end();
}

// Tab and F6 switch between tree and list. Toolbar and menu bar have their own keys.
void WxMainFrame::onKey(wxKeyEvent& event) {
    if (followsManualKey(event) || commands_->followsShortcut(event)) return;
    const bool tab = event.GetKeyCode() == WXK_TAB && (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
    const bool next = tab || (event.GetKeyCode() == WXK_F6 && event.GetModifiers() == 0);
    // Handles earlier keys first: this key may act on the rows or commands of the node that they selected.
    if (!movesInView(event)) perform([] {});
    if (!next || !tree_->IsShownOnScreen() || !list_->usable()) {
        event.Skip();
    } else if (tree_->HasFocus()) {
        list_->takeKeyboard();
    } else {
        tree_->SetFocus();
        gate_.run([](MainWindowEvents& events) { events.TreeView1_GotFocus(); });
    }
}

void WxMainFrame::onChildFocus(wxChildFocusEvent& event) {
    event.Skip();
    const wxWindow* focused = event.GetWindow();
    if (tree_->IsDescendant(const_cast<wxWindow*>(focused))) lastFocused_ = FocusedView::Tree;
    if (list_->IsDescendant(const_cast<wxWindow*>(focused))) lastFocused_ = FocusedView::List;
}

void WxMainFrame::onActivate(wxActivateEvent& event) {
    event.Skip();
    if (event.GetActive()) CallAfter(&WxMainFrame::restoreFocus);
}

void WxMainFrame::restoreFocus() {
    wxWindow* focused = FindFocus();
    if (!IsActive() || tree_->IsDescendant(focused) || list_->IsDescendant(focused)) return;
    if (lastFocused_ == FocusedView::List && list_->usable()) {
        list_->focus();
    } else if (tree_->IsShownOnScreen()) {
        tree_->SetFocus();
    }
}

}  // namespace trevandix
