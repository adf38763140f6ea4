#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "model/Key.h"
#include "model/KeyIndex.h"

namespace trevandix {

enum class NodeTag : std::uint8_t { Config, ModBus, DataType, Plc, Branch, Item };
/// "config", "modbus", "datatype", "plc", "branch" or "item".
std::string_view tagName(NodeTag tag);

enum class Image : std::uint8_t { None, Config, Main, Item, Plc, Branch };
/// The image's key in the image list: "config", "main", "item", "plc", "branch"; empty for None.
std::string_view imageName(Image image);

/// What a node shows and is, given when it is added.
struct NodeLook {
    NodeTag tag;
    Image image = Image::None;
    Image selectedImage = Image::None;
};

class TreeNode;

/// Orders siblings as the screen does: by text ignoring case, equal texts in order of arrival.
struct SiblingOrder {
    using is_transparent = void;
    bool operator()(const TreeNode* left, const TreeNode* right) const;
    bool operator()(const TreeNode* left, std::string_view right) const;
    bool operator()(std::string_view left, const TreeNode* right) const;
};

/// One node of the structure tree. Owned by its tree; changed only through it, by an `EditableTree`.
class TreeNode {
public:
    const Key& key() const { return key_; }
    const std::string& text() const { return text_; }
    NodeTag tag() const { return look_.tag; }
    const NodeLook& look() const { return look_; }
    TreeNode* parent() const { return parent_; }
    TreeNode* firstChild() const { return firstChild_; }
    TreeNode* lastChild() const { return lastChild_; }
    TreeNode* nextSibling() const { return next_; }
    TreeNode* previousSibling() const { return previous_; }
    std::size_t childCount() const { return childCount_; }
    /// Children are kept in alphabetical order from the moment this is set.
    bool sorted() const { return sorted_ != nullptr; }
    bool expanded() const { return expanded_; }

    /// Free for the view that mirrors the tree; the tree never looks at it.
    mutable void* viewItem = nullptr;

private:
    friend class StructureTree;
    friend class EditableTree;
    using SortedChildren = std::multiset<TreeNode*, SiblingOrder>;

    Key key_;
    std::string text_;
    NodeLook look_{NodeTag::Config};
    bool expanded_ = false;
    std::uint32_t childCount_ = 0;
    TreeNode* parent_ = nullptr;
    TreeNode* firstChild_ = nullptr;
    TreeNode* lastChild_ = nullptr;
    TreeNode* next_ = nullptr;
    TreeNode* previous_ = nullptr;
    TreeNode* addedBefore_ = nullptr;  // neighbours in order of addition
    TreeNode* addedAfter_ = nullptr;
    std::unique_ptr<SortedChildren> sorted_;
};

/// Told of every change, so that a view can mirror the tree. All calls come after the change, `nodeRemoved`
/// before.
class TreeObserver {
public:
    virtual ~TreeObserver() = default;
    /// The node stands in the tree, with everything below it.
    virtual void nodeAdded(const TreeNode& node) = 0;
    /// It goes, with everything below it.
    virtual void nodeRemoved(const TreeNode& node) = 0;
    virtual void textChanged(const TreeNode& node) = 0;
    /// The node stands at another place among the same siblings.
    virtual void nodeMoved(const TreeNode& node) = 0;
    virtual void childrenSorted(const TreeNode& parent) = 0;
    virtual void expansionChanged(const TreeNode& node) = 0;
    virtual void madeVisible(const TreeNode& node) = 0;
    virtual void selectionChanged(const TreeNode* node) = 0;
    virtual void highlightChanged(const TreeNode* node) = 0;
    virtual void cleared() = 0;
    /// Between these the view may leave the screen as it is.
    virtual void batchBegins() = 0;
    virtual void batchEnds() = 0;
};

/// The configuration's shape as everyone sees it: nodes found by key, children in order, and the state of the
/// view: selection, expansion, sorting. The one truth that the tree on the screen mirrors. Only an
/// `EditableTree` can be made, and only it can change nodes.
class StructureTree {
public:
    StructureTree(const StructureTree&) = delete;
    StructureTree& operator=(const StructureTree&) = delete;

    /// The view, or nullptr. Not owned.
    void setObserver(TreeObserver* observer) { observer_ = observer; }

    TreeNode* root() const { return root_; }
    TreeNode* find(const Key& key) const;
    /// Errors: ElementNotFound.
    TreeNode& at(const Key& key) const;
    std::size_t size() const { return size_; }
    /// A child of the kind with exactly the text, `except` left out; nullptr when there is none. Logarithmic
    /// where the children are kept sorted, else a walk through them.
    static const TreeNode* childNamed(const TreeNode& parent, NodeTag tag, std::string_view text,
                                      const TreeNode* except);

    /// Nodes in the order in which they were added.
    TreeNode* firstAdded() const { return firstAdded_; }
    static TreeNode* nextAdded(const TreeNode& node) { return node.addedAfter_; }

    /// Sorts the children now and keeps them sorted.
    void keepSorted(TreeNode& node);
    TreeNode* selected() const { return selected_; }
    void select(TreeNode* node);
    void setExpanded(TreeNode& node, bool expanded);
    /// Expands everything above the node and lets the view scroll to it.
    void ensureVisible(const TreeNode& node);
    /// The node that a drag points at, shown highlighted; nullptr for none.
    TreeNode* dropHighlight() const { return highlight_; }
    void setDropHighlight(TreeNode* node);

    /// While one lives, the view may postpone drawing.
    class Batch {
    public:
        explicit Batch(StructureTree& tree);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        StructureTree& tree_;
    };

protected:
    StructureTree() = default;
    ~StructureTree() = default;
    static void linkBefore(TreeNode& parent, TreeNode& node, TreeNode* successor);

    KeyIndex<TreeNode*> index_;
    TreeObserver* observer_ = nullptr;
    TreeNode* root_ = nullptr;
    TreeNode* selected_ = nullptr;
    TreeNode* highlight_ = nullptr;
    TreeNode* firstAdded_ = nullptr;
    TreeNode* lastAdded_ = nullptr;
    std::size_t size_ = 0;
};

/// True when the node is `top` or below it; nullptr is nowhere.
bool liesIn(const TreeNode* node, const TreeNode& top);

/// The next node of a walk through everything below `top`, parents before children; nullptr at the end.
TreeNode* nextBelow(const TreeNode& node, const TreeNode& top);

/// The same walk backwards, which begins with the last node below `top` and ends with `top`.
TreeNode* lastBelow(TreeNode& top);
TreeNode* previousBelow(const TreeNode& node, const TreeNode& top);

}  // namespace trevandix
