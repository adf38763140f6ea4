#include "model/clsPLC.h"

#include <algorithm>
#include <array>

#include "model/RecordField.h"
#include "platform/Text.h"
#include "platform/Xml.h"

namespace trevandix {

namespace {

constexpr std::string_view kBoth{};

struct Field {
    std::string_view name;
    std::string_view interfaceKind;
    std::string UnitFields::*entered;
    void (*read)(clsPLC&, std::string_view text);
    void (*enter)(clsPLC&, std::string_view text);
    void (*print)(std::string& out, const clsPLC&);
    clsPLC::Column column;

    bool isOf(std::string_view kind) const { return interfaceKind == kBoth || interfaceKind == kind; }
};

template <auto member, NumberText entered = NumberText::Whole>
constexpr Field field(std::string_view name, std::string_view interfaceKind, std::string UnitFields::*text,
                      clsPLC::Column column = {}) {
    return {
        name,          interfaceKind,           text, take<member, NumberText::Whole>, take<member, entered>,
        print<member>, withCell<member>(column)};
}

}  // namespace

struct clsPLC::Tables {
    // In the order of the file. NumberText::Leading: a text may follow the number entered.
    static constexpr std::array kFields{
        field<&clsPLC::sName_>("name", kBoth, &UnitFields::name, {"Unit Name", 0.5}),
        field<&clsPLC::sAddress_>("address", kTcpIp, &UnitFields::address),
        field<&clsPLC::nUI_>("id", kBoth, &UnitFields::identifier, {"ModBus Unit Identifier", 0.4}),
        field<&clsPLC::sCom_>("com", kRtu, &UnitFields::port),
        field<&clsPLC::nBaud_, NumberText::Leading>("baudrate", kRtu, &UnitFields::baud),
        field<&clsPLC::sParity_>("parity", kRtu, &UnitFields::parity),
        field<&clsPLC::nStopBits_, NumberText::Leading>("stopbits", kRtu, &UnitFields::stopBits),
        field<&clsPLC::nDataBits_, NumberText::Leading>("databits", kRtu, &UnitFields::dataBits),
        field<&clsPLC::sFlowCtl_>("flowcontrol", kRtu, &UnitFields::flowControl),
        field<&clsPLC::nTimeout_>("timeout", kBoth, &UnitFields::timeout),
        field<&clsPLC::nSilent_, NumberText::Leading>("silent", kRtu, &UnitFields::silent),
    };
};

std::span<const clsPLC::Column> clsPLC::columns() {
    static const auto kColumns = columnsOf(Tables::kFields);
    return kColumns;
}

UnitFields clsPLC::proposed() {
    return {.name = {},
            .identifier = "1",
            .timeout = "2000",
            .address = "192.168.0.1",
            .port = "COM1",
            .baud = "9600",
            .parity = "NO",
            .dataBits = "8",
            .stopBits = "1",
            .flowControl = "NONE",
            .silent = "10"};
}

std::vector<std::string_view> clsPLC::fieldNames(std::string_view interfaceKind) {
    std::vector<std::string_view> names;
    for (const Field& field : Tables::kFields) {
        if (field.isOf(interfaceKind)) names.push_back(field.name);
    }
    return names;
}

std::vector<FileField> clsPLC::fileFields(std::string_view interfaceKind) const {
    std::vector<FileField> fields;
    for (const Field& field : Tables::kFields) {
        if (!field.isOf(interfaceKind)) continue;
        fields.push_back({field.name, {}});
        field.print(fields.back().text, *this);
    }
    return fields;
}

void clsPLC::SetByXml(const XmlElement& element, std::string_view interfaceKind) {
    for (const Field& field : Tables::kFields) {
        if (interfaceKind == kTcpIp && field.isOf(kTcpIp))
            takeFromFile(*this, field.read, field.name, requiredAttribute(element, field.name));
    }
    std::string buffer;
    for (XmlElement child = element.firstChild(); child && interfaceKind == kRtu;
         child = child.nextSibling()) {
        for (const Field& field : Tables::kFields) {
            if (field.isOf(kRtu) && child.isNamed(upperCased(field.name)))
                takeFromFile(*this, field.read, field.name, child.text(buffer));
        }
    }
    sKey_ = sName_;
}

void clsPLC::SetByForm(const UnitFields& fields, std::string_view interfaceKind) {
    for (const Field& field : Tables::kFields) {
        if (field.isOf(interfaceKind)) field.enter(*this, fields.*field.entered);
    }
    sKey_ = sName_;
}

UnitFields clsPLC::texts(std::string_view interfaceKind) const {
    UnitFields texts;
    for (const Field& field : Tables::kFields) {
        if (field.isOf(interfaceKind)) field.print(texts.*field.entered, *this);
    }
    return texts;
}

bool clsPLC::hasField(std::string UnitFields::*text, std::string_view interfaceKind) {
    const auto* field = std::ranges::find(Tables::kFields, text, &Field::entered);
    return field != Tables::kFields.end() && field->isOf(interfaceKind);
}

void clsPLC::AddToListView(ListView& list) const {
    addRow(list, sName_, "plc", "plc", columns(), *this);
}

std::string clsPLC::GetXmlTag(std::string_view interfaceKind) const {
    if (interfaceKind != kTcpIp && interfaceKind != kRtu) return {};
    constexpr int kDepth = 3;
    std::string out = "\t\t<PLC";
    if (interfaceKind == kRtu) out += ">";
    for (const Field& field : Tables::kFields) {
        if (!field.isOf(interfaceKind)) continue;
        std::string text;
        field.print(text, *this);
        if (interfaceKind == kTcpIp)
            out += attributeStart(field.name) + text + "\"";
        else
            appendElement(out += "\r\n", kDepth, field.name, text);
    }
    if (interfaceKind == kTcpIp) out += ">";
    return out;
}

}  // namespace trevandix
