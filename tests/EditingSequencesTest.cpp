#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "DialogSteps.h"
#include "Plant.h"
#include "platform/Text.h"

namespace trevandix::testing {

namespace {

/// A user who tries every editing command at random, on few names, so that clashes are common. A careless one
/// also drags what has no record of its own, onto everything, and puts dots into names.
class RandomEditor {
public:
    RandomEditor(Workplace& place, unsigned seed, bool careless)
        : place_(place), careless_(careless), random_(seed) {}

    void step() {
        place_.messages.answers.clear();
        if (pick(4) == 0) place_.messages.answers.assign(4, Answer::No);
        switch (pick(10)) {
            case 0:
            case 1:
            case 2:
                return drag();
            case 3:
                return bulkPaste();
            case 4:
                return dialog("mnuAddItem", {NodeTag::Plc, NodeTag::Branch});
            case 5:
                return dialog("mnuAddBranch", {NodeTag::Plc, NodeTag::Branch});
            case 6:
                return dialog("", {NodeTag::Item, NodeTag::Branch, NodeTag::Plc});
            default:
                return onSelection();
        }
    }

private:
    std::size_t pick(std::size_t count) { return random_() % count; }

    TreeNode* anyNode(std::initializer_list<NodeTag> tags) {
        std::vector<TreeNode*> nodes;
        for (TreeNode* n = place_.configuration.tree.firstAdded(); n != nullptr;
             n = StructureTree::nextAdded(*n)) {
            if (careless_ || std::ranges::find(tags, n->tag()) != tags.end()) nodes.push_back(n);
        }
        return nodes.empty() ? nullptr : nodes[pick(nodes.size())];
    }

    // A blank is refused for pasted names only; in a branch's name it would spoil the file.
    std::string name(bool blanks) {
        static const Texts kNames{"x",   "y",   "X",  "S", "A", "x_0", "New_Item_1", "Copied_Item_2",
                                  "a b", "A.x", "x.y"};
        return kNames[pick(careless_ ? kNames.size() : blanks ? 9 : 8)];
    }

    void click(TreeNode* node) {
        if (node == nullptr) return;
        place_.window.focus = FocusedView::Tree;
        place_.editor.TreeView1_NodeClick(*node);
    }

    void drag() {
        TreeNode* source = anyNode({NodeTag::Item, NodeTag::Branch});
        if (source == nullptr) return;
        place_.editor.TreeView1_MouseDown(source, {.control = pick(2) == 0});
        place_.editor.TreeView1_OLEStartDrag();
        TreeNode* target = anyNode({NodeTag::Plc, NodeTag::Branch, NodeTag::Item});
        place_.editor.TreeView1_OLEDragOver(target);
        if (pick(10) == 0) return place_.editor.dragCancelled();
        const bool promised = place_.editor.dropAllowed(target);
        const std::size_t messages = place_.messages.texts.size();
        place_.editor.TreeView1_OLEDragDrop();
        EXPECT_TRUE(careless_ || !promised || place_.messages.texts.size() == messages);
    }

    void selectRows() {
        place_.window.focus = FocusedView::List;
        place_.display.selected.clear();
        for (std::size_t row = 0; row < place_.list.rows().size(); ++row) {
            if (pick(2) == 0) place_.display.selected.push_back(row);
        }
    }

    void bulkPaste() {
        if (pick(2) == 0) click(anyNode({NodeTag::Branch, NodeTag::Item}));
        selectRows();
        place_.clipboard.contents.clear();
        for (std::size_t i = 0; i < place_.display.selected.size(); ++i)
            place_.clipboard.contents += name(true) + "\r\n";
        place_.forms.scripts.assign({[](FakeForm& form) { form.press("Command2"); }});
        place_.run(pick(3) == 0 ? "mnuPasteComment" : "mnuPasteName");
        place_.forms.scripts.clear();
    }

