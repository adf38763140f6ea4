// Checks at compile time that content changes only through the edits of `Configuration`. Every use below
// compiles with `OpenParts`, in which all members are public.
#include <concepts>

#include "model/Configuration.h"

namespace trevandix::testing {

namespace {

struct OpenParts {
    KeyedCollection<clsPLC> units;
    KeyedCollection<clsItem> items;
    KeyedCollection<clsBranch> branches;
    KeyedCollection<clsModBusType> dataTypes;
    EditableTree tree;
    EditingState state;
};

template <typename Use>
consteval bool closed(Use) {
    return std::invocable<Use, OpenParts&> && !std::invocable<Use, Configuration&>;
}
template <typename Use>
consteval bool open(Use) {
    return std::invocable<Use, OpenParts&> && std::invocable<Use, Configuration&>;
}

#define USE(expression)             \
    [](auto& c) requires requires { \
        expression;                 \
    }                               \
    {}

static_assert(open(USE(c.items.at("")->sComment())));
static_assert(open(USE(c.tree.select(c.tree.root()))));
static_assert(open(USE(c.tree.keepSorted(*c.tree.root()))));

static_assert(closed(USE(c.units.at("")->setName(""))));
static_assert(closed(USE(c.items.at("")->sComment(""))));
static_assert(closed(USE(c.branches.at("")->sKey(Key()))));
static_assert(closed(USE(c.dataTypes.at("")->setReadCode(1))));
static_assert(closed(USE(c.items.add(std::make_shared<clsItem>(), ""))));
static_assert(closed(USE(c.branches.remove(""))));
static_assert(closed(USE(c.dataTypes.clear())));

static_assert(closed(USE(c.tree.addChild(*c.tree.root(), "", "", NodeLook{NodeTag::Item}))));
static_assert(closed(USE(c.tree.detach(*c.tree.root()))));
static_assert(closed(USE(c.tree.setKey(*c.tree.root(), ""))));
static_assert(closed(USE(c.tree.setText(*c.tree.root(), ""))));
static_assert(closed(USE(c.tree.clear())));

static_assert(closed(USE(++c.state.itemCounter)));
static_assert(closed(USE(c.state.saved = true)));
static_assert(closed(USE(c.state.copyBuffer.clear())));

}  // namespace

}  // namespace trevandix::testing
