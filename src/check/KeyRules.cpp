#include <deque>
#include <string>

#include "check/Families.h"
#include "check/NameNumbers.h"
#include "check/Wording.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

// Computes keys as opening the file does. A key is told by a number: names may hold "." and branches may nest
// deeply, so that whole texts would take long.
class OpenedKeys {
public:
    explicit OpenedKeys(const Survey& survey)
        : survey_(survey), paths_(survey.objects.size()), numbers_(survey.objects.size() + 1) {}

    /// Objects must come in their order.
    std::uint32_t keyOf(std::uint32_t place) {
        const Object& object = survey_.objects[place];
        const std::uint32_t below = object.container == Object::kNone ? 0 : paths_[object.container];
        return paths_[place] = below_(below, read(object));
    }
    std::uint32_t keyOf(std::string_view key) { return below_(0, key); }
    std::size_t size() const { return numbers_.size(); }

private:
    /// As it is read.
    std::string_view read(const Object& object) {
        if (object.tag == NodeTag::DataType)
            return texts_.emplace_back(displayTypeLabel(fileTypeName(object.name)));
        if (object.tag != NodeTag::Branch || (object.marks & kSmall) == 0) return object.name;
        return texts_.emplace_back(upperCased(object.name));
    }
    std::uint32_t below_(std::uint32_t path, std::string_view name) {
        for (std::size_t dot = name.find('.'); dot != std::string_view::npos; dot = name.find('.')) {
            path = numbers_.number(path, name.substr(0, dot));
            name.remove_prefix(dot + 1);
        }
        return numbers_.number(path, name);
    }

    const Survey& survey_;
    std::vector<std::uint32_t> paths_;
    NameNumbers<Exactly> numbers_;
    std::deque<std::string> texts_;
};

std::string shownObject(const Object& object) {
    const std::string_view kind = object.tag == NodeTag::Item     ? "the item "
                                  : object.tag == NodeTag::Branch ? "the branch "
                                  : object.tag == NodeTag::Plc    ? "the unit "
                                                                  : "the data type ";
    return std::string(kind) + shownKey(*object.key);
}

template <typename Record>
void findLost(Search& search, const KeyedCollection<Record>& records, NodeTag tag, std::string_view text) {
    for (const auto& [key, record] : records) {
        search.pulse.step();
        const TreeNode* node = search.survey.configuration.tree.find(key);
        if (node == nullptr || node->tag() != tag) search.found(key, std::string(text));
    }
}

}  // namespace

void findMissingNames(Search& search) {
    search.each(search.survey.objects, [&](const Object& object) {
        if (!object.name.empty() || object.tag == NodeTag::Branch) return;
        search.found(*object.key, std::string(object.tag == NodeTag::Item ? "item" : "unit") +
                                      " has no name; give it one");
    });
}

void findKeyCollisions(Search& search) {
    const std::vector<Object>& objects = search.survey.objects;
    OpenedKeys keys(search.survey);
    std::vector<std::uint32_t> numbers;
    numbers.reserve(objects.size());
    for (std::uint32_t place = 0; place < objects.size(); ++place) {
        search.pulse.step(5);
        numbers.push_back(keys.keyOf(place));
    }
    const std::uint32_t folder = keys.keyOf(kModBusFolder);
    Sharers sharers(keys.size());
    sharers.add(folder, Object::kNone);
    for (std::uint32_t place = 0; place < objects.size(); ++place) {
        search.pulse.step();
        sharers.add(numbers[place], place);
    }
    for (std::uint32_t place = 0; place < objects.size(); ++place) {
        search.pulse.step();
        const std::uint32_t number = numbers[place];
        const std::size_t count = sharers.count(number);
        if (count < 2) continue;
        const std::uint32_t other = sharers.partner(number, place);
        const std::string name = other == Object::kNone ? "the ModBus folder" : shownObject(objects[other]);
        search.found(*objects[place].key, "comes back under the same key as " + name + andMore(count - 2) +
                                              ", so the file could not be opened; rename one of them");
    }
}

void findUnknownTypes(Search& search) {
    const Survey& survey = search.survey;
    search.each(NodeTag::DataType, [&](const Object& type) {
        if (tableOf(type.name) != nullptr) return;
        search.found(*type.key, "the file has no name for the table " + quoted(type.name) +
                                    "; use one of the four tables of the dialog");
    });
    search.each(survey.items, [&](const ItemFacts& item) {
        if (item.type->known()) return;
        search.found(*survey.objects[item.object].key, "the file has no name for the type " +
                                                           quoted(item.record->sDataType()) +
                                                           "; choose ModBus type and data type again");
    });
}

void findMisplacedNodes(Search& search) {
    for (const TreeNode* node : search.survey.misplaced) {
        search.found(node->key(),
                     "stands where the file has no place for it; undo what put it there, or delete it");
    }
}

void findNodesWithoutRecord(Search& search) {
    for (const TreeNode* node : search.survey.bare) {
        search.found(node->key(),
                     "has lost its record, and there is nothing to save; undo what moved or renamed it");
    }
}

void findRecordsWithoutNode(Search& search) {
    const Configuration& configuration = search.survey.configuration;
    if (search.survey.allRecordsFound) return;
    constexpr std::string_view kText = "is not in the tree, as its node was moved or renamed; undo that";
    findLost(search, configuration.dataTypes, NodeTag::DataType, kText);
    findLost(search, configuration.units, NodeTag::Plc, kText);
    findLost(search, configuration.branches, NodeTag::Branch, kText);
    findLost(search, configuration.items, NodeTag::Item, kText);
}

}  // namespace trevandix
