#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace trevandix {

class ListView;
class XmlElement;
template <typename... Parts>
struct RecordColumn;
struct FileField;
struct ModbusTable;

/// A data type as it is entered: codes as texts, not yet converted.
struct DataTypeFields {
    std::string name;
    std::string readCode;
    std::string writeCode;   ///< ignored for a read-only table
    bool single = false;     ///< a function code of their own writes single values
    std::string singleCode;  ///< ignored unless `single`
};

/// A Modbus table and the Modbus function codes with which the server accesses it; 0 for none.
class clsModBusType {
public:
    /// The data type of a table, with its usual codes.
    static clsModBusType usual(const ModbusTable& table);

    void setName(std::string_view name) { sName_ = name; }
    const std::string& getName() const { return sName_; }
    void setReadCode(std::uint8_t code) { nReadCode_ = code; }
    std::uint8_t getReadCode() const { return nReadCode_; }
    void setWriteCode(std::uint8_t code) { nWriteCode_ = code; }
    std::uint8_t getWriteCode() const { return nWriteCode_; }
    void setSingleWrCode(std::uint8_t code) { nSingleWrCode_ = code; }
    std::uint8_t getSingleWrCode() const { return nSingleWrCode_; }

    /// From a DATATYPE element. Errors: ObjectNotSet for a missing attribute, TypeMismatch and Overflow for a
    /// code.
    void SetByXml(const XmlElement& element);
    /// From the texts of the data type dialog. Errors: TypeMismatch and Overflow for a code.
    void SetByForm(const DataTypeFields& fields);
    /// What the data type dialog shows; codes that the type does not have are empty.
    DataTypeFields texts() const;
    /// The element's line, without a line end.
    std::string GetXmlTag() const;
    /// The columns of the list.
    using Column = RecordColumn<clsModBusType>;
    static std::span<const Column> columns();
    void AddToListView(ListView& list) const;
    /// The names of the element's attributes in the order of the file.
    static std::vector<std::string_view> fieldNames();
    std::vector<FileField> fileFields() const;

private:
    struct Tables;

    std::string sName_;
    std::uint8_t nReadCode_ = 0;
    std::uint8_t nWriteCode_ = 0;
    std::uint8_t nSingleWrCode_ = 0;
};

}  // namespace trevandix
