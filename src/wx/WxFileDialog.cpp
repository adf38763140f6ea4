#include "wx/WxFileDialog.h"

#include <wx/filedlg.h>
#include <wx/filename.h>

#include "wx/WxParent.h"
#include "wx/WxText.h"

namespace trevandix {

namespace {

std::optional<std::string> chosen(wxFileDialog& dialog) {
    const FocusKeeper focus;
    if (dialog.ShowModal() != wxID_OK) return std::nullopt;
    return fromWx(dialog.GetPath());
}

}  // namespace

std::optional<std::string> WxFileDialog::open(std::string_view title, std::string_view filter) {
    wxFileDialog dialog(dialogParent(), toWx(title), {}, {}, toWx(filter), wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    return chosen(dialog);
}

std::optional<std::string> WxFileDialog::save(std::string_view title, std::string_view filter,
                                              std::string_view proposedName) {
    wxFileDialog dialog(dialogParent(), toWx(title), {}, toWx(proposedName), toWx(filter), wxFD_SAVE);
    std::optional<std::string> path = chosen(dialog);
    const std::size_t dot = filter.rfind('.');
    if (path && !path->empty() && dot != std::string_view::npos && !wxFileName(toWx(*path)).HasExt()) {
        path->append(filter.substr(dot));
    }
    return path;
}

}  // namespace trevandix
