#include "wx/WxMapPainter.h"

#include <wx/arrstr.h>
#include <wx/control.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "wx/WxBasics.h"

namespace trevandix {

namespace {

constexpr int kPadding = 3;  // this and the following in device-independent pixels
constexpr int kSpacing = 3;
constexpr int kScrollBar = 10;
constexpr int kHatchStep = 6;
constexpr int kLegendGap = 18;
constexpr const char* kWidestAddress = "65535 ";
constexpr std::array kLegend{"item", "free", "overlap, also marked at the edge", "selected"};

wxColour mixed(const wxColour& from, const wxColour& to, double share) {
    const auto mix = [share](unsigned char a, unsigned char b) {
        return static_cast<unsigned char>(a + (b - a) * share);
    };
    return {mix(from.Red(), to.Red()), mix(from.Green(), to.Green()), mix(from.Blue(), to.Blue())};
}

}  // namespace

WxMapLook::WxMapLook(const wxWindow& window)
    : lane(window.GetCharHeight() + 2 * window.FromDIP(kPadding)),
      spacing(window.FromDIP(kSpacing)),
      edge(0),
      margin(window.FromDIP(kPadding)),
      right(window.FromDIP(kScrollBar)),
      line(std::max(1, window.FromDIP(1))),
      least(2 * window.GetCharWidth()),
      font(window.GetFont()),
      back(wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX)),
      text(wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOXTEXT)),
      selected(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHT)),
      selectedText(wxSystemSettings::GetColour(wxSYS_COLOUR_HIGHLIGHTTEXT)) {
    faint = mixed(back, text, 0.65);
    block = mixed(back, selected, 0.3);
    free = mixed(back, text, 0.05);
    // Where selections are hardly lighter or darker than the background, as in some high contrast themes.
    const auto contrast = [this](const wxColour& colour) {
        return std::abs(colour.GetLuminance() - back.GetLuminance());
    };
    if (contrast(block) < 2 * contrast(free)) block = mixed(mixed(back, text, 0.25), selected, 0.3);
    grid = mixed(back, text, 0.16);
    // The addresses, and room for a warning in front of them.
    edge = window.GetTextExtent(kWidestAddress).GetWidth() + window.GetCharHeight() + margin;
}

wxString WxFittedTexts::fitted(wxDC& dc, const std::string& text, int width) {
    constexpr std::size_t kMostKept = 20'000;
    if (known_.size() > kMostKept) known_.clear();
    const auto [place, isNew] = known_.try_emplace(text + '\n' + std::to_string(width));
    if (isNew)
        place->second = wxControl::Ellipsize(toWx(text), dc, wxELLIPSIZE_END, width, wxELLIPSIZE_FLAGS_NONE);
    return place->second;
}

// Where a part begins.
int WxMapPainter::left(int parts, int part) const {
    const std::int64_t room = std::max(width_ - look_.edge - look_.right, 0);
    return look_.edge + static_cast<int>(room * part / std::max(parts, 1));
}

wxRect WxMapPainter::areaOf(int begin, int end, int lane, int parts, int top) const {
    const int from = left(parts, begin);
    const int to = left(parts, end);
    return {from, top + lane * look_.lane, std::max(to - from, 1), look_.lane};
}

void WxMapPainter::fill(const wxRect& area, const wxColour& colour) {
    dc_.SetPen(*wxTRANSPARENT_PEN);
    dc_.SetBrush(colour);
    dc_.DrawRectangle(area);
}

void WxMapPainter::write(const std::string& text, const wxRect& area, const wxColour& colour, int align) {
    const int room = area.GetWidth() - 2 * look_.margin;
    if (text.empty() || room < look_.least) return;
    dc_.SetTextForeground(colour);
    dc_.DrawLabel(texts_.fitted(dc_, text, room), area.Deflate(look_.margin, 0),
                  align | wxALIGN_CENTRE_VERTICAL);
}

void WxMapPainter::draw(const MapLine& line, int lanes, int top) {
    switch (line.kind) {
        case MapLine::Kind::Title:
            return drawTitle(line, top);
        case MapLine::Kind::Scale:
            return drawScale(line, top);
        case MapLine::Kind::Row:
            return drawRow(line, lanes, top);
        case MapLine::Kind::Gap:
            return drawGap(line, top);
    }
}

