#pragma once

#include <array>
#include <string>

#include "editor/EditorContext.h"

namespace trevandix {

/// The status bar: what is selected, how much there is, whether it is saved. Quiet news, never a box.
class StatusNews {
public:
    explicit StatusNews(const EditorContext& context) : context_(context) {}

    /// Brings the fields up to date; cheap enough to be called after every event.
    void update();

private:
    void show(StatusField field, std::string text);

    const EditorContext& context_;
    std::array<std::string, 3> shown_;
};

/// What the status bar says of a publication.
std::string publicationText(bool published, std::string_view filePath);

}  // namespace trevandix
