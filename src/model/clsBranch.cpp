#include "model/clsBranch.h"

#include "platform/Text.h"
#include "platform/Xml.h"

namespace trevandix {

void clsBranch::build(const XmlElement& element, const Key& container) {
    sName_ = upperCased(carriedText(element.name()));
    sKey_ = Key(container, sName_);
}

}  // namespace trevandix