void WxMapPainter::drawTitle(const MapLine& line, int top) {
    dc_.SetTextForeground(look_.text);
    wxRect area(look_.margin, top, width_ - 2 * look_.margin, look_.lane);
    dc_.SetFont(look_.font.Bold());
    for (const wxString& text : wxSplit(toWx(line.text), '\n', '\0')) {
        const wxString fitted =
            wxControl::Ellipsize(text, dc_, wxELLIPSIZE_END, area.GetWidth(), wxELLIPSIZE_FLAGS_NONE);
        dc_.DrawLabel(fitted, area, wxALIGN_LEFT | wxALIGN_BOTTOM);
        area.Offset(0, look_.lane);
        dc_.SetFont(look_.font);
    }
}

// Of the numbers, leaves out what has no room.
void WxMapPainter::drawScale(const MapLine& line, int top) {
    const int widest = dc_.GetTextExtent("+" + std::to_string(line.cells)).GetWidth() + 2 * look_.margin;
    int step = line.perNumber;
    while (step < line.cells && left(line.cells, step) - left(line.cells, 0) < widest) step *= 2;
    dc_.SetTextForeground(look_.faint);
    for (int cell = 0; cell < line.cells; cell += step) {
        const int from = left(line.cells, cell);
        const int to = left(line.cells, cell + line.perNumber);
        dc_.DrawLabel("+" + std::to_string(cell), wxRect(from, top, to - from, look_.lane),
                      (line.perNumber == 1 ? wxALIGN_CENTRE_HORIZONTAL : wxALIGN_LEFT) | wxALIGN_BOTTOM);
    }
}

void WxMapPainter::drawRow(const MapLine& line, int lanes, int top) {
    const wxRect edge(0, top, look_.edge, look_.lane);
    write(line.text, edge, look_.faint, wxALIGN_RIGHT);
    if (!line.overlaps.empty()) drawWarning(edge.GetTopLeft());
    wxRect cells = areaOf(0, line.parts, 0, line.parts, top);
    cells.SetHeight(lanes * look_.lane);
    fill(cells, look_.free);
    dc_.SetPen(wxPen(look_.grid, look_.line));
    for (int cell = 0; cell <= line.cells; ++cell) {
        const int x = left(line.cells, cell);
        dc_.DrawLine(x, cells.GetTop(), x, cells.GetBottom() + 1);
    }
    for (const MapPart& part : line.held) drawHeld(part, line, top);
    for (const MapPart& part : line.held) {
        if (!part.current) continue;
        const wxRect area = areaOf(part.begin, part.end, part.lane, line.parts, top);
        // Without the focus fainter, but what is not selected must stand out as well.
        drawRing(area, focused_ || part.selected ? look_.text : look_.faint,
                 focused_ || !part.selected ? 2 * look_.line : look_.line);
    }
}

void WxMapPainter::drawGap(const MapLine& line, int top) {
    const wxRect area = areaOf(0, line.parts, 0, line.parts, top);
    const bool selected = !line.held.empty();
    fill(area, selected ? look_.selected : look_.back);
    dc_.SetPen(wxPen(look_.grid, look_.line));
    for (const int y : {area.GetTop(), area.GetBottom()}) dc_.DrawLine(area.GetLeft(), y, area.GetRight(), y);
    write(line.text, area, selected ? look_.selectedText : look_.faint, wxALIGN_CENTRE_HORIZONTAL);
    if (selected) drawRing(area, look_.text, focused_ ? 2 * look_.line : look_.line);
}

void WxMapPainter::drawHeld(const MapPart& part, const MapLine& line, int top) {
    const wxRect area = areaOf(part.begin, part.end, part.lane, line.parts, top);
    fill(area, part.selected ? look_.selected : look_.block);
    const wxColour colour = part.selected ? look_.selectedText : look_.text;
    for (const MapLine::Overlap& overlap : line.overlaps) {
        const int begin = std::max(overlap.begin, part.begin);
        const int end = std::min(overlap.end, part.end);
        if (begin < end)
            hatch(areaOf(begin, end, part.lane, line.parts, top),
                  part.selected ? look_.selectedText : look_.faint);
    }
    dc_.SetPen(wxPen(look_.faint, look_.line));
    const int right = area.GetRight();
    const int bottom = area.GetBottom();
    dc_.DrawLine(area.GetLeft(), area.GetTop(), right + 1, area.GetTop());
    dc_.DrawLine(area.GetLeft(), bottom, right + 1, bottom);
    if (part.fromHere) dc_.DrawLine(area.GetLeft(), area.GetTop(), area.GetLeft(), bottom + 1);
    if (part.untilHere && area.GetWidth() > 2 * look_.line)
        dc_.DrawLine(right, area.GetTop(), right, bottom + 1);
    const int room = area.GetWidth() - 2 * look_.margin;
    if (part.name.empty() || room < look_.least) return;
    const wxString name = texts_.fitted(dc_, part.name, room);
    const wxSize size = dc_.GetTextExtent(name);
    const wxRect behind = wxRect(size).CentreIn(area);
    if (!line.overlaps.empty()) fill(behind, part.selected ? look_.selected : look_.block);
    dc_.SetTextForeground(colour);
    dc_.DrawText(name, behind.GetTopLeft());
}

