#include "model/DataTypeFields.h"

#include "model/Numbers.h"
#include "model/ValueTypes.h"

namespace trevandix {

std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited) {
    if (!edited) {
        for (const auto& [key, other] : configuration.dataTypes) {
            if (other->getName() == type.name) return Refusal{"name", "ModBus type already existing"};
        }
    }
    if (!isNumeric(type.readCode)) return Refusal{"readCode", "Check Read Function code"};
    if (!isReadOnly(type.name) && !isNumeric(type.writeCode))
        return Refusal{"writeCode", "Check Write Function code"};
    if (type.single && !isNumeric(type.singleCode))
        return Refusal{"singleCode", "Check Single Write Function code"};
    return std::nullopt;
}

}  // namespace trevandix
