#include "editor/frmProblems.h"

#include <algorithm>
#include <array>
#include <utility>

#include "check/Check.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

constexpr std::string_view kList = "lstProblems";

constexpr std::array kControls{
    ControlSpec{ControlKind::Heading, "lblCounts"},
    ControlSpec{ControlKind::List, kList}.describedAs("What the checks found"),
    ControlSpec{ControlKind::Note, "txtProblem", "Current problem"}.describedAs(
        "What is wrong and how to mend it"),
    ControlSpec{ControlKind::Button, "cmdSelect", "&Select", "", Place::ButtonRow}.describedAs(
        "Selects the object of the current problem"),
    ControlSpec{ControlKind::Button, "cmdCopy", "Copy &All", "", Place::ButtonRow}.describedAs(
        "Copies all problems as text"),
    ControlSpec{ControlKind::Button, "cmdCancel", "&Close", "", Place::ButtonRow}.describedAs(
        "Closes the window"),
};
constexpr FormSpec kForm{"frmProblems", "Problems", kControls, "cmdSelect", "cmdCancel", kList, true};

}  // namespace

std::string problemCounts(const FindingCounts& counts) {
    std::string text = counts.errors == 0 ? "" : counted(counts.errors, "error", "errors");
    if (counts.warnings > 0)
        text.append(text.empty() ? "" : ", ").append(counted(counts.warnings, "warning", "warnings"));
    return text.empty() ? "No problems" : text;
}

void frmProblems::mnuProblems_Click() {
    context_.guarded("mnuProblems_Click", [&] {
        bringUpToDate();
        if (form_ == nullptr) Form_Load();
        wasOpen_ = true;
        open_ = true;
        showRows();
        form_->showModeless();
        form_->setFocus(kList);
    });
}

void frmProblems::Form_Load() {
    form_ = context_.platform.forms.create(kForm);
    form_->connectList(kList, rows_,
                       {.open = [this] { cmdSelect_Click(); },
                        .sort = [this](std::size_t column) { sortBy(column); },
                        .copy = [this] { copySelected(); },
                        .move = [this] { showText(); }});
    form_->onClosed([this] {
        readMarks();
        open_ = false;
    });
    form_->on("cmdSelect", [this] { cmdSelect_Click(); });
    form_->on("cmdCopy", [this] { cmdCopy_Click(); });
    form_->on("cmdCancel", [this] { form_->close(); });
}

void frmProblems::paused(const std::function<bool()>& inputWaits) {
    context_.guarded("paused", [&] { update(inputWaits); });
}

void frmProblems::bringUpToDate() {
    const PointerScope hourglass(context_.platform.pointer, Pointer::Hourglass);
    update([] { return false; });
}

// A check that fails is not repeated before the next edit.
void frmProblems::update(const std::function<bool()>& interrupted) {
    const std::uint64_t revision = context_.configuration.revision();
    const bool open = context_.state().configurationOpen && context_.tree().root() != nullptr;
    if (!open || checked_ == revision) return;
    const auto before = std::exchange(checked_, revision);
    auto findings = check(context_.configuration, interrupted);
    const FindingCounts counts = countFindings(findings ? *findings : std::vector<Finding>());
    readMarks();
    if (!findings || !rows_.replace(std::move(*findings), marks_, interrupted)) {
        checked_ = before;
        return;
    }
    context_.news.tellProblems(problemCounts(counts));
    context_.news.update();
    showRows();
}

void frmProblems::follow() {
    if (!checked_ || !context_.news.problems().empty()) return;
    checked_.reset();
    marks_ = {};
    rows_.replace({}, marks_, [] { return false; });
    wasOpen_ = false;
    showRows();
}

void frmProblems::readMarks() {
    if (!open_ || rows_.rowCount() == 0) return;
    const ListPlace place = form_->listPlace(kList);
    marks_.selected = place.selected;
    if (!place.focused || *place.focused == shownRow()) return;
    marks_.row = *place.focused;
    marks_.gone = false;
}

std::size_t frmProblems::shownRow() const {
    return std::min(marks_.row, rows_.rowCount() - 1);
}

void frmProblems::showRows() {
    if (!open_) return;
    const std::string& counts = context_.news.problems();
    form_->setText("lblCounts", counts.empty() ? "No configuration" : counts);
    ListPlace place = form_->listPlace(kList);
    place.selected = marks_.selected;
    place.focused.reset();
    if (rows_.rowCount() > 0) {
        place.focused = shownRow();
        if (place.selected.empty()) place.selected.push_back(shownRow());
    }
    form_->refreshList(kList, place);
    showText();
}

// All of the current row, for which the columns may be too narrow.
void frmProblems::showText() {
    const auto row = form_->listPlace(kList).focused;
    const bool known = row && *row < rows_.rowCount();
    form_->setText("txtProblem",
                   known ? std::string(rows_.cell(*row, 1)).append(": ").append(rows_.cell(*row, 2)) : "");
}

void frmProblems::nextProblem() {
    if (!open_ && !wasOpen_) return mnuProblems_Click();
    context_.guarded("nextProblem", [&] {
        bringUpToDate();
        readMarks();
        const std::size_t row = marks_.row + (marks_.gone ? 0 : 1);
        show(row < rows_.rowCount() ? row : 0);
    });
}

void frmProblems::previousProblem() {
    context_.guarded("previousProblem", [&] {
        bringUpToDate();
        readMarks();
        const std::size_t row = std::min(marks_.row, rows_.rowCount());
        show((row > 0 ? row : rows_.rowCount()) - 1);
    });
}

void frmProblems::cmdSelect_Click() {
    context_.guarded("cmdSelect_Click", [&] {
        readMarks();
        marks_.gone = rows_.rowCount() == 0;
        bringUpToDate();
        if (!marks_.gone) return show(marks_.row);
        context_.news.tell("This problem is gone");
        context_.news.update();
    });
}

// Selects the object of the row as a click in the tree does.
void frmProblems::show(std::size_t row) {
    if (rows_.rowCount() == 0) return context_.news.tell("No problem to select");
    marks_ = {{row}, row, false};
    showRows();
    const Finding& finding = rows_.at(row);
    TreeNode* node = finding.object.empty() ? context_.tree().root() : context_.tree().find(finding.object);
    std::string news = std::to_string(row + 1) + " of " + std::to_string(rows_.rowCount()) + ", ";
    news.append(severityName(finding.rule->severity)).append(": ");
    if (node == nullptr) news.append(finding.object).append(" is not in the tree. ");
    context_.platform.window.focusTree();
    if (node != nullptr) views_.select(*node);
    context_.news.tell(news + finding.text);
    context_.news.update();
}

void frmProblems::copySelected() {
    context_.guarded("copySelected", [&] {
        bringUpToDate();
        readMarks();
        copy(rows_.text(marks_.selected), marks_.selected.size());
    });
}

void frmProblems::cmdCopy_Click() {
    context_.guarded("cmdCopy_Click", [&] {
        bringUpToDate();
        copy(rows_.text(), rows_.rowCount());
    });
}

void frmProblems::copy(const std::string& text, std::size_t rows) const {
    if (rows == 0) return;
    const bool copied = context_.platform.clipboard.setText(text);
    context_.news.tell(copied ? counted(rows, "problem", "problems") + " copied"
                              : "Not copied: another program uses the clipboard");
    context_.news.update();
}

void frmProblems::sortBy(std::size_t column) {
    context_.guarded("sortBy", [&] {
        readMarks();
        rows_.sortBy(column, marks_);
        showRows();
    });
}

void frmProblems::unload() {
    if (open_) form_->close();
    form_.reset();
}

}  // namespace trevandix
