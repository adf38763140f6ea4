// Dragging, and pasting names and comments.
#include <algorithm>
#include <set>

#include "ReferenceTexts.h"

namespace trevandix::testing {

void Reference::drag(int source, int target, bool copies) {
    const Node dragged = nodes_.at(source);
    const std::string refused = "Unable to drag nodes here";
    if (nodes_.at(target).tag == "item") return say(refused);
    if (source == root_ || dragged.parent == target) return;
    if (lies(target, source)) return say(refused);
    const int added = add(target, nodes_.at(target).key + "." + dragged.text, dragged.text, dragged.tag,
                          dragged.image, dragged.selectedImage);
    shareRecord(source, added);
    if (dragged.tag == "branch") copyBelow(source, added);
    makeVisible(added);
    nodes_.at(added).expanded = true;
    if (!copies) {
        dropRecords(source);
        remove(source);
    }
    highlight_ = 0;
}

// The record is stored under both keys; its own key is the new one.
void Reference::shareRecord(int source, int target) {
    const Node& from = nodes_.at(source);
    const Node& to = nodes_.at(target);
    if (from.tag != "item" && from.tag != "branch") return;
    try {
        const int shared = recordAt(from.tag, from.key);
        put(from.tag, to.key, shared);
        records_[shared]["key"] = to.key;
    } catch (const Failure&) {
        remove(target);
        throw;
    }
}

void Reference::copyBelow(int source, int target) {
    for (const int child : std::vector<int>(nodes_.at(source).children)) {
        const Node from = nodes_.at(child);
        const int added = add(target, nodes_.at(target).key + "." + from.text, from.text, from.tag,
                              from.image, from.selectedImage);
        shareRecord(child, added);
        if (from.tag == "branch") copyBelow(child, added);
    }
}

// A line end at the end of the text does not begin another line.
void Reference::pasteTexts(bool names, const std::string& clipboard, const Texts& entries) {
    if (clipboard.empty()) return say("Empty clipboard !");
    Texts lines = pieces(clipboard, "\r\n");
    if (lines.back().empty()) lines.pop_back();
    for (std::string& line : lines) {
        const std::size_t first = line.find_first_not_of(' ');
        line = first == std::string::npos ? "" : line.substr(first, line.find_last_not_of(' ') - first + 1);
    }
    const std::vector<std::size_t> rows = selectedRows_;
    if (names && nameClashes(lines, rows)) return say("Name already existing");
    if (lines.size() != rows.size()) return say("Invalid selection");
    std::string preview = "preview ";
    Texts before;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Row& row = rows_[rows[i]];
        before.push_back(names ? row.cells[0] : record("item", row.key)["comment"]);
        preview += before.back() + "<---" + lines[i] + "|";
    }
    log_.push_back(preview);
    if (std::ranges::count(entries, "Command2") == 0) return;
    if (names) return pasteNames(lines, rows);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::string& comment = record("item", rows_[rows[i]].key)["comment"];
        touched_ = touched_ || comment != lines[i];
        comment = lines[i];
        rows_[rows[i]].cells[1] = lines[i];
    }
    saved_ = false;
}

bool Reference::nameClashes(const Texts& lines, const std::vector<std::size_t>& rows) const {
    std::set<std::string> leaving;
    for (const std::size_t row : rows) leaving.insert(rows_[row].key);
    return selected_ != 0 && std::ranges::any_of(lines, [&](const std::string& line) {
               const std::string key = nodes_.at(selected_).key + "." + line;
               const bool beside = line.find('.') == std::string::npos;  // no clash below a branch
               return beside && entry("item", key) != nullptr && !leaving.contains(key);
           });
}

// An item that cannot get its new name keeps the old one, and may thus block the renaming of another.
void Reference::pasteNames(const Texts& lines, const std::vector<std::size_t>& rows) {
    struct Renaming {
        std::string key, name, newKey;
        std::size_t row, line;
    };
    std::vector<Renaming> going;
    std::map<std::size_t, int> failed;  // by line; only the first is reported
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::size_t refused = lines[i].find_first_of(" .,:;\\/|");
        const std::string key = rows_[rows[i]].key;
        if (refused == std::string::npos) {
            // After a drop two rows may have the same key.
            if (std::ranges::count(going, key, &Renaming::key) > 0) {
                failed[i] = 5;
                continue;
            }
            going.push_back({key, lines[i], cut(key) + "." + lines[i], rows[i], i});
            continue;
        }
        for (const char c : std::string(" .,:;\\/|")) {
            if (lines[i].find(c) == std::string::npos) continue;
            say(std::string("Character (") + c + ") not acceptable in string " + lines[i]);
            break;
        }
    }
    const auto failureOf = [&](std::size_t i) {
        const Renaming& wish = going[i];
        if (find(wish.key) == 0) return 35601;
        for (std::size_t j = 0; j < i; ++j)
            if (going[j].newKey == wish.newKey) return 457;
        if (std::ranges::count(going, wish.newKey, &Renaming::key) > 0) return 0;
        return entry("item", wish.newKey) != nullptr ? 457 : find(wish.newKey) != 0 ? 35602 : 0;
    };
    for (std::size_t i = 0; i < going.size();) {
        const int failure = failureOf(i);
        if (failure == 0) {
            ++i;
            continue;
        }
        failed[going[i].line] = failure;
        going.erase(going.begin() + static_cast<std::ptrdiff_t>(i));
        i = 0;
    }
    std::vector<std::pair<int, int>> moved;  // node and record
    for (const Renaming& each : going) {
        moved.emplace_back(at(each.key), recordAt("item", each.key));
        drop("item", each.key);
        nodes_.at(moved.back().first).key = "";
    }
    for (std::size_t i = 0; i < going.size(); ++i) {
        const Renaming& each = going[i];
        records_[moved[i].second]["name"] = each.name;
        records_[moved[i].second]["key"] = each.newKey;
        put("item", each.newKey, moved[i].second);
        rename(moved[i].first, each.newKey, each.name);
        rows_[each.row].cells[0] = each.name;
        rows_[each.row].key = each.newKey;
    }
    if (!going.empty() || failed.empty()) saved_ = false;
    if (!failed.empty()) throw Failure{failed.begin()->second};
}

}  // namespace trevandix::testing
