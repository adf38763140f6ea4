#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "check/Finding.h"
#include "check/Intended.h"
#include "check/Pulse.h"
#include "model/Configuration.h"

namespace trevandix {

/// Looks at the whole configuration with all rules; a closed one has no findings. Findings come in the order
/// of the rules, those of one rule in the order of the tree, but data types first. At most one finding for
/// each rule and object. `interrupted` is asked every few milliseconds; as soon as it says true there is no
/// result.
std::optional<std::vector<Finding>> check(
    const Configuration& configuration, const std::function<bool()>& interrupted = [] { return false; });

/// An item that is to get another name.
struct IntendedName {
    Key item;
    std::string name;
};

/// For each of the names the text of the first finding that the items would have once all of them are
/// renamed, and do not have now; empty where there is none.
std::vector<std::string> findingsAdded(const Configuration& configuration,
                                       std::span<const IntendedName> names);
/// The same for each of the items, once all of them are changed or added, and of the units. Errors:
/// Interrupted, by the pulse.
std::vector<std::string> findingsAdded(const Configuration& configuration,
                                       std::span<const IntendedItem> items, Pulse& pulse);
std::vector<std::string> findingsAdded(const Configuration& configuration,
                                       std::span<const IntendedUnit> units, Pulse& pulse);

/// The first text that keeps other programs from reading the configuration's file, or lets them read
/// something else, as a user would name it: `PLC1.Area.Level: comment holds "&"`. Empty where all can read
/// it. Takes less time than `check`.
std::string firstUnreadable(const Configuration& configuration);

}  // namespace trevandix
