#include "model/clsItem.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <unordered_map>

#include "model/ItemFields.h"
#include "model/Numbers.h"
#include "model/TypeNames.h"
#include "model/ValueTypes.h"
#include "model/XmlFields.h"
#include "platform/ListView.h"
#include "platform/Xml.h"

namespace trevandix {

namespace {

// A plant has few types and very many items: each conversion is made once.
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
    bool bit;
    bool elements;
};

const FileType& fileTypeOf(const InternedText& label) {
    static std::unordered_map<const std::string*, FileType> cache;
    const auto [place, isNew] = cache.try_emplace(&label.str());
    if (isNew) {
        FileType& type = place->second;
        type.name = fileTypeName(label.str());
        const ValueType* valueType = valueTypeIn(label.str());
        type.bit = valueType != nullptr && valueType->bitwise();
        type.elements = valueType != nullptr && valueType->elements;
    }
    return place->second;
}

// What stands in front of each value of a tag element, made once for all the items of a depth in a row.
struct TagFrame {
    int depth = -1;
    std::string name, comment, address, dataType, accessRights, dataBit, elements;
    std::string endAccessRights, endDataBit, endElements, end;

    void setDepth(int newDepth) {
        if (depth == newDepth) return;
        const std::string tabs(static_cast<std::size_t>(newDepth), '\t');
        const auto line = [&](std::string_view begin) { return tabs + "\t<" + std::string(begin) + ">"; };
        name = tabs + "<tag>\r\n" + line("name");
        comment = "</name>\r\n" + line("comment");
        address = "</comment>\r\n" + line("address");
        dataType = "</address>\r\n" + line("datatype");
        accessRights = "</datatype>\r\n" + line("accessrights");
        endAccessRights = "</accessrights>\r\n";
        dataBit = line("databit");
        endDataBit = "</databit>\r\n";
        elements = line("elements");
        endElements = "</elements>\r\n";
        end = tabs + "</tag>";
        depth = newDepth;
    }
};

/// At least so many digits, with the sign in front of them.
std::string padded(std::int64_t value, std::size_t digits) {
    const std::string number = std::to_string(std::abs(value));
    return (value < 0 ? "-" : "") + std::string(digits - std::min(digits, number.size()), '0') + number;
}

}  // namespace

void clsItem::SetByXml(const XmlElement& element, const Key& container) {
    constexpr std::array<std::string_view, 7> kNames{"name",         "comment", "address", "datatype",
                                                     "accessrights", "databit", "elements"};
    std::array<XmlElement, kNames.size()> children;
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling()) {
        const auto place = static_cast<std::size_t>(std::ranges::find(kNames, child.name()) - kNames.begin());
        if (place < kNames.size() && !children[place]) children[place] = child;
    }
    const auto& [name, comment, address, dataType, accessRights, dataBit, elements] = children;
    std::string buffer;
    const auto required = [&](const XmlElement& child, std::string_view childName) {
        if (!child) throwMissing(element, "element", childName);
        return child.text(buffer);
    };
    sName_ = required(name, "name");
    sComment_ = required(comment, "comment");
    sDataType_ = labelOf(required(dataType, "datatype"));
    if (elements) nElements_ = toInt16(leadingNumber(elements.text(buffer)));
    nAddress_ = toInt32(leadingNumber(required(address, "address")));
    nBitNumber_ = dataBit ? toInt16(leadingNumber(dataBit.text(buffer))) : std::int16_t{0};
    sAccessRight_ = InternedText(required(accessRights, "accessrights"));
    sKey_ = Key(container, sName_);
}

void clsItem::SetByForm(const ItemFields& fields, const Key& container) {
    sName_ = fields.name;
    sComment_ = fields.comment;
    if (hasElements(fields.type)) nElements_ = toInt16(leadingNumber(fields.elements));
    nAddress_ = toInt32(leadingNumber(fields.address));
    nBitNumber_ = isBoolean(fields.type) ? toInt16(leadingNumber(fields.bit)) : std::int16_t{0};
    sDataType(fields.table + ":" + fields.type);
    sAccessRight(fields.accessRight);
    sKey_ = Key(container, sName_);
}

void clsItem::SetByCopy(const clsItem& source, const Key& container, std::int16_t copyCounter) {
    const bool besideSource = source.getParentKey() == container.view();
    sName_ = source.sName_;
    if (besideSource) sName_ += "_" + std::to_string(copyCounter);
    sComment_ = source.sComment_;
    sDataType_ = source.sDataType_;
    nElements_ = source.nElements_;
    nAddress_ = source.nAddress_;
    nBitNumber_ = source.nBitNumber_;
    sAccessRight_ = source.sAccessRight_;
    sKey_ = Key(container, sName_);
}

std::string clsItem::addressText(std::string_view label) const {
    std::string text = std::to_string(nAddress_);
    if (isBoolean(label)) text += "/BIT" + padded(nBitNumber_, 2);
    if (hasElements(label)) text += "/LEN" + std::to_string(nElements_);
    return text;
}

std::string clsItem::indexText(std::string_view table) const {
    const ModbusTable* known = tableOf(table);
    const std::string text(known != nullptr ? known->sortCode : std::string_view());
    return text + padded(nAddress_, 5) + padded(nBitNumber_, 2);
}

void clsItem::AddToListView(ListView& list, bool index) const {
    const auto [table, label] = splitDataType(sDataType());
    ListRow row{sKey_.str(), sName_, "item", "item", {}};
    row.subItems.reserve(index ? 6 : 5);
    row.subItems.assign(
        {sComment_, addressText(label), std::string(label), std::string(table), sAccessRight()});
    if (index) row.subItems.push_back(indexText(table));
    list.addRow(std::move(row));
}

std::string clsItem::GetXmlTag(int depth) const {
    std::string out;
    appendXmlTag(out, depth);
    return out;
}

void clsItem::appendXmlTag(std::string& out, int depth) const {
    static TagFrame frame;
    frame.setDepth(depth);
    const FileType& type = fileTypeOf(sDataType_);
    ((out += frame.name) += sName_) += frame.comment;
    (out += sComment_) += frame.address;
    appendNumber(out, nAddress_);
    ((out += frame.dataType) += type.name) += frame.accessRights;
    (out += sAccessRight()) += frame.endAccessRights;
    if (type.bit) {
        appendNumber(out += frame.dataBit, nBitNumber_);
        out += frame.endDataBit;
    }
    if (type.elements) {
        appendNumber(out += frame.elements, nElements_);
        out += frame.endElements;
    }
    out += frame.end;
}

}  // namespace trevandix
