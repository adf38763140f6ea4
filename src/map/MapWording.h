#pragma once

#include <string>

#include "map/RegisterMap.h"

// How the register map tells what it shows.

namespace trevandix {

/// A table with the totals, in two lines: "coil: 3 used, 65533 free", "largest free stretch 65500 (36 to
/// 65535)".
std::string titleText(const TableMap& table);
/// The free stretch around a place of a table that is free: "free: 153 registers, 43 to 195".
std::string freeText(const TableMap& table, std::int64_t place);
/// Key, then place or why there is none, type and access right, then comment, in lines.
std::string itemText(const Configuration& configuration, const Key& item);

}  // namespace trevandix
