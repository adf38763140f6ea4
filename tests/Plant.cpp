#include "Plant.h"

#include <gtest/gtest.h>

#include "platform/Text.h"

namespace trevandix::testing {

clsPLC& plantUnit(Configuration& configuration, const std::string& name, std::string_view address) {
    auto unit = std::make_shared<clsPLC>();
    unit->setName(name);
    unit->setAddress(address);
    unit->sKey(name);
    configuration.addUnit(unit, false);
    return *unit;
}

TreeNode& plantBranch(Configuration& configuration, TreeNode& container, const std::string& name) {
    auto branch = std::make_shared<clsBranch>();
    branch->sName(name);
    branch->sKey(Key(container.key(), name));
    return configuration.addBranch(branch, container);
}

clsItem& plantItem(Configuration& configuration, TreeNode& container, const std::string& name) {
    auto item = std::make_shared<clsItem>();
    item->sName(name);
    item->sDataType("holding register:signed 16 bit");
    item->sAccessRight("READ");
    item->sKey(Key(container.key(), name));
    configuration.addItem(item, container);
    return *item;
}

void plant(Workplace& place, const Texts& keys) {
    for (const std::string& key : keys) {
        const bool branch = key.ends_with('/');
        const std::size_t dot = key.rfind('.');
        if (dot == std::string::npos) {
            plantUnit(place.configuration, key);
            continue;
        }
        TreeNode& parent = place.node(key.substr(0, dot));
        const std::string name = key.substr(dot + 1, key.size() - dot - (branch ? 2 : 1));
        if (branch)
            plantBranch(place.configuration, parent, name);
        else
            plantItem(place.configuration, parent, name);
    }
}

PlantedWorkplace::PlantedWorkplace(const Texts& keys, const std::filesystem::path& state) : Workplace(state) {
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

std::string PlantedWorkplace::saved(const std::string& name) {
    configuration.setFilePath(path(name));
    run("mnuSaveCfg");
    messages.take();
    return readFile(path(name));
}

void expectRefusal(Workplace& place, FakeForm& form, const std::string& fields, const Texts& message) {
    confirmed(fields)(form);
    EXPECT_TRUE(form.open);
    EXPECT_EQ(place.messages.take(), message);
}

bool isXml(std::string_view bytes) {
    try {
        PugiXmlParser().parse(bytes);
        return true;
    } catch (const XmlParseError&) {
        return false;
    }
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
