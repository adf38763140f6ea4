#include "wx/WxTreeMeasure.h"

#ifdef __WXGTK__
#include <wx/dcclient.h>
#include <wx/dcgraph.h>

#include <algorithm>
#include <array>

#include "wx/WxTreeView.h"
#endif

namespace trevandix {

#ifdef __WXGTK__

namespace {

// The tree control of wx measures the text of every line, which takes most of the time of opening a file.
// Most texts are made of few different pairs of letters, so this measures each pair once and adds up the
// widths. Kerning and hinting depend on no more than that. It lives as long as the tree lays out its lines.
class LineMeasure : public wxGCDCImpl {
public:
    LineMeasure(wxClientDC* owner, wxWindow* tree) : wxGCDCImpl(owner, wxGraphicsContext::Create()) {
        SetWindow(tree);
        LineMeasure::SetFont(tree->GetFont());
    }

    void SetFont(const wxFont& font) override {
        wxGCDCImpl::SetFont(font);
        widths_ = {};
    }

    void DoGetTextExtent(const wxString& text, wxCoord* width, wxCoord* height, wxCoord* descent,
                         wxCoord* leading, const wxFont* font) const override {
        if (width == nullptr || height == nullptr || descent != nullptr || leading != nullptr ||
            font != nullptr || !isPlain(text))
            return wxGCDCImpl::DoGetTextExtent(text, width, height, descent, leading, font);
        *width = 0;
        wxUniChar before = 0;
        for (const wxUniChar letter : text) {
            *width += widthAfter(before, letter);
            before = letter;
        }
        *height = height_;
    }

private:
    static constexpr std::size_t kLetters = 128;

    // Other characters may come from another font, and fonts join the letters of "ffi" into one.
    static bool isPlain(const wxString& text) {
        return !text.empty() && !text.Contains("ff") &&
               std::all_of(text.begin(), text.end(),
                           [](wxUniChar letter) { return letter >= ' ' && letter < kLetters; });
    }

    // By how much a letter makes a text longer that ends with the letter `before`, or is empty for 0.
    int widthAfter(wxUniChar before, wxUniChar letter) const {
        int& width = widths_[before.GetValue()][letter.GetValue()];
        if (width == 0) {
            const auto measure = [this](const wxString& text) {
                int length = 0;
                wxGCDCImpl::DoGetTextExtent(text, &length, &height_, nullptr, nullptr, nullptr);
                return length;
            };
            width =
                before == 0 ? measure(letter) : measure(wxString(before) + letter) - widthAfter(0, before);
        }
        return width;
    }

    mutable std::array<std::array<int, kLetters>, kLetters> widths_{};  // in the current font; 0: not known
    mutable int height_ = 0;
};

class Factory : public wxNativeDCFactory {
public:
    wxDCImpl* CreateClientDC(wxClientDC* owner, wxWindow* window) override {
        if (dynamic_cast<WxTreeView*>(window) != nullptr) return new LineMeasure(owner, window);
        return wxNativeDCFactory::CreateClientDC(owner, window);
    }
};

}  // namespace

void measureTreesQuickly() {
    wxDCFactory::Set(new Factory);
}

#else

void measureTreesQuickly() {}

#endif

}  // namespace trevandix
