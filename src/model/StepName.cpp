#include "model/StepName.h"

#include <array>

namespace trevandix {

void StepName::tell(std::string_view verb, NodeTag tag, std::string_view object) {
    if (count_ == 0) {
        if (!verbStays_) verb_ = verb;
        tag_ = tag;
        object_ = object;
        count_ = 1;
    } else if (tag_ == tag && (verbStays_ || verb_ == verb)) {
        ++count_;
    }
}

std::string StepName::text() const {
    struct Kind {
        std::string_view one, many;
    };
    constexpr std::array<Kind, 6> kKinds{{{"configuration", "configurations"},
                                          {"folder", "folders"},
                                          {"data type", "data types"},
                                          {"unit", "units"},
                                          {"branch", "branches"},
                                          {"item", "items"}}};
    if (!whole_.empty()) return whole_;
    if (count_ == 0) return "Change";
    const Kind& kind = kKinds.at(static_cast<std::size_t>(tag_));
    std::string name = verb_ + ' ';
    if (count_ == 1) return name.append(kind.one).append(" ").append(object_);
    return name.append(std::to_string(count_)).append(" ").append(kind.many);
}

}  // namespace trevandix
