#include "xmlfile/ConfigurationWriter.h"

#include "platform/RuntimeError.h"
#include "xmlfile/FormatWords.h"
#include "xmlfile/Latin1File.h"

namespace trevandix {

namespace {
constexpr int kUnitChildDepth = 4;
}

std::string Indentation(int depth) { return std::string(static_cast<std::size_t>(depth), '\t'); }

ConfigurationWriter::ConfigurationWriter(const Configuration& configuration, Messages& messages,
                                         MousePointer& pointer)
    : configuration_(configuration), messages_(messages), pointer_(pointer) {}

bool ConfigurationWriter::CreateXML(const std::string& filePath) {
    const PointerScope hourglass(pointer_, Pointer::Hourglass);
    return reportErrors(messages_, "CreateXML", [&] { writeFile(filePath); });
}

void ConfigurationWriter::writeFile(const std::string& filePath) {
    deleteFileIfThere(filePath);
    Latin1File file(filePath);
    const FileKind* kind = fileKindOf(configuration_.state.interfaceKind);
    const std::string rootTag(kind != nullptr ? kind->rootTag : std::string_view());
    file.print(kProlog);
    if (kind != nullptr) file.print("<" + rootTag + ">");
    file.print("\t<MODBUS>");
    for (const auto& [key, type] : configuration_.dataTypes) file.print(type->GetXmlTag());
    file.print("\t</MODBUS>");
    file.print("\t<OPC_DA>");
    for (const auto& [key, unit] : configuration_.units) {
        file.print(unit->GetXmlTag(configuration_.state.interfaceKind));
        file.print("\t\t\t<tags>");
        const TreeNode& node = configuration_.tree.at(key);
        inProcedure("PrintBranch", [&] { PrintBranch(file, node); });
        file.print("\t\t\t</tags>");
        file.print("\t\t</PLC>");
    }
    file.print("\t</OPC_DA>");
    if (kind != nullptr) file.print("</" + rootTag + ">");
    file.close();
}

// Walks without recursion: branches may nest as deeply as they like.
void ConfigurationWriter::PrintBranch(Latin1File& file, const TreeNode& unit) {
    const auto endTag = [&](const TreeNode& branch, int depth) {
        file.print(Indentation(depth) + "</" + branch.text() + ">");
    };
    int depth = kUnitChildDepth;
    const TreeNode* node = unit.firstChild();
    while (node != nullptr) {
        if (node->tag() == NodeTag::Item) {
            printItem(file, *node, depth);
        } else {
            file.print(Indentation(depth) + "<" + node->text() + ">");
            if (node->firstChild() != nullptr) {
                node = node->firstChild();
                ++depth;
                continue;
            }
            endTag(*node, depth);
        }
        while (node->nextSibling() == nullptr && node->parent() != &unit) {
            node = node->parent();
            endTag(*node, --depth);
        }
        node = node->nextSibling();
    }
}

void ConfigurationWriter::printItem(Latin1File& file, const TreeNode& node, int depth) {
    text_.clear();
    configuration_.items.at(node.key())->appendXmlTag(text_, depth);
    file.print(text_);
}

}  // namespace trevandix
