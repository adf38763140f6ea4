#include "model/clsPLC.h"

#include "model/Numbers.h"
#include "model/UnitFields.h"
#include "model/XmlFields.h"
#include "platform/ListView.h"
#include "platform/Xml.h"

namespace trevandix {

void clsPLC::SetByXml(const XmlElement& element, std::string_view interfaceKind) {
    if (interfaceKind == kTcpIp) readTcpIp(element);
    if (interfaceKind == kRtu) readRtu(element);
    sKey_ = sName_;
}

void clsPLC::readTcpIp(const XmlElement& element) {
    sName_ = requiredAttribute(element, "name");
    sAddress_ = requiredAttribute(element, "address");
    nUI_ = byteValue(requiredAttribute(element, "id"));
    nTimeout_ = int32Value(requiredAttribute(element, "timeout"));
}

void clsPLC::readRtu(const XmlElement& element) {
    std::string buffer;
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling()) {
        const auto text = [&] { return child.text(buffer); };
        if (child.isNamed("NAME"))
            sName_ = text();
        else if (child.isNamed("ID"))
            nUI_ = byteValue(text());
        else if (child.isNamed("COM"))
            sCom_ = text();
        else if (child.isNamed("BAUDRATE"))
            nBaud_ = int32Value(text());
        else if (child.isNamed("PARITY"))
            sParity_ = text();
        else if (child.isNamed("STOPBITS"))
            nStopBits_ = byteValue(text());
        else if (child.isNamed("DATABITS"))
            nDataBits_ = byteValue(text());
        else if (child.isNamed("FLOWCONTROL"))
            sFlowCtl_ = text();
        else if (child.isNamed("TIMEOUT"))
            nTimeout_ = int32Value(text());
        else if (child.isNamed("SILENT"))
            nSilent_ = int32Value(text());
    }
}

void clsPLC::AddToListView(ListView& list) const {
    list.addRow({sName_, sName_, "plc", "plc", {std::to_string(nUI_)}});
}

void clsPLC::SetByForm(const UnitFields& fields, std::string_view interfaceKind) {
    sName_ = fields.name;
    nUI_ = byteValue(fields.identifier);
    nTimeout_ = int32Value(fields.timeout);
    sKey_ = sName_;
    if (interfaceKind == kTcpIp) sAddress_ = fields.address;
    if (interfaceKind == kRtu) {
        nBaud_ = toInt32(leadingNumber(fields.baud));
        sCom_ = fields.port;
        nDataBits_ = toByte(leadingNumber(fields.dataBits));
        nStopBits_ = toByte(leadingNumber(fields.stopBits));
        sFlowCtl_ = fields.flowControl;
        sParity_ = fields.parity;
        nSilent_ = toInt32(leadingNumber(fields.silent));
    }
}

std::string clsPLC::GetXmlTag(std::string_view interfaceKind) const {
    std::string out;
    if (interfaceKind == kTcpIp) {
        // The blanks around one equals sign and not the others: kept, existing files are compared by their
        // bytes.
        out = "\t\t<PLC name=\"" + sName_ + "\" address = \"" + sAddress_ + "\" id=\"";
        appendNumber(out, nUI_);
        out += "\" timeout=\"";
        appendNumber(out, nTimeout_);
        out += "\">";
    } else if (interfaceKind == kRtu) {
        constexpr int kDepth = 3;
        const auto field = [&](std::string_view name, const auto& value) {
            out += "\r\n";
            appendElement(out, kDepth, name, value);
        };
        out = "\t\t<PLC>";
        field("name", sName_);
        field("id", int{nUI_});
        field("com", sCom_);
        field("baudrate", nBaud_);
        field("parity", sParity_);
        field("stopbits", int{nStopBits_});
        field("databits", int{nDataBits_});
        field("flowcontrol", sFlowCtl_);
        field("timeout", nTimeout_);
        field("silent", nSilent_);
    }
    return out;
}

}  // namespace trevandix
