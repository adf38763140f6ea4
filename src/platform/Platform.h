#pragma once

#include <string>

#include "platform/Form.h"
#include "platform/MainWindow.h"
#include "platform/Messages.h"
#include "platform/Services.h"
#include "platform/Xml.h"

namespace trevandix {

/// Everything that the editor asks of the system, handed over by `main` or by a test. Nothing here is owned.
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
    std::string programFolder;  ///< where New proposes its file, without a trailing separator
    std::string stateFolder{};  ///< where unsaved work is kept for a crash; empty for nowhere
};

}  // namespace trevandix
