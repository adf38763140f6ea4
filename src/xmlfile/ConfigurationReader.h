#pragma once

#include <functional>
#include <string>

#include "model/Configuration.h"
#include "platform/Messages.h"
#include "platform/Services.h"
#include "platform/Xml.h"

namespace trevandix {

/// Loads a configuration file into the collections and the tree, which already has its first node and the
/// ModBus folder.
class ConfigurationReader {
public:
    /// `itemRead` is called after every item.
    ConfigurationReader(Configuration& configuration, XmlParser& parser, Messages& messages,
                        MousePointer& pointer, std::function<void()> itemRead);

    /// False when the file is no configuration or reading failed; the user has been told then, and what was
    /// read up to there stays. Sets the interface kind.
    bool ImportXML(const std::string& filePath);

private:
    bool readFile(const std::string& filePath);
    void readDataTypes(const XmlElement& section);
    void readUnits(const XmlElement& section);
    void BrowsePlc(const XmlElement& element);
    /// Reads every item and branch below `tags`, to any depth.
    void BrowseBranch(const XmlElement& tags, TreeNode& unit);
    void readItem(const XmlElement& element, TreeNode& container);
    TreeNode& readBranch(const XmlElement& element, TreeNode& container);
    /// Errors: OutOfMemory once all keys together are beyond every plant's size.
    void countKey(const Key& key);

    Configuration& configuration_;
    XmlParser& parser_;
    Messages& messages_;
    MousePointer& pointer_;
    std::function<void()> itemRead_;
    std::size_t keyBytes_ = 0;  // of all branches and items read
};

}  // namespace trevandix
