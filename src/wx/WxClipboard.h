#pragma once

#include "platform/Services.h"

namespace trevandix {

/// The system's clipboard. Empty when it holds no text or another program keeps it locked.
class WxClipboard : public Clipboard {
public:
    std::string text() override;
};

}  // namespace trevandix
