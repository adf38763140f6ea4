#include "model/Journal.h"

#include <utility>

namespace trevandix {

namespace {

// About what a key and the entries in the indexes take.
constexpr std::size_t kIndexBytes = 96;

/// What a change keeps in memory, about: what is in the configuration now may be out of it after an Undo.
struct Bytes {
    std::size_t operator()(const NodeChange& change) const {
        std::size_t nodes = 0;
        for (const TreeNode* n = change.node; n != nullptr; n = nextBelow(*n, *change.node)) ++nodes;
        return nodes * (sizeof(TreeNode) + kIndexBytes);
    }
    std::size_t operator()(const NodeKeyChange& change) const { return change.other.view().size(); }
    std::size_t operator()(const NodeTextChange& change) const { return change.other.capacity(); }
    template <typename Record>
    std::size_t operator()(const EntryChange<Record>&) const {
        return sizeof(Record) + kIndexBytes;
    }
    template <typename Record>
    std::size_t operator()(const RecordKeyChange<Record>& change) const {
        return change.other.view().size();
    }
    std::size_t operator()(const ItemTextChange& change) const { return change.other.capacity(); }
};

}  // namespace

void Journal::begin(const Moment& before) {
    open_ = {.name = {}, .before = before};
    noting_ = true;
}

void Journal::note(Change change) {
    open_.bytes += sizeof(Change) + std::visit(Bytes{}, change);
    open_.changes.push_back(std::move(change));
}

void Journal::end(std::string name, const Moment& after) {
    noting_ = false;
    if (open_.changes.empty()) return;
    undone_.clear();
    open_.name = std::move(name);
    open_.after = after;
    bytes_ += open_.bytes;
    done_.push_back(std::move(open_));
    while (bytes_ > kMostBytes && done_.size() > 1) {
        bytes_ -= done_.front().bytes;
        done_.pop_front();
    }
}

Journal::Step& Journal::undo() {
    bytes_ -= done_.back().bytes;
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return undone_.back();
}

Journal::Step& Journal::redo() {
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    bytes_ += done_.back().bytes;
    return done_.back();
}

void Journal::clear() {
    noting_ = false;
    bytes_ = 0;
    open_ = {};
    done_.clear();
    undone_.clear();
}

}  // namespace trevandix
