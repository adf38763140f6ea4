#include "Plant.h"

#include <gtest/gtest.h>

#include "platform/Text.h"

namespace trevandix::testing {

namespace {

template <typename Record>
std::shared_ptr<Record> named(const Key& key, std::string_view name) {
    auto record = std::make_shared<Record>();
    record->sName(name);
    record->sKey(key);
    return record;
}

}  // namespace

void plant(Workplace& place, const Texts& keys) {
    Configuration& configuration = place.configuration;
    for (std::string text : keys) {
        const bool branch = text.ends_with('/');
        if (branch) text.pop_back();
        const std::size_t dot = text.rfind('.');
        if (dot == std::string::npos) {
            auto unit = std::make_shared<clsPLC>();
            unit->setName(text);
            unit->setAddress("10.0.0.1");
            unit->sKey(text);
            configuration.addUnit(unit, false);
            continue;
        }
        TreeNode& parent = place.node(text.substr(0, dot));
        const std::string name = text.substr(dot + 1);
        if (branch) {
            configuration.addBranch(named<clsBranch>(text, name), parent);
        } else {
            const auto item = named<clsItem>(text, name);
            item->sDataType("holding register:signed 16 bit");
            item->sAccessRight("READ");
            configuration.addItem(item, parent);
        }
    }
}

PlantedWorkplace::PlantedWorkplace(const Texts& keys) {
    newConfiguration(kTcpIp);
    plant(*this, keys);
    configuration.state.saved = true;
    messages.take();
}

PlantedWorkplace& PlantedWorkplace::at(std::string_view key, const Texts& rows) {
    click(key);
    if (!rows.empty()) selectRows(rows);
    return *this;
}

bool PlantedWorkplace::drag(std::string_view source, std::string_view target, bool control) {
    const auto nodeOf = [&](std::string_view key) {
        return key.empty() ? configuration.tree.root() : &node(key);
    };
    EXPECT_TRUE(editor.TreeView1_MouseDown(nodeOf(source), {.control = control}));
    EXPECT_EQ(editor.TreeView1_OLEStartDrag(), control ? DropEffect::Copy : DropEffect::Move);
    editor.TreeView1_OLEDragOver(nodeOf(target));
    const bool promised = editor.dropAllowed(nodeOf(target));
    editor.TreeView1_OLEDragDrop();
    return promised;
}

void expectRefusal(Workplace& place, FakeForm& form, const Fields& fields, const Texts& message) {
    confirmed(fields)(form);
    EXPECT_TRUE(form.open);
    EXPECT_EQ(place.messages.take(), message);
}

Texts fileContents(const Configuration& configuration) {
    Texts lines{configuration.state.interfaceKind};
    const TreeNode& root = *configuration.tree.root();
    for (const TreeNode* n = nextBelow(root, root); n != nullptr; n = nextBelow(*n, root)) {
        std::string place;
        for (const TreeNode* up = n; up != &root; up = up->parent()) {
            // A shared record puts its one name into all its places.
            std::string name =
                up->tag() == NodeTag::Item ? configuration.items.at(up->key())->sName() : up->text();
            if (up->tag() == NodeTag::Branch) name = upperCased(name);
            place = "|" + name + place;
        }
        if (n->tag() == NodeTag::DataType) place += configuration.dataTypes.at(n->key())->GetXmlTag();
        if (n->tag() == NodeTag::Plc) place += configuration.units.at(n->key())->GetXmlTag(lines[0]);
        if (n->tag() == NodeTag::Item) place += configuration.items.at(n->key())->GetXmlTag(0);
        lines.push_back(std::string(tagName(n->tag())) + place);
    }
    return lines;
}

}  // namespace trevandix::testing
