#include "wx/WxMap.h"

#include <wx/dcbuffer.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <array>
#include <utility>

#include "wx/WxBasics.h"
#include "wx/WxNative.h"

namespace trevandix {

namespace {

constexpr int kLeastWidth = 480;  // device-independent pixels
constexpr int kLeastHeight = 160;

struct MoveKey {
    int key;
    MapMove move;
};
constexpr std::array kMoveKeys{
    MoveKey{WXK_LEFT, MapMove::Left},     MoveKey{WXK_RIGHT, MapMove::Right},
    MoveKey{WXK_UP, MapMove::Up},         MoveKey{WXK_DOWN, MapMove::Down},
    MoveKey{WXK_PAGEUP, MapMove::PageUp}, MoveKey{WXK_PAGEDOWN, MapMove::PageDown},
    MoveKey{WXK_HOME, MapMove::Home},     MoveKey{WXK_END, MapMove::End},
};

/// Draws the legend, as high as its width makes it.
class Legend : public wxWindow {
public:
    explicit Legend(wxWindow* parent) : wxWindow(parent, wxID_ANY) {
        SetBackgroundStyle(wxBG_STYLE_PAINT);
        SetCanFocus(false);
        fitHeight();
        Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
            event.Skip();
            if (fitHeight()) CallAfter([this] { GetParent()->Layout(); });
            Refresh();
        });
        Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
            wxAutoBufferedPaintDC dc(this);
            const WxMapLook now(*this);
            dc.SetBackground(now.back);
            dc.Clear();
            dc.SetFont(now.font);
            WxFittedTexts texts;
            WxMapPainter(dc, now, texts, GetClientSize().GetWidth(), false).drawLegend();
        });
    }
    bool AcceptsFocus() const override { return false; }  // the same for Windows

private:
    // True if it needs another height than before.
    bool fitHeight() {
        wxClientDC dc(this);
        const WxMapLook look(*this);
        dc.SetFont(look.font);
        WxFittedTexts texts;
        const int width = std::max(GetClientSize().GetWidth(), FromDIP(kLeastWidth));
        const int height = WxMapPainter(dc, look, texts, width, false).legendHeight();
        if (height == GetMinSize().GetHeight()) return false;
        SetMinSize(wxSize(-1, height));
        return true;
    }
};

}  // namespace

WxMapArea::WxMapArea(wxWindow* parent)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxWANTS_CHARS) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    DisableKeyboardScrolling();
    SetMinSize(FromDIP(wxSize(kLeastWidth, kLeastHeight)));
    Bind(wxEVT_PAINT, &WxMapArea::onPaint, this);
    Bind(wxEVT_KEY_DOWN, &WxMapArea::onKey, this);
    Bind(wxEVT_LEFT_DOWN, &WxMapArea::onLeftDown, this);
    Bind(wxEVT_MOTION, &WxMapArea::onMotion, this);
    // The dialog opens after the control has finished with the event.
    Bind(wxEVT_LEFT_DCLICK, [this](wxMouseEvent& event) {
        if (const auto point = pointAt(event.GetPosition()))
            CallAfter([this, point] { handlers_.open(*point); });
    });
    const auto redraw = [this](wxEvent& event) {
        event.Skip();
        Refresh();
    };
    Bind(wxEVT_SET_FOCUS, redraw);
    Bind(wxEVT_KILL_FOCUS, redraw);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        place_.reset();
        if (contents_ != nullptr) scrollToCurrent();
        Refresh();
    });
    Bind(wxEVT_SYS_COLOUR_CHANGED, redraw);
    Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
        event.Skip();
        CallAfter([this] { layOut(); });
    });
}

void WxMapArea::setNames(const wxString& name, const wxString& description) {
    name_ = name;
    setAccessibleName(*this, name, description);
}

void WxMapArea::show(const MapContents& contents, MapHandlers handlers) {
    contents_ = &contents;
    handlers_ = std::move(handlers);
    refresh();
}

void WxMapArea::refresh() {
    layOut();
    scrollToCurrent();
    speak();
    tip_.clear();
    UnsetToolTip();
}

void WxMapArea::layOut() {
    const WxMapLook look(*this);
    lane_ = look.lane;
    spacing_ = look.spacing;
    lanesBefore_.assign(1, 0);
    const std::size_t lines = contents_ == nullptr ? 0 : contents_->lineCount();
    for (std::size_t line = 0; line < lines; ++line)
        lanesBefore_.push_back(lanesBefore_.back() + contents_->lanes(line));
    SetScrollRate(0, lane_ + spacing_);
    SetVirtualSize(1, topOf(lines));
    Refresh();
}

