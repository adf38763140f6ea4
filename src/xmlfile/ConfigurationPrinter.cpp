#include "xmlfile/ConfigurationPrinter.h"

#include "platform/RuntimeError.h"
#include "xmlfile/ConfigurationWriter.h"
#include "xmlfile/FormatWords.h"
#include "xmlfile/Latin1Lines.h"

namespace trevandix {

namespace {
constexpr int kUnitChildDepth = 4;
}

bool ConfigurationPrinter::printSome(Latin1Lines& file, std::size_t nodes) {
    if (!begun_) begin(file);
    while (nodes > 0) {
        if (unitNode_ == nullptr) {
            if (unit_ == configuration_.units.end()) {
                end(file);
                return false;
            }
            beginUnit(file);
            --nodes;
            if (unitNode_ == nullptr) continue;
        }
        inProcedure("PrintBranch", [&] { PrintBranch(file, nodes); });
        if (node_ == nullptr) endUnit(file);
    }
    return true;
}

void ConfigurationPrinter::begin(Latin1Lines& file) {
    begun_ = true;
    file.print(kProlog);
    const FileKind* kind = fileKindOf(configuration_.state.interfaceKind);
    if (kind != nullptr) file.print("<" + std::string(kind->rootTag) + ">");
    file.print("\t<MODBUS>");
    for (const auto& [key, type] : configuration_.dataTypes) file.print(type->GetXmlTag());
    file.print("\t</MODBUS>");
    file.print("\t<OPC_DA>");
    unit_ = configuration_.units.begin();
    nextItem_ = configuration_.items.begin();
}

void ConfigurationPrinter::beginUnit(Latin1Lines& file) {
    const auto [key, unit] = *unit_;
    file.print(unit->GetXmlTag(configuration_.state.interfaceKind));
    file.print("\t\t\t<tags>");
    unitNode_ = purpose_ == Purpose::File ? &configuration_.tree.at(key) : configuration_.tree.find(key);
    if (unitNode_ == nullptr) return endUnit(file);
    node_ = unitNode_->firstChild();
    depth_ = kUnitChildDepth;
}

void ConfigurationPrinter::endUnit(Latin1Lines& file) {
    file.print("\t\t\t</tags>");
    file.print("\t\t</PLC>");
    unitNode_ = nullptr;
    ++unit_;
}

void ConfigurationPrinter::end(Latin1Lines& file) {
    file.print("\t</OPC_DA>");
    const FileKind* kind = fileKindOf(configuration_.state.interfaceKind);
    if (kind != nullptr) file.print("</" + std::string(kind->rootTag) + ">");
}

void ConfigurationPrinter::printTag(Latin1Lines& file, int depth, std::string_view begin,
                                    const std::string& branch) const {
    const bool looksLikeItem = purpose_ == Purpose::Recovery && branch == "tag";
    file.print(Indentation(depth).append(begin) + (looksLikeItem ? "TAG" : branch) + ">");
}

// Without recursion, because branches may nest deeply.
void ConfigurationPrinter::PrintBranch(Latin1Lines& file, std::size_t& nodes) {
    int depth = depth_;
    const TreeNode* node = node_;
    for (; node != nullptr && nodes > 0; --nodes) {
        if (node->tag() == NodeTag::Item) {
            if (purpose_ == Purpose::File || configuration_.items.contains(node->key())) {
                const clsItem& item = configuration_.items.at(node->key(), nextItem_);
                file.printWith([&](std::string& out) { item.appendXmlTag(out, depth); });
            }
        } else {
            printTag(file, depth, "<", node->text());
            if (node->firstChild() != nullptr) {
                node = node->firstChild();
                ++depth;
                continue;
            }
            printTag(file, depth, "</", node->text());
        }
        while (node->nextSibling() == nullptr && node->parent() != unitNode_) {
            node = node->parent();
            printTag(file, --depth, "</", node->text());
        }
        node = node->nextSibling();
    }
    node_ = node;
    depth_ = depth;
}

}  // namespace trevandix
