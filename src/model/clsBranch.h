#pragma once

#include <string>
#include <string_view>

#include "model/Key.h"

namespace trevandix {

class XmlElement;

/// A folder of a unit's tag tree. The tree and the key alone say where it stands.
class clsBranch {
public:
    const std::string& sName() const { return sName_; }
    void sName(std::string_view name) { sName_ = name; }
    const Key& sKey() const { return sKey_; }
    void sKey(const Key& key) { sKey_ = key; }
    void swapKey(Key& key) { swap(sKey_, key); }

    /// From an element whose name is the branch's, read in capitals. `container` is the key of the unit or
    /// branch around it.
    void build(const XmlElement& element, const Key& container);
    /// The key cut at its last ".", which may stand inside the branch's own name.
    std::string_view getParentKey() const { return sKey_.parent(); }

private:
    std::string sName_;
    Key sKey_;
};

}  // namespace trevandix
