#include "model/clsModBusType.h"

#include <array>

#include "model/RecordField.h"
#include "model/ValueTypes.h"

namespace trevandix {

namespace {

using Column = clsModBusType::Column;

struct Field {
    std::string_view name;
    std::string DataTypeFields::*entered;  ///< nullptr for the name, which is spelled differently in the file
    void (*read)(clsModBusType&, std::string_view text);
    void (*print)(std::string& out, const clsModBusType&);
    Column column{};
    bool (*has)(const DataTypeFields&) = nullptr;  ///< if false, the code is 0; nullptr: always true

    bool isOf(const DataTypeFields& type) const { return has == nullptr || has(type); }
};

template <auto member>
constexpr Field field(std::string_view name, std::string DataTypeFields::*entered, Column column = {},
                      bool (*has)(const DataTypeFields&) = nullptr) {
    return {name, entered, take<member, NumberText::Whole>, print<member>, withCell<member>(column), has};
}

bool writes(const DataTypeFields& type) {
    return !isReadOnly(type.name);
}
bool writesSingle(const DataTypeFields& type) {
    return type.single;
}

std::string codeOrEmpty(std::uint8_t code) {
    return code == 0 ? std::string() : std::to_string(code);
}

}  // namespace

struct clsModBusType::Tables {
    using Type = clsModBusType;
    // In the order of the file.
    static constexpr std::array kFields{
        Field{"name",
              nullptr,
              [](Type& type, std::string_view text) { type.sName_ = displayTypeLabel(text); },
              [](std::string& out, const Type& type) { out += fileTypeName(type.sName_); },
              {"Data Type Name", 0.4, [](const Type& type) { return type.sName_; }}},
        field<&Type::nReadCode_>("readcode", &DataTypeFields::readCode, {"Read Code", 0.2}),
        field<&Type::nWriteCode_>(
            "writecode", &DataTypeFields::writeCode,
            {"Write Code", 0.2, [](const Type& type) { return codeOrEmpty(type.nWriteCode_); }}, writes),
        field<&Type::nSingleWrCode_>(
            "singlewrcode", &DataTypeFields::singleCode,
            {"Single Write Code", 0.2, [](const Type& type) { return codeOrEmpty(type.nSingleWrCode_); }},
            writesSingle),
    };
};

clsModBusType clsModBusType::usual(const ModbusTable& table) {
    clsModBusType type;
    type.sName_ = table.label;
    type.nReadCode_ = table.readCode;
    type.nWriteCode_ = table.writeCode;
    type.nSingleWrCode_ = table.singleWrCode;
    return type;
}

std::span<const clsModBusType::Column> clsModBusType::columns() {
    static const auto kColumns = columnsOf(Tables::kFields);
    return kColumns;
}

std::vector<std::string_view> clsModBusType::fieldNames() {
    std::vector<std::string_view> names;
    for (const Field& field : Tables::kFields) names.push_back(field.name);
    return names;
}

std::vector<FileField> clsModBusType::fileFields() const {
    std::vector<FileField> fields;
    for (const Field& field : Tables::kFields) {
        fields.push_back({field.name, {}});
        field.print(fields.back().text, *this);
    }
    return fields;
}

void clsModBusType::SetByXml(const XmlElement& element) {
    for (const Field& field : Tables::kFields)
        takeFromFile(*this, field.read, field.name, requiredAttribute(element, field.name));
}

void clsModBusType::SetByForm(const DataTypeFields& fields) {
    sName_ = fields.name;
    for (const Field& field : Tables::kFields) {
        if (field.entered != nullptr) field.read(*this, field.isOf(fields) ? fields.*field.entered : "0");
    }
}

DataTypeFields clsModBusType::texts() const {
    DataTypeFields texts;
    texts.name = sName_;
    texts.single = writes(texts) && nSingleWrCode_ > 0;
    for (const Field& field : Tables::kFields) {
        if (field.entered != nullptr && field.isOf(texts)) field.print(texts.*field.entered, *this);
    }
    return texts;
}

std::string clsModBusType::GetXmlTag() const {
    std::string out = "\t\t<DATATYPE";
    for (const Field& field : Tables::kFields) {
        field.print(out += attributeStart(field.name), *this);
        out += '"';
    }
    return out + "/>";
}

void clsModBusType::AddToListView(ListView& list) const {
    addRow(list, sName_, "item", "modbus", columns(), *this);
}

}  // namespace trevandix
