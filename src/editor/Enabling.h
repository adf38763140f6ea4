#pragma once

#include <array>
#include <cstddef>

#include "editor/MainWindow.h"
#include "model/StructureTree.h"

namespace trevandix {

/// Switches of the commands. A command has one switch, a switch may belong to several commands.
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
/// The flag of a command that is always enabled.
inline constexpr EnablingFlag kAlways = kFlagCount;

/// The states of all switches, in the order of EnablingFlag.
using EnablingRow = std::array<bool, kFlagCount>;

/// What the user works on, which decides the enabled commands.
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

/// Enables or disables every menu, menu entry and toolbar button according to its switch.
void EnMenuButt(CommandBar& commands, const EnablingRow& row);

}  // namespace trevandix
