#pragma once

#include <cstddef>

#include "model/Configuration.h"

namespace trevandix {

class Latin1Lines;

/// Prints a configuration line by line, all at once or a piece at a time. The configuration stays as it is
/// in between.
class ConfigurationPrinter {
public:
    enum class Purpose {
        /// A unit without a node or an item's node without a record, as some drags leave them, is an error:
        /// ElementNotFound, InvalidCall.
        File,
        /// For `Origin::OwnWriter` of the reader. Skips such gaps, as the rest is worth keeping, and prints a
        /// branch called "tag" in capitals, as it comes back anyway: "<tag>" is an item.
        Recovery,
    };

    explicit ConfigurationPrinter(const Configuration& configuration, Purpose purpose = Purpose::File)
        : configuration_(configuration), purpose_(purpose) {}

    /// Prints on for about as many nodes. False when everything is printed. Errors: those of the file and of
    /// the purpose.
    bool printSome(Latin1Lines& file, std::size_t nodes);

private:
    void begin(Latin1Lines& file);
    void beginUnit(Latin1Lines& file);
    void endUnit(Latin1Lines& file);
    void end(Latin1Lines& file);
    /// What is below a unit's node, in the order of the tree.
    void PrintBranch(Latin1Lines& file, std::size_t& nodes);
    /// `begin` is "<" or "</".
    void printTag(Latin1Lines& file, int depth, std::string_view begin, const std::string& branch) const;

    const Configuration& configuration_;
    Purpose purpose_;
    bool begun_ = false;
    KeyedCollection<clsPLC>::Iterator unit_;
    KeyedCollection<clsItem>::Iterator nextItem_;  // the item expected next: both orders are mostly the same
    const TreeNode* unitNode_ = nullptr;           // of the unit that is being printed
    const TreeNode* node_ = nullptr;               // to be printed next; nullptr at the unit's end
    int depth_ = 0;
};

}  // namespace trevandix
