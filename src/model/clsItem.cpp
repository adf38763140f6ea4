#include "model/clsItem.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <unordered_map>

#include "model/Numbers.h"
#include "model/RecordField.h"
#include "model/ValueTypes.h"
#include "platform/ListView.h"
#include "platform/Xml.h"

namespace trevandix {

namespace {

// A plant has few types and very many items, so each conversion is made once.
struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};
template <typename Value>
using TypeCache = std::unordered_map<std::string, Value, TextHash, std::equal_to<>>;
constexpr std::size_t kCacheLimit = 4096;  // a hostile file may name any number of types

InternedText labelOf(std::string_view fileName) {
    static TypeCache<InternedText> cache;
    if (const auto known = cache.find(fileName); known != cache.end()) return known->second;
    const InternedText label(displayTypeLabel(fileName));
    if (cache.size() < kCacheLimit) cache.emplace(fileName, label);
    return label;
}

struct FileType {
    std::string name;
    const ValueType* valueType;
};

const FileType& fileTypeOf(const InternedText& label) {
    static std::unordered_map<const std::string*, FileType> cache;
    const auto [place, isNew] = cache.try_emplace(&label.str());
    if (isNew) place->second = {fileTypeName(label.str()), valueTypeIn(label.str())};
    return place->second;
}

/// At least so many digits, with the sign in front of them.
std::string padded(std::int64_t value, std::size_t digits) {
    const std::string number = std::to_string(std::abs(value));
    return (value < 0 ? "-" : "") + std::string(digits - std::min(digits, number.size()), '0') + number;
}

std::string addressText(const clsItem& item, std::string_view label) {
    std::string text = std::to_string(item.nAddress());
    if (isBoolean(label)) text += "/BIT" + padded(item.nBitNumber(), 2);
    if (hasElements(label)) text += "/LEN" + std::to_string(item.nElements());
    return text;
}

std::string indexText(const clsItem& item, std::string_view table) {
    const ModbusTable* known = tableOf(table);
    const std::string text(known != nullptr ? known->sortCode : std::string_view());
    return text + padded(item.nAddress(), 5) + padded(item.nBitNumber(), 2);
}

using Column = clsItem::Column;

struct Field {
    std::string_view element;          ///< empty for a column that the file does not have
    std::string ItemFields::*entered;  ///< nullptr if it consists of several texts
    void (*take)(clsItem&, std::string_view text);
    void (*print)(std::string& out, const clsItem&);
    Column column{};
    bool (*has)(const ValueType*) = nullptr;  ///< by value type; nullptr: always, and no file may lack it

    bool isOf(const ValueType* type) const { return has == nullptr || has(type); }
};

template <auto member>
constexpr Field field(std::string_view element, std::string ItemFields::*entered, Column column = {},
                      bool (*has)(const ValueType*) = nullptr) {
    return {element, entered, take<member, NumberText::Leading>, print<member>, withCell<member>(column),
            has};
}

constexpr Field onlyShown(Column column) {
    return {{}, nullptr, nullptr, nullptr, column, [](const ValueType*) { return false; }};
}

bool bitwise(const ValueType* type) {
    return type != nullptr && type->bitwise();
}
bool withElements(const ValueType* type) {
    return type != nullptr && type->elements;
}

}  // namespace

struct clsItem::Tables {
    // In the order of the file and of the columns. AddToListView counts on "Index" being the last column.
    static constexpr std::array kFields{
        field<&clsItem::sName_>("name", &ItemFields::name, {"Item Name", 0.4}),
        field<&clsItem::sComment_>("comment", &ItemFields::comment, {"Comment", 0.4}),
        field<&clsItem::nAddress_>(
            "address", &ItemFields::address,
            {"Address", 0.2,
             [](const clsItem& item, const ItemType& type) { return addressText(item, type.label); }}),
        Field{
            "datatype",
            nullptr,
            [](clsItem& item, std::string_view text) { item.sDataType_ = labelOf(text); },
            [](std::string& out, const clsItem& item) { out += fileTypeOf(item.sDataType_).name; },
            {"DataType", 0.2, [](const clsItem&, const ItemType& type) { return std::string(type.label); }}},
        onlyShown({"ModBus Type", 0.2,
                   [](const clsItem&, const ItemType& type) { return std::string(type.table); }}),
        field<&clsItem::sAccessRight_>("accessrights", &ItemFields::accessRight, {"Access Rights"}),
        field<&clsItem::nBitNumber_>("databit", &ItemFields::bit, {}, bitwise),
        field<&clsItem::nElements_>("elements", &ItemFields::elements, {}, withElements),
        onlyShown({"Index", 0.3,
                   [](const clsItem& item, const ItemType& type) { return indexText(item, type.table); }}),
    };

