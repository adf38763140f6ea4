#include "editor/StatusNews.h"

#include <algorithm>

#include "check/Check.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kUnpublished = "Saved, but not published: ";

/// How the unit is reached: "192.168.0.10, identifier 3, 2000 ms" or "COM1, 9600, 8N1, identifier 3".
std::string connection(const clsPLC& unit, std::string_view interfaceKind) {
    const std::string identifier = ", identifier " + std::to_string(unit.getUI());
    if (interfaceKind == kTcpIp)
        return unit.getAddress() + identifier + ", " + std::to_string(unit.getTimeout()) + " ms";
    return unit.getCom() + ", " + std::to_string(unit.getBaud()) + ", " + std::to_string(unit.getDataBits()) +
           unit.getParity().substr(0, 1) + std::to_string(unit.getStopBits()) + identifier;
}

bool hasSmallLetters(const Configuration& configuration) {
    return std::ranges::any_of(configuration.branches, [](const auto& entry) {
        const std::string& name = entry.second->sName();
        return name != upperCased(name);
    });
}

}  // namespace

void StatusNews::update() {
    const bool open = configuration_.state.configurationOpen && configuration_.tree.root() != nullptr;
    if (!open) problems_.clear();
    show(StatusField::Selection, open ? selection() : "");
    show(StatusField::Counts, open ? counts() : "");
    show(StatusField::Saved, !open ? "" : configuration_.equalsFile() ? "Saved" : "Unsaved changes");
    show(StatusField::Problems, problems_);
    show(StatusField::Notice, feedback_.empty() ? notice_ : feedback_);
}

void StatusNews::tellSaved(Publication publication, const Registry& registry) {
    unpublished_ = publication != Publication::Done;
    // What the user must change comes first: the status bar shows only the first line.
    notice_ = firstUnreadable(configuration_);
    if (!notice_.empty()) notice_ += ", so other programs cannot read this file.\n";
    if (unpublished_) {
        notice_.append(kUnpublished).append(reason(publication));
        notice_ += registry.canAsk() ? ". Click here to publish as administrator.\n"
                                     : ". Click here to try again.\n";
    }
    if (!capitalsTold_ && hasSmallLetters(configuration_)) {
        capitalsTold_ = true;
        notice_ += "Branch names come back in capitals when the file is opened.\n";
    }
    const std::string& path = configuration_.state.filePath;
    if (!unpublished_) notice_ += "Published to the server: " + path;
    if (!unpublished_ && registry.onMappedDrive(path)) notice_.append("; ").append(kMappedDrive);
    if (notice_.ends_with('\n')) notice_.pop_back();
}

void StatusNews::clearNotice() {
    notice_.clear();
    unpublished_ = false;
}

bool StatusNews::showsUnpublished() const {
    return unpublished_ && feedback_.empty() && notice_.starts_with(kUnpublished);
}

std::string StatusNews::selection() const {
    const TreeNode* node = configuration_.tree.selected();
    const bool keyed = node != nullptr && !node->key().empty();
    std::string text = keyed ? node->key().str() : configuration_.state.filePath;
    if (keyed && node->tag() == NodeTag::Plc) {
        if (const auto unit = configuration_.units.find(node->key()))
            text += ": " + connection(*unit, configuration_.state.interfaceKind);
    }
    const std::size_t rows = list_.selectedRows().size();
    return rows == 0 ? text : text + ", " + counted(rows, "row", "rows") + " selected";
}

std::string StatusNews::counts() const {
    return counted(configuration_.units.size(), "unit", "units") + ", " +
           counted(configuration_.branches.size(), "branch", "branches") + ", " +
           counted(configuration_.items.size(), "item", "items");
}

void StatusNews::show(StatusField field, const std::string& text) {
    std::string& before = shown_[static_cast<std::size_t>(field)];
    if (before == text) return;
    before = text;
    window_.setStatus(field, text);
}

}  // namespace trevandix
