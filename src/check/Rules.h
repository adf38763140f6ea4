#pragma once

#include <span>

#include "check/Finding.h"

namespace trevandix {

class Search;

/// A rule and the function that looks for its findings.
struct RuleRow {
    Rule rule;
    void (*find)(Search&);
};

/// The table of rules, in the same order as `rules`.
std::span<const RuleRow> ruleRows();

}  // namespace trevandix
