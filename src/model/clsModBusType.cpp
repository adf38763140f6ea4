#include "model/clsModBusType.h"

#include <array>

#include "model/EnteredFields.h"
#include "model/RecordField.h"
#include "model/ValueTypes.h"

namespace trevandix {

namespace {

struct Field {
    std::string_view name;
    void (*read)(clsModBusType&, std::string_view text);
    void (*print)(std::string& out, const clsModBusType&);
};

template <auto member>
constexpr Field field(std::string_view name) {
    return {name, take<member, NumberText::Whole>, print<member>};
}

std::string codeOrEmpty(std::uint8_t code) {
    return code == 0 ? std::string() : std::to_string(code);
}

}  // namespace

struct clsModBusType::Tables {
    using Type = clsModBusType;
    // In the order of the file.
    static constexpr std::array kFields{
        Field{"name", [](Type& type, std::string_view text) { type.sName_ = displayTypeLabel(text); },
              [](std::string& out, const Type& type) { out += fileTypeName(type.sName_); }},
        field<&Type::nReadCode_>("readcode"),
        field<&Type::nWriteCode_>("writecode"),
        field<&Type::nSingleWrCode_>("singlewrcode"),
    };
    static constexpr std::array kColumns{
        Column{"Data Type Name", 0.4, [](const Type& type) { return type.sName_; }},
        Column{"Read Code", 0.2, [](const Type& type) { return std::to_string(type.nReadCode_); }},
        Column{"Write Code", 0.2, [](const Type& type) { return codeOrEmpty(type.nWriteCode_); }},
        Column{"Single Write Code", 0.2, [](const Type& type) { return codeOrEmpty(type.nSingleWrCode_); }},
    };
};

std::span<const clsModBusType::Column> clsModBusType::columns() {
    return Tables::kColumns;
}

std::vector<std::string_view> clsModBusType::fieldNames() {
    std::vector<std::string_view> names;
    for (const Field& field : Tables::kFields) names.push_back(field.name);
    return names;
}

void clsModBusType::SetByXml(const XmlElement& element) {
    for (const Field& field : Tables::kFields)
        takeFromFile(*this, field.read, field.name, requiredAttribute(element, field.name));
}

void clsModBusType::SetByForm(const DataTypeFields& fields) {
    sName_ = fields.name;
    nReadCode_ = byteValue(fields.readCode);
    nWriteCode_ = isReadOnly(sName_) ? std::uint8_t{0} : byteValue(fields.writeCode);
    nSingleWrCode_ = fields.single ? byteValue(fields.singleCode) : std::uint8_t{0};
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
