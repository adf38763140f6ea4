// Nodes and records.
#include <algorithm>

#include "ReferenceTexts.h"

namespace trevandix::testing {

int Reference::find(const std::string& key) const {
    if (key.empty()) return root_;
    for (const auto& [id, each] : nodes_)
        if (each.key == key) return id;
    return 0;
}

int Reference::at(const std::string& key) const {
    const int id = key.empty() ? 0 : find(key);
    if (id == 0) throw Failure{35601};
    return id;
}

int Reference::add(int parent, const std::string& key, const std::string& text, const std::string& tag,
                   const std::string& image, const std::string& selectedImage) {
    if (parent != 0 && find(key) != 0) throw Failure{35602};
    touched_ = true;
    const int id = nextNode_++;
    nodes_[id] = {key, text, tag, image, selectedImage, false, false, parent, {}};
    if (parent != 0) place(id);
    return id;
}

// At the end, or in a sorted parent after all texts that are not greater.
void Reference::place(int id) {
    Node& parent = nodes_.at(nodes_.at(id).parent);
    std::erase(parent.children, id);
    auto where = parent.children.end();
    if (parent.sorted) {
        where = std::ranges::upper_bound(parent.children, capitals(nodes_.at(id).text), {},
                                         [&](int child) { return capitals(nodes_.at(child).text); });
    }
    parent.children.insert(where, id);
}

bool Reference::lies(int id, int top) const {
    for (; id != 0; id = nodes_.at(id).parent)
        if (id == top) return true;
    return false;
}

// Parents before children.
std::vector<int> Reference::subtree(int top) const {
    std::vector<int> all{top};
    for (const int child : nodes_.at(top).children)
        for (const int each : subtree(child)) all.push_back(each);
    return all;
}

// The selection passes to the next sibling, else the previous one, else the parent.
void Reference::remove(int id) {
    auto& siblings = nodes_.at(nodes_.at(id).parent).children;
    const auto place = std::ranges::find(siblings, id);
    if (lies(selected_, id)) {
        selected_ = place + 1 != siblings.end() ? *(place + 1)
                    : place != siblings.begin() ? *(place - 1)
                                                : nodes_.at(id).parent;
    }
    if (lies(highlight_, id)) highlight_ = 0;
    siblings.erase(place);
    for (const int each : subtree(id)) {
        seen_[each] = {nodes_.at(each).expanded, nodes_.at(each).sorted};
        nodes_.erase(each);
    }
    touched_ = true;
}

void Reference::sort(int id) {
    Node& parent = nodes_.at(id);
    if (parent.sorted) return;
    parent.sorted = true;
    std::ranges::stable_sort(parent.children, {}, [&](int child) { return capitals(nodes_.at(child).text); });
}

void Reference::makeVisible(int id) {
    while ((id = nodes_.at(id).parent) != 0) nodes_.at(id).expanded = true;
}

void Reference::rename(int id, const std::string& key, const std::string& text) {
    Node& renamed = nodes_.at(id);
    renamed.key = key;
    if (renamed.text == text) return;
    renamed.text = text;
    if (nodes_.at(renamed.parent).sorted) place(id);
}

const Reference::Entry* Reference::entry(const std::string& tag, const std::string& key) const {
    const auto collection = collections_.find(tag);
    if (collection == collections_.end()) return nullptr;
    const auto place = std::ranges::find(collection->second, key, &Entry::first);
    return place == collection->second.end() ? nullptr : &*place;
}

int Reference::recordAt(const std::string& tag, const std::string& key) const {
    const Entry* found = entry(tag, key);
    if (found == nullptr) throw Failure{5};
    return found->second;
}

void Reference::put(const std::string& tag, const std::string& key, int record) {
    if (entry(tag, key) != nullptr) throw Failure{457};
    touched_ = true;
    collections_[tag].emplace_back(key, record);
}

void Reference::drop(const std::string& tag, const std::string& key) {
    recordAt(tag, key);
    touched_ = true;
    std::erase_if(collections_[tag], [&](const Entry& each) { return each.first == key; });
}

// Below the top, only items and branches have records to remove.
void Reference::dropRecords(int top) {
    const Node& gone = nodes_.at(top);
    if (gone.tag != "item" && gone.tag != "branch") return;
    drop(gone.tag, gone.key);
    for (const int child : gone.children) dropRecords(child);
}

int Reference::store(Record record) {
    const int id = static_cast<int>(records_.size());
    records_.emplace(id, std::move(record));
    return id;
}

// Removes the record again if the tree refuses its key.
int Reference::addWithRecord(const std::string& tag, int record, int parent,
                             const std::string& selectedImage) {
    const std::string key = records_[record].at("key");
    const std::string name = records_[record].at("name");
    const bool touched = touched_;
    put(tag, key, record);
    try {
        const int id = add(parent, key, name, tag, tag == "datatype" ? "item" : tag, selectedImage);
        makeVisible(id);
        return id;
    } catch (const Failure&) {
        drop(tag, key);
        touched_ = touched;
        throw;
    }
}

std::vector<int> Reference::order() const {
    std::vector<int> ids;
    for (const auto& [id, each] : nodes_) ids.push_back(id);
    return ids;
}

}  // namespace trevandix::testing