void WxMapPainter::drawRing(const wxRect& area, const wxColour& colour, int thickness) {
    dc_.SetBrush(*wxTRANSPARENT_BRUSH);
    dc_.SetPen(wxPen(colour, thickness));
    dc_.DrawRectangle(wxRect(area).Inflate(thickness / 2));
}

void WxMapPainter::hatch(const wxRect& area, const wxColour& colour) {
    const wxDCClipper clip(dc_, area);
    const int step = kHatchStep * look_.line;
    dc_.SetPen(wxPen(colour, look_.line));
    // Begins at a multiple, so that neighbours fit together.
    for (int x = area.GetLeft() / step * step; x < area.GetRight() + area.GetHeight(); x += step)
        dc_.DrawLine(x, area.GetTop(), x - area.GetHeight(), area.GetBottom() + 1);
}

void WxMapPainter::drawWarning(const wxPoint& place) {
    const int size = look_.lane - 2 * look_.margin;
    const int x = place.x + look_.margin;
    const int y = place.y + look_.margin;
    const wxPoint corners[] = {{x + size / 2, y}, {x, y + size}, {x + size, y + size}};
    dc_.SetPen(wxPen(look_.text, look_.line));
    dc_.SetBrush(*wxTRANSPARENT_BRUSH);
    dc_.DrawPolygon(static_cast<int>(std::size(corners)), corners);
    dc_.DrawLine(x + size / 2, y + size * 2 / 5, x + size / 2, y + size * 7 / 10);
    dc_.DrawLine(x + size / 2, y + size * 4 / 5, x + size / 2, y + size * 9 / 10);
}

// Next to each other; a line breaks where the width ends.
std::vector<wxRect> WxMapPainter::legendSwatches() const {
    std::vector<wxRect> swatches;
    wxRect area(look_.margin, look_.margin, 2 * look_.lane, look_.lane);
    for (const char* text : kLegend) {
        const int whole = area.GetWidth() + 3 * look_.margin + dc_.GetTextExtent(text).GetWidth();
        if (!swatches.empty() && area.GetLeft() + whole > width_) {
            area.SetLeft(look_.margin);
            area.Offset(0, look_.lane + look_.spacing);
        }
        swatches.push_back(area);
        area.Offset(whole + kLegendGap * look_.line, 0);
    }
    return swatches;
}

int WxMapPainter::legendHeight() const {
    return legendSwatches().back().GetBottom() + 1 + look_.margin;
}

void WxMapPainter::drawLegend() {
    const std::vector<wxRect> swatches = legendSwatches();
    const std::array colours{look_.block, look_.free, look_.block, look_.selected};
    for (std::size_t i = 0; i < swatches.size(); ++i) {
        const wxRect& area = swatches[i];
        fill(area, colours[i]);
        dc_.SetPen(wxPen(look_.faint, look_.line));
        dc_.SetBrush(*wxTRANSPARENT_BRUSH);
        dc_.DrawRectangle(area);
        const wxSize size = dc_.GetTextExtent(kLegend[i]);
        dc_.SetTextForeground(look_.text);
        dc_.DrawText(kLegend[i], area.GetRight() + 2 * look_.margin,
                     area.GetTop() + (look_.lane - size.GetHeight()) / 2);
    }
    hatch(swatches[2], look_.faint);
    drawWarning(swatches[2].GetTopLeft() + wxPoint(look_.lane / 2, 0));
    drawRing(swatches[3], look_.text, look_.line);
}

}  // namespace trevandix
