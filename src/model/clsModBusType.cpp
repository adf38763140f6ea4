#include "model/clsModBusType.h"

#include "model/DataTypeFields.h"
#include "model/Numbers.h"
#include "model/TypeNames.h"
#include "model/ValueTypes.h"
#include "model/XmlFields.h"
#include "platform/ListView.h"

namespace trevandix {

void clsModBusType::SetByXml(const XmlElement& element) {
    sName_ = displayTypeLabel(requiredAttribute(element, "name"));
    nReadCode_ = byteValue(requiredAttribute(element, "readcode"));
    nWriteCode_ = byteValue(requiredAttribute(element, "writecode"));
    nSingleWrCode_ = byteValue(requiredAttribute(element, "singlewrcode"));
}

void clsModBusType::SetByForm(const DataTypeFields& fields) {
    sName_ = fields.name;
    nReadCode_ = byteValue(fields.readCode);
    nWriteCode_ = isReadOnly(sName_) ? std::uint8_t{0} : byteValue(fields.writeCode);
    nSingleWrCode_ = fields.single ? byteValue(fields.singleCode) : std::uint8_t{0};
}

std::string clsModBusType::GetXmlTag() const {
    // The blanks around one equals sign and not the others: kept, existing files are compared by their bytes.
    std::string out = "\t\t<DATATYPE name=\"" + fileTypeName(sName_) + "\" readcode = \"";
    appendNumber(out, nReadCode_);
    out += "\" writecode=\"";
    appendNumber(out, nWriteCode_);
    out += "\" singlewrcode=\"";
    appendNumber(out, nSingleWrCode_);
    out += "\"/>";
    return out;
}

void clsModBusType::AddToListView(ListView& list) const {
    const auto codeOrEmpty = [](std::uint8_t code) {
        return code == 0 ? std::string() : std::to_string(code);
    };
    list.addRow({sName_,
                 sName_,
                 "item",
                 "modbus",
                 {std::to_string(nReadCode_), codeOrEmpty(nWriteCode_), codeOrEmpty(nSingleWrCode_)}});
}

}  // namespace trevandix