    void dialog(std::string_view command, std::initializer_list<NodeTag> tags) {
        click(anyNode(tags));
        place_.forms.scripts.assign({[this](FakeForm& form) {
            if (form.shape.name == "frmItems") fillItem(form, name(false));
            if (form.shape.name == "frmBranch") form.type("txtBranchName", name(false));
            if (form.shape.name == "frmPLC") form.type("txtName", name(false));
            if (form.shape.name == "frmPLC") form.type("txtUI", "1");
            form.press("cmdOk");
        }});
        command.empty() ? place_.editor.TreeView1_DblClick() : place_.run(command);
        place_.forms.scripts.clear();
    }

    void onSelection() {
        static const Texts kCommands{"mnuCopy",  "mnuCopy",  "mnuCut",   "mnuPaste",
                                     "mnuPaste", "mnuPaste", "mnuDelete"};
        if (pick(2) == 0) click(anyNode({NodeTag::Plc, NodeTag::Branch, NodeTag::Item}));
        if (pick(2) == 0) selectRows();
        place_.run(kCommands[pick(kCommands.size())]);
    }

    Workplace& place_;
    bool careless_;
    std::mt19937 random_;
};

/// What a file of this configuration holds, one line a node. A shared record puts its one name into all its
/// places; branch names come back in capitals.
Texts contents(const Configuration& configuration, bool withRecords) {
    Texts lines;
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        const bool item = n->tag() == NodeTag::Item;
        std::string line = item ? configuration.items.at(n->key())->sName() : n->text();
        for (const TreeNode* up = n->parent(); up != &root; up = up->parent()) line = up->text() + "." + line;
        line = upperCased(line);
        if (item && withRecords) line += configuration.items.at(n->key())->GetXmlTag(0);
        lines.push_back(line);
    }
    std::ranges::sort(lines);
    return lines;
}

bool survivesAFile(const Configuration& configuration) {
    const Texts lines = contents(configuration, false);
    return std::ranges::adjacent_find(lines) == lines.end();
}

void start(Workplace& place) {
    startPlant(place);
    plant(place, {"P", "P.A/", "P.A.S/", "P.A.x", "P.A.y", "P.A.S.x", "Q", "Q.B/", "Q.B.z", "Q.r"});
}

}  // namespace

TEST(EditingSequences, TreeCollectionsAndFileAgree) {
    constexpr unsigned kSeeds = 80;
    constexpr int kSteps = 80;
    int comparedFiles = 0;
    std::size_t shared = 0;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        Workplace place;
        start(place);
        RandomEditor user(place, seed, false);
        for (int step = 0; step < kSteps && place.configuration.tree.size() < 2000; ++step) {
            user.step();
            ASSERT_EQ(disagreements(place.configuration), Texts{}) << "seed " << seed << " step " << step;
            if (step % 10 != 9 || !survivesAFile(place.configuration)) continue;
            for (const auto& [key, item] : place.configuration.items) shared += item->sKey() == key ? 0 : 1;
            ++comparedFiles;
            place.messages.answers.clear();
            place.run("mnuSaveCfg");
            Workplace second;
            second.openText(readFile(place.configuration.state.filePath));
            ASSERT_EQ(contents(second.configuration, true), contents(place.configuration, true))
                << "seed " << seed;
        }
    }
    EXPECT_GT(comparedFiles, 20);
    EXPECT_GT(shared, 20U);
}

TEST(EditingSequences, NothingCrashesACarelessUser) {
    for (unsigned seed = 1; seed <= 80; ++seed) {
        Workplace place;
        start(place);
        RandomEditor user(place, seed, true);
        StructureTree& tree = place.configuration.tree;
        for (int step = 0; step < 80 && tree.size() < 2000; ++step) {
            user.step();
            std::size_t nodes = 0;
            for (TreeNode* n = tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n), ++nodes) {
                const bool reached = n->parent() == nullptr ? n == tree.root() : tree.find(n->key()) == n;
                ASSERT_TRUE(reached) << "seed " << seed << " step " << step << " " << n->key().str();
            }
            ASSERT_EQ(nodes, tree.size());
        }
        place.run("mnuSaveCfg");
        place.run("mnuCloseCfg");
    }
}

}  // namespace trevandix::testing
