#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "DialogSteps.h"
#include "platform/Text.h"

namespace trevandix::testing {

namespace {

/// A user who adds, edits and renames at random. The names are few, so that clashes of names and keys are
/// common.
class RandomUser {
public:
    RandomUser(Workplace& place, unsigned seed) : place_(place), random_(seed) {}

    void step() {
        switch (random_() % 8) {
            case 0:
                place_.click("");
                return dialog("mnuAddPlc", [this](FakeForm& form) { fillUnit(form); });
            case 1:
                place_.click(anyOf(NodeTag::Plc, NodeTag::Branch));
                return dialog("mnuAddBranch", [this](FakeForm& form) { fillBranch(form); });
            case 2:
            case 3:
            case 4:
                place_.click(anyOf(NodeTag::Plc, NodeTag::Branch));
                return dialog("mnuAddItem", [this](FakeForm& form) { addItems(form); });
            case 5:
                return edit(NodeTag::Plc, [this](FakeForm& form) { fillUnit(form); });
            case 6:
                return edit(NodeTag::Branch, [this](FakeForm& form) { fillBranch(form); });
            default:
                return edit(NodeTag::Item, [this](FakeForm& form) { fillRandomItem(form); });
        }
    }

private:
    std::size_t pick(std::size_t count) { return random_() % count; }
    std::string number(std::size_t limit) { return std::to_string(pick(limit)); }

    std::string anyOf(NodeTag tag, NodeTag otherTag) {
        Texts keys;
        const StructureTree& tree = place_.configuration.tree;
        for (const TreeNode* n = tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n)) {
            if (n->tag() == tag || n->tag() == otherTag) keys.push_back(n->key().str());
        }
        return keys.empty() ? std::string() : keys[pick(keys.size())];
    }

    std::string name() {
        static const Texts kNames{"A", "a", "B", "A.B", "B.A", "C", "New_Item_2", "ModBus", "coil"};
        return kNames[pick(kNames.size())];
    }

    void dialog(std::string_view command, FakeForms::Script script) {
        place_.forms.scripts.assign({std::move(script)});
        place_.run(command);
        place_.forms.scripts.clear();
    }

    void edit(NodeTag tag, FakeForms::Script script) {
        const std::string key = anyOf(tag, tag);
        if (!key.empty()) editDialog(place_, key, std::move(script));
    }

    void fillUnit(FakeForm& form) {
        form.type("txtName", name());
        form.type("txtUI", number(40));
        form.press("cmdOk");
    }

    void fillBranch(FakeForm& form) {
        form.type("txtBranchName", name());
        form.press("cmdOk");
    }

    void chooseAny(FakeForm& form, const std::string& list) {
        const Texts items = form.items(list);
        if (!items.empty()) form.choose(list, items[pick(items.size())]);
    }

    void fillFields(FakeForm& form) {
        form.type("txtItemName", name());
        form.type("txtAddress", number(70000));
        for (const char* list : {"cmbModbusType", "cmbDataType", "cmbAccessRight"}) chooseAny(form, list);
        if (form.enabled("cmbBit")) chooseAny(form, "cmbBit");
        if (form.enabled("txtElements")) form.type("txtElements", number(50));
    }

    void fillRandomItem(FakeForm& form) {
        fillFields(form);
        form.press("cmdOk");
    }

    void addItems(FakeForm& form) {
        fillFields(form);
        if (pick(2) == 0) form.press("cmdAdd");
        if (pick(3) == 0) {
            form.press("cmdGroup");
            form.type("txtNumbItems", number(6));
            form.press("cmdOkNumber");
        }
        form.press(pick(2) == 0 ? "cmdOk" : "cmdCancel");
    }

    Workplace& place_;
    std::mt19937 random_;
};

/// What a configuration says, one line a node: tag, key and record. Branch names in capitals, as a file gives
/// them back.
Texts contents(const Configuration& configuration) {
    Texts lines;
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        std::string path;
        for (const TreeNode* up = n; up != &root; up = up->parent()) {
            const bool branch = up->tag() == NodeTag::Branch;
            path = "/" + (branch ? upperCased(up->text()) : up->text()) + path;
        }
        if (n->tag() == NodeTag::Item) path += configuration.items.at(n->key())->GetXmlTag(0);
        if (n->tag() == NodeTag::Plc) path += configuration.units.at(n->key())->GetXmlTag(kTcpIp);
        lines.push_back(path);
    }
    std::ranges::sort(lines);
    return lines;
}

/// A file can only give back what it can hold: keys that stay apart when branch names are in capitals.
bool survivesAFile(const Configuration& configuration) {
    Texts keys;
    for (const TreeNode* n = configuration.tree.firstAdded(); n != nullptr;
         n = StructureTree::nextAdded(*n)) {
        if (n->tag() != NodeTag::Config) keys.push_back(upperCased(n->key().view()));
    }
    std::ranges::sort(keys);
    return std::ranges::adjacent_find(keys) == keys.end();
}

TEST(CommandSequences, TreeAndCollectionsAlwaysAgreeAndFilesGiveThemBack) {
    constexpr int kSeeds = 60;
    constexpr int kSteps = 80;
    int comparedFiles = 0;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        Workplace place;
        startPlant(place);
        RandomUser user(place, seed);
        for (int step = 0; step < kSteps; ++step) {
            user.step();
            const Texts faults = disagreements(place.configuration);
            ASSERT_EQ(faults, Texts{}) << "seed " << seed << " step " << step;
            if (step % 10 != 9 || !survivesAFile(place.configuration)) continue;
            ++comparedFiles;
            place.run("mnuSaveCfg");
            Workplace second;
            second.openText(readFile(place.configuration.state.filePath));
            ASSERT_EQ(contents(second.configuration), contents(place.configuration)) << "seed " << seed;
        }
    }
    EXPECT_GT(comparedFiles, kSeeds / 2);
}

}  // namespace

}  // namespace trevandix::testing
