#include "wx/WxTreeDrag.h"

#include <wx/settings.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace trevandix {

namespace {

constexpr int kScrollInterval = 60;  // milliseconds between two scroll steps near an edge
constexpr int kScrollEdge = 20;      // height of the scrolling edge, in device-independent pixels
constexpr int kUsualThreshold = 4;   // used when the system has no such setting

int threshold(wxSystemMetric metric, wxWindow& window) {
    const int pixels = wxSystemSettings::GetMetric(metric, &window);
    return pixels > 0 ? pixels : kUsualThreshold;
}

}  // namespace

WxTreeDrag::WxTreeDrag(WxTreeView& tree, WxInputGate& gate, WxPointer& pointer, OpenMenu openMenu)
    : tree_(tree), gate_(gate), pointer_(pointer), openMenu_(std::move(openMenu)) {
    tree_.Bind(wxEVT_RIGHT_DOWN, &WxTreeDrag::onPress, this);
    tree_.Bind(wxEVT_RIGHT_DCLICK, &WxTreeDrag::onPress, this);
    tree_.Bind(wxEVT_MOTION, &WxTreeDrag::onMotion, this);
    tree_.Bind(wxEVT_RIGHT_UP, &WxTreeDrag::onRelease, this);
    // A window that has captured the mouse gets no wxEVT_CHAR_HOOK.
    tree_.Bind(wxEVT_KEY_DOWN, &WxTreeDrag::onKey, this);
    tree_.Bind(wxEVT_MOUSE_CAPTURE_LOST, &WxTreeDrag::onCaptureLost, this);
    Bind(wxEVT_TIMER, &WxTreeDrag::onTimer, this);
}

// Does not skip the event: on some systems the control handles the right button itself.
void WxTreeDrag::onPress(wxMouseEvent& event) {
    if (state_ != State::Idle || gate_.busy()) return;
    tree_.SetFocus();
    TreeNode* node = tree_.nodeAt(event.GetPosition());
    const ShiftState shift{event.ShiftDown(), event.ControlDown(), event.AltDown()};
    draggable_ = false;
    gate_.run([&](MainWindowEvents& events) { draggable_ = events.TreeView1_MouseDown(node, shift); });
    pressedAt_ = event.GetPosition();
    state_ = State::Pressed;
    tree_.CaptureMouse();
}

bool WxTreeDrag::farEnough(const wxPoint& point) const {
    return std::abs(point.x - pressedAt_.x) > threshold(wxSYS_DRAG_X, tree_) ||
           std::abs(point.y - pressedAt_.y) > threshold(wxSYS_DRAG_Y, tree_);
}

void WxTreeDrag::onMotion(wxMouseEvent& event) {
    if (state_ == State::Idle) {
        event.Skip();
        return;
    }
    if (state_ == State::Pressed && draggable_ && farEnough(event.GetPosition())) start();
    if (state_ == State::Dragging) moveOver(tree_.nodeAt(event.GetPosition()));
}

void WxTreeDrag::start() {
    state_ = State::Dragging;
    over_ = nullptr;
    gate_.run(
        [this](MainWindowEvents& events) { copies_ = events.TreeView1_OLEStartDrag() == DropEffect::Copy; });
    showPointer();
    timer_.Start(kScrollInterval);
}

void WxTreeDrag::moveOver(TreeNode* node) {
    if (node == over_) return;
    over_ = node;
    gate_.run([node](MainWindowEvents& events) { events.TreeView1_OLEDragOver(node); });
    showPointer();
}

void WxTreeDrag::showPointer() {
    bool allowed = false;
    gate_.run([&](MainWindowEvents& events) { allowed = events.dropAllowed(over_); });
    const auto shape = copies_ ? WxPointer::Drag::Copy : WxPointer::Drag::Move;
    pointer_.showDrag(allowed ? shape : WxPointer::Drag::Refused);
}

void WxTreeDrag::onTimer(wxTimerEvent&) {
    const wxPoint point = tree_.ScreenToClient(wxGetMousePosition());
    const int edge = tree_.FromDIP(kScrollEdge);
    const int height = tree_.GetClientSize().GetHeight();
    int lines = 0;
    if (point.y < edge) lines = -1;
    if (point.y > height - edge) lines = 1;
    if (lines == 0 || !tree_.ScrollLines(lines)) return;
    tree_.Update();
    moveOver(tree_.nodeAt(point));
}

void WxTreeDrag::stop(State next) {
    timer_.Stop();
    state_ = next;
    over_ = nullptr;
    if (tree_.HasCapture()) tree_.ReleaseMouse();
}

void WxTreeDrag::cancel(State next) {
    const State before = state_;
    stop(next);
    if (before != State::Dragging) return;
    // Posted, because the mouse may have been taken by a message box of a command that is still running.
    gate_.post(WxInputGate::Kind::Single, [](MainWindowEvents& events) { events.dragCancelled(); });
    pointer_.endDrag();
}

void WxTreeDrag::onRelease(wxMouseEvent& event) {
    const State before = state_;
    if (before == State::Dragging) moveOver(tree_.nodeAt(event.GetPosition()));
    stop(State::Idle);
    if (before == State::Dragging) {
        // Restores the normal pointer first: the drop handler may set one that is to stay.
        pointer_.endDrag();
        gate_.run([](MainWindowEvents& events) { events.TreeView1_OLEDragDrop(); });
    } else if (before == State::Pressed) {
        if (const TreeNode* node = tree_.nodeAt(event.GetPosition())) tree_.pick(*node);
        openMenu_(event.GetPosition());
    }
}

void WxTreeDrag::onKey(wxKeyEvent& event) {
    if (state_ == State::Idle || event.GetKeyCode() != WXK_ESCAPE) {
        event.Skip();
        return;
    }
    cancel(State::Cancelled);
}

// Another program or a dialog has taken the mouse.
void WxTreeDrag::onCaptureLost(wxMouseCaptureLostEvent&) {
    cancel(State::Idle);
}

}  // namespace trevandix
