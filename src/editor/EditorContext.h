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

/// What every family of commands works on. Owned by `frmEditing`.
struct EditorContext {
    Platform& platform;
    Configuration& configuration;
    ListView& list;
    StatusNews& news;

    StructureTree& tree() const { return configuration.tree; }
    const EditingState& state() const { return configuration.state; }

    /// Switches the commands for a situation. Without an open configuration only Start and Busy have an
    /// effect, so that nothing can be saved over a file that could not be read.
    void enable(Situation situation) const;

    /// Runs a handler; its failure is shown with the handler's name.
    bool guarded(std::string_view procedure, const std::function<void()>& body) const;

    /// Empties the view: tree and list hidden and cleared, copy buffer and paste counter as at the start.
    /// Leaves collections, flags and counters alone.
    void InitObjects() const;
};

}  // namespace trevandix
