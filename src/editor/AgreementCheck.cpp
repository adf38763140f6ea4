#include "editor/AgreementCheck.h"

#include <cstdio>
#include <cstdlib>

namespace trevandix {

#ifndef NDEBUG

AgreementCheck::AgreementCheck(const Configuration& configuration, bool mayPart)
    : configuration_(configuration), agreed_(!mayPart && disagreements(configuration).empty()) {}

AgreementCheck::~AgreementCheck() {
    const auto faults = agreed_ ? disagreements(configuration_) : brokenLinks(configuration_.tree);
    for (const std::string& fault : faults) std::fprintf(stderr, "%s\n", fault.c_str());
    if (!faults.empty()) std::abort();
}

#endif

}  // namespace trevandix
