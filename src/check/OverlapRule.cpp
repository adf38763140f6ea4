#include <algorithm>
#include <array>
#include <tuple>

#include "check/Families.h"
#include "check/Places.h"
#include "check/Wording.h"

namespace trevandix {

namespace {

constexpr std::size_t kMostPartners = 3;

struct Placed {
    std::uint32_t unit;
    const ModbusTable* table;
    Span span;
    std::uint32_t item;  // its place in `items`

    bool sharesTable(const Placed& other) const { return unit == other.unit && table == other.table; }
};

struct Partners {
    std::array<std::uint32_t, kMostPartners> items{};  // the first of them
    std::size_t named = 0;
    std::size_t count = 0;
};

std::vector<Placed> placedItems(const Survey& survey, Pulse& pulse) {
    std::vector<Placed> all;
    all.reserve(survey.items.size());
    for (std::uint32_t i = 0; i < survey.items.size(); ++i) {
        pulse.step(2);
        const ItemFacts& item = survey.items[i];
        if (!item.type->known()) continue;
        const Span span = item.span();
        if (!span.empty()) all.push_back({item.unit, &item.table(), span, i});
    }
    return all;
}

// The items of one unit and table, sorted by where they begin. An item's partners are those that begin in it
// and those that begin before it and end behind its beginning.
class Group {
public:
    Group(std::span<const Placed> group, Pulse& pulse) : group_(group) {
        ends_.reserve(group.size());
        for (const Placed& placed : group) ends_.push_back(placed.span.end);
        std::ranges::sort(ends_, [&](std::int64_t left, std::int64_t right) {
            pulse.step();
            return left < right;
        });
    }

    /// To be called for each item in order.
    Partners partnersOf(std::size_t place) {
        const Span& span = group_[place].span;
        Partners found;
        for (const Placed* before : latest_) {
            if (before != nullptr && before->span.end > span.begin) found.items[found.named++] = before->item;
        }
        for (std::size_t next = place + 1; next < group_.size() && found.named < kMostPartners; ++next) {
            if (group_[next].span.begin >= span.end) break;
            found.items[found.named++] = group_[next].item;
        }
        if (found.named > 0) found.count = count(span);
        remember(group_[place]);
        return found;
    }

private:
    std::size_t count(const Span& span) const {
        const auto begun = std::ranges::lower_bound(group_, span.end, {},
                                                    [](const Placed& placed) { return placed.span.begin; }) -
                           group_.begin();
        const auto ended = std::ranges::upper_bound(ends_, span.begin) - ends_.begin();
        return static_cast<std::size_t>(begun - ended - 1);
    }

    // Of the items so far, keeps those that end last.
    void remember(const Placed& placed) {
        const Placed* candidate = &placed;
        for (const Placed*& kept : latest_) {
            if (kept == nullptr || kept->span.end < candidate->span.end) std::swap(kept, candidate);
            if (candidate == nullptr) return;
        }
    }

    std::span<const Placed> group_;
    std::vector<std::int64_t> ends_;  // sorted
    std::array<const Placed*, kMostPartners> latest_{};
};

// Without the unit, which is the same.
std::string shownPartner(const Survey& survey, const ItemFacts& item) {
    std::string_view key = *survey.objects[item.object].key;
    key.remove_prefix(std::min(key.size(), survey.objects[item.unit].key->view().size() + 1));
    return shownKey(key) + " (" + shownPlace(item) + ")";
}

std::string told(const Survey& survey, const Partners& partners) {
    std::string text;
    for (std::size_t i = 0; i < partners.named; ++i)
        text += (i == 0 ? "overlaps " : ", ") + shownPartner(survey, survey.items[partners.items[i]]);
    return text + andMore(partners.count - partners.named) +
           "; move one of them unless they are to show the same place in two ways";
}

}  // namespace

void findOverlaps(Search& search) {
    const Survey& survey = search.survey;
    std::vector<Placed> all = placedItems(survey, search.pulse);
    const auto order = [](const Placed& placed) {
        return std::tuple(placed.unit, placed.table, placed.span.begin, placed.item);
    };
    std::ranges::sort(all, [&](const Placed& left, const Placed& right) {
        search.pulse.step();
        return order(left) < order(right);
    });
    std::vector<Partners> partners(survey.items.size());
    for (auto begin = all.begin(); begin != all.end();) {
        const auto end =
            std::find_if(begin, all.end(), [&](const Placed& placed) { return !placed.sharesTable(*begin); });
        Group group(std::span(begin, end), search.pulse);
        for (std::size_t place = 0; begin != end; ++begin, ++place) {
            search.pulse.step();
            partners[begin->item] = group.partnersOf(place);
        }
    }
    for (std::uint32_t i = 0; i < survey.items.size(); ++i) {
        if (partners[i].count > 0)
            search.found(*survey.objects[survey.items[i].object].key, told(survey, partners[i]));
    }
}

}  // namespace trevandix
