#include "xmlfile/ConfigurationReader.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "platform/FileAccess.h"
#include "platform/RuntimeError.h"
#include "platform/SafeFile.h"
#include "xmlfile/FormatWords.h"
#include "xmlfile/Mending.h"

namespace trevandix {

namespace {

template <typename Read>
void forEachElement(const XmlElement& parent, Read read) {
    for (XmlElement child = parent.firstChild(); child; child = child.nextSibling()) read(child);
}

std::unique_ptr<XmlDocument> mendedFile(XmlParser& parser, const std::string& filePath) {
    return parser.parse(mended(readWholeFile(filePath)));
}

// If both ways fail, reports the error further down in the file.
std::unique_ptr<XmlDocument> parsedFile(XmlParser& parser, const std::string& filePath, Origin origin) {
    if (origin == Origin::OwnWriter) {
        try {
            return mendedFile(parser, filePath);
        } catch (const XmlParseError&) {
        }
    }
    try {
        return parser.load(filePath);
    } catch (const XmlParseError& notXml) {
        try {
            return mendedFile(parser, filePath);
        } catch (const XmlParseError& notOurs) {
            if (notOurs.line() > 1 && notOurs.line() >= notXml.line()) throw;
        }
        throw;
    }
}

// The label of its table is a data type's name; an unknown table has none.
void requireName(const std::string& name, const XmlElement& element) {
    if (!name.empty()) return;
    std::string detail = "<" + std::string(element.name()) + "> gives no name: \"";
    throw RuntimeError(ErrorNumber::InvalidCall, (detail += element.attribute("name").value_or("")) += '"');
}

// Where to look for an element that cannot be read.
std::string placeOf(const XmlElement& element, const TreeNode& container) {
    std::string buffer;
    const XmlElement name = element.child("name");
    const std::string text(name ? name.text(buffer) : element.name());
    return '"' + text + "\" in " + container.key().str();
}

// A file that was cut off lacks its end tag.
bool isWhole(const std::string& filePath) {
    try {
        return hasRootEndTag(readWholeFile(filePath));
    } catch (const RuntimeError&) {
        return false;
    }
}

// The latest whole backup that an interrupted save left beside the file; empty if there is none.
std::string wholeBackupOf(const std::string& filePath) {
    std::string found;
    for (const std::string& backup : SafeFile::backupsOf(filePath)) {
        if (isWhole(backup)) found = backup;
    }
    return found;
}

}  // namespace

ConfigurationReader::ConfigurationReader(Configuration& configuration, XmlParser& parser,
                                         std::function<void()> itemRead)
    : configuration_(configuration), parser_(parser), itemRead_(std::move(itemRead)) {}

bool ConfigurationReader::read(const std::string& filePath, Origin origin) {
    try {
        return readDocument(*parsedFile(parser_, filePath, origin));
    } catch (const RuntimeError& failure) {
        const std::string backup = wholeBackupOf(filePath);
        if (backup.empty()) throw;
        throw failure.with("a whole copy is " + backup);
    }
}

bool ConfigurationReader::readDocument(const XmlDocument& document) {
    const XmlElement root = document.root();
    const FileKind* kind = fileKindOfRoot(root);
    if (kind == nullptr) return false;
    configuration_.setInterfaceKind(kind->interfaceKind);
    forEachElement(root, [&](const XmlElement& section) {
        if (section.isNamed("MODBUS"))
            readDataTypes(section);
        else if (section.isNamed("OPC_DA"))
            readUnits(section);
        else
            skip(section, root.name());
    });
    return true;
}

void ConfigurationReader::readDataTypes(const XmlElement& section) {
    forEachElement(section, [&](const XmlElement& child) {
        if (!child.isNamed("DATATYPE")) return skip(child, section.name());
        clsModBusType record;
        record.SetByXml(child);
        requireName(record.getName(), child);
        configuration_.tree.ensureVisible(configuration_.addDataType(std::move(record)));
    });
}

void ConfigurationReader::readUnits(const XmlElement& section) {
    forEachElement(section, [&](const XmlElement& child) {
        if (!child.isNamed("PLC")) return skip(child, section.name());
        inProcedure("BrowsePlc", [&] { BrowsePlc(child); });
    });
}

void ConfigurationReader::BrowsePlc(const XmlElement& element) {
    clsPLC record;
    record.SetByXml(element, configuration_.state.interfaceKind);
    requireName(record.getName(), element);
    TreeNode& unit = configuration_.addUnit(std::move(record), true);
    configuration_.tree.ensureVisible(unit);
    std::vector<std::string_view> fields;
    if (configuration_.state.interfaceKind == kRtu) fields = clsPLC::fieldNames(kRtu);
    forEachElement(element, [&](const XmlElement& child) {
        if (child.isNamed("TAGS"))
            inProcedure("BrowseBranch", [&] { BrowseBranch(child, unit); });
        else if (std::ranges::find(fields, child.name()) == fields.end())
            skip(child, unit.key());
    });
}

// Without recursion, because a file may nest branches deeply. Each container is visible before its children
// are added, so expanding it is enough; walking up to the root for each node would take quadratic time.
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
        try {
            if (element.isNamed("TAG")) {
                readItem(element, container);
            } else {
                levels.push_back({element.firstChild(), &readBranch(element, container)});
            }
        } catch (const RuntimeError& failure) {
            throw failure.with(placeOf(element, container));
        }
    }
}

void ConfigurationReader::readItem(const XmlElement& element, TreeNode& container) {
    clsItem record;
    const XmlElement unknown = record.SetByXml(element, container.key());
    countKey(record.sKey());
    if (unknown) skip(unknown, record.sKey());
    configuration_.addItem(std::move(record), container);
    configuration_.tree.setExpanded(container, true);
    itemRead_();
}

TreeNode& ConfigurationReader::readBranch(const XmlElement& element, TreeNode& container) {
    clsBranch record;
    record.build(element, container.key());
    countKey(record.sKey());
    TreeNode& node = configuration_.addBranch(std::move(record), container);
    configuration_.tree.setExpanded(container, true);
    return node;
}

void ConfigurationReader::skip(const XmlElement& element, std::string_view container) {
    if (!skipped_.empty()) return;
    skipped_ = "<" + std::string(element.name()) + "> in " + std::string(container);
}

// Each key contains the names of all branches around it, so a small file could use up any amount of memory.
void ConfigurationReader::countKey(const Key& key) {
    constexpr std::size_t kMost = std::size_t{1} << 29;
    keyBytes_ += key.view().size();
    if (keyBytes_ > kMost) {
        throw RuntimeError(ErrorNumber::OutOfMemory,
                           "the branches nest too deeply, or their names are too long");
    }
}

}  // namespace trevandix
