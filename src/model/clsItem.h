#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Key.h"

namespace trevandix {

class ListView;
class XmlElement;
template <typename... Parts>
struct RecordColumn;
struct ItemType;
struct FileField;

/// An item as it is entered: the text of each field, not yet converted.
struct ItemFields {
    std::string name;
    std::string comment;
    std::string table;  ///< name of a data type
    std::string type;   ///< label of a value type
    std::string address;
    std::string bit;       ///< ignored unless `hasBitNumber`
    std::string elements;  ///< ignored unless `hasElements`
    std::string accessRight;
};

/// An OPC tag: a named value at a Modbus address of one unit. Members stand in the order of the record's
/// interface.
class clsItem {
public:
    /// Elements of an array or length of a string; else 0.
    void nElements(std::int16_t count) { nElements_ = count; }
    std::int16_t nElements() const { return nElements_; }
    /// Bit 0 to 15 of a register; else 0.
    void nBitNumber(std::int16_t bit) { nBitNumber_ = bit; }
    std::int16_t nBitNumber() const { return nBitNumber_; }
    /// Table label, ":", value type label.
    void sDataType(std::string_view type) { sDataType_ = InternedText(type); }
    const std::string& sDataType() const { return sDataType_.str(); }
    /// "READ", "WRITE" or "READWRITE".
    void sAccessRight(std::string_view right) { sAccessRight_ = InternedText(right); }
    const std::string& sAccessRight() const { return sAccessRight_.str(); }
    void sComment(std::string_view comment) { sComment_ = comment; }
    const std::string& sComment() const { return sComment_; }
    /// Register or bit address, 0 to 65535 from the dialog; a file may hold any 32-bit number.
    void nAddress(std::int32_t address) { nAddress_ = address; }
    std::int32_t nAddress() const { return nAddress_; }
    void sName(std::string_view name) { sName_ = name; }
    const std::string& sName() const { return sName_; }
    const Key& sKey() const { return sKey_; }
    void sKey(const Key& key) { sKey_ = key; }
    void swapKey(Key& key) { swap(sKey_, key); }

    /// From a tag element; `container` is the key of the unit or branch around it. Returns the first child
    /// element that is no field or comes twice, or an empty handle. Errors: ObjectNotSet for a missing
    /// element, Overflow.
    XmlElement SetByXml(const XmlElement& element, const Key& container);
    /// From the texts of the item dialog; `container` is the key of the node that holds the item. Errors:
    /// Overflow.
    void SetByForm(const ItemFields& fields, const Key& container);
    /// The texts that the item dialog shows; empty where the item's type has no such field.
    ItemFields texts() const;
    /// Copies `source` for `container`; beside the item it was copied from, the name gets "_" and the
    /// counter.
    void SetByCopy(const clsItem& source, const Key& container, std::int16_t copyCounter);
    std::string_view getParentKey() const { return sKey_.parent(); }
    /// The columns of the list. The last is the sort key of table, address and bit.
    using Column = RecordColumn<clsItem, ItemType>;
    static std::span<const Column> columns();
    /// `index` adds the last column.
    void AddToListView(ListView& list, bool index) const;
    /// The tag element at a depth in tabs; lines joined by CR LF, no line end behind the last.
    std::string GetXmlTag(int depth) const;
    void appendXmlTag(std::string& out, int depth) const;

    /// What the file holds of a field, in the order of the elements.
    struct Element {
        std::string_view name;
        bool required;  ///< else only items of some value types have it
    };
    static std::vector<Element> elements();
    std::vector<FileField> fileFields() const;

    /// Exact, and so stricter than the equality of what the file holds.
    bool operator==(const clsItem&) const = default;

private:
    struct Tables;

    std::string sName_;
    Key sKey_;
    std::int32_t nAddress_ = 0;
    std::int16_t nBitNumber_ = 0;
    std::int16_t nElements_ = 0;
    std::string sComment_;
    InternedText sAccessRight_;
    InternedText sDataType_;
};

}  // namespace trevandix
