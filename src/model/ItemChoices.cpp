#include "model/ItemChoices.h"

#include "model/ValueTypes.h"

namespace trevandix {

std::vector<std::string> valueTypesOf(std::string_view table) {
    const ModbusTable* known = tableOf(table);
    std::vector<std::string> labels;
    for (const ValueType& type : valueTypes()) {
        if (type.bitwise() || (known != nullptr && known->registers)) labels.emplace_back(type.label);
    }
    return labels;
}

std::vector<std::string> accessRightsOf(std::string_view table) {
    const ModbusTable* known = tableOf(table);
    if (known != nullptr && !known->writable()) return {"READ"};
    return {"READ", "WRITE", "READWRITE"};
}

std::vector<std::string> bitNumbers() {
    constexpr int kRegisterBits = 16;
    std::vector<std::string> bits;
    for (int bit = 0; bit < kRegisterBits; ++bit) bits.push_back(std::to_string(bit));
    return bits;
}

}  // namespace trevandix
