#include "table/Containers.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "check/BranchNames.h"
#include "platform/Text.h"
#include "table/BranchPath.h"
#include "table/Plan.h"

namespace trevandix {

namespace {
constexpr auto kNameOf = &Container::Entry::name;
}

Container::Entry* Container::unused(std::string_view wanted) {
    auto entry = std::ranges::lower_bound(entries, wanted, {}, kNameOf);
    while (entry != entries.end() && entry->name == wanted && entry->line != 0) ++entry;
    return entry == entries.end() || entry->name != wanted ? nullptr : &*entry;
}

std::optional<std::size_t> Container::usedBy(std::string_view wanted) const {
    const auto behind = std::ranges::upper_bound(entries, wanted, {}, kNameOf);
    if (behind == entries.begin() || std::prev(behind)->name != wanted) return std::nullopt;
    return std::prev(behind)->line;
}

Container* Containers::find(const std::string* unit, const std::string* branch, std::string& refusal) {
    std::string path = unit == nullptr ? std::string() : *unit;
    if (branch != nullptr) (path += '\0') += *branch;
    const auto [known, isNew] = found_.try_emplace(std::move(path));
    if (isNew) known->second.container = search(unit, branch, known->second.refusal);
    refusal = known->second.refusal;
    return known->second.container;
}

Container* Containers::search(const std::string* unit, const std::string* branch, std::string& refusal) {
    TreeNode* selected = configuration_.tree.selected();
    if (selected != nullptr && selected->tag() == NodeTag::Item) selected = selected->parent();
    const TreeNode* own = unitAround(configuration_, selected);
    if (unit == nullptr && own == nullptr) {
        refusal = "No unit is named, and none is selected";
        return nullptr;
    }
    TreeNode* node = configuration_.tree.find(unit != nullptr ? Key(*unit) : own->key());
    if (node == nullptr || unitAround(configuration_, node) != node) {
        refusal = "There is no unit " + quoted(unit != nullptr ? *unit : "");
        return nullptr;
    }
    if (branch == nullptr) return ofNode(node == own ? *selected : *node);
    const auto names = branchNames(*branch);
    if (!names) {
        refusal = "Branch " + quoted(*branch) + " has an empty name or a \"\\\" that stands for nothing";
        return nullptr;
    }
    Container* container = ofNode(*node);
    for (auto name = names->begin(); name != names->end() && container != nullptr; ++name)
        container = below(*container, *name, refusal);
    return container;
}

Container* Containers::ofNode(TreeNode& node) {
    const TreeNode* unit = unitAround(configuration_, &node);
    std::vector<TreeNode*> path{&node};
    while (path.back() != unit) path.push_back(path.back()->parent());
    Container* container = nullptr;
    std::for_each(path.rbegin(), path.rend(), [&](TreeNode* each) { container = &enter(container, *each); });
    list(*container);
    return container;
}

Container* Containers::below(Container& above, const std::string& name, std::string& refusal) {
    Container* container = nullptr;
    if (const auto exact = above.branches.find(name); exact != above.branches.end()) {
        container = exact->second;
    } else if (const auto similar = above.upperBranches.find(upperCased(name));
               similar != above.upperBranches.end()) {
        container = similar->second;
    } else if (const std::string fault = branchFault(name) + tagFault(name); !fault.empty()) {
        refusal = "New " + fault + ": " + quoted(name);
        return nullptr;
    } else if (std::ranges::binary_search(above.entries, upperCased(name), {}, kNameOf)) {
        refusal = "An item has the name of the new branch " + quoted(name) +
                  ", as files hold branch names in capitals";
        return nullptr;
    } else {
        container = &containers_.emplace_back(
            Container{.above = &above, .name = name, .key = Key(above.key, name), .listed = true});
        know(above, *container);
    }
    list(*container);
    return container;
}

Container& Containers::enter(Container* above, TreeNode& node) {
    Container*& container = ofNode_[&node];
    if (container == nullptr)
        container = &containers_.emplace_back(
            Container{.node = &node, .above = above, .name = node.text(), .key = node.key()});
    return *container;
}

void Containers::know(Container& above, Container& branch) {
    above.branches.try_emplace(branch.name, &branch);
    above.upperBranches.try_emplace(upperCased(branch.name), &branch);
}

// Only when it is needed, and without recursion, because branches may nest deeply.
void Containers::list(Container& container) {
    if (std::exchange(container.listed, true)) return;
    for (TreeNode* child = container.node->firstChild(); child != nullptr; child = child->nextSibling()) {
        if (child->tag() != NodeTag::Item) {
            know(container, enter(&container, *child));
        } else if (const auto record = configuration_.items.find(child->key()); record != nullptr) {
            container.entries.push_back({record->sName(), child});
        }
    }
    std::ranges::stable_sort(container.entries, {}, kNameOf);
}

}  // namespace trevandix
