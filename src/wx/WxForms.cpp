#include "wx/WxForms.h"

#include "wx/WxForm.h"

namespace trevandix {

std::unique_ptr<Form> WxForms::create(const FormSpec& shape) {
    return std::make_unique<WxForm>(parent_, shape);
}

}  // namespace trevandix
