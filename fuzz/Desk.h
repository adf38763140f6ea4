#pragma once

#include <string>

#include "FakePlatform.h"
#include "Reference.h"

namespace trevandix::testing {

/// The editor without a screen, and the reference that it is compared with.
class Desk {
public:
    Desk();
    /// Performs the step on both. Returns the first line that differs; empty if none does.
    std::string apply(const Step& step);
    const Reference& reference() const { return reference_; }
    const Configuration& configuration() const { return place_.configuration; }

private:
    void act(const Step& step);
    void work(FakeForm& form, const Texts& entries);
    Texts seen();
    TreeNode* node(const std::string& key);

    Workplace place_;
    Reference reference_;
    Texts log_;
    FakeForm* find_ = nullptr;
    std::uint64_t revision_ = 0;
    Texts content_;
};

}  // namespace trevandix::testing
