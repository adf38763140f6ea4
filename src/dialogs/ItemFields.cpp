#include "dialogs/ItemFields.h"

#include "model/Numbers.h"

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

std::string itemFieldError(const Form& dialog) {
    constexpr double kLastAddress = 65535;
    const auto empty = [&](std::string_view name) { return dialog.text(name).empty(); };
    const auto value = [&](std::string_view name) { return leadingNumber(dialog.text(name)); };

    if (empty("txtItemName")) return "Item name field is empty.";
    if (empty("cmbModbusType")) return "ModBus Type field is empty.";
    if (empty("cmbDataType")) return "Data Type field is empty.";
    if (empty("txtAddress")) return "Memory address field is empty.";
    if (value("txtAddress") < 0 || value("txtAddress") > kLastAddress) {
        return "Memory address field is not valid. It must be between 0 and 65535.";
    }
    if (dialog.enabled("cmbBit") && empty("cmbBit")) return "Bit number field is empty.";
    if (dialog.enabled("txtElements")) {
        if (empty("txtElements")) return "Number of elements field is empty.";
        if (value("txtElements") < 0) return "Number of elements field is not valid.";
    }
    if (empty("cmbAccessRight")) return "Access Rights field is empty.";
    return {};
}

}  // namespace trevandix
