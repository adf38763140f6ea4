#pragma once

namespace trevandix {

/// From now on rows that are selected in a tree or list without the keyboard have a colour of their own. Does
/// nothing where the system's controls see to that themselves.
void tellInactiveSelections();

}  // namespace trevandix
