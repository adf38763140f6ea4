#pragma once

#include <cstddef>

#include "model/Configuration.h"

namespace trevandix {

class Latin1Lines;

/// Prints a configuration line by line, all at once or a piece at a time. The configuration stays as it is
/// in between.
class ConfigurationPrinter {
public:
    /// What to do where a unit has no node or an item's node no record, as some drags leave them.
    enum class Gaps {
        Fail,  ///< ElementNotFound, InvalidCall
        Skip,  ///< the rest is worth keeping
    };

    explicit ConfigurationPrinter(const Configuration& configuration, Gaps gaps = Gaps::Fail)
        : configuration_(configuration), gaps_(gaps) {}

    /// Prints on for about as many nodes. False when everything is printed. Errors: those of the file and of
    /// gaps.
    bool printSome(Latin1Lines& file, std::size_t nodes);

private:
    void begin(Latin1Lines& file);
    void beginUnit(Latin1Lines& file);
    void endUnit(Latin1Lines& file);
    void end(Latin1Lines& file);
    /// What is below a unit's node, in the order of the tree.
    void PrintBranch(Latin1Lines& file, std::size_t& nodes);

    const Configuration& configuration_;
    Gaps gaps_;
    bool begun_ = false;
    KeyedCollection<clsPLC>::Iterator unit_;
    KeyedCollection<clsItem>::Iterator nextItem_;  // the item expected next: both orders are mostly the same
    const TreeNode* unitNode_ = nullptr;           // of the unit that is being printed
    const TreeNode* node_ = nullptr;               // to be printed next; nullptr at the unit's end
    int depth_ = 0;
};

}  // namespace trevandix
