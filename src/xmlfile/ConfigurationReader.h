#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/Configuration.h"
#include "platform/Xml.h"

namespace trevandix {

/// What the user is told of a file that is no configuration.
inline constexpr std::string_view kNoConfiguration = "The configuration file is not valid.";

/// Who wrote a file. Values are not escaped, so the same lines can have two meanings.
enum class Origin {
    AnyProgram,  ///< read as XML; if the parser refuses it, as lines of the writer
    OwnWriter,   ///< read as lines of the writer; if they do not fit, as XML
};

/// Loads a configuration file into the collections and the tree, which already has its first node and the
/// ModBus folder.
class ConfigurationReader {
public:
    /// `itemRead` is called after every item.
    ConfigurationReader(
        Configuration& configuration, XmlParser& parser, std::function<void()> itemRead = [] {});

    /// False when the file is no configuration; nothing has been added then. Sets the interface kind. Errors:
    /// those of the parser, InvalidCall (no name), ObjectNotSet (something is missing), TypeMismatch,
    /// Overflow, KeyInCollection, KeyNotUnique; the description names a whole backup if one stands beside the
    /// file. What was read up to there stays.
    bool read(const std::string& filePath, Origin origin = Origin::AnyProgram);
    /// The first element that is no part of a configuration, such as `<notes> in PLC1`; empty if there is
    /// none. It is skipped, so saving the configuration removes it from the file.
    const std::string& skipped() const { return skipped_; }

private:
    bool readDocument(const XmlDocument& document);
    void readDataTypes(const XmlElement& section);
    void readUnits(const XmlElement& section);
    void BrowsePlc(const XmlElement& element);
    /// Reads every item and branch below `tags`, to any depth.
    void BrowseBranch(const XmlElement& tags, TreeNode& unit);
    void readItem(const XmlElement& element, TreeNode& container);
    TreeNode& readBranch(const XmlElement& element, TreeNode& container);
    void skip(const XmlElement& element, std::string_view container);
    /// Errors: OutOfMemory once all keys together are beyond every plant's size.
    void countKey(const Key& key);

    Configuration& configuration_;
    XmlParser& parser_;
    std::function<void()> itemRead_;
    std::string skipped_;
    std::size_t keyBytes_ = 0;  // of all branches and items read
};

}  // namespace trevandix
