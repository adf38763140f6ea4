#include "wx/WxFormLayout.h"

#include <wx/statbox.h>

#include "wx/WxBasics.h"
#include "wx/WxFormList.h"
#include "wx/WxMap.h"
#include "wx/WxNative.h"

namespace trevandix {

namespace {

constexpr int kGap = 8;
constexpr int kMargin = 12;
constexpr int kSpokenColumns = 3;  // of a list's row

const wxGBSpan kOneColumn(1, 1);
const wxGBSpan kBothColumns(1, 2);

}  // namespace

void WxFormLayout::build(wxWindow& dialog) {
    for (const ControlSpec& control : spec_.controls) keys_.reserve(control.caption);
    auto* frame = new wxBoxSizer(wxVERTICAL);
    frame->Add(fill(dialog, {}), wxSizerFlags(1).Expand().Border(wxALL, dialog.FromDIP(kMargin)));
    dialog.SetSizer(frame);
}

const ControlSpec* WxFormLayout::nextIn(std::string_view frame, const ControlSpec* after) const {
    const ControlSpec* end = spec_.controls.data() + spec_.controls.size();
    for (const ControlSpec* each = after == nullptr ? spec_.controls.data() : after + 1; each != end;
         ++each) {
        if (each->frame == frame) return each;
    }
    return nullptr;
}

wxSizer* WxFormLayout::fill(wxWindow& parent, std::string_view frame) {
    const int gap = parent.FromDIP(kGap);
    Area area{parent, new wxGridBagSizer(gap, gap)};
    area.grid->SetEmptyCellSize(wxSize(0, 0));
    const ControlSpec* next = nullptr;
    answerOthers();  // for each frame, as Wine takes milliseconds to make a control
    for (const ControlSpec* each = nextIn(frame, nullptr); each != nullptr; each = next) {
        next = nextIn(frame, each);
        add(area, *each, next);
    }
    if (area.grid->GetCols() > 1) area.grid->AddGrowableCol(1);
    auto* upper = new wxBoxSizer(wxHORIZONTAL);
    upper->Add(area.grid, wxSizerFlags(1).Expand());
    if (area.buttonColumn != nullptr) upper->Add(area.buttonColumn, wxSizerFlags().Border(wxLEFT, 2 * gap));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(upper, wxSizerFlags(1).Expand());
    if (area.buttonRow != nullptr) whole->Add(area.buttonRow, wxSizerFlags().Right().Border(wxTOP, 2 * gap));
    return whole;
}

void WxFormLayout::add(Area& area, const ControlSpec& shape, const ControlSpec* next) {
    if (shape.kind == ControlKind::Frame) {
        addFrame(area, shape);
        return;
    }
    const bool startsGroup = shape.kind == ControlKind::Option && !area.hasOptions;
    area.hasOptions = area.hasOptions || startsGroup;
    WxControl& control = controls_.emplace_back(WxControl::make(area.parent, shape, startsGroup, keys_));
    // A field without a caption gets the spoken name of the control before it, a grid or list that of the
    // form.
    if (control.isField() && control.caption.empty() && controls_.size() > 1)
        setAccessibleName(*control.window, toWx(controls_[controls_.size() - 2].caption));
    if (shape.kind == ControlKind::Grid) nameGrid(*control.window, shape);
    if (shape.kind == ControlKind::List)
        makeReadable(static_cast<WxFormList&>(*control.window), toWx(spec_.caption), toWx(shape.description),
                     kSpokenColumns);
    if (shape.kind == ControlKind::Map)
        static_cast<WxMap&>(*control.window).area().setNames(toWx(spec_.caption), toWx(shape.description));
    const int gap = area.parent.FromDIP(kGap);
    switch (shape.place) {
        case Place::ButtonColumn:
            if (area.buttonColumn == nullptr) area.buttonColumn = new wxBoxSizer(wxVERTICAL);
            area.buttonColumn->Add(control.window, wxSizerFlags().Expand().Border(wxBOTTOM, gap));
            return;
        case Place::ButtonRow:
            if (area.buttonRow == nullptr) area.buttonRow = new wxBoxSizer(wxHORIZONTAL);
            area.buttonRow->Add(control.window,
                                wxSizerFlags().Border(wxLEFT, area.buttonRow->IsEmpty() ? 0 : gap));
            return;
        case Place::SameRow:
            if (area.cell == nullptr) break;
            if (!area.cell->IsEmpty()) area.cell->AddSpacer(gap);
            if (control.label != nullptr) {
                area.cell->Add(control.label, wxSizerFlags().CentreVertical().Border(wxRIGHT, gap));
            }
            area.cell->Add(control.window, wxSizerFlags(control.isField() ? 1 : 0).CentreVertical());
            return;
        case Place::NextRow:
            break;
    }
    startRow(area, control, next);
}

// Cells and header are separate windows, and either may have the focus.
void WxFormLayout::nameGrid(wxWindow& grid, const ControlSpec& shape) {
    setAccessibleName(grid, toWx(spec_.caption), toWx(shape.description));
    for (wxWindow* part : grid.GetChildren())
        setAccessibleName(*part, toWx(spec_.caption), toWx(shape.description));
}

bool WxFormLayout::fillsArea(ControlKind kind) {
    return kind == ControlKind::Grid || kind == ControlKind::List || kind == ControlKind::Map;
}

bool WxFormLayout::fillsWidth(ControlKind kind) {
    return fillsArea(kind) || kind == ControlKind::Heading || kind == ControlKind::Text ||
           kind == ControlKind::Note || kind == ControlKind::Choice || kind == ControlKind::Combo;
}

void WxFormLayout::startRow(Area& area, WxControl& control, const ControlSpec* next) {
    ++area.row;
    area.cell = new wxBoxSizer(wxHORIZONTAL);
    const bool shares = next != nullptr && next->place == Place::SameRow;
    const bool standsForLabel = control.shape->kind == ControlKind::Check && shares;
    wxWindow* first = standsForLabel ? control.window : control.label;
    if (first != nullptr)
        area.grid->Add(first, wxGBPosition(area.row, 0), kOneColumn, wxALIGN_CENTRE_VERTICAL);
    const bool secondColumn = first != nullptr;
    area.grid->Add(area.cell, wxGBPosition(area.row, secondColumn ? 1 : 0),
                   secondColumn ? kOneColumn : kBothColumns, wxEXPAND);
    if (standsForLabel) return;
    const bool whole = fillsArea(control.shape->kind);
    const wxSizerFlags flags(fillsWidth(control.shape->kind) ? 1 : 0);
    area.cell->Add(control.window,
                   whole ? wxSizerFlags(flags).Expand() : wxSizerFlags(flags).CentreVertical());
    if (whole) area.grid->AddGrowableRow(static_cast<std::size_t>(area.row));
}

void WxFormLayout::addFrame(Area& area, const ControlSpec& shape) {
    ++area.row;
    area.cell = nullptr;
    WxControl& control = controls_.emplace_back(WxControl::make(area.parent, shape, false, keys_));
    auto* box = static_cast<wxStaticBox*>(control.window);
    if (shape.caption.empty()) setAccessibleName(*box, toWx(spec_.caption));
    auto* sizer = new wxStaticBoxSizer(box, wxVERTICAL);
    // A frame without a caption still leaves room for one at its top.
    const int sides = shape.caption.empty() ? wxALL & ~wxTOP : wxALL;
    sizer->Add(fill(*box, shape.name), wxSizerFlags(1).Expand().Border(sides, area.parent.FromDIP(kGap)));
    area.grid->Add(sizer, wxGBPosition(area.row, 0), kBothColumns, wxEXPAND);
}

}  // namespace trevandix
