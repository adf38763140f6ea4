#pragma once

#include <optional>
#include <string>

#include "model/Configuration.h"
#include "model/Refusal.h"

namespace trevandix {

/// A data type as it is entered: codes as texts, not yet converted.
struct DataTypeFields {
    std::string name;
    std::string readCode;
    std::string writeCode;   ///< counts where the name has no "input"
    bool single = false;     ///< single values are written by a function of their own
    std::string singleCode;  ///< counts where `single`
};

/// The first field that is not valid in the configuration; nothing when all are. While a data type is
/// `edited`, its name is not looked for.
std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited);

}  // namespace trevandix
