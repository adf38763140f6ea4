#pragma once

#include <wx/window.h>

#include "platform/Form.h"

namespace trevandix {

/// Makes forms as dialogs of one window.
class WxForms : public Forms {
public:
    /// `parent` must outlive the forms' making, not the forms.
    explicit WxForms(wxWindow& parent) : parent_(parent) {}
    std::unique_ptr<Form> create(const FormSpec& shape) override;

private:
    wxWindow& parent_;
};

}  // namespace trevandix
