#include "editor/frmEditing.h"

#include <algorithm>
#include <iterator>

#include "editor/CommandTable.h"

namespace trevandix {

frmEditing::frmEditing(Platform& platform, Configuration& configuration, ListView& list)
    : news_(platform.window, configuration, list),
      context_{platform, configuration, list, news_},
      views_(context_),
      file_(context_, views_),
      objects_(context_, views_,
               [this] {
                   context_.configuration.beginNextStep();
                   news_.update();
                   map_.follow();
               }),
      clipboard_(context_, views_),
      bulkPaste_(context_),
      bulk_(context_, views_),
      drag_(context_),
      tables_(context_, views_),
      undo_(context_, views_),
      find_(context_),
      problems_(context_, views_),
      map_(context_, views_, [this] { TreeView1_DblClick(); }),
      recovery_(context_, file_) {
    file_.onUnsavedEnd([this] { recovery_.keepForNextStart(); });
    file_.onCleared([this] { map_.follow(); });
}

void frmEditing::Form_Load() {
    context_.InitObjects();
    context_.enable(Situation::Start);
}

template <typename Work>
void frmEditing::react(Work work) {
    if (file_.reading()) return;
    news_.tell({});
    work();
    news_.update();
    problems_.follow();
    map_.follow();
}

template <typename Work>
void frmEditing::edit(Work work, std::string_view verb) {
    react([&] {
        const Configuration::Step step(context_.configuration, verb);
        work();
    });
}

void frmEditing::openFile(const std::string& filePath) {
    react([&] { file_.openFile(filePath); });
}

void frmEditing::start(const std::string& filePath) {
    const bool recovered = offerRecovery();
    if (filePath.empty()) return;
    if (!recovered) return openFile(filePath);
    news_.tell("Not opened, as changes were recovered: " + filePath);
    news_.update();
}

bool frmEditing::offerRecovery() {
    bool recovered = false;
    react([&] { context_.guarded("offerRecovery", [&] { recovered = recovery_.offer(); }); });
    return recovered;
}

void frmEditing::commandChosen(std::string_view command) {
    const CommandRow* row = commandNamed(command);
    if (row == nullptr) return;
    const auto run = [&] { row->run(*this); };
    row->verb == kNoStep ? react(run) : edit(run, row->verb);
}

void frmEditing::Toolbar1_ButtonClick(std::string_view key) {
    context_.guarded("Toolbar1_ButtonClick", [&] {
        if (const CommandRow* row = commandOfButton(key)) commandChosen(row->name);
    });
}

void frmEditing::Form_Unload() {
    file_.unload();
    find_.unload();
    problems_.unload();
    map_.unload();
    recovery_.end();
}

void frmEditing::idle(std::chrono::steady_clock::time_point now,
                      std::chrono::steady_clock::time_point lastInput) {
    recovery_.idle(now, lastInput);
}

void frmEditing::paused(const std::function<bool()>& inputWaits) {
    if (file_.reading()) return;
    map_.follow();
    problems_.paused(inputWaits);
}

void frmEditing::statusClicked(StatusField field) {
    if (field == StatusField::Problems) return commandChosen("mnuProblems");
    if (field == StatusField::Notice && news_.showsUnpublished()) return commandChosen("mnuPublish");
    react([] {});  // what a command told gives way to the notice
}

std::vector<ContextEntry> frmEditing::contextEntries() const {
    std::vector<ContextEntry> entries = bulk_.contextEntries();
    if (news_.unpublished()) entries.insert(entries.begin(), {"mnuPublish", "Publish"});
    entries.push_back({});
    std::ranges::move(tables_.contextEntries(), std::back_inserter(entries));
    entries.push_back({});
    entries.push_back({"mnuRegisterMap", "Register Map", map_.hasUnit()});
    entries.push_back({"mnuProblems", "Show Problems"});
    std::ranges::move(undo_.contextEntries(), std::back_inserter(entries));
    return entries;
}

void frmEditing::TreeView1_NodeClick(TreeNode& node) {
    react([&] { views_.TreeView1_NodeClick(node); });
}

void frmEditing::TreeView1_GotFocus() {
    react([&] { views_.enableForSelected(); });
}

void frmEditing::TreeView1_DblClick() {
    edit([&] { objects_.TreeView1_DblClick(); });
}

void frmEditing::treeExpansionChanged(TreeNode& node, bool expanded) {
    context_.tree().setExpanded(node, expanded);
    // If the selected node is now hidden, the collapsed node is selected instead.
    const TreeNode* selected = context_.tree().selected();
    if (!expanded && selected != &node && liesIn(selected, node)) TreeView1_NodeClick(node);
}

void frmEditing::ListView1_Click() {
    react([&] { views_.ListView1_Click(); });
}

void frmEditing::ListView1_DblClick() {
    edit([&] {
        if (context_.guarded("ListView1_DblClick", [&] { views_.selectNodeOfCurrentRow(); }))
            objects_.TreeView1_DblClick();
    });
}

void frmEditing::openObject() {
    if (context_.platform.window.focusedView() == FocusedView::List)
        ListView1_DblClick();
    else
        TreeView1_DblClick();
}

void frmEditing::ListView1_ColumnClick(std::size_t column) {
    react([&] { views_.ListView1_ColumnClick(column); });
}

bool frmEditing::TreeView1_MouseDown(TreeNode* node, ShiftState shift) {
    return !file_.reading() && drag_.TreeView1_MouseDown(node, shift);
}

DropEffect frmEditing::TreeView1_OLEStartDrag() {
    return drag_.TreeView1_OLEStartDrag();
}
void frmEditing::TreeView1_OLEDragOver(TreeNode* node) {
    drag_.TreeView1_OLEDragOver(node);
}
bool frmEditing::dropAllowed(const TreeNode* node) const {
    return drag_.dropAllowed(node);
}
void frmEditing::dragCancelled() {
    drag_.dragCancelled();
}

void frmEditing::fileDropped(const std::string& filePath) {
    if (!TableCommands::isTableFile(filePath)) return openFile(filePath);
    react([&] { tables_.importFile(filePath); });
}

void frmEditing::TreeView1_OLEDragDrop() {
    edit([&] { drag_.TreeView1_OLEDragDrop(); });
}

}  // namespace trevandix
