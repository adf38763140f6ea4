#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "model/StructureTree.h"

namespace trevandix {

/// The name of a step to undo, made of what its edits say of themselves: "Delete 3 items".
class StepName {
public:
    StepName() = default;
    /// `verb` stands for those of the edits, unless it is empty.
    explicit StepName(std::string_view verb) : verb_(verb), verbStays_(!verb.empty()) {}

    /// An edit of one object. The first edit gives the verb, the kind and, if it stays alone, the object's
    /// name; later edits of the same verb and kind are counted.
    void tell(std::string_view verb, NodeTag tag, std::string_view object);
    void setVerb(std::string_view verb) { verb_ = verb; }
    /// Names the whole step, instead of its edits.
    void setWhole(std::string name) { whole_ = std::move(name); }
    /// Forgets the edits, not the verb.
    void restart() { count_ = 0; }

    std::string text() const;

private:
    std::string verb_{};
    bool verbStays_ = false;
    NodeTag tag_{};
    std::string object_{};
    std::size_t count_ = 0;
    std::string whole_{};
};

}  // namespace trevandix
