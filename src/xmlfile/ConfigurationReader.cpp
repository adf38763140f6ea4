#include "xmlfile/ConfigurationReader.h"

#include <vector>

#include "platform/RuntimeError.h"
#include "xmlfile/FormatWords.h"

namespace trevandix {

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
    const bool finished = reportErrors(messages_, "ImportXML", [&] { valid = readDocument(filePath); });
    if (finished && !valid) messages_.show("The configuration file is not valid.");
    return finished && valid;
}

bool ConfigurationReader::readDocument(const std::string& filePath) {
    const std::unique_ptr<XmlDocument> document = parser_.load(filePath);
    const XmlElement root = document->root();
    const FileKind* kind = fileKindOfRoot(root);
    if (kind == nullptr) return false;
    configuration_.state.interfaceKind = kind->interfaceKind;
    for (XmlElement section = root.firstChild(); section; section = section.nextSibling()) {
        if (!section.isElement()) continue;
        if (section.isNamed("MODBUS")) readDataTypes(section);
        if (section.isNamed("OPC_DA")) readUnits(section);
    }
    return true;
}

void ConfigurationReader::readDataTypes(const XmlElement& section) {
    for (XmlElement child = section.firstChild(); child; child = child.nextSibling()) {
        if (!child.isElement() || !child.isNamed("DATATYPE")) continue;
        auto record = std::make_shared<clsModBusType>();
        record->SetByXml(child);
        configuration_.tree.ensureVisible(configuration_.addDataType(std::move(record)));
    }
}

void ConfigurationReader::readUnits(const XmlElement& section) {
    for (XmlElement child = section.firstChild(); child; child = child.nextSibling()) {
        if (child.isElement() && child.isNamed("PLC")) inProcedure("BrowsePlc", [&] { BrowsePlc(child); });
    }
}

void ConfigurationReader::BrowsePlc(const XmlElement& element) {
    auto record = std::make_shared<clsPLC>();
    record->SetByXml(element, configuration_.state.interfaceKind);
    TreeNode& unit = configuration_.addUnit(std::move(record), true);
    configuration_.tree.ensureVisible(unit);
    for (XmlElement child = element.firstChild(); child; child = child.nextSibling()) {
        if (child.isElement() && child.isNamed("TAGS")) {
            inProcedure("BrowseBranch", [&] { BrowseBranch(child, unit); });
        }
    }
}

// Walks without recursion: a file may nest branches as deeply as it likes.
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
    configuration_.tree.ensureVisible(configuration_.addItem(std::move(record), container));
    itemRead_();
}

TreeNode& ConfigurationReader::readBranch(const XmlElement& element, TreeNode& container) {
    auto record = std::make_shared<clsBranch>();
    record->build(element, container.key());
    TreeNode& node = configuration_.addBranch(std::move(record), container);
    configuration_.tree.ensureVisible(node);
    return node;
}

}  // namespace trevandix
