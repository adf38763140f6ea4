#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "Plant.h"
#include "platform/Text.h"

namespace trevandix::testing {

namespace {

/// Careful users drag what has a record of its own, and put no dots into names. Those who put them drag
/// nothing, as the keys below a dragged branch may then be another's. Careless ones do everything.
enum class Manner { Careful, Dotting, Careless };

/// A user who tries every editing command at random, on few names, so that clashes are common.
class RandomUser {
public:
    RandomUser(Workplace& place, unsigned seed, Manner manner)
        : place_(place), manner_(manner), random_(seed) {}

    void step() {
        place_.messages.answers.clear();
        if (pick(4) == 0) place_.messages.answers.assign(4, Answer::No);
        const std::size_t choice = pick(14);
        if (choice < 3 && manner_ != Manner::Dotting) return drag();
        if (choice < 5) return dialog("mnuAddItem", {NodeTag::Plc, NodeTag::Branch});
        if (choice < 7) return dialog("mnuAddBranch", {NodeTag::Plc, NodeTag::Branch});
        if (choice < 8) return dialog("mnuAddPlc", {NodeTag::Config});
        if (choice < 10) return dialog("", {NodeTag::Item, NodeTag::Branch, NodeTag::Plc});
        if (choice < 11) return bulkPaste();
        onSelection();
    }

private:
    std::size_t pick(std::size_t count) { return random_() % count; }

    TreeNode* anyNode(std::initializer_list<NodeTag> tags) {
        std::vector<TreeNode*> nodes;
        TreeNode* n = place_.configuration.tree.firstAdded();
        for (; n != nullptr; n = StructureTree::nextAdded(*n)) {
            const bool fits = std::ranges::find(tags, n->tag()) != tags.end();
            if (fits || manner_ == Manner::Careless) nodes.push_back(n);
        }
        return nodes.empty() ? nullptr : nodes[pick(nodes.size())];
    }

    // A blank is refused for pasted names only; in a branch's name it would spoil the file.
    std::string name(bool blanks) {
        static const Texts kNames{"x",   "y",   "X",  "S", "A", "x_0", "New_Item_1", "Copied_Item_2",
                                  "a b", "A.x", "x.y"};
        if (manner_ == Manner::Careful) return kNames[pick(blanks ? 9 : 8)];
        const std::string& name = kNames[pick(kNames.size())];
        return name == "a b" && !blanks && manner_ == Manner::Dotting ? "coil" : name;
    }

    void click(TreeNode* node) {
        if (node != nullptr) place_.click(node->key().view());
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
        EXPECT_TRUE(manner_ == Manner::Careless || !promised || place_.messages.texts.size() == messages);
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
        const TreeNode* node = anyNode(tags);
        if (node == nullptr) return;
        place_.click(node->key().view());
        place_.forms.scripts.assign({[this](FakeForm& form) { fill(form); }});
        command.empty() ? place_.edit(node->key().view()) : place_.run(command);
        place_.forms.scripts.clear();
    }

    void fill(FakeForm& form) {
        if (form.shape.name == "frmItems") return fillItems(form);
        if (form.shape.name == "frmBranch") form.type("txtBranchName", name(false));
        if (form.shape.name == "frmPLC")
            form.fill("txtName=" + name(false) + "|txtUI=" + std::to_string(pick(40)));
        form.press("cmdOk");
    }

    void fillItems(FakeForm& form) {
        form.fill("txtItemName=" + name(false) + "|txtAddress=" + std::to_string(pick(70000)));
        for (const char* list : {"cmbModbusType", "cmbDataType", "cmbAccessRight", "cmbBit"}) {
            const Texts items = form.items(list);
            if (form.enabled(list) && !items.empty()) form.choose(list, items[pick(items.size())]);
        }
        if (form.enabled("txtElements")) form.type("txtElements", std::to_string(pick(50)));
        if (form.enabled("cmdAdd") && pick(2) == 0) form.press("cmdAdd");
        if (form.enabled("cmdGroup") && pick(3) == 0) {
            form.press("cmdGroup");
            form.type("txtNumbItems", std::to_string(pick(6)));
            form.press("cmdOkNumber");
        }
        form.press(pick(4) == 0 ? "cmdCancel" : "cmdOk");
    }

    void onSelection() {
        static const Texts kCommands{"mnuCopy",  "mnuCopy",  "mnuCut",   "mnuPaste",
                                     "mnuPaste", "mnuPaste", "mnuDelete"};
        if (pick(2) == 0) click(anyNode({NodeTag::Plc, NodeTag::Branch, NodeTag::Item}));
        if (pick(2) == 0) selectRows();
        place_.run(kCommands[pick(kCommands.size())]);
    }

    Workplace& place_;
    Manner manner_;
    std::mt19937 random_;
};

Texts sortedContents(const Configuration& configuration) {
    Texts lines = fileContents(configuration);
    std::ranges::sort(lines);
    return lines;
}

/// A file can only give back what it can hold: keys that stay apart when branch names are in capitals.
bool survivesAFile(const Configuration& configuration) {
    Texts places;
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        const bool item = n->tag() == NodeTag::Item;
        const std::string_view name = item ? configuration.items.at(n->key())->sName() : n->text();
        places.push_back(upperCased(Key(Key(n->key().parent()), name).view()));
    }
    std::ranges::sort(places);
    return std::ranges::adjacent_find(places) == places.end();
}

void start(Workplace& place) {
    startPlant(place);
    plant(place, {"P", "P.A/", "P.A.S/", "P.A.x", "P.A.y", "P.A.S.x", "Q", "Q.B/", "Q.B.z", "Q.r"});
}

}  // namespace

TEST(EditingSequences, TreeCollectionsAndFileAgree) {
    for (const Manner manner : {Manner::Careful, Manner::Dotting}) {
        int comparedFiles = 0;
        std::size_t shared = 0;
        for (unsigned seed = 1; seed <= 80; ++seed) {
            SCOPED_TRACE("seed " + std::to_string(seed));
            Workplace place;
            start(place);
            RandomUser user(place, seed, manner);
            for (int step = 0; step < 80 && place.configuration.tree.size() < 2000; ++step) {
                user.step();
                ASSERT_EQ(disagreements(place.configuration), Texts{}) << "step " << step;
                if (step % 10 != 9 || !survivesAFile(place.configuration)) continue;
                for (const auto& [key, item] : place.configuration.items)
                    shared += item->sKey() == key ? 0 : 1;
                ++comparedFiles;
                place.messages.answers.clear();
                place.run("mnuSaveCfg");
                Workplace second;
                second.openText(readFile(place.configuration.state.filePath));
                ASSERT_EQ(sortedContents(second.configuration), sortedContents(place.configuration));
            }
        }
        EXPECT_GT(comparedFiles, 30);
        EXPECT_EQ(shared > 20, manner == Manner::Careful);
    }
}

TEST(EditingSequences, NothingCrashesACarelessUser) {
    for (unsigned seed = 1; seed <= 80; ++seed) {
        Workplace place;
        start(place);
        RandomUser user(place, seed, Manner::Careless);
        const StructureTree& tree = place.configuration.tree;
        for (int step = 0; step < 80 && tree.size() < 2000; ++step) {
            user.step();
            ASSERT_EQ(brokenLinks(tree), Texts{}) << "seed " << seed << " step " << step;
        }
        place.run("mnuSaveCfg");
        place.run("mnuCloseCfg");
    }
}

}  // namespace trevandix::testing
