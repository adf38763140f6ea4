#pragma once

#include <wx/dc.h>
#include <wx/window.h>

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/MapContents.h"

namespace trevandix {

/// Sizes in pixels and colours of a map, from the window's font, scaling and theme.
struct WxMapLook {
    explicit WxMapLook(const wxWindow& window);

    int lane;     ///< height of a block
    int spacing;  ///< below a line
    int edge;     ///< width of the addresses
    int margin;
    int right;  ///< of the cells, where a scroll bar may appear
    int line;   ///< thickness of a line
    int least;  ///< width below which no name is written
    wxFont font;
    wxColour back, text, faint, block, free, grid, selected, selectedText;
};

/// Names shortened to what fits, kept because measuring them takes longer than all the rest.
class WxFittedTexts {
public:
    wxString fitted(wxDC& dc, const std::string& text, int width);

private:
    std::unordered_map<std::string, wxString> known_;
};

/// Draws the lines of a map.
class WxMapPainter {
public:
    WxMapPainter(wxDC& dc, const WxMapLook& look, WxFittedTexts& texts, int width, bool focused)
        : dc_(dc), look_(look), texts_(texts), width_(width), focused_(focused) {}

    void draw(const MapLine& line, int lanes, int top);
    /// What the blocks mean, in as many lines as the width needs.
    void drawLegend();
    int legendHeight() const;

private:
    void drawTitle(const MapLine& line, int top);
    void drawScale(const MapLine& line, int top);
    void drawRow(const MapLine& line, int lanes, int top);
    void drawGap(const MapLine& line, int top);
    void drawHeld(const MapPart& part, const MapLine& line, int top);
    void drawRing(const wxRect& area, const wxColour& colour, int thickness);
    void hatch(const wxRect& area, const wxColour& colour);
    std::vector<wxRect> legendSwatches() const;
    void drawWarning(const wxPoint& place);
    void fill(const wxRect& area, const wxColour& colour);
    void write(const std::string& text, const wxRect& area, const wxColour& colour, int align);
    int left(int parts, int part) const;
    wxRect areaOf(int begin, int end, int lane, int parts, int top) const;

    wxDC& dc_;
    const WxMapLook& look_;
    WxFittedTexts& texts_;
    int width_;
    bool focused_;
};

}  // namespace trevandix