    // The texts around the values of a tag element, made once for consecutive items of the same depth.
    struct Frame {
        int depth = -1;
        std::string begin, end;
        std::array<std::string, kFields.size()> starts, ends;

        void setDepth(int newDepth) {
            if (depth == newDepth) return;
            const std::string tabs(static_cast<std::size_t>(newDepth), '\t');
            begin = tabs + "<tag>\r\n";
            for (std::size_t i = 0; i < kFields.size(); ++i) {
                const std::string name(kFields[i].element);
                starts[i] = tabs + "\t<" + name + ">";
                ends[i] = "</" + name + ">\r\n";
            }
            end = tabs + "</tag>";
            depth = newDepth;
        }
    };
};

std::span<const clsItem::Column> clsItem::columns() {
    static const auto kColumns = columnsOf(Tables::kFields);
    return kColumns;
}

std::vector<clsItem::Element> clsItem::elements() {
    std::vector<Element> elements;
    for (const Field& field : Tables::kFields) {
        if (!field.element.empty()) elements.push_back({field.element, field.has == nullptr});
    }
    return elements;
}

std::vector<FileField> clsItem::fileFields() const {
    const ValueType* type = fileTypeOf(sDataType_).valueType;
    std::vector<FileField> fields;
    for (const Field& field : Tables::kFields) {
        if (field.element.empty() || !field.isOf(type)) continue;
        fields.push_back({field.element, {}});
        field.print(fields.back().text, *this);
    }
    return fields;
}

XmlElement clsItem::SetByXml(const XmlElement& element, const Key& container) {
    constexpr const auto& kFields = Tables::kFields;
    std::array<XmlElement, kFields.size()> children;
    XmlElement unknown;
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling()) {
        const auto place = static_cast<std::size_t>(
            std::ranges::find(kFields, child.name(), &Field::element) - kFields.begin());
        if (place < kFields.size() && !children[place])
            children[place] = child;
        else if (!unknown)
            unknown = child;
    }
    std::string buffer;
    for (std::size_t i = 0; i < kFields.size(); ++i) {
        if (children[i])
            takeFromFile(*this, kFields[i].take, kFields[i].element, children[i].text(buffer));
        else if (kFields[i].has == nullptr)
            throwMissing(element, "element", kFields[i].element);
    }
    sKey_ = Key(container, sName_);
    return unknown;
}

void clsItem::SetByForm(const ItemFields& fields, const Key& container) {
    const ValueType* type = valueTypeOf(fields.type);
    for (const Field& field : Tables::kFields) {
        if (field.entered != nullptr && field.isOf(type)) field.take(*this, fields.*field.entered);
    }
    sDataType(fields.table + ":" + fields.type);
    sKey_ = Key(container, sName_);
}

ItemFields clsItem::texts() const {
    const auto [table, label] = splitDataType(sDataType());
    ItemFields texts;
    texts.table = table;
    texts.type = label;
    const ValueType* type = valueTypeOf(label);
    for (const Field& field : Tables::kFields) {
        if (field.entered != nullptr && field.isOf(type)) field.print(texts.*field.entered, *this);
    }
    return texts;
}

void clsItem::SetByCopy(const clsItem& source, const Key& container, std::int16_t copyCounter) {
    const bool besideSource = source.getParentKey() == container.view();
    *this = source;
    if (besideSource) sName_ += "_" + std::to_string(copyCounter);
    sKey_ = Key(container, sName_);
}

void clsItem::AddToListView(ListView& list, bool index) const {
    const std::span<const Column> shown = columns();
    addRow(list, sKey_.str(), "item", "item", shown.first(shown.size() - (index ? 0 : 1)), *this,
           splitDataType(sDataType()));
}

std::string clsItem::GetXmlTag(int depth) const {
    constexpr std::size_t kUsualLength = 512;
    std::string out;
    out.reserve(kUsualLength);
    appendXmlTag(out, depth);
    return out;
}

void clsItem::appendXmlTag(std::string& out, int depth) const {
    static Tables::Frame frame;
    frame.setDepth(depth);
    const ValueType* type = fileTypeOf(sDataType_).valueType;
    out += frame.begin;
    for (std::size_t i = 0; i < Tables::kFields.size(); ++i) {
        const Field& field = Tables::kFields[i];
        if (!field.isOf(type)) continue;
        field.print(out += frame.starts[i], *this);
        out += frame.ends[i];
    }
    out += frame.end;
}

}  // namespace trevandix
