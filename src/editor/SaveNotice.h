#pragma once

#include "model/Configuration.h"
#include "platform/MainWindow.h"

namespace trevandix {

/// Says quietly, in the status bar, which texts of a file just saved may come back as others; nothing when
/// there are none.
void noticeAmbiguousTexts(const Configuration& configuration, MainWindow& window);

}  // namespace trevandix
