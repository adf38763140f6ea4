#include "model/clsItem.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <unordered_map>

#include "model/Numbers.h"
#include "model/TypeNames.h"
#include "model/XmlFields.h"
#include "platform/Form.h"
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
        type.bit = contains(type.name, "VT_BOOL");
        type.elements = contains(type.name, "ARRAY") || contains(type.name, "VT_BSTR");
    }
    return place->second;
}

std::string padded(int value, const char* pattern) {
    std::array<char, 16> digits;
    const int length = std::snprintf(digits.data(), digits.size(), pattern, value);
    return {digits.data(), static_cast<std::size_t>(length)};
}

}  // namespace

void clsItem::SetByXml(const XmlElement& element, const Key& container) {
    // One walk over the children instead of a search for each: items are what files are full of.
    constexpr std::array<std::string_view, 7> kNames{"name",    "comment", "address", "datatype", "accessrights",
                                                     "databit", "elements"};
    std::array<XmlElement, kNames.size()> children;
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling()) {
        const auto* place = std::ranges::find(kNames, child.name());
        if (place == kNames.end()) continue;
        XmlElement& slot = children[static_cast<std::size_t>(place - kNames.begin())];
        if (!slot) slot = child;
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

void clsItem::SetByForm(const Form& dialog, const Key& container) {
    sName_ = dialog.text("txtItemName");
    sComment_ = dialog.text("txtComment");
    const std::string label = dialog.text("cmbDataType");
    if (hasElements(label)) nElements_ = toInt16(leadingNumber(dialog.text("txtElements")));
    nAddress_ = toInt32(leadingNumber(dialog.text("txtAddress")));
    nBitNumber_ = isBoolean(label) ? toInt16(leadingNumber(dialog.text("cmbBit"))) : std::int16_t{0};
    sDataType(dialog.text("cmbModbusType") + ":" + label);
    sAccessRight(dialog.text("cmbAccessRight"));
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
    if (isBoolean(label)) text += "/BIT" + padded(nBitNumber_, "%02d");
    if (hasElements(label)) text += "/LEN" + std::to_string(nElements_);
    return text;
}

std::string clsItem::indexText(std::string_view table) const {
    constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kCodes{
        {{"input status", "IS"}, {"coil", "CO"}, {"holding register", "HR"}, {"input register", "IR"}}};
    std::string text;
    for (const auto& [name, code] : kCodes) {
        if (table == name) text = code;
    }
    return text + padded(nAddress_, "%05d") + padded(nBitNumber_, "%02d");
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
    const FileType& type = fileTypeOf(sDataType_);
    const auto field = [&](std::string_view name, const auto& value) {
        appendElement(out, depth + 1, name, value);
        out += "\r\n";
    };
    const auto tabs = static_cast<std::size_t>(depth);
    out.append(tabs, '\t') += "<tag>\r\n";
    field("name", sName_);
    field("comment", sComment_);
    field("address", nAddress_);
    field("datatype", type.name);
    field("accessrights", sAccessRight());
    if (type.bit) field("databit", int{nBitNumber_});
    if (type.elements) field("elements", int{nElements_});
    out.append(tabs, '\t') += "</tag>";
}

}  // namespace trevandix