int WxMapArea::topOf(std::size_t line) const {
    return lanesBefore_[line] * lane_ + static_cast<int>(line) * spacing_;
}

// The last line that begins at `y` or above.
std::size_t WxMapArea::lineAt(int y) const {
    std::size_t low = 0;
    std::size_t high = lanesBefore_.size() - 1;
    while (low + 1 < high) {
        const std::size_t middle = (low + high) / 2;
        (topOf(middle) <= y ? low : high) = middle;
    }
    return low;
}

// By as little as possible, or into the middle if it is far away.
void WxMapArea::scrollToCurrent() {
    const auto place = contents_->current();
    if (place == place_ || !isLaidOut()) return;
    place_ = place;
    if (!place) return;
    const int step = lane_ + spacing_;
    const int height = GetClientSize().GetHeight();
    const int seen = CalcUnscrolledPosition(wxPoint()).y;
    const int top = topOf(place->first) + place->lane * lane_;
    int wanted = seen;
    if (top < seen + step) wanted = top - step;
    if (top + 2 * step > seen + height) wanted = top + 2 * step - height;
    if (std::abs(wanted - seen) > height) wanted = top - height / 2;
    if (top + step <= height) wanted = 0;
    if (wanted != seen) Scroll(0, (std::max(wanted, 0) + (wanted > seen ? step - 1 : 0)) / step);
}

// False between a change of the contents and `refresh`.
bool WxMapArea::isLaidOut() const {
    return contents_ != nullptr && lanesBefore_.size() == contents_->lineCount() + 1;
}

void WxMapArea::speak() {
    const std::string spoken = contents_->spoken();
    if (spoken == spoken_) return;
    spoken_ = spoken;
    setAccessibleName(*this, name_ + ": " + toWx(spoken));
}

void WxMapArea::onPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    const WxMapLook look(*this);
    dc.SetBackground(look.back);
    dc.Clear();
    const std::size_t lines = lanesBefore_.size() - 1;
    if (!isLaidOut() || lines == 0) return;
    dc.SetFont(look.font);
    const int seen = CalcUnscrolledPosition(wxPoint()).y;
    const wxRect drawn = GetUpdateRegion().GetBox();
    WxMapPainter painter(dc, look, texts_, GetClientSize().GetWidth(), HasFocus());
    for (std::size_t line = lineAt(seen + drawn.GetTop());
         line < lines && topOf(line) <= seen + drawn.GetBottom(); ++line)
        painter.draw(contents_->line(line), contents_->lanes(line), topOf(line) - seen);
}

std::optional<MapPoint> WxMapArea::pointAt(const wxPoint& place) const {
    const int y = CalcUnscrolledPosition(place).y;
    if (!isLaidOut() || y < 0 || y >= topOf(lanesBefore_.size() - 1)) return std::nullopt;
    const WxMapLook look(*this);
    const std::size_t line = lineAt(y);
    const int room = GetClientSize().GetWidth() - look.right - look.edge;
    if (place.x < look.edge || place.x >= look.edge + room) return std::nullopt;
    return MapPoint{line, (place.x - look.edge) / static_cast<double>(room), (y - topOf(line)) / lane_};
}

void WxMapArea::onKey(wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_TAB) {
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
        return;
    }
    const auto* const known = std::ranges::find(kMoveKeys, event.GetKeyCode(), &MoveKey::key);
    if (known == kMoveKeys.end() || event.HasAnyModifiers() || contents_ == nullptr) return event.Skip();
    handlers_.move(known->move, static_cast<std::size_t>(
                                    std::max(GetClientSize().GetHeight() / (lane_ + spacing_) - 1, 1)));
}

void WxMapArea::onLeftDown(wxMouseEvent& event) {
    SetFocus();
    if (const auto point = pointAt(event.GetPosition())) handlers_.click(*point);
}

void WxMapArea::onMotion(wxMouseEvent& event) {
    event.Skip();
    const auto point = pointAt(event.GetPosition());
    const std::string tip = point ? contents_->tip(*point) : std::string();
    if (tip == tip_) return;
    tip_ = tip;
    tip.empty() ? UnsetToolTip() : SetToolTip(toWx(tip));
}

WxMap::WxMap(wxWindow* parent)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_SIMPLE),
      area_(new WxMapArea(this)) {
    SetSizer(new wxBoxSizer(wxVERTICAL));
    GetSizer()->Add(area_, wxSizerFlags(1).Expand());
    GetSizer()->Add(new Legend(this), wxSizerFlags().Expand());
}

}  // namespace trevandix
