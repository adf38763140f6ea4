#pragma once

namespace trevandix {

/// Speeds up the measuring of the lines of every WxTreeView. Does nothing where the system draws the tree.
/// Call it once, before the first line is measured.
void measureTreesQuickly();

}  // namespace trevandix
