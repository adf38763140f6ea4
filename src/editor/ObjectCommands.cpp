#include "editor/ObjectCommands.h"

#include <algorithm>
#include <array>
#include <utility>

#include "dialogs/frmBranch.h"
#include "dialogs/frmItems.h"
#include "dialogs/frmModBus.h"
#include "dialogs/frmPLC.h"

namespace trevandix {

DialogContext ObjectCommands::dialogContext() const {
    Platform& platform = context_.platform;
    return {platform.forms, platform.messages, platform.pointer, context_.configuration, dialogChanged_};
}

TreeNode* ObjectCommands::selectedOf(std::initializer_list<NodeTag> tags) const {
    TreeNode* node = context_.tree().selected();
    if (!context_.state().configurationOpen || node == nullptr) return nullptr;
    return std::ranges::find(tags, node->tag()) == tags.end() ? nullptr : node;
}

TreeNode* ObjectCommands::targetOf(std::initializer_list<NodeTag> tags, std::string_view wanted) const {
    TreeNode* target = selectedOf(tags);
    const TreeNode* node = context_.tree().selected();
    if (target == nullptr && node != nullptr) {
        constexpr std::array<std::string_view, 6> kKinds{
            "the configuration", "the ModBus folder", "a data type", "a unit", "a branch", "an item"};
        context_.news.tell("Nothing added: " + std::string(kKinds.at(static_cast<std::size_t>(node->tag()))) +
                           " is selected, not " + std::string(wanted));
    }
    return target;
}

void ObjectCommands::showSelected(TreeNode& node) {
    context_.tree().ensureVisible(node);
    context_.tree().select(&node);
}

// Also enabled on a branch whose first child is an item. There too, the type is added to the ModBus folder.
void ObjectCommands::mnuAddMBType_Click() {
    context_.guarded("mnuAddMBType_Click", [&] {
        if (targetOf({NodeTag::ModBus, NodeTag::Branch}, "the ModBus folder") == nullptr) return;
        auto record = frmModBus(dialogContext()).showToAdd();
        if (!record) return;
        showSelected(context_.configuration.addDataType(std::move(*record)));
        context_.configuration.setSaved(false);
        context_.configuration.raiseCounter(NodeTag::DataType);
        views_.TreeView1_NodeClick(context_.tree().at(Key(kModBusFolder)));
    });
}

void ObjectCommands::mnuAddPlc_Click() {
    context_.guarded("mnuAddPlc_Click", [&] {
        if (targetOf({NodeTag::Config}, "the configuration") == nullptr) return;
        auto record = frmPLC(dialogContext()).showToAdd();
        if (!record) return;
        TreeNode& unit = context_.configuration.addUnit(std::move(*record));
        showSelected(unit);
        context_.configuration.raiseCounter(NodeTag::Plc);
        views_.TreeView1_NodeClick(unit);
    });
}

void ObjectCommands::mnuAddBranch_Click() {
    context_.guarded("mnuAddBranch_Click", [&] {
        TreeNode* container = targetOf({NodeTag::Plc, NodeTag::Branch}, "a unit or a branch");
        if (container == nullptr) return;
        auto record = frmBranch(dialogContext()).showToAdd();
        if (!record) return;
        showSelected(context_.configuration.addBranch(std::move(*record), *container));
        context_.configuration.raiseCounter(NodeTag::Branch);
    });
}

void ObjectCommands::mnuAddItem_Click() {
    context_.guarded("mnuAddItem_Click", [&] {
        TreeNode* container = targetOf({NodeTag::Plc, NodeTag::Branch}, "a unit or a branch");
        if (container == nullptr) return;
        // TreeView1_NodeClick sorts the children afterwards anyway. Among sorted children a name is found
        // without a walk, so that items of a large group are added as quickly as those of a small one.
        context_.tree().keepSorted(*container);
        frmItems(dialogContext()).showToAdd();
        views_.TreeView1_NodeClick(*context_.tree().selected());
    });
}

void ObjectCommands::TreeView1_DblClick() {
    context_.guarded("TreeView1_DblClick", [&] {
        TreeNode* node = selectedOf({NodeTag::DataType, NodeTag::Branch, NodeTag::Plc, NodeTag::Item});
        if (node != nullptr) editRecordOf(*node);
    });
}

void ObjectCommands::editRecordOf(TreeNode& node) {
    Configuration& configuration = context_.configuration;
    switch (node.tag()) {
        case NodeTag::DataType:
            frmModBus(dialogContext()).showToEdit(node.text());
            views_.TreeView1_NodeClick(configuration.tree.at(Key(kModBusFolder)));
            break;
        case NodeTag::Branch:
            configuration.branches.at(node.key());  // throws for a node without a record
            frmBranch(dialogContext()).showToEdit();
            views_.TreeView1_NodeClick(*configuration.tree.selected());
            break;
        case NodeTag::Plc:
            frmPLC(dialogContext()).showToEdit(configuration.units.at(node.key()));
            views_.TreeView1_NodeClick(*configuration.tree.selected());
            break;
        case NodeTag::Item:
            editItem(node);
            break;
        case NodeTag::Config:
        case NodeTag::ModBus:
            break;
    }
}

// Gives the list's row the item's new key, so that it is still selected after the list has been filled again.
void ObjectCommands::editItem(TreeNode& node) {
    const Key key = node.key();
    frmItems(dialogContext()).showToEdit(context_.configuration.items.at(key));
    context_.list.changeKey(key, node.key());
    views_.TreeView1_NodeClick(*node.parent());
}

}  // namespace trevandix
