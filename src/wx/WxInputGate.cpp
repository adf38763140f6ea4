#include "wx/WxInputGate.h"

#include <wx/evtloop.h>
#ifdef __WXMSW__
#include <wx/msw/wrapwin.h>
#endif

#include <algorithm>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

namespace {

// wx counts some notifications as user input because they propagate like it.
bool isInput(const wxEvent& event) {
    const wxEventType type = event.GetEventType();
    if (type == wxEVT_CHILD_FOCUS || type == wxEVT_CREATE || type == wxEVT_DESTROY) return false;
    return event.GetEventCategory() == wxEVT_CATEGORY_USER_INPUT;
}

// Only keyboard and mouse: other events also arrive without a user.
bool isFromUser(const wxEvent& event) {
    return event.IsKindOf(wxCLASSINFO(wxKeyEvent)) || event.IsKindOf(wxCLASSINFO(wxMouseEvent));
}

}  // namespace

WxInputGate::WxInputGate(wxWindow& window) : window_(window) {
    wxEvtHandler::AddFilter(this);
}

WxInputGate::~WxInputGate() {
    wxEvtHandler::RemoveFilter(this);
}

void WxInputGate::run(const Call& call) {
    if (busy() || events_ == nullptr) return;
    flush();
    perform(call);
}

void WxInputGate::post(Kind kind, Call call) {
    if (kind != Kind::Single)
        std::erase_if(waiting_, [kind](const auto& entry) { return entry.first == kind; });
    waiting_.emplace_back(kind, std::move(call));
    window_.CallAfter([this] { flush(); });
}

void WxInputGate::flush() {
    while (!busy() && !waiting_.empty()) {
        const Call call = std::move(waiting_.front().second);
        waiting_.pop_front();
        perform(call);
    }
}

void WxInputGate::perform(const Call& call) {
    if (events_ == nullptr) return;
    {
        const ScopedIncrement depth(depth_);
        call(*events_);
    }
    if (depth_ > 0) return;
    answerOthers();
    if (closeAsked_) {
        closeAsked_ = false;
        window_.CallAfter([this] { window_.Close(); });
    } else if (!waiting_.empty()) {
        window_.CallAfter([this] { flush(); });
    }
}

void WxInputGate::pump() {
    pumpFor(wxEVT_CATEGORY_ALL);
}

void WxInputGate::pumpFor(long categories) {
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    if (loop == nullptr || loop->IsYielding()) return;
    pumping_ = true;
    loop->YieldFor(categories);
    pumping_ = false;
}

// Windows would tell the wrong state of Ctrl and Shift if keys were taken out of its queue and put back.
#ifdef __WXMSW__
void WxInputGate::redraw() {
    constexpr int kMost = 100;  // as a window may ask to be drawn again and again
    MSG message;
    for (int i = 0; i < kMost; ++i) {
        if (!::PeekMessage(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE)) return;
        ::DispatchMessage(&message);
    }
}
#else
void WxInputGate::redraw() {
    pumpFor(wxEVT_CATEGORY_ALL & ~wxEVT_CATEGORY_USER_INPUT);
}
#endif

int WxInputGate::FilterEvent(wxEvent& event) {
    if (isFromUser(event)) lastInput_ = std::chrono::steady_clock::now();
    if (!pumping_) return Event_Skip;
    if (event.GetEventType() == wxEVT_CLOSE_WINDOW) {
        if (event.GetEventObject() == &window_) closeAsked_ = true;
        static_cast<wxCloseEvent&>(event).Veto();
        return Event_Processed;
    }
    return isInput(event) ? Event_Processed : Event_Skip;
}

}  // namespace trevandix
