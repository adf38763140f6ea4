#include "editor/Enabling.h"

#include "editor/CommandTable.h"

namespace trevandix {

namespace {

// A row for each Situation, a column for each EnablingFlag, in the order of the enums. T: enabled.
constexpr bool T = true;
constexpr bool o = false;
constexpr std::array<EnablingRow, 10> kRows{{
    // fileO fileS ambO abrO aitO aplO cpyO cutO pstO dltO vewO tolO pNa pCo
    {T, o, o, o, o, o, o, o, o, o, o, o, o, o},  // Start
    {T, T, o, o, o, T, o, o, o, o, o, T, o, o},  // AfterNew
    {T, T, o, o, o, T, o, o, T, o, T, T, o, o},  // Config
    {T, T, T, o, o, o, o, o, o, o, T, T, o, o},  // ModBus
    {T, T, o, o, o, o, o, o, o, T, o, T, o, o},  // DataType
    {T, T, o, T, T, o, o, o, o, T, T, T, o, o},  // Plc
    {T, T, o, T, T, o, o, o, T, T, T, T, o, o},  // Branch
    {T, T, T, T, T, o, o, o, T, T, T, T, T, T},  // BranchWithItemFirst
    {T, T, o, o, o, o, T, T, o, T, T, T, T, T},  // Item
    {o, o, o, o, o, o, o, o, o, o, o, o, o, o},  // Busy
}};

}  // namespace

const EnablingRow& enablingRow(Situation situation) {
    return kRows[static_cast<std::size_t>(situation)];
}

Situation situationOf(NodeTag tag) {
    switch (tag) {
        case NodeTag::Config:
            return Situation::Config;
        case NodeTag::ModBus:
            return Situation::ModBus;
        case NodeTag::DataType:
            return Situation::DataType;
        case NodeTag::Plc:
            return Situation::Plc;
        case NodeTag::Branch:
            return Situation::Branch;
        case NodeTag::Item:
            return Situation::Item;
    }
    return Situation::Start;
}

void EnMenuButt(CommandBar& commands, const EnablingRow& row) {
    for (const CommandRow& command : commandRows()) {
        if (command.flag == kAlways) continue;
        commands.enableMenu(command.name, row[command.flag]);
        if (!command.button.key.empty()) commands.enableButton(command.button.key, row[command.flag]);
    }
    commands.enableMenu("mnuFile", row[fileO]);
    // The switch of Delete enables the Objects menu, although its entry is in the Edit menu.
    commands.enableMenu("mnuObjects", row[ambO] || row[abrO] || row[aitO] || row[aplO] || row[dltO]);
    commands.enableMenu("mnuEdit", row[cpyO] || row[cutO] || row[pstO]);
    commands.enableMenu("mnuView", row[vewO]);
    commands.enableMenu("mnuTools", row[tolO]);
}

}  // namespace trevandix
