#pragma once

#include <wx/event.h>

namespace trevandix {

/// Opens the manual in the system's browser; where that fails, a box says why and names the file.
void showManual();

/// True when the key asks for the manual, which then has been opened.
bool followsManualKey(const wxKeyEvent& event);

}  // namespace trevandix
