#pragma once

#include <array>
#include <cstddef>

#include "editor/MainWindow.h"
#include "model/StructureTree.h"

namespace trevandix {

/// The fourteen switches, in their fixed order.
enum EnablingFlag : std::size_t {
    fileO,
    fileS,
    ambO,
    abrO,
    aitO,
    aplO,
    cpyO,
    cutO,
    pstO,
    dltO,
    vewO,
    tolO,
    pNa,
    pCo,
    kFlagCount
};
/// Of a command that no switch turns off.
inline constexpr EnablingFlag kAlways = kFlagCount;

/// Which commands are usable: one row of switches.
using EnablingRow = std::array<bool, kFlagCount>;

/// Everything that decides a row.
enum class Situation {
    Start,  ///< no configuration is open
    AfterNew,
    Config,
    ModBus,
    DataType,
    Plc,
    Branch,
    BranchWithItemFirst,  ///< a branch whose first child is an item
    Item,
    Busy,  ///< a file is being read
};

const EnablingRow& enablingRow(Situation situation);
Situation situationOf(NodeTag tag);

/// Sets every menu, entry and toolbar button to its switch.
void EnMenuButt(CommandBar& commands, const EnablingRow& row);

}  // namespace trevandix
