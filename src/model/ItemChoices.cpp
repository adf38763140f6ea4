#include "model/ItemChoices.h"

namespace trevandix {

std::vector<std::string> valueTypesOf(std::string_view table) {
    if (table != "holding register" && table != "input register") return {"boolean", "boolean array"};
    return {"boolean",
            "unsigned 16 bit",
            "unsigned 32 bit",
            "signed 16 bit",
            "signed 32 bit",
            "32 bit float",
            "boolean array",
            "unsigned 8 bit array",
            "unsigned 16 bit array",
            "unsigned 32 bit array",
            "signed 8 bit array",
            "signed 16 bit array",
            "signed 32 bit array",
            "32 bit float array",
            "string"};
}

std::vector<std::string> accessRightsOf(std::string_view table) {
    if (table == "input status" || table == "input register") return {"READ"};
    return {"READ", "WRITE", "READWRITE"};
}

std::vector<std::string> bitNumbers() {
    constexpr int kRegisterBits = 16;
    std::vector<std::string> bits;
    for (int bit = 0; bit < kRegisterBits; ++bit) bits.push_back(std::to_string(bit));
    return bits;
}

}  // namespace trevandix
