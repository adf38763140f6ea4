#pragma once

#include "platform/Services.h"

namespace trevandix {

/// The system's file dialogs. A filter is a description, "|" and a pattern such as "*.xml".
class WxFileDialog : public FileDialog {
public:
    std::optional<std::string> open(std::string_view title, std::string_view filter) override;
    /// Asks nothing about a file that exists. A name typed without extension gets the pattern's.
    std::optional<std::string> save(std::string_view title, std::string_view filter,
                                    std::string_view proposedName) override;
};

}  // namespace trevandix
