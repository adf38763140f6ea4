#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "model/Configuration.h"

namespace trevandix {

/// A unit or branch that holds items, or a branch that a table needs and that is to be made.
struct Container {
    /// An item in it. Several can have the same name after drags.
    struct Entry {
        std::string_view name;  ///< of its record
        TreeNode* node;
        std::size_t line = 0;  ///< of the row that is about it; 0 for none
    };

    TreeNode* node = nullptr;    ///< nullptr while it is to be made
    Container* above = nullptr;  ///< nullptr for a unit
    std::string name{};
    Key key{};
    bool listed = false;   ///< what is in it is known
    bool planned = false;  ///< its name is claimed for it
    bool refused = false;  ///< its name is taken
    bool told = false;     ///< a remark names it

    /// The first entry of the name, in the order of the tree, that no row is about; nullptr for none.
    Entry* unused(std::string_view name);
    /// The line that is about the last entry of the name; nothing if there is no such entry.
    std::optional<std::size_t> usedBy(std::string_view name) const;

    std::vector<Entry> entries{};  ///< by name, then in the order of the tree
    std::unordered_map<std::string, Container*> branches{};
    std::unordered_map<std::string, Container*> upperBranches{};  ///< by name in capitals
};

/// Finds the places that the rows of a table name.
class Containers {
public:
    explicit Containers(const Configuration& configuration) : configuration_(configuration) {}

    /// `unit` and `branch` are cells; nullptr where the table lacks the column, which means those of the
    /// selected node. Makes the branches that are missing. On nullptr, `refusal` says why there is no
    /// container.
    Container* find(const std::string* unit, const std::string* branch, std::string& refusal);

private:
    Container* search(const std::string* unit, const std::string* branch, std::string& refusal);
    Container* ofNode(TreeNode& node);
    Container* below(Container& above, const std::string& name, std::string& refusal);
    Container& enter(Container* above, TreeNode& node);
    static void know(Container& above, Container& branch);
    void list(Container& container);

    const Configuration& configuration_;
    std::deque<Container> containers_;
    std::unordered_map<const TreeNode*, Container*> ofNode_;
    struct Found {
        Container* container = nullptr;
        std::string refusal{};
    };
    std::unordered_map<std::string, Found> found_;  // by unit and branch as the table has them
};

}  // namespace trevandix
