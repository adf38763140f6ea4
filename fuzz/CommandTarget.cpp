#include <array>
#include <stdexcept>

#include "FakePlatform.h"
#include "Targets.h"

namespace trevandix::fuzz {

namespace {

using testing::FakeForm;
using testing::Workplace;

// A form has not every control, and not each can be used at all times; nobody could then.
template <typename Action>
void tryTo(Action action) {
    try {
        action();
    } catch (const RuntimeError&) {
    } catch (const std::logic_error&) {
    }
}

/// A user whose every choice is the next byte.
class ByteUser {
public:
    ByteUser(std::string_view bytes, const Habits& habits) : bytes_(bytes), habits_(habits) {
        place_.newConfiguration(next() % 2 == 0 ? kTcpIp : kRtu);
    }

    std::size_t run() {
        std::size_t steps = 0;
        for (; steps < habits_.mostSteps && !bytes_.empty(); ++steps) {
            step();
            const Configuration& configuration = place_.configuration;
            const auto faults =
                habits_.careless ? brokenLinks(configuration.tree) : disagreements(configuration);
            if (!faults.empty()) throw std::logic_error(faults.front());
            habits_.after(place_);
        }
        return steps;
    }

private:
    unsigned next() {
        if (bytes_.empty()) return 0;
        const auto byte = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte;
    }

    std::string name() {
        constexpr std::array kNames{"A", "a",      "B",    "A.B", "B.A", "tag",
                                    "",  "ModBus", "coil", "x&y", "<b>", "A "};
        const unsigned choice = next();
        if (choice < 64) return kNames[choice % kNames.size()];
        if (choice < 192) return "N" + std::to_string(choice % 64);
        std::string text;  // of what can be typed
        for (unsigned length = choice % 8; length > 0; --length) text += static_cast<char>(' ' + next() % 95);
        return text;
    }

    TreeNode& anyNode() {
        const StructureTree& tree = place_.configuration.tree;
        TreeNode* node = tree.firstAdded();
        for (std::size_t steps = next() % tree.size(); steps > 0; --steps)
            node = StructureTree::nextAdded(*node);
        return *node;
    }

    void select() {
        place_.window.focus = FocusedView::Tree;
        place_.editor.TreeView1_NodeClick(anyNode());
        place_.display.selected.clear();
        for (std::size_t row = 0; row < place_.list.rows().size() && next() % 4 != 0; ++row) {
            place_.window.focus = FocusedView::List;
            place_.display.selected.push_back(row);
        }
        if (place_.window.focus == FocusedView::List) place_.editor.ListView1_Click();
    }

    void drag() {
        TreeNode& source = anyNode();
        const bool ownRecord = source.tag() == NodeTag::Item || source.tag() == NodeTag::Branch;
        if (!ownRecord && !(habits_.careless && source.tag() == NodeTag::Plc)) return;
        if (!place_.editor.TreeView1_MouseDown(&source, {.control = next() % 2 == 0})) return;
        place_.editor.TreeView1_OLEStartDrag();
        place_.editor.TreeView1_OLEDragOver(&anyNode());
        place_.editor.TreeView1_OLEDragDrop();
    }

    void step() {
        constexpr std::array kCommands{"mnuAddMBType", "mnuAddPlc",      "mnuAddBranch", "mnuAddItem",
                                       "mnuCopy",      "mnuCut",         "mnuPaste",     "mnuDelete",
                                       "mnuPasteName", "mnuPasteComment"};
        // More is added than deleted, or the trees would stay small.
        constexpr std::array kMoreOften{1U, 2U, 2U, 3U, 3U, 3U, 3U, 4U, 6U, 6U};
        constexpr unsigned kChoices = 14;
        unsigned choice = next() % (kChoices + static_cast<unsigned>(kMoreOften.size()));
        if (choice >= kChoices) choice = kMoreOften[choice - kChoices];
        place_.forms.scripts.assign({[this](FakeForm& form) {
            fillDialog(
                form, [this] { return next(); }, [this] { return name(); });
        }});
        select();
        // An edited data type leaves its node behind on purpose when it gets another name.
        const TreeNode* selected = place_.configuration.tree.selected();
        const NodeTag tag = selected == nullptr ? NodeTag::ModBus : selected->tag();
        if ((choice == 11 || choice == 13) && (tag == NodeTag::ModBus || tag == NodeTag::DataType)) return;
        if (choice == 10)
            drag();
        else if (choice == 11)
            place_.editor.TreeView1_DblClick();
        else if (choice == 12)
            place_.editor.ListView1_ColumnClick(next() % 6);
        else if (choice == 13)
            place_.editor.ListView1_DblClick();
        else
            command(kCommands[choice]);
        place_.forms.scripts.clear();
        place_.messages.take();
    }

    // What is disabled cannot be chosen.
    void command(const char* name) {
        const auto state = place_.window.menus.find(name);
        if (state != place_.window.menus.end() && !state->second) return;
        place_.clipboard.contents = this->name() + "\r\n" + this->name();
        place_.run(name);
    }

    std::string_view bytes_;
    const Habits& habits_;
    Workplace place_;
};

}  // namespace

void fillDialog(FakeForm& form, const std::function<unsigned()>& next,
                const std::function<std::string()>& name) {
    for (const std::string field :
         {"txtName", "txtBranchName", "txtItemName", "txtComment", "txtUI", "txtAddress"}) {
        const bool number = field == "txtUI" || field == "txtAddress";
        tryTo([&] {
            if (next() % 8 != 0) form.type(field, number ? std::to_string(next()) : name());
        });
    }
    for (const char* list : {"cmbMBType", "cmbModbusType", "cmbDataType", "cmbAccessRight", "cmbBit"}) {
        tryTo([&] {
            const auto items = form.items(list);
            if (!items.empty()) form.choose(list, items[next() % items.size()]);
        });
    }
    tryTo([&] {
        if (next() % 4 == 0) form.press("cmdAdd");
    });
    tryTo([&] {
        if (next() % 8 != 0) return;
        form.press("cmdGroup");
        form.type("txtNumbItems", std::to_string(next() % 8));
        form.press("cmdOkNumber");
    });
    tryTo([&] { form.press(next() % 8 == 0 ? "cmdCancel" : "cmdOk"); });
    tryTo([&] { form.press("Command2"); });
}

std::size_t Commands(std::string_view bytes, const Habits& habits) {
    return ByteUser(bytes, habits).run();
}

}  // namespace trevandix::fuzz
