#include <algorithm>

#include "check/BranchNames.h"
#include "check/Families.h"
#include "check/Wording.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

// A text that is written as it stands.
struct WrittenText {
    std::string_view what;
    std::string_view text;
    Marks marks;
    bool attribute;
};

template <typename Look>
void eachUnitText(const Survey& survey, const Object& object, Look look) {
    const clsPLC& unit = survey.unitOf(object);
    const bool tcpIp = survey.tcpIp();
    look(WrittenText{"unit name", object.name, object.marks, tcpIp});
    const auto setting = [&](std::string_view what, std::string_view text) {
        look(WrittenText{what, text, marksOf(text), tcpIp});
    };
    if (tcpIp) return setting("IP address", unit.getAddress());
    setting("port name", unit.getCom());
    setting("parity", unit.getParity());
    setting("flow control", unit.getFlowCtl());
}

/// The values of an object; the names of branches are no values. `item` is of an item only.
template <typename Look>
void eachText(const Survey& survey, const Object& object, const ItemFacts* item, Look look) {
    if (object.tag == NodeTag::Plc) eachUnitText(survey, object, look);
    if (item == nullptr) return;
    look(WrittenText{"item name", object.name, object.marks, false});
    look(WrittenText{"comment", item->record->sComment(), item->commentMarks, false});
    look(WrittenText{"access right", item->record->sAccessRight(), item->right->marks, false});
}

std::string markupFault(const WrittenText& value) {
    if ((value.marks & (value.attribute ? kMarkup | kQuote : kMarkup)) == 0) return {};
    const std::size_t at = value.text.find_first_of(value.attribute ? "<&\"" : "<&");
    const std::string held = at == std::string_view::npos ? "\"]]>\""
                             : value.text[at] == '"'      ? "a quotation mark"
                                                          : quoted(value.text.substr(at, 1));
    return std::string(value.what) + " holds " + held;
}

std::string controlFault(const WrittenText& value) {
    if ((value.marks & kControl) == 0) return {};
    std::string_view held = "a control character";
    const std::size_t at = value.text.find_first_of("\t\r\n");
    if (at != std::string_view::npos) held = value.text[at] == '\t' ? "a TAB" : "a line break";
    return (std::string(value.what) += " holds ") += held;
}

using Fault = std::string (*)(const WrittenText&);

std::string firstFault(const Survey& survey, const Object& object, const ItemFacts* item, Fault fault) {
    std::string first;
    eachText(survey, object, item, [&](const WrittenText& value) {
        if (first.empty()) first = fault(value);
    });
    return first;
}

void findInValues(Search& search, Fault fault, std::string_view mending) {
    const Survey& survey = search.survey;
    auto item = survey.items.begin();
    search.each(survey.objects, [&](const Object& object) {
        const ItemFacts* facts = object.tag == NodeTag::Item ? &*item++ : nullptr;
        std::string text = firstFault(survey, object, facts, fault);
        if (!text.empty()) search.found(*object.key, text.append(mending));
    });
}

void findInBranches(Search& search, std::string (*fault)(std::string_view), std::string_view mending) {
    search.each(NodeTag::Branch, [&](const Object& branch) {
        std::string text = fault(branch.name);
        if (!text.empty()) search.found(*branch.key, text.append(mending));
    });
}

}  // namespace

void findMarkup(Search& search) {
    findInValues(search, markupFault, ", which XML takes for markup; take it out");
}

void findControlCharacters(Search& search) {
    findInValues(search, controlFault, ", which other programs refuse or change; take it out");
}

void findBranchNames(Search& search) {
    findInBranches(search, branchFault, "; use letters, digits, \"_\" and \"-\", a letter first");
}

void findBranchesCalledTag(Search& search) {
    findInBranches(search, tagFault, ", so the file could not be opened; give it another name");
}

std::string textFault(const Survey& survey, const Object& object, const ItemFacts* item) {
    if (object.tag == NodeTag::Branch) {
        std::string fault = branchFault(object.name);
        return fault.empty() ? tagFault(object.name) : fault;
    }
    std::string fault = firstFault(survey, object, item, markupFault);
    return fault.empty() ? firstFault(survey, object, item, controlFault) : fault;
}

}  // namespace trevandix
