#pragma once

#include <string>
#include <utility>
#include <vector>

#include "check/Finding.h"
#include "check/Survey.h"

namespace trevandix {

/// What the function of a rule works with.
class Search {
public:
    Search(const Survey& surveyed, Pulse& asking, std::vector<Finding>& findings)
        : survey(surveyed), pulse(asking), findings_(findings) {}

    const Survey& survey;
    Pulse& pulse;

    /// The rule whose findings follow.
    void setRule(const Rule& rule) { rule_ = &rule; }
    /// At most once for an object, and in the order of the tree.
    void found(const Key& object, std::string text) {
        constexpr int kSteps = 100;
        pulse.step(kSteps);
        findings_.push_back({rule_, object, std::move(text)});
    }

    /// Calls `look` with each of a survey's objects or items.
    template <typename Facts, typename Look>
    void each(const std::vector<Facts>& all, Look look) {
        for (const Facts& facts : all) {
            pulse.step();
            look(facts);
        }
    }
    template <typename Look>
    void each(NodeTag tag, Look look) {
        each(survey.objects, [&](const Object& object) {
            if (object.tag == tag) look(object);
        });
    }

private:
    std::vector<Finding>& findings_;
    const Rule* rule_ = nullptr;
};

}  // namespace trevandix
