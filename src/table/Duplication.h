#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "table/ChangeSet.h"

namespace trevandix {

/// Copies of a branch or unit beside it.
struct Duplication {
    std::string name;          ///< of the first copy; those of the others go on from it
    std::size_t copies = 1;    ///< not 0
    std::int64_t move = 0;     ///< added to the addresses of the first copy, twice to those of the second
    std::string identifier{};  ///< of the first copy of a unit; the others count on
};

/// A name that goes on from another: the number at its end, if it has one, is raised. "PUMP09" and 3 make
/// "PUMP12", "PUMP" and 1 make "PUMP2".
std::string nameBehind(std::string_view name, std::size_t steps);

/// What it takes to copy the node, which is a branch or a unit, with the branches and items below it. Each
/// copy has records of its own. Below a refused copy nothing is intended. A remark says where an item of a
/// copied branch shares registers or bits with an item that is there already.
ChangeSet duplicate(const Configuration& configuration, TreeNode& node, const Duplication& wanted);

}  // namespace trevandix
