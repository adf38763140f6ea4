#include "platform/wx/WxMainFrame.h"

#include <wx/display.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <array>
#include <cmath>

#include "Version.h"
#include "platform/wx/WxAboutBox.h"
#include "platform/wx/WxIcons.h"
#include "platform/wx/WxText.h"

namespace trevandix {

namespace {

constexpr double kScreenShare = 0.8;
constexpr int kStatusFields = 4;
constexpr int kSmallestPane = 120;
constexpr int kSmallestWidth = 480;
constexpr int kSmallestHeight = 320;

wxString windowCaption() {
    return toWx(kCompany) + " - " + toWx(kProduct);
}

}  // namespace

WxMainFrame::WxMainFrame(const CommandTables& tables, StructureTree& tree, ListView& list, WxPointer& pointer)
    : wxFrame(nullptr, wxID_ANY, windowCaption(), wxDefaultPosition, wxDefaultSize, wxDEFAULT_FRAME_STYLE,
              "frmEditing") {
    SetIcons(programIcons());
    placeOnScreen();  // first of all: the toolbar cannot be laid out in a window without width
    commands_ = std::make_unique<WxCommands>(*this, tables, [this](std::string_view command) {
        gate_.run([command](MainWindowEvents& events) { events.commandChosen(command); });
    });
    CreateStatusBar(kStatusFields);
    static constexpr std::array<int, kStatusFields> kWidths{-4, -3, -2, -4};
    SetStatusWidths(kStatusFields, kWidths.data());
    Centre();
    buildViews(tree, list, pointer);
    Bind(wxEVT_CLOSE_WINDOW, &WxMainFrame::onClose, this);
    Bind(wxEVT_CHAR_HOOK, &WxMainFrame::onKey, this);
    Bind(wxEVT_CHILD_FOCUS, &WxMainFrame::onChildFocus, this);
    Bind(wxEVT_ACTIVATE, &WxMainFrame::onActivate, this);
}

WxMainFrame::~WxMainFrame() {
    gate_.attach(nullptr);
    drag_.reset();
    DestroyChildren();  // while the members that they report to still live
}

void WxMainFrame::placeOnScreen() {
    const wxRect screen = wxDisplay(this).GetClientArea();
    SetMinSize(FromDIP(wxSize(kSmallestWidth, kSmallestHeight)));
    wxRect place(wxPoint(), wxSize(static_cast<int>(screen.width * kScreenShare),
                                   static_cast<int>(screen.height * kScreenShare)));
    SetSize(place.CentreIn(screen));
}

void WxMainFrame::buildViews(StructureTree& tree, ListView& list, WxPointer& pointer) {
    const auto workspace = wxSystemSettings::GetColour(wxSYS_COLOUR_APPWORKSPACE);
    body_ = new wxPanel(this);
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

    splitter_->SplitVertically(treePane_, list_, static_cast<int>(GetClientSize().GetWidth() * treeShare_));
    splitter_->SetSashGravity(treeShare_);  // not zero, or the control would not ask below
    // The share that the user chose is what changes of size keep.
    splitter_->Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [this](wxSplitterEvent& event) {
        const int width = splitter_->GetClientSize().GetWidth();
        if (width > 0 && event.GetSashPosition() > 0) treeShare_ = double(event.GetSashPosition()) / width;
    });
    splitter_->Bind(wxEVT_SPLITTER_SASH_POS_RESIZE, [this](wxSplitterEvent& event) {
        event.SetSashPosition(
            static_cast<int>(std::lround(splitter_->GetClientSize().GetWidth() * treeShare_)));
    });
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
    if (visible) tree_->SetFocus();
}

void WxMainFrame::focusTree() {
    if (!IsActive()) Raise();
    tree_->SetFocus();
    lastFocused_ = FocusedView::Tree;
}

void WxMainFrame::openMenu(wxWindow& window, const wxPoint& point) {
    // First what the click itself does: it decides which commands are enabled.
    perform([] {});
    commands_->popUp(window, point, {"mnuObjects", "mnuEdit"});
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

void WxMainFrame::onClose(wxCloseEvent& event) {
    if (gate_.busy() && event.CanVeto()) {
        gate_.closeLater();
        event.Veto();
        return;
    }
    close();
}

void WxMainFrame::setStatus(StatusField field, std::string_view text) {
    SetStatusText(toWx(text), static_cast<int>(field));
}

void WxMainFrame::showAboutBox() {
    WxAboutBox box(this);
    box.ShowModal();
}

// Tab and F6 go from one view to the other; toolbar and menu bar have keys of their own.
void WxMainFrame::onKey(wxKeyEvent& event) {
    const bool tab = event.GetKeyCode() == WXK_TAB && (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
    const bool next = tab || (event.GetKeyCode() == WXK_F6 && event.GetModifiers() == 0);
    if (!next || !tree_->IsShownOnScreen() || !list_->usable()) {
        event.Skip();
    } else if (tree_->HasFocus()) {
        list_->focus();
    } else {
        tree_->SetFocus();
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
