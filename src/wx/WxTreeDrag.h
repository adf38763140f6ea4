#pragma once

#include <wx/timer.h>

#include <functional>

#include "wx/WxInputGate.h"
#include "wx/WxServices.h"
#include "wx/WxTreeView.h"

namespace trevandix {

/// Handles the right mouse button in the tree: drags a node, or opens the context menu if the mouse was not
/// moved.
class WxTreeDrag : public wxEvtHandler {
public:
    using OpenMenu = std::function<void(const wxPoint&)>;

    WxTreeDrag(WxTreeView& tree, WxInputGate& gate, WxPointer& pointer, OpenMenu openMenu);

private:
    /// Cancelled: the button is still down, but will cause neither a drop nor a menu.
    enum class State { Idle, Pressed, Dragging, Cancelled };

    void onPress(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void onRelease(wxMouseEvent& event);
    void onKey(wxKeyEvent& event);
    void onCaptureLost(wxMouseCaptureLostEvent& event);
    void onTimer(wxTimerEvent& event);
    void start();
    void moveOver(TreeNode* node);
    void showPointer();
    void stop(State next);
    void cancel(State next);
    bool farEnough(const wxPoint& point) const;

    WxTreeView& tree_;
    WxInputGate& gate_;
    WxPointer& pointer_;
    OpenMenu openMenu_;
    wxTimer timer_{this};
    State state_ = State::Idle;
    bool draggable_ = false;
    bool copies_ = false;
    wxPoint pressedAt_;
    TreeNode* over_ = nullptr;
};

}  // namespace trevandix
