#include "RandomPlant.h"

#include "Plant.h"
#include "model/ValueTypes.h"

namespace trevandix::testing {

namespace {

class Planting {
public:
    Planting(Configuration& configuration, unsigned seed) : configuration_(configuration), random_(seed) {}

    void run(bool doubtful) {
        configuration_.setInterfaceKind(below(2) == 0 ? kRtu : kTcpIp);
        for (const ModbusTable& table : modbusTables()) {
            clsModBusType type;
            type.setName(table.label);
            type.setReadCode(table.readCode);
            type.setWriteCode(table.writeCode);
            configuration_.addDataType(type);
        }
        for (std::size_t step = 3 + below(12); step > 0; --step) {
            try {
                add(doubtful && below(4) == 0);
            } catch (const RuntimeError&) {  // the key is taken
            }
        }
        if (doubtful && below(4) == 0) drag();
    }

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    const std::string& oneOf(const Texts& texts) { return texts[below(texts.size())]; }

    std::string name(bool doubtful) {
        static const Texts kSound = split("A|B|C|a|A.B|X-1|\xC3\x84|\xC3\xA9_");
        static const Texts kDoubtful = split(
            "tag|TAG|Tag|A B|A |1| |:|A:B|<|&|\"|'|>|]]>|<b/>|&amp;|&#65;|a\tb|a\nb|a\r\nb|\x01|\xC2\x80|"
            "\xC3\x97|\xC3\xBF|\xE2\x82\xAC|\xEF\xBF\xBE|\xF0\x9F\x98\x80|.|..|ModBus|coil|<!--|-->|</"
            "tag>|/");
        return oneOf(doubtful ? kDoubtful : kSound);
    }

    TreeNode& container() {
        std::vector<TreeNode*> all;
        for (TreeNode* n = configuration_.tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n)) {
            if (n->tag() == NodeTag::Plc || n->tag() == NodeTag::Branch) all.push_back(n);
        }
        return all.empty() ? addUnit("U") : *all[below(all.size())];
    }

    TreeNode& addUnit(const std::string& called) {
        clsPLC& unit = plantUnit(configuration_, called);
        unit.setUI(static_cast<std::uint8_t>(configuration_.units.size()));
        unit.setCom("COM" + std::to_string(configuration_.units.size()));
        unit.setBaud(9600);
        unit.setParity("NO");
        unit.setDataBits(8);
        unit.setStopBits(1);
        unit.setFlowCtl("NONE");
        return configuration_.tree.at(unit.sKey());
    }

    void add(bool doubtful) {
        const std::string called = name(doubtful);
        if (below(5) == 0) {
            addUnit(called);
        } else if (below(2) == 0) {
            plantBranch(configuration_, container(), called);
        } else {
            clsItem& item = plantItem(configuration_, container(), called);
            if (doubtful && below(2) == 0) item.sComment(name(true));
            const auto& types = valueTypes();
            const ValueType& type = types[below(types.size())];
            item.sDataType("holding register:" + std::string(type.label));
            item.nElements(static_cast<std::int16_t>(type.elements ? 1 + below(20) : 0));
            item.nAddress(static_cast<std::int32_t>(below(1000)));
            if (doubtful && below(8) == 0)
                item.sDataType(oneOf({"coil:", "my coil:boolean", "boolean", "coil"}));
        }
    }

    void drag() {
        std::vector<TreeNode*> all;
        for (TreeNode* n = configuration_.tree.firstAdded(); n != nullptr; n = StructureTree::nextAdded(*n))
            all.push_back(n);
        TreeNode& source = *all[1 + below(all.size() - 1)];
        TreeNode& target = *all[below(all.size())];
        if (liesIn(&target, source) || target.tag() == NodeTag::Item) return;
        try {
            configuration_.copySubtree(source, target);
            if (below(2) == 0) configuration_.removeMoved(source);
        } catch (const RuntimeError&) {  // the key is taken
        }
    }

    Configuration& configuration_;
    std::mt19937 random_;
};

}  // namespace

namespace {

struct SizedType {
    std::string label;
    int bits;  // of an element
};
const std::vector<SizedType> kRegisterTypes{{"boolean", 1},
                                            {"signed 16 bit", 16},
                                            {"32 bit float", 32},
                                            {"boolean array", 1},
                                            {"unsigned 8 bit array", 8},
                                            {"unsigned 16 bit array", 16},
                                            {"signed 32 bit array", 32},
                                            {"string", 8}};
const std::vector<SizedType> kBitTypes{{"boolean", 16}, {"boolean array", 16}};

}  // namespace

std::set<int> plantSomewhere(Configuration& configuration, TreeNode& container, std::mt19937& random,
                             const std::string& name, std::string& table) {
    const auto below = [&](unsigned limit) { return static_cast<int>(random() % limit); };
    table = std::vector<std::string>{"holding register", "input register", "coil"}[random() % 3];
    const auto& types = table == "coil" ? kBitTypes : kRegisterTypes;
    const SizedType& type = types[random() % types.size()];
    clsItem& item = plantItem(configuration, container, name);
    item.sDataType(table + ":" + type.label);
    item.nAddress(below(40));
    const bool many = type.label.find("array") != std::string::npos || type.label == "string";
    const int count = many ? 1 + below(7) : 1;
    if (many) item.nElements(static_cast<std::int16_t>(count));
    if (type.bits == 1) item.nBitNumber(static_cast<std::int16_t>(below(16)));
    int length = count * type.bits;
    if (type.bits == 8) length = (count + 1) / 2 * 16;
    std::set<int> bits;
    for (int bit = 0; bit < length; ++bit) bits.insert(item.nAddress() * 16 + item.nBitNumber() + bit);
    return bits;
}

void plantAtRandom(Configuration& configuration, unsigned seed) {
    Planting(configuration, seed).run(seed % 2 == 0);
}

}  // namespace trevandix::testing
