#include "wx/WxLayoutScaling.h"

#include <cmath>
#include <memory>
#include <utility>

namespace trevandix {

WxLayoutScaling::WxLayoutScaling(wxWindow& window, Parts parts) : window_(window), parts_(std::move(parts)) {
    window_.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        scale();
    });
}

void WxLayoutScaling::keep(int windowWidth) {
    keep(parts_.widths(), windowWidth);
}

void WxLayoutScaling::scale() {
    std::vector<int> wanted = proportions_.scaled(window_.GetSize().GetWidth());
    if (parts_.least) wanted = widened(std::move(wanted), parts_.least(), window_.GetClientSize().GetWidth());
    if (wanted.size() == parts_.widths().size() && wanted != parts_.widths()) parts_.resize(wanted);
}

void keepSashInProportion(wxSplitterWindow& splitter, double share) {
    const auto kept = std::make_shared<Proportions>();
    constexpr int kWhole = 1000;
    kept->keep({static_cast<int>(std::lround(share * kWhole))}, kWhole);
    splitter.SetSashGravity(share);  // not zero, or the control would not ask below
    splitter.Bind(wxEVT_SPLITTER_SASH_POS_CHANGING, [&splitter, kept](wxSplitterEvent& event) {
        const int sash = event.GetSashPosition();
        if (sash > 0) kept->keep({sash}, splitter.GetClientSize().GetWidth());
    });
    splitter.Bind(wxEVT_SPLITTER_SASH_POS_RESIZE, [&splitter, kept](wxSplitterEvent& event) {
        event.SetSashPosition(kept->scaled(splitter.GetClientSize().GetWidth()).front());
    });
}

}  // namespace trevandix
