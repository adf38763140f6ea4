#pragma once

#include <string>

#include "model/Configuration.h"
#include "platform/Messages.h"
#include "platform/Services.h"

namespace trevandix {

class Latin1File;

/// Writes the configuration as the file that the server reads.
class ConfigurationWriter {
public:
    ConfigurationWriter(const Configuration& configuration, Messages& messages, MousePointer& pointer);

    /// Replaces the file at the path. False when it failed; the user has been told then. The old file is deleted
    /// before the new one is begun, and a partly written one stays.
    bool CreateXML(const std::string& filePath);

private:
    void writeFile(const std::string& filePath);
    /// Everything below a unit's node, in the order of the tree.
    void PrintBranch(Latin1File& file, const TreeNode& unit);
    void printItem(Latin1File& file, const TreeNode& node, int depth);

    const Configuration& configuration_;
    Messages& messages_;
    MousePointer& pointer_;
    std::string text_;  // one element's text, kept to save its memory from one item to the next
};

/// `depth` tab characters.
std::string Indentation(int depth);

}  // namespace trevandix
