#pragma once

#include "platform/Form.h"
#include "wx/WxListControls.h"

namespace trevandix {

/// The List of a form.
class WxFormList : public WxReportList {
public:
    explicit WxFormList(wxWindow* parent);

    /// `contents` must outlive the list.
    void show(const ListContents& contents, ListHandlers handlers);
    void refresh(const ListPlace& place);

private:
    void onKey(wxKeyEvent& event);

    ListHandlers handlers_;
};

}  // namespace trevandix
