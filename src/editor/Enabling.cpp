#include "editor/Enabling.h"

namespace trevandix {

namespace {

// One row a situation, one column a flag, as in the enum. T stands for enabled.
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

using Names = std::string_view;
constexpr std::array<Names, 3> kFileO{"mnuFile", "mnuNewCfg", "mnuOpenCfg"};
constexpr std::array<Names, 2> kFileOButtons{"new", "open"};
constexpr std::array<Names, 3> kFileS{"mnuSaveCfg", "mnuSaveAs", "mnuCloseCfg"};
constexpr std::array<Names, 2> kFileSButtons{"save", "close"};
constexpr std::array<Names, 5> kView{"mnuView", "mnuIcon", "mnuSmallIcon", "mnuList", "mnuReport"};
constexpr std::array<Names, 4> kViewButtons{"icon", "smallicon", "list", "report"};
constexpr std::array<Names, 2> kTools{"mnuTools", "mnuFind"};
constexpr std::array<Names, 10> kEntries{"mnuAddMBType", "mnuAddBranch",   "mnuAddItem", "mnuAddPlc",
                                         "mnuCopy",      "mnuCut",         "mnuPaste",   "mnuDelete",
                                         "mnuPasteName", "mnuPasteComment"};
constexpr std::array<Names, 11> kButtons{"modbus", "branch", "item",     "plc",         "copy", "cut",
                                         "paste",  "delete", "pastitem", "pastcomment", "find"};

constexpr std::span<const Names> one(const Names& name) {
    return {&name, 1};
}

constexpr std::array<FlagTargets, kFlagCount> kTargets{{
    {kFileO, kFileOButtons},
    {kFileS, kFileSButtons},
    {one(kEntries[0]), one(kButtons[0])},
    {one(kEntries[1]), one(kButtons[1])},
    {one(kEntries[2]), one(kButtons[2])},
    {one(kEntries[3]), one(kButtons[3])},
    {one(kEntries[4]), one(kButtons[4])},
    {one(kEntries[5]), one(kButtons[5])},
    {one(kEntries[6]), one(kButtons[6])},
    {one(kEntries[7]), one(kButtons[7])},
    {kView, kViewButtons},
    {kTools, one(kButtons[10])},
    {one(kEntries[8]), one(kButtons[8])},
    {one(kEntries[9]), one(kButtons[9])},
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

const FlagTargets& targetsOf(EnablingFlag flag) {
    return kTargets[flag];
}

void EnMenuButt(CommandBar& commands, const EnablingRow& row) {
    for (std::size_t flag = 0; flag < kFlagCount; ++flag) {
        for (const auto& menu : kTargets[flag].menus) commands.enableMenu(menu, row[flag]);
        for (const auto& button : kTargets[flag].buttons) commands.enableButton(button, row[flag]);
    }
    // Delete counts for the Objects menu and not for Edit, where it stands: kept, users know it so.
    commands.enableMenu("mnuObjects", row[ambO] || row[abrO] || row[aitO] || row[aplO] || row[dltO]);
    commands.enableMenu("mnuEdit", row[cpyO] || row[cutO] || row[pstO]);
}

}  // namespace trevandix
