#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

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

// Checks of entered fields. `refusals` returns every invalid one in the order of the dialog's check,
// `refusal` the first of them; none if all are valid.

/// Does not check whether the name is free.
std::vector<Refusal> refusals(const ItemFields& item);
std::optional<Refusal> refusal(const ItemFields& item);

/// The units with which one is compared. Of those on the same serial line only the first counts.
using OtherUnits = std::span<const clsPLC* const>;
/// Does not check whether the name is free. `edited` is the unit being edited, or nullptr.
std::vector<Refusal> refusals(const UnitFields& unit, std::string_view interfaceKind, OtherUnits others,
                              const clsPLC* edited);
/// Compares with all units of the configuration.
std::optional<Refusal> refusal(const UnitFields& unit, const Configuration& configuration,
                               const clsPLC* edited);

/// Checks whether the name is free, unless an existing data type is `edited`.
std::vector<Refusal> refusals(const DataTypeFields& type, const Configuration& configuration, bool edited);
std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited);

}  // namespace trevandix
