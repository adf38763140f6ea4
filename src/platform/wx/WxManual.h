#pragma once

#include <wx/event.h>

namespace trevandix {

/// Opens the manual in the system's browser; where it is not installed, a box says where it was looked for.
void showManual();

/// True when the key asks for the manual, which then has been opened.
bool followsManualKey(const wxKeyEvent& event);

}  // namespace trevandix
