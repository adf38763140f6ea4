#include "check/Check.h"

#include <algorithm>
#include <array>

#include "xmlfile/Unreadable.h"

namespace trevandix {

namespace {

constexpr std::array kRules{
    Rule{"unreadable-text", Severity::Error,
         "The file is written without escaping, so that \"<\" or \"&\" in a text keeps other XML programs "
         "from "
         "reading it.",
         "Take the character out of the text."},
};

}  // namespace

std::string_view severityName(Severity severity) {
    constexpr std::array<std::string_view, 3> kNames{"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
}

std::span<const Rule> rules() {
    return kRules;
}

FindingCounts countFindings(std::span<const Finding> findings) {
    const auto count = [&](Severity severity) {
        return static_cast<std::size_t>(std::ranges::count_if(
            findings, [&](const Finding& finding) { return finding.rule->severity == severity; }));
    };
    return {count(Severity::Error), count(Severity::Warning)};
}

std::optional<std::vector<Finding>> check(const Configuration& configuration,
                                          const std::function<bool()>& interrupted) {
    if (interrupted()) return std::nullopt;
    std::vector<Finding> findings;
    const std::string text = whatMakesUnreadable(configuration);
    if (!text.empty()) findings.push_back({&kRules[0], Key(text.substr(0, text.find(':'))), text});
    return findings;
}

std::vector<std::string> findingsAdded(const Configuration&, std::span<const IntendedName> names) {
    return std::vector<std::string>(names.size());
}

}  // namespace trevandix
