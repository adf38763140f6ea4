#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "model/clsItem.h"
#include "model/clsPLC.h"

namespace trevandix {

/// Numbers of the next default names.
struct Counters {
    std::int16_t unitCounter = 0;
    std::int16_t branchCounter = 0;
    std::uint32_t itemCounter = 0;  ///< wider than the others: a plant may have more than 32767 items
    std::int16_t dataTypeCounter = 0;
};

/// What all windows share about the open configuration.
struct EditingState : Counters {
    /// Has a value from the start, so that a closed interface dialog never leaves a configuration without a
    /// kind.
    std::string interfaceKind{kTcpIp};
    bool configurationOpen = false;
    bool saved = false;
    std::string filePath;
    /// References to live records from slot 1 on; slot 0 is never filled.
    std::vector<std::shared_ptr<const clsItem>> copyBuffer;
    std::int16_t pasteCounter = 0;
};

}  // namespace trevandix
