#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace trevandix {

class Configuration;
class clsPLC;
struct DataTypeFields;
struct ItemFields;
struct UnitFields;

/// Why what was entered is not accepted.
struct Refusal {
    std::string_view field;  ///< the invalid member of ItemFields, UnitFields or DataTypeFields
    std::string message;     ///< what the user is told
};

// Checks of entered fields. Each returns the first invalid one; nothing if all are valid.

/// Does not check whether the name is free.
std::optional<Refusal> refusal(const ItemFields& item);
/// Does not check whether the name is free. `edited` is the unit being edited, or nullptr.
std::optional<Refusal> refusal(const UnitFields& unit, const Configuration& configuration,
                               const clsPLC* edited);
/// Checks whether the name is free, unless an existing data type is `edited`.
std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited);

}  // namespace trevandix
