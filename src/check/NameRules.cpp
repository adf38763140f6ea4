#include <algorithm>
#include <array>

#include "check/Families.h"
#include "check/NameNumbers.h"
#include "check/Wording.h"
#include "platform/Text.h"

namespace trevandix {

namespace {

struct DefaultName {
    NodeTag tag;
    std::string_view begin;  // in capitals
};
constexpr std::array kDefaultNames{
    DefaultName{NodeTag::Item, "NEW_ITEM_"},
    DefaultName{NodeTag::Item, "NEW ITEM "},
    DefaultName{NodeTag::Plc, "NEW PLC "},
    DefaultName{NodeTag::Branch, "NEWBRANCH"},
};

bool isDefault(const Object& object) {
    return std::ranges::any_of(kDefaultNames, [&](const DefaultName& name) {
        return name.tag == object.tag && object.name.size() > name.begin.size() &&
               upperCased(object.name.substr(0, name.begin.size())) == name.begin;
    });
}

bool hasName(const Object& object) {
    return object.tag != NodeTag::DataType;
}

// Names of one unit or branch that differ in capitals only: the first name, and the first that is spelt in
// another way.
struct Spellings {
    std::uint32_t first = Object::kNone;
    std::uint32_t other = Object::kNone;
};

}  // namespace

void findNamesInCapitals(Search& search) {
    const std::vector<Object>& objects = search.survey.objects;
    NameNumbers<WhateverTheCapitals> numbers(objects.size() + 1);
    std::vector<std::uint32_t> numberOf(objects.size());
    std::vector<Spellings> spellings(objects.size() + 1);
    const auto concerned = [](const Object& object) {
        return object.tag == NodeTag::Item || object.tag == NodeTag::Plc;
    };
    for (std::uint32_t place = 0; place < objects.size(); ++place) {
        search.pulse.step(5);
        if (!concerned(objects[place])) continue;
        numberOf[place] = numbers.number(objects[place].container, objects[place].name);
        Spellings& known = spellings[numberOf[place]];
        if (known.first == Object::kNone)
            known.first = place;
        else if (known.other == Object::kNone && objects[known.first].name != objects[place].name)
            known.other = place;
    }
    for (std::uint32_t place = 0; place < objects.size(); ++place) {
        search.pulse.step();
        const Spellings& known = spellings[numberOf[place]];
        if (known.other == Object::kNone) continue;
        const bool likeFirst = objects[place].name == objects[known.first].name;
        search.found(*objects[place].key, "differs from " +
                                              shownKey(*objects[likeFirst ? known.other : known.first].key) +
                                              " in capitals only; give one of them another name");
    }
}

void findDots(Search& search) {
    search.each(search.survey.objects, [&](const Object& object) {
        if ((object.marks & kDot) == 0 || !hasName(object)) return;
        search.found(*object.key, "name holds \".\", which separates the names of a tag; take it out");
    });
}

void findBlanks(Search& search) {
    search.each(search.survey.objects, [&](const Object& object) {
        if ((object.marks & kBlankAtEnd) == 0 || !hasName(object) || object.tag == NodeTag::Branch) return;
        search.found(*object.key, "name has a blank at an end, which nobody sees; take it out");
    });
}

void findDefaultNames(Search& search) {
    search.each(search.survey.objects, [&](const Object& object) {
        if (isDefault(object))
            search.found(*object.key, "still has the name that the dialog proposed; give it one of its own");
    });
}

void findOtherNames(Search& search) {
    const Survey& survey = search.survey;
    search.each(survey.items, [&](const ItemFacts& item) {
        const Object& object = survey.objects[item.object];
        const std::string& name = item.record->sName();
        if (object.node == nullptr || object.node->text() == name) return;
        search.found(*object.key, "comes back with the name " + quoted(name) +
                                      ", as it is a copy that shares its record; confirm it in its dialog");
    });
}

void findEmptyBranches(Search& search) {
    search.each(NodeTag::Branch, [&](const Object& branch) {
        if (branch.node != nullptr && branch.node->firstChild() == nullptr)
            search.found(*branch.key, "holds no item; add some, or delete the branch");
    });
}

void findSmallLetters(Search& search) {
    const Object* first = nullptr;
    std::size_t count = 0;
    search.each(NodeTag::Branch, [&](const Object& branch) {
        if ((branch.marks & kSmall) == 0 || branch.name == upperCased(branch.name)) return;
        if (count++ == 0) first = &branch;
    });
    if (first == nullptr) return;
    search.found(*first->key,
                 "branch names with small letters come back in capitals: " + quoted(first->name) +
                     andMore(count - 1) + "; write them in capitals if that matters");
}

}  // namespace trevandix
