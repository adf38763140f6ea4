#pragma once

#include <wx/panel.h>
#include <wx/scrolwin.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/MapContents.h"
#include "wx/WxMapPainter.h"

namespace trevandix {

/// The lines of a Map, drawn as far as they are visible. Told to screen readers by its name, which says where
/// the keyboard stands.
class WxMapArea : public wxScrolledCanvas {
public:
    explicit WxMapArea(wxWindow* parent);

    void setNames(const wxString& name, const wxString& description);
    /// `contents` must outlive the area.
    void show(const MapContents& contents, MapHandlers handlers);
    void refresh();

private:
    void onPaint(wxPaintEvent& event);
    void onKey(wxKeyEvent& event);
    void onLeftDown(wxMouseEvent& event);
    void onMotion(wxMouseEvent& event);
    void layOut();
    void scrollToCurrent();
    bool isLaidOut() const;
    void speak();
    std::size_t lineAt(int y) const;
    int topOf(std::size_t line) const;
    std::optional<MapPoint> pointAt(const wxPoint& place) const;

    const MapContents* contents_ = nullptr;
    MapHandlers handlers_;
    wxString name_;
    std::string spoken_;
    std::string tip_;
    std::optional<MapPlace> place_;  ///< the current one, last scrolled to
    std::vector<int> lanesBefore_;   ///< each line, and at the end all
    int lane_ = 1;                   ///< `WxMapLook::lane` and `spacing`
    int spacing_ = 0;
    WxFittedTexts texts_;
};

/// The Map of a form: its lines and, below them, what the blocks mean.
class WxMap : public wxPanel {
public:
    explicit WxMap(wxWindow* parent);

    WxMapArea& area() { return *area_; }

private:
    WxMapArea* area_;
};

}  // namespace trevandix
