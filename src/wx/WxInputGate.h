#pragma once

#include <wx/eventfilter.h>
#include <wx/window.h>

#include <chrono>
#include <deque>
#include <functional>

#include "platform/MainWindow.h"

namespace trevandix {

/// The one way by which the main window's controls reach the editor. While the editor is at work nothing else
/// gets through: input that arrives in between is dropped, and a wish to close the window waits until the
/// work is done.
class WxInputGate : public wxEventFilter {
public:
    using Call = std::function<void(MainWindowEvents&)>;
    /// Calls of one kind that wait together are one: only the last is made.
    enum class Kind { TreeClick, ListClick, Single };

    explicit WxInputGate(wxWindow& window);
    ~WxInputGate() override;

    /// Not owned; nullptr ends all calls.
    void attach(MainWindowEvents* events) { events_ = events; }
    MainWindowEvents* attached() const { return events_; }

    /// Makes the call now, after those that wait. Does nothing while another is under way.
    void run(const Call& call);
    /// Makes the call when the control that raised the event has finished with it.
    void post(Kind kind, Call call);

    bool busy() const { return depth_ > 0 || pumping_; }
    /// Remembers to close the window at the end of the work.
    void closeLater() { closeAsked_ = true; }
    /// Lets the windows draw.
    void pump();

    /// When the user last did anything, in whichever window.
    std::chrono::steady_clock::time_point lastInput() const { return lastInput_; }

    int FilterEvent(wxEvent& event) override;

private:
    void flush();
    void perform(const Call& call);

    wxWindow& window_;
    MainWindowEvents* events_ = nullptr;
    std::deque<std::pair<Kind, Call>> waiting_;
    int depth_ = 0;
    bool pumping_ = false;
    bool closeAsked_ = false;
    std::chrono::steady_clock::time_point lastInput_ = std::chrono::steady_clock::now();
};

}  // namespace trevandix
