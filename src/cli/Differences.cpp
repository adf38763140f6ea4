#include "cli/Differences.h"

#include <algorithm>
#include <vector>

#include "model/RecordField.h"

namespace trevandix {

namespace {

using Kind = Difference::Kind;

std::string pathOf(const TreeNode& node) {
    const std::string folder = node.tag() == NodeTag::DataType ? std::string(kModBusFolder) + "." : "";
    return folder + node.key().str();
}

template <typename Visit>
void forEachNode(const Configuration& configuration, Visit visit) {
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* node = nextBelow(root, root); node != nullptr; node = nextBelow(*node, root))
        visit(*node);
}

// The node for the same object: of the same kind, under the same key.
const TreeNode* counterpart(const TreeNode& node, const Configuration& configuration) {
    const TreeNode* found = configuration.tree.find(node.key());
    return found != nullptr && found->tag() == node.tag() ? found : nullptr;
}

class Comparison {
public:
    Comparison(const Configuration& before, const Configuration& after,
               const std::function<void(const Difference&)>& found)
        : before_(before), after_(after), found_(found), nextItem_(before.items.begin()) {}

    void compareNode(const TreeNode& node) {
        const TreeNode* other = counterpart(node, after_);
        if (other == nullptr) return found_({Kind::Removed, pathOf(node)});
        const Key& key = node.key();
        switch (node.tag()) {
            case NodeTag::Item: {
                const clsItem& item = before_.items.at(key, nextItem_);
                const clsItem& now = *after_.items.at(key);
                if (!(item == now)) compareFields(node, item.fileFields(), now.fileFields());
                break;
            }
            case NodeTag::Branch:  // where names hold dots, the same key can be another place
                return compareFields(node, {{"name", node.text()}}, {{"name", other->text()}});
            case NodeTag::Plc:
                return compareFields(node, before_.units.at(key)->fileFields(before_.state.interfaceKind),
                                     after_.units.at(key)->fileFields(after_.state.interfaceKind));
            case NodeTag::DataType:
                return compareFields(node, before_.dataTypes.at(key)->fileFields(),
                                     after_.dataTypes.at(key)->fileFields());
            case NodeTag::Config:
            case NodeTag::ModBus:
                break;
        }
    }

private:
    // Each side may lack fields of the other.
    void compareFields(const TreeNode& node, const std::vector<FileField>& before,
                       std::vector<FileField> after) const {
        for (const auto& [name, text] : before) {
            const auto other = std::ranges::find(after, name, &FileField::name);
            const std::string now = other == after.end() ? "" : other->text;
            if (now != text) found_({Kind::Changed, pathOf(node), name, text, now});
            if (other != after.end()) after.erase(other);
        }
        for (const auto& [name, text] : after) found_({Kind::Changed, pathOf(node), name, "", text});
    }

    const Configuration& before_;
    const Configuration& after_;
    const std::function<void(const Difference&)>& found_;
    KeyedCollection<clsItem>::Iterator nextItem_;
};

// Quotes show where a text begins and ends.
std::string valueText(const std::string& text) {
    const bool plain = !text.empty() && text.find_first_of(" \"") == std::string::npos;
    return plain ? escaped(text) : '"' + escaped(text) + '"';
}

std::string lineOf(const Difference& difference) {
    if (difference.kind == Difference::Kind::Removed) return "- " + escaped(difference.object);
    if (difference.kind == Difference::Kind::Added) return "+ " + escaped(difference.object);
    std::string line = "~ ";
    if (!difference.object.empty()) line += escaped(difference.object) + ": ";
    return line.append(difference.field) + ' ' + valueText(difference.before) + " -> " +
           valueText(difference.after);
}

Colour colourOf(Difference::Kind kind) {
    switch (kind) {
        case Difference::Kind::Removed:
            return Colour::Red;
        case Difference::Kind::Added:
            return Colour::Green;
        case Difference::Kind::Changed:
            break;
    }
    return Colour::Yellow;
}

}  // namespace

void compare(const Configuration& before, const Configuration& after,
             const std::function<void(const Difference&)>& found) {
    const std::string& kind = before.state.interfaceKind;
    if (kind != after.state.interfaceKind)
        found({Kind::Changed, "", "interface", kind, after.state.interfaceKind});
    Comparison comparison(before, after, found);
    forEachNode(before, [&](const TreeNode& node) { comparison.compareNode(node); });
    forEachNode(after, [&](const TreeNode& node) {
        if (counterpart(node, before) == nullptr) found({Kind::Added, pathOf(node)});
    });
}

void print(const Console& console, const Difference& difference) {
    console.out.write(coloured(console, colourOf(difference.kind), lineOf(difference)) + "\n");
}

}  // namespace trevandix
