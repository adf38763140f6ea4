#include <algorithm>
#include <unordered_map>

#include "model/ValueTypes.h"
#include "table/Plan.h"

namespace trevandix {

namespace {

constexpr std::size_t kName = columnCalled("Name", kTypeColumns);

class TypePlan : public Plan {
public:
    TypePlan(const Configuration& configuration, const Table& table) : configuration_(configuration) {
        for (const ModbusTable& each : modbusTables()) names_.emplace_back(each.label);
        for (const CsvRow& row : table.rows) add(table, row);
    }

    void apply(Configuration& configuration, const TableProgress& tell) const override {
        Progress progress(tell, changes.size());
        for (std::size_t i = 0; i < changes.size(); ++i) {
            progress.step();
            if (changes[i].refused()) continue;
            if (changes[i].adds)
                configuration.tree.ensureVisible(configuration.addDataType(records_[i]));
            else
                configuration.replaceDataType(records_[i].getName(), records_[i]);
        }
    }

private:
    void add(const Table& table, const CsvRow& row) {
        const std::string& name = *table.cell(row, kName);
        const auto old = configuration_.dataTypes.find(name);
        IntendedChange change{.line = row.line, .object = name, .adds = old == nullptr};
        const DataTypeFields before = old != nullptr ? old->texts() : DataTypeFields{};
        DataTypeFields fields = before;
        if (old == nullptr) {
            const ModbusTable* usual = tableOf(name);
            if (usual != nullptr) fields = clsModBusType::usual(*usual).texts();
            fields.name = name;
        }
        const bool put = putCells(kTypeColumns, table, row, fields);
        fields.single = !fields.singleCode.empty() && !isReadOnly(name);
        const auto [first, isFirst] = lines_.try_emplace(name, row.line);
        if (!isFirst) {
            change.refusal = secondRow(first->second);
        } else if (!put && old != nullptr) {
            return;
        }
        clsModBusType record;
        judge(change, before, fields, record);
        if (!change.refused() && change.fields.empty()) return;
        changes.push_back(std::move(change));
        records_.push_back(std::move(record));
    }

    void judge(IntendedChange& change, const DataTypeFields& before, const DataTypeFields& fields,
               clsModBusType& record) const {
        DataTypeFields after = fields;
        ColumnSet changed = differences(kTypeColumns, before, fields);
        std::string failure;
        try {
            record.SetByForm(fields);
            after = record.texts();
            if (!change.adds) changed = differences(kTypeColumns, before, after);
        } catch (const RuntimeError& error) {
            failure = error.what();
        }
        change.fields = fieldChanges(kTypeColumns, changed, before, after);
        if (change.refused()) return;
        change.refusal = reasonAgainst(kTypeColumns, change.adds ? valueColumns(kTypeColumns) : changed,
                                       fields, refusals(fields, configuration_, !change.adds),
                                       [&](std::size_t i) { return i == kName ? &names_ : nullptr; });
        if (!change.refused()) change.refusal = failure;
        if (!change.refused() && change.adds) change.refusal = placeRefusal(change.object);
    }

    // A data type that has lost its record has a node to which the new one belongs.
    std::string placeRefusal(const Key& name) const {
        if (configuration_.tree.find(Key(kModBusFolder)) == nullptr) return "There is no ModBus folder";
        const TreeNode* node = configuration_.tree.find(name);
        return node == nullptr || node->tag() == NodeTag::DataType ? "" : kNameTaken;
    }

    const Configuration& configuration_;
    std::vector<std::string> names_;
    std::unordered_map<std::string, std::size_t> lines_;  // of the rows by name
    std::vector<clsModBusType> records_;                  // of the changes
};

}  // namespace

std::unique_ptr<Plan> planTypes(const Configuration& configuration, const Table& table,
                                const TableProgress&) {
    return std::make_unique<TypePlan>(configuration, table);
}

}  // namespace trevandix
