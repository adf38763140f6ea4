#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

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

/// Function codes of a standard table; an empty code is one that the table does not have.
struct DataTypePreset {
    std::string_view name;
    std::string_view readCode;
    std::string_view writeCode;
    std::string_view singleCode;
};
/// The tables that are offered, in that order.
inline constexpr std::array kDataTypePresets{
    DataTypePreset{"input status", "2", "", ""},
    DataTypePreset{"coil", "1", "15", "5"},
    DataTypePreset{"input register", "4", "", ""},
    DataTypePreset{"holding register", "3", "16", "6"},
};

/// The first field that is not valid in the configuration; nothing when all are. While a data type is
/// `edited`, its name is not looked for.
std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited);

}  // namespace trevandix
