#include "platform/Services.h"

namespace trevandix {

std::string_view reason(Publication publication) {
    switch (publication) {
        case Publication::Refused:
            return "the system refused";
        case Publication::RightsDenied:
            return "administrator's rights were not given";
        case Publication::NobodyToAsk:
            return "nobody is at the desktop to give administrator's rights";
        case Publication::Done:
            break;
    }
    return {};
}

}  // namespace trevandix
