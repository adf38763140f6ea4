#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "check/Intended.h"
#include "check/Marks.h"
#include "check/Pulse.h"
#include "model/Configuration.h"
#include "model/ItemSpan.h"

namespace trevandix {

/// What follows from the type of an item; one for all the items of a type.
struct TypeFacts {
    explicit TypeFacts(const std::string& type, const Configuration& configuration);

    std::string_view table;  ///< label of the Modbus table
    StoredType stored;
    const clsModBusType* dataType;  ///< of the table; nullptr where there is none
    bool offered;                   ///< the item dialog offers the value type for the table

    bool known() const { return stored.known(); }
};

/// What follows from an access right.
struct RightFacts {
    explicit RightFacts(const std::string& right);

    bool reads;
    bool writes;
    Marks marks;

    bool known() const { return reads || writes; }
};

/// An object that stands in the file.
struct Object {
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    const Key* key;           ///< of its node, or of its record where no node has it
    std::string_view name;    ///< as it is written
    const TreeNode* node;     ///< nullptr for a data type without one, and for what is intended
    std::uint32_t container;  ///< the unit or branch around it, by its place in `objects`; else kNone
    NodeTag tag;
    Marks marks;  ///< of the name
};

/// What the rules about items look at.
struct ItemFacts {
    const clsItem* record;
    const TypeFacts* type;
    const RightFacts* right;
    std::uint32_t object;  ///< its place in `objects`
    std::uint32_t unit;    ///< its unit's place in `objects`
    std::int32_t address;
    std::int16_t bit;
    std::int16_t elements;
    Marks commentMarks;

    /// Elements of an array or a string, else 1.
    std::int64_t count() const { return value().elements ? elements : 1; }
    // Of known types only.
    const ModbusTable& table() const { return *type->stored.table; }
    const ValueType& value() const { return *type->stored.value; }
    Span span() const { return spanOf(table(), value(), {address, bit}, elements); }
};

/// What a configuration's file would hold, gathered in one walk through the tree. Refers to the
/// configuration and to what is intended, which must stay as they are.
class Survey {
public:
    /// With `intended`, as if that were done; what it adds comes last. Errors: Interrupted.
    Survey(const Configuration& configuration, Pulse& pulse, const Intended* intended = nullptr);
    Survey(const Survey&) = delete;
    Survey& operator=(const Survey&) = delete;

    const Configuration& configuration;
    std::vector<Object> objects;  ///< data types, then units with all that is below them, as in the tree
    std::vector<ItemFacts> items;
    std::vector<const TreeNode*> misplaced;  ///< where the file has no place for them, topmost ones only
    std::vector<const TreeNode*> bare;       ///< without a record
    bool allRecordsFound = true;             ///< each record has its node

    const clsPLC& unitOf(const Object& object) const;
    bool tcpIp() const { return configuration.state.interfaceKind == kTcpIp; }

private:
    void addDataTypes();
    void walk(Pulse& pulse);
    bool hasPlace(const TreeNode& node) const;
    /// False where the node has no record.
    bool add(const TreeNode& node, std::uint32_t container);
    bool addItem(const TreeNode& node, std::uint32_t container);
    void addItem(const clsItem& record, const Key& key, const TreeNode* node, std::uint32_t container);
    void addIntended();
    const clsItem* recordOf(const TreeNode& node);
    const TypeFacts& typeFacts(const clsItem& item);
    const RightFacts& rightFacts(const clsItem& item);

    const Intended* intended_;
    KeyedCollection<clsItem>::Iterator nextItem_;  // expected next: both orders are mostly the same
    std::uint32_t unit_ = Object::kNone;           // the one that the walk is in
    std::size_t recordsFound_ = 0;
    // By the texts' place in the pool.
    std::unordered_map<const std::string*, TypeFacts> types_;
    std::unordered_map<const std::string*, RightFacts> rights_;
};

}  // namespace trevandix
