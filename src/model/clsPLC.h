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
struct FileField;

inline constexpr std::string_view kTcpIp = "TrevandixTcpIp";
inline constexpr std::string_view kRtu = "TrevandixRTU";

/// A unit as it is entered: the text of each field, not yet converted.
struct UnitFields {
    std::string name;
    std::string identifier;
    std::string timeout;
    std::string address;
    std::string port;
    std::string baud;
    std::string parity;
    std::string dataBits;
    std::string stopBits;
    std::string flowControl;
    std::string silent;
};

/// A unit: one Modbus slave that the server polls. Fields of the other interface kind stay empty or 0.
class clsPLC {
public:
    void setAddress(std::string_view address) { sAddress_ = address; }
    const std::string& getAddress() const { return sAddress_; }
    void sKey(const Key& key) { sKey_ = key; }
    const Key& sKey() const { return sKey_; }
    void setUI(std::uint8_t unitIdentifier) { nUI_ = unitIdentifier; }
    std::uint8_t getUI() const { return nUI_; }
    void setName(std::string_view name) { sName_ = name; }
    const std::string& getName() const { return sName_; }
    void setCom(std::string_view port) { sCom_ = port; }
    const std::string& getCom() const { return sCom_; }
    /// bit/s
    void setBaud(std::int32_t baud) { nBaud_ = baud; }
    std::int32_t getBaud() const { return nBaud_; }
    /// "NO", "EVEN" or "ODD"
    void setParity(std::string_view parity) { sParity_ = parity; }
    const std::string& getParity() const { return sParity_; }
    void setStopBits(std::uint8_t bits) { nStopBits_ = bits; }
    std::uint8_t getStopBits() const { return nStopBits_; }
    void setDataBits(std::uint8_t bits) { nDataBits_ = bits; }
    std::uint8_t getDataBits() const { return nDataBits_; }
    /// ms
    void setTimeout(std::int32_t timeout) { nTimeout_ = timeout; }
    std::int32_t getTimeout() const { return nTimeout_; }
    /// ms between frames
    void setSilent(std::int32_t interval) { nSilent_ = interval; }
    std::int32_t getSilent() const { return nSilent_; }
    /// "NONE" or "HARDWARE"
    void setFlowCtl(std::string_view flowControl) { sFlowCtl_ = flowControl; }
    const std::string& getFlowCtl() const { return sFlowCtl_; }

    /// What the unit dialog proposes for a new unit of either interface kind; no name.
    static UnitFields proposed();

    /// From a PLC element of a file of `interfaceKind`. Errors: ObjectNotSet, TypeMismatch, Overflow.
    void SetByXml(const XmlElement& element, std::string_view interfaceKind);
    /// The columns of the list.
    using Column = RecordColumn<clsPLC>;
    static std::span<const Column> columns();
    void AddToListView(ListView& list) const;
    /// From the texts of the unit dialog; ignores those of the other interface kind. Errors: TypeMismatch,
    /// Overflow.
    void SetByForm(const UnitFields& fields, std::string_view interfaceKind);
    /// The texts that the unit dialog shows; empty for the fields of the other interface kind.
    UnitFields texts(std::string_view interfaceKind) const;
    /// Whether units of the interface kind have the field of a text.
    static bool hasField(std::string UnitFields::*text, std::string_view interfaceKind);
    /// The unit's start element at depth 2, for serial RTU with its field elements; lines joined by CR LF.
    std::string GetXmlTag(std::string_view interfaceKind) const;

    /// The names of what the file of an interface kind holds, in its order: attributes for Modbus TCP/IP,
    /// elements for serial RTU.
    static std::vector<std::string_view> fieldNames(std::string_view interfaceKind);
    std::vector<FileField> fileFields(std::string_view interfaceKind) const;

private:
    struct Tables;

    std::string sName_;
    std::uint8_t nUI_ = 0;
    std::string sAddress_;
    std::string sCom_;
    std::int32_t nBaud_ = 0;
    std::int32_t nTimeout_ = 0;
    std::int32_t nSilent_ = 0;
    std::string sParity_;
    std::uint8_t nStopBits_ = 0;
    std::uint8_t nDataBits_ = 0;
    std::string sFlowCtl_;
    Key sKey_;
};

}  // namespace trevandix
