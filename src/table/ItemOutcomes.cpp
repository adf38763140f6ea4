#include "table/ItemOutcomes.h"

#include "model/ValueTypes.h"

namespace trevandix {

namespace {

// As the dialog does: what the type does not have is "0", and so is what nobody has entered for a type that
// has it.
void complete(ItemFields& fields, const ItemFields& before, bool otherType, Entered entered) {
    if (!hasBitNumber(fields.table, fields.type))
        fields.bit = otherType ? "0" : before.bit;
    else if (fields.bit.empty() && !entered.bit)
        fields.bit = "0";
    if (hasElements(fields.type) && fields.elements.empty() && !entered.elements) fields.elements = "0";
}

}  // namespace

ItemOutcomes::ItemOutcomes(const Configuration& configuration)
    : configuration_(configuration), bits_(bitNumbers()) {
    for (const auto& [key, type] : configuration.dataTypes) tables_.push_back(type->getName());
}

ItemOutcome ItemOutcomes::begun(const TreeNode* node) const {
    ItemOutcome made;
    if (node == nullptr) return made;
    made.old = configuration_.items.at(node->key());
    made.before = made.fields = made.old->texts();
    return made;
}

void ItemOutcomes::end(ItemOutcome& made, const Key& container, Entered entered) {
    const bool otherType =
        made.old == nullptr || made.fields.table != made.before.table || made.fields.type != made.before.type;
    complete(made.fields, made.before, otherType, entered);
    if (!otherType) made.record = *made.old;
    made.after = made.fields;
    try {
        made.record.SetByForm(made.fields, container);
        if (!otherType) made.record.sDataType(made.old->sDataType());
        made.after = made.record.texts();
        made.after.type = made.fields.type;  // which a record of coils would hide
    } catch (const RuntimeError& error) {
        made.failure = error.what();
    }
    made.changed = differences(kItemColumns, made.before, made.after);
}

std::string ItemOutcomes::reason(const ItemOutcome& made) {
    const ColumnSet set =
        made.old == nullptr ? valueColumns(kItemColumns) : judged(kItemColumns, made.changed);
    const std::string reason =
        reasonAgainst(kItemColumns, set, made.fields, refusals(made.fields),
                      [&](std::size_t column) { return choices(column, made.fields); });
    return reason.empty() ? made.failure : reason;
}

const ItemOutcomes::Texts* ItemOutcomes::choices(std::size_t column, const ItemFields& item) {
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
