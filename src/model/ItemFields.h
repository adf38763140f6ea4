#pragma once

#include <optional>
#include <string>

#include "model/Refusal.h"

namespace trevandix {

/// An item as it is entered: the text of each field, not yet converted.
struct ItemFields {
    std::string name;
    std::string comment;
    std::string table;  ///< name of a data type
    std::string type;   ///< label of a value type
    std::string address;
    std::string bit;       ///< counts where `hasBitNumber`
    std::string elements;  ///< counts where `hasElements`
    std::string accessRight;
};

/// The first field that is not valid; nothing when all are. Whether the name is free is another question.
std::optional<Refusal> refusal(const ItemFields& item);

}  // namespace trevandix
