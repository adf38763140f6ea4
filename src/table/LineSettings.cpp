#include "table/LineSettings.h"

#include "table/Columns.h"
#include "table/Plan.h"

namespace trevandix {

// As a table of these units with the settings as its columns.
ChangeSet changeLine(const Configuration& configuration, std::string_view port, const UnitTexts& settings) {
    Table table{};
    table.kind = NodeTag::Plc;
    table.places.resize(kUnitColumns.size());
    const auto place = [&](std::string UnitFields::*text) -> auto& {
        const auto column = std::ranges::find(kUnitColumns, text, &UnitColumn::text);
        return table.places[static_cast<std::size_t>(column - kUnitColumns.begin())];
    };
    place(&UnitFields::name) = 0;
    for (std::size_t i = 0; i < settings.size(); ++i) place(settings[i].first) = i + 1;
    for (const auto& [key, unit] : configuration.units) {
        const TreeNode* node = configuration.tree.find(key);
        if (unit->getCom() != port || node == nullptr || unitAround(configuration, node) != node) continue;
        Cells& cells = table.rows.emplace_back().cells;
        cells.push_back(unit->getName());
        for (const auto& [text, value] : settings) cells.push_back(value);
    }
    ChangeSet changes(configuration, table);
    changes.setStepName("Set line " + std::string(port));
    return changes;
}

}  // namespace trevandix
