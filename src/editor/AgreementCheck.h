#pragma once

#include "model/Invariants.h"

namespace trevandix {

/// In debug builds, looks at the end of a command whether the tree is whole and, unless the command may part
/// them, tree and collections still agree if they did before. A fault ends the program with what is wrong.
class AgreementCheck {
public:
#ifdef NDEBUG
    explicit AgreementCheck(const Configuration&, bool = false) {}
    ~AgreementCheck() {}  // not trivial, so that nobody calls the check unused
#else
    explicit AgreementCheck(const Configuration& configuration, bool mayPart = false);
    ~AgreementCheck();
#endif
    AgreementCheck(const AgreementCheck&) = delete;
    AgreementCheck& operator=(const AgreementCheck&) = delete;

#ifndef NDEBUG
private:
    const Configuration& configuration_;
    bool agreed_;
#endif
};

}  // namespace trevandix
