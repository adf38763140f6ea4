#include "Plant.h"

#include <gtest/gtest.h>

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

void plant(Workplace& place, const std::vector<std::string>& keys) {
    Configuration& configuration = place.configuration;
    for (std::string text : keys) {
        const bool branch = text.ends_with('/');
        if (branch) text.pop_back();
        const std::size_t dot = text.rfind('.');
        if (dot == std::string::npos) {
            auto unit = std::make_shared<clsPLC>();
            unit->setName(text);
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

PlantedWorkplace::PlantedWorkplace(const std::vector<std::string>& keys, const std::filesystem::path& state)
    : Workplace(state) {
    newConfiguration(kTcpIp);
    plant(*this, keys);
    configuration.state.saved = true;
    messages.take();
}

void PlantedWorkplace::drag(std::string_view source, std::string_view target, bool control) {
    const auto nodeOf = [&](std::string_view key) {
        return key.empty() ? configuration.tree.root() : &node(key);
    };
    ASSERT_TRUE(editor.TreeView1_MouseDown(nodeOf(source), {.control = control}));
    editor.TreeView1_OLEStartDrag();
    editor.TreeView1_OLEDragOver(nodeOf(target));
    editor.TreeView1_OLEDragDrop();
}

std::vector<std::string> PlantedWorkplace::below(std::string_view key) {
    const TreeNode& top = key.empty() ? *configuration.tree.root() : node(key);
    std::vector<std::string> keys;
    for (const TreeNode* n = nextBelow(top, top); n != nullptr; n = nextBelow(*n, top))
        keys.push_back(n->key().str());
    return keys;
}

}  // namespace trevandix::testing
