#include "check/Check.h"

#include <algorithm>
#include <array>
#include <set>
#include <unordered_map>

#include "check/Families.h"
#include "check/Rules.h"
#include "check/Wording.h"

namespace trevandix {

namespace {

std::vector<Finding> findingsOf(const Survey& survey, Pulse& pulse) {
    std::vector<Finding> findings;
    Search search(survey, pulse, findings);
    for (std::size_t i = 0; i < rules().size(); ++i) {
        search.setRule(rules()[i]);
        ruleRows()[i].find(search);
    }
    return findings;
}

using Places = std::unordered_map<Key, std::size_t>;

// For each place the text of the first finding that its object would have and does not have now.
std::vector<std::string> findingsAdded(const Configuration& configuration, const Places& places,
                                       std::size_t count, const Intended& intended, Pulse& pulse) {
    std::vector<std::set<const Rule*>> before(count);
    for (const Finding& finding : findingsOf(Survey(configuration, pulse), pulse)) {
        if (const auto place = places.find(finding.object); place != places.end())
            before[place->second].insert(finding.rule);
    }
    std::vector<std::string> added(count);
    const Survey survey(configuration, pulse, &intended);
    for (Finding& finding : findingsOf(survey, pulse)) {
        const auto place = places.find(finding.object);
        if (place == places.end() || before[place->second].contains(finding.rule)) continue;
        if (added[place->second].empty()) added[place->second] = std::move(finding.text);
    }
    return added;
}

}  // namespace

std::string_view severityName(Severity severity) {
    constexpr std::array<std::string_view, 3> kNames{"error", "warning", "note"};
    return kNames[static_cast<std::size_t>(severity)];
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
    try {
        Pulse pulse(interrupted);
        return findingsOf(Survey(configuration, pulse), pulse);
    } catch (const Interrupted&) {
        return std::nullopt;
    }
}

std::vector<std::string> findingsAdded(const Configuration& configuration,
                                       std::span<const IntendedName> names) {
    std::unordered_map<const clsItem*, clsItem> renamed;
    Places places;
    for (std::size_t i = 0; i < names.size(); ++i) {
        places.emplace(names[i].item, i);
        const auto record = configuration.items.find(names[i].item);
        if (record != nullptr)
            renamed.insert_or_assign(record.get(), *record).first->second.sName(names[i].name);
    }
    Pulse pulse;
    return findingsAdded(configuration, places, names.size(),
                         {[&](const TreeNode&, const clsItem& present) -> const clsItem& {
                             const auto record = renamed.find(&present);
                             return record == renamed.end() ? present : record->second;
                         }},
                         pulse);
}

std::vector<std::string> findingsAdded(const Configuration& configuration,
                                       std::span<const IntendedItem> items, Pulse& pulse) {
    std::unordered_map<const TreeNode*, const clsItem*> changed;
    Places places;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool exists = items[i].node != nullptr;
        places.emplace(exists ? items[i].node->key() : items[i].record->sKey(), i);
        if (exists) changed.emplace(items[i].node, items[i].record);
    }
    return findingsAdded(configuration, places, items.size(),
                         {[&](const TreeNode& node, const clsItem& present) -> const clsItem& {
                              const auto record = changed.find(&node);
                              return record == changed.end() ? present : *record->second;
                          },
                          items},
                         pulse);
}

std::vector<std::string> findingsAdded(const Configuration& configuration,
                                       std::span<const IntendedUnit> units, Pulse& pulse) {
    Intended intended{[](const TreeNode&, const clsItem& present) -> const clsItem& { return present; }};
    Places places;
    for (std::size_t i = 0; i < units.size(); ++i) {
        places.emplace(units[i].unit, i);
        intended.units.emplace(units[i].unit, units[i].record);
    }
    return findingsAdded(configuration, places, units.size(), intended, pulse);
}

std::string firstUnreadable(const Configuration& configuration) {
    Pulse pulse;
    const Survey survey(configuration, pulse);
    auto item = survey.items.begin();
    for (const Object& object : survey.objects) {
        const std::string fault = textFault(survey, object, object.tag == NodeTag::Item ? &*item++ : nullptr);
        if (!fault.empty()) return shownKey(*object.key) + ": " + fault;
    }
    return {};
}

}  // namespace trevandix
