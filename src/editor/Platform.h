#pragma once

#include <string>

#include "editor/MainWindow.h"
#include "platform/Form.h"
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

}  // namespace trevandix
