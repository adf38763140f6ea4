#include "model/Content.h"

namespace trevandix {

void Content::setName(const std::shared_ptr<clsItem>& item, std::string_view name) {
    if (item->sName() == name) return;
    item->sName(name);
    touch();
}

void Content::setComment(const Key& item, std::string_view comment) {
    clsItem& record = *collection<clsItem>().at(item);
    if (record.sComment() == comment) return;
    record.sComment(comment);
    touch();
}

}  // namespace trevandix
