#pragma once

#include "platform/Messages.h"

namespace trevandix {

/// The system's message boxes, in front of the window that is active.
class WxMessages : public Messages {
public:
    Answer show(std::string_view text, Buttons buttons, Icon icon) override;
};

}  // namespace trevandix
