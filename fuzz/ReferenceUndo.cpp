// Undo and redo, as copies of everything.
#include <algorithm>

#include "ReferenceTexts.h"

namespace trevandix::testing {

// What a file would hold; units and data types in their order, the rest of a place in any.
std::string Reference::inFile() const {
    Texts lines;
    for (const auto& [id, node] : nodes_)
        if (id != root_) lines.push_back(std::to_string(node.parent) + " " + node.key + " " + node.text);
    for (const auto& [tag, entries] : collections_) {
        std::size_t place = 0;
        for (const auto& [key, record] : entries) {
            std::string line = tag + " " + key;
            if (tag == "plc" || tag == "datatype") line += " " + std::to_string(place++);
            for (const auto& [field, text] : records_.at(record))
                if (field != "key") line += " " + field + "=" + text;
            lines.push_back(line);
        }
    }
    std::ranges::sort(lines);
    return joined(lines);
}

void Reference::beginStep() {
    begun_ = now();
    begunInFile_ = inFile();
    touched_ = false;
}

void Reference::endStep() {
    if (!touched_) return;
    if (inFile() != begunInFile_) mark_ = ++lastMark_;
    done_.emplace_back(begun_, now());
    undone_.clear();
}

void Reference::turn(std::vector<std::pair<State, State>>& from, std::vector<std::pair<State, State>>& to,
                     State std::pair<State, State>::*aim) {
    if (from.empty()) return;
    to.push_back(from.back());
    from.pop_back();
    restore(to.back().*aim);
}

// What only concerns the view stays, and nothing that is sorted becomes unsorted. Rows stay selected, also
// under other names.
void Reference::restore(const State& state) {
    std::vector<int> rows;
    for (const Row& row : rows_) rows.push_back(find(row.key));
    for (const auto& [id, node] : nodes_) seen_[id] = {node.expanded, node.sorted};
    nodes_ = state.nodes;
    for (auto& [id, node] : nodes_) {
        std::tie(node.expanded, node.sorted) = seen_.at(id);
        if (!std::exchange(node.sorted, false)) continue;
        sort(id);
    }
    nodes_.at(root_).text = path_;
    if (!nodes_.contains(highlight_)) highlight_ = 0;
    collections_ = state.collections;
    for (const auto& [id, record] : state.records) records_[id] = record;
    counters_ = state.counters;
    mark_ = state.mark;
    saved_ = mark_ == savedMark_;
    selected_ = state.selected != 0 ? state.selected : root_;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto node = nodes_.find(rows[i]);
        const bool shown = node != nodes_.end() && (rows[i] == selected_ || node->second.parent == selected_);
        if (shown) rows_[i].key = node->second.key;
    }
    select(selected_);
    makeVisible(selected_);
}

}  // namespace trevandix::testing
