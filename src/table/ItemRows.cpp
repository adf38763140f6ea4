#include "table/ItemRows.h"

#include "model/ValueTypes.h"

namespace trevandix {

namespace {

constexpr std::size_t kBit = columnCalled("Bit", kItemColumns);
constexpr std::size_t kElements = columnCalled("Elements", kItemColumns);

// As the dialog does: what the type does not have is "0", and so is what nobody has entered for a type that
// has it.
void complete(ItemFields& fields, const ItemFields& before, bool otherType, bool givesBit,
              bool givesElements) {
    if (!hasBitNumber(fields.table, fields.type))
        fields.bit = otherType ? "0" : before.bit;
    else if (fields.bit.empty() && !givesBit)
        fields.bit = "0";
    if (hasElements(fields.type) && fields.elements.empty() && !givesElements) fields.elements = "0";
}

}  // namespace

ItemRows::ItemRows(const Configuration& configuration, const Table& table)
    : configuration_(configuration), table_(table), bits_(bitNumbers()) {
    for (const auto& [key, type] : configuration.dataTypes) tables_.push_back(type->getName());
}

ItemOutcome ItemRows::outcome(const CsvRow& row, const Key& container, const TreeNode* node,
                              const std::string& name) const {
    ItemOutcome made{.adds = node == nullptr};
    const auto old = made.adds ? nullptr : configuration_.items.at(node->key());
    if (!made.adds) made.before = made.fields = old->texts();
    const bool differs = putCells(kItemColumns, table_, row, made.fields);
    if (!made.adds && !differs && name == made.before.name) return made;
    made.fields.name = name;
    const bool otherType =
        made.adds || made.fields.table != made.before.table || made.fields.type != made.before.type;
    complete(made.fields, made.before, otherType, table_.cell(row, kBit) != nullptr,
             table_.cell(row, kElements) != nullptr);
    if (!otherType) made.record = *old;
    made.after = made.fields;
    try {
        made.record.SetByForm(made.fields, container);
        if (!otherType) made.record.sDataType(old->sDataType());
        made.after = made.record.texts();
    } catch (const RuntimeError& error) {
        made.failure = error.what();
    }
    made.changed = differences(kItemColumns, made.before, made.after);
    return made;
}

std::string ItemRows::reason(const ItemOutcome& made) {
    const ColumnSet set = made.adds ? valueColumns(kItemColumns) : judged(kItemColumns, made.changed);
    const std::string reason =
        reasonAgainst(kItemColumns, set, made.fields, refusals(made.fields),
                      [&](std::size_t column) { return choices(column, made.fields); });
    return reason.empty() ? made.failure : reason;
}

const ItemRows::Texts* ItemRows::choices(std::size_t column, const ItemFields& item) {
    const auto text = kItemColumns.at(column).text;
    if (text == &ItemFields::table) return &tables_;
    if (text == &ItemFields::bit) return hasBitNumber(item.table, item.type) ? &bits_ : nullptr;
    if (text != &ItemFields::type && text != &ItemFields::accessRight) return nullptr;
    auto& [types, rights] = ofTable_[item.table];
    if (types.empty()) {
        types = valueTypesOf(item.table);
        rights = accessRightsOf(item.table);
    }
    return text == &ItemFields::type ? &types : &rights;
}

}  // namespace trevandix
