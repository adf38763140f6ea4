#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "editor/EditorContext.h"
#include "editor/TreeAndList.h"
#include "editor/frmFreeAddress.h"
#include "map/MapLines.h"

namespace trevandix {

/// The modeless window "Register Map": what the items of a unit cover of its device's tables. Shows the unit
/// around the selected node and follows every edit.
class frmRegisterMap {
public:
    /// `openSelected` opens the dialog of the selected node.
    frmRegisterMap(const EditorContext& context, TreeAndList& views, std::function<void()> openSelected)
        : context_(context),
          views_(views),
          openSelected_(std::move(openSelected)),
          lines_(context.configuration) {}

    /// Shows the unit of the list's current row, if the list has the keyboard focus, else that of the
    /// selected node. Loads the window first if needed.
    void mnuRegisterMap_Click();
    /// True when there is a unit to show.
    bool hasUnit() const { return unitAround(context_.configuration, pointed()) != nullptr; }
    /// To be called after each event: shows the present state.
    void follow();
    /// Closes and deletes the window.
    void unload();

private:
    const TreeNode* pointed() const;
    void Form_Load();
    void update(const TreeNode* unit);
    void show();
    void setText(std::string_view control, const std::string& text) const;
    std::string homelessText() const;
    void selectBlock(const std::optional<MapLines::Place>& place);
    void select(const Key& item);
    void cmdOpen_Click();
    void cmdFree_Click();
    void findFree(const FreeAddressFields& wanted);
    FreeAddressFields proposed() const;

    const EditorContext& context_;
    TreeAndList& views_;
    std::function<void()> openSelected_;
    MapLines lines_;
    Key unit_;                               ///< the one shown; empty for none
    std::optional<std::uint64_t> revision_;  ///< `Configuration::revision` of what is shown
    Key selected_;                           ///< in the tree, when it was looked at last
    std::optional<FreeAddressFields> wanted_;
    std::unique_ptr<Form> form_;  ///< kept when it is closed, with its size and place
    bool open_ = false;
};

}  // namespace trevandix
