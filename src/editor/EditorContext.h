#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "editor/Enabling.h"
#include "editor/MainWindow.h"
#include "editor/StatusNews.h"
#include "model/Configuration.h"
#include "platform/Form.h"
#include "platform/ListView.h"
#include "platform/Services.h"
#include "platform/Xml.h"

namespace trevandix {

/// Everything the editor needs from the system, provided by `main` or by a test. Owns nothing.
struct Platform {
    Messages& messages;
    FileDialog& fileDialog;
    Clipboard& clipboard;
    Registry& registry;
    MousePointer& pointer;
    XmlParser& xmlParser;
    Forms& forms;
    MainWindow& window;
    CommandBar& commands;
    std::string programFolder;  ///< default folder for New, without a trailing separator
    std::string stateFolder{};  ///< folder for recovery files; empty for none
};

/// What each class of commands works on. Owned by `frmEditing`.
struct EditorContext {
    Platform& platform;
    Configuration& configuration;
    ListView& list;
    StatusNews& news;

    StructureTree& tree() const { return configuration.tree; }
    const EditingState& state() const { return configuration.state; }

    /// Enables the commands of a situation. While no configuration is open, ignores every situation but Start
    /// and Busy, so that nothing can be saved over a file that could not be read.
    void enable(Situation situation) const;

    /// Runs a handler. On an error, shows it with the name `procedure` and returns false.
    bool guarded(std::string_view procedure, const std::function<void()>& body) const;

    /// Hides and clears tree and list, and resets copy buffer and paste counter. Keeps records, flags and the
    /// other counters.
    void InitObjects() const;
};

}  // namespace trevandix
