#pragma once

#include <string>
#include <string_view>

#include "model/Key.h"

namespace trevandix {

class XmlElement;

/// A folder in a unit's tag tree. Its place follows from the tree and its key.
class clsBranch {
public:
    const std::string& sName() const { return sName_; }
    void sName(std::string_view name) { sName_ = name; }
    const Key& sKey() const { return sKey_; }
    void sKey(const Key& key) { sKey_ = key; }
    void swapKey(Key& key) { swap(sKey_, key); }

    /// From an element; the branch's name is the element's in capitals. `container` is the key of the unit or
    /// branch around it.
    void build(const XmlElement& element, const Key& container);
    /// The key up to its last ".", even if that is part of the branch's name.
    std::string_view getParentKey() const { return sKey_.parent(); }

private:
    std::string sName_;
    Key sKey_;
};

}  // namespace trevandix
