#include "xmlfile/ConfigurationReader.h"

#include <vector>

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "xmlfile/FileBackup.h"
#include "xmlfile/FormatWords.h"
#include "xmlfile/LineDocument.h"

namespace trevandix {

namespace {

// Below an item or a branch everything before it has been passed, therefore the next one is asked for first.
template <typename Read>
void forEachElement(const XmlElement& parent, Read read) {
    for (XmlElement child = parent.firstChild(); child;) {
        const XmlElement next = child.nextSibling();
        if (child.isElement()) read(child);
        child = next;
    }
}

}  // namespace

ConfigurationReader::ConfigurationReader(Configuration& configuration, XmlParser& parser, Messages& messages,
                                         MousePointer& pointer, std::function<void()> itemRead)
    : configuration_(configuration),
      parser_(parser),
      messages_(messages),
      pointer_(pointer),
      itemRead_(std::move(itemRead)) {}

bool ConfigurationReader::ImportXML(const std::string& filePath) {
    const PointerScope hourglass(pointer_, Pointer::Hourglass);
    bool valid = false;
    const bool finished = reportErrors(messages_, "ImportXML", [&] {
        try {
            valid = readFile(filePath);
        } catch (const RuntimeError& failure) {
            const std::string backup = wholeBackupOf(filePath);
            if (backup.empty()) throw;
            throw failure.with("a whole copy is " + backup);
        }
    });
    if (finished && !valid) messages_.show("The configuration file is not valid.");
    return finished && valid;
}

bool ConfigurationReader::readFile(const std::string& filePath) {
    bool parsed = false;
    bool valid = false;
    try {
        const std::unique_ptr<XmlDocument> document = parser_.load(filePath);
        parsed = true;
        valid = readDocument(*document);
        if (!document->doubtful()) return valid;
    } catch (const XmlParseError& notXml) {
        try {
            return readLines(filePath, References::Writer, false);
        } catch (const XmlParseError& notTheWriters) {
            if (notTheWriters.line() > 1 && notTheWriters.line() >= notXml.line()) throw;
        }
        throw;
    } catch (const RuntimeError& error) {
        if (!parsed || error.number() == ErrorNumber::OutOfMemory) throw;
        try {
            return readLines(filePath, References::Xml, true);
        } catch (const XmlParseError&) {  // another program's file: the failure is its own
        }
        throw;
    }
    try {
        return readLines(filePath, References::Xml, true);
    } catch (const XmlParseError&) {
        return valid;
    }
}

bool ConfigurationReader::readLines(const std::string& filePath, References references, bool again) {
    const LineDocument lines(readWholeFile(filePath), references);
    if (again) {
        configuration_.createCollections();
        configuration_.tree.clear();
        configuration_.buildRoot();
        keyBytes_ = 0;
    }
    return readDocument(lines);
}

bool ConfigurationReader::readDocument(const XmlDocument& document) {
    const XmlElement root = document.root();
    const FileKind* kind = fileKindOfRoot(root);
    if (kind == nullptr) return false;
    configuration_.state.interfaceKind = kind->interfaceKind;
    forEachElement(root, [&](const XmlElement& section) {
        if (section.isNamed("MODBUS")) readDataTypes(section);
        if (section.isNamed("OPC_DA")) readUnits(section);
    });
    return true;
}

void ConfigurationReader::readDataTypes(const XmlElement& section) {
    forEachElement(section, [&](const XmlElement& child) {
        if (!child.isNamed("DATATYPE")) return;
        auto record = std::make_shared<clsModBusType>();
        record->SetByXml(child);
        configuration_.tree.ensureVisible(configuration_.addDataType(std::move(record)));
    });
}

void ConfigurationReader::readUnits(const XmlElement& section) {
    forEachElement(section, [&](const XmlElement& child) {
        if (child.isNamed("PLC")) inProcedure("BrowsePlc", [&] { BrowsePlc(child); });
    });
}

void ConfigurationReader::BrowsePlc(const XmlElement& element) {
    auto record = std::make_shared<clsPLC>();
    record->SetByXml(element, configuration_.state.interfaceKind);
    TreeNode& unit = configuration_.addUnit(std::move(record), true);
    configuration_.tree.ensureVisible(unit);
    forEachElement(element, [&](const XmlElement& child) {
        if (child.isNamed("TAGS")) inProcedure("BrowseBranch", [&] { BrowseBranch(child, unit); });
    });
}

// Walks without recursion: a file may nest branches as deeply as it likes. Each container has been shown
// before its children come, so that opening it shows them: going up to the root for each would take time that
// grows with the square of the depth.
void ConfigurationReader::BrowseBranch(const XmlElement& tags, TreeNode& unit) {
    struct Level {
        XmlElement next;
        TreeNode* container;
    };
    std::vector<Level> levels{{tags.firstChild(), &unit}};
    while (!levels.empty()) {
        const XmlElement element = levels.back().next;
        TreeNode& container = *levels.back().container;
        if (!element) {
            levels.pop_back();
            continue;
        }
        levels.back().next = element.nextSibling();
        if (!element.isElement()) continue;
        element.passed();
        if (element.isNamed("TAG")) {
            readItem(element, container);
        } else {
            levels.push_back({element.firstChild(), &readBranch(element, container)});
        }
    }
}

void ConfigurationReader::readItem(const XmlElement& element, TreeNode& container) {
    auto record = std::make_shared<clsItem>();
    record->SetByXml(element, container.key());
    countKey(record->sKey());
    configuration_.addItem(std::move(record), container);
    configuration_.tree.setExpanded(container, true);
    itemRead_();
}

TreeNode& ConfigurationReader::readBranch(const XmlElement& element, TreeNode& container) {
    auto record = std::make_shared<clsBranch>();
    record->build(element, container.key());
    countKey(record->sKey());
    TreeNode& node = configuration_.addBranch(std::move(record), container);
    configuration_.tree.setExpanded(container, true);
    return node;
}

// Each key holds the names of all the branches around it, so that a small file could ask for any amount of
// memory.
void ConfigurationReader::countKey(const Key& key) {
    constexpr std::size_t kMost = std::size_t{1} << 29;
    keyBytes_ += key.view().size();
    if (keyBytes_ > kMost) {
        throw RuntimeError(ErrorNumber::OutOfMemory,
                           "the branches nest too deeply, or their names are too long");
    }
}

}  // namespace trevandix
