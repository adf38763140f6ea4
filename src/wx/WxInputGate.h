#pragma once

#include <wx/eventfilter.h>
#include <wx/window.h>

#include <chrono>
#include <deque>
#include <functional>

#include "editor/MainWindow.h"

namespace trevandix {

/// Passes events from the main window's controls to the editor, one at a time. While the editor works, input
/// is dropped, and a request to close the window waits until the work is done.
class WxInputGate : public wxEventFilter {
public:
    using Call = std::function<void(MainWindowEvents&)>;
    /// Of several waiting calls of one kind, except Single, only the last is made.
    enum class Kind { TreeClick, ListClick, Single };

    explicit WxInputGate(wxWindow& window);
    ~WxInputGate() override;

    /// Not owned. nullptr stops all calls.
    void attach(MainWindowEvents* events) { events_ = events; }
    MainWindowEvents* attached() const { return events_; }

    /// Makes the waiting calls and then this one. Does nothing while another call is running.
    void run(const Call& call);
    /// Makes the call after the control has finished handling the current event.
    void post(Kind kind, Call call);

    bool busy() const { return depth_ > 0 || pumping_; }
    /// Whether a command lets the windows be redrawn.
    bool pumping() const { return pumping_; }
    /// Closes the window when the current work is done.
    void closeLater() { closeAsked_ = true; }
    /// Handles pending events so that the windows are redrawn. Input is dropped.
    void pump();
    /// Redraws the windows. Input waits.
    void redraw();

    /// The last keyboard or mouse input in any window of the program.
    std::chrono::steady_clock::time_point lastInput() const { return lastInput_; }

    int FilterEvent(wxEvent& event) override;

private:
    void flush();
    void perform(const Call& call);
    void pumpFor(long categories);

    wxWindow& window_;
    MainWindowEvents* events_ = nullptr;
    std::deque<std::pair<Kind, Call>> waiting_;
    int depth_ = 0;
    bool pumping_ = false;
    bool closeAsked_ = false;
    std::chrono::steady_clock::time_point lastInput_ = std::chrono::steady_clock::now();
};

}  // namespace trevandix
