#pragma once

#include <optional>
#include <string>

#include "model/Configuration.h"
#include "platform/Form.h"
#include "platform/Services.h"

namespace trevandix {

/// What an address is wanted for.
struct FreeAddressFields {
    std::string table;  ///< label of a Modbus table
    std::string type;   ///< label of a value type of the table
    std::string elements;
};

/// Asks for what a free address is wanted; nothing if the user cancels. Proposes `proposed` as far as the
/// configuration has its data type. The answer is valid.
std::optional<FreeAddressFields> showFrmFreeAddress(Forms& forms, Messages& messages,
                                                    const Configuration& configuration,
                                                    const FreeAddressFields& proposed);

}  // namespace trevandix
