// Tests keys, collections, the tree, numbers and type names.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "FakePlatform.h"
#include "model/Numbers.h"
#include "model/Refusal.h"
#include "model/ValueTypes.h"
#include "platform/Text.h"

namespace trevandix::testing {

namespace {

Texts texts(const TreeNode& parent) {
    Texts result;
    for (const TreeNode* child = parent.firstChild(); child != nullptr; child = child->nextSibling())
        result.push_back(child->text());
    return result;
}

constexpr NodeLook kItemLook{NodeTag::Item, Image::Item};

}  // namespace

TEST(Keys, ParentKeyEndsBeforeTheLastDot) {
    for (const auto& [key, parent] :
         Fields{{"PLC1.Area.Run", "PLC1.Area"}, {"PLC1", ""}, {"PLC1.Area.", "PLC1.Area"}, {".", ""}})
        EXPECT_EQ(Key(key).parent(), parent) << key;
    EXPECT_EQ(Key(Key("PLC1"), "").str(), "PLC1.");
    EXPECT_EQ(Key(Key("PLC1"), "Run"), Key("PLC1.Run"));
    EXPECT_NE(Key("PLC1.Run"), Key("PLC1.run"));
}

TEST(StructureTree, SortsIgnoringCaseAndStaysSorted) {
    EditableTree tree;
    TreeNode& root = tree.addRoot("root", {NodeTag::Config});
    for (const char* name : {"pump", "Valve", "alarm", "Pump", "äther"})
        tree.addChild(root, Key(name), name, kItemLook);
    EXPECT_EQ(texts(root), (Texts{"pump", "Valve", "alarm", "Pump", "äther"}));
    tree.keepSorted(root);
    EXPECT_EQ(texts(root), (Texts{"alarm", "pump", "Pump", "Valve", "äther"}));
    tree.addChild(root, "PUMP", "PUMP", kItemLook);
    tree.setText(tree.at("alarm"), "Zero");
    EXPECT_EQ(texts(root), (Texts{"pump", "Pump", "PUMP", "Valve", "Zero", "äther"}));
    EXPECT_THROW(tree.addChild(root, "PUMP", "again", kItemLook), RuntimeError);
    EXPECT_EQ(root.childCount(), 6U);
    EXPECT_THROW(tree.setKey(tree.at("pump"), "Valve"), RuntimeError);
    EXPECT_EQ(tree.at("pump").text(), "pump");
}

TEST(Numbers, LeadingNumberIgnoresWhatFollows) {
    const std::vector<std::pair<const char*, double>> table{
        {"12abc", 12}, {"", 0},       {"abc", 0}, {"-5", -5},     {"+7", 7},  {"  42 ", 42}, {"3.5x", 3.5},
        {".5", 0.5},   {"1e3", 1000}, {"1e", 1},  {"inf", 0},     {"nan", 0}, {"-", 0},      {"1,5", 1},
        {"0x10", 0},   {"- 5", 0},    {"--5", 0}, {"1.2.3", 1.2}, {"007", 7}};
    for (const auto& [text, value] : table) EXPECT_EQ(leadingNumber(text), value) << text;
}

TEST(Numbers, WholeNumbersAndRangesAreChecked) {
    for (const char* text : {"1", " 1 ", "-1.5", "+.5", "1e5", "5."}) EXPECT_TRUE(isNumeric(text)) << text;
    for (const char* text : {"", " ", "1a", "a", "1 2", "--1", "e5", ".", "inf", "0x1"})
        EXPECT_FALSE(isNumeric(text)) << text;

    const auto byte = [](const std::string& text) {
        try {
            return std::to_string(byteValue(text));
        } catch (const RuntimeError& error) {
            return "error " + std::to_string(static_cast<int>(error.number()));
        }
    };
    for (const auto& [texts, value] : Fields{{"-0.5|1e-400", "0"},
                                             {"2.5", "2"},
                                             {"3.5", "4"},
                                             {"255.4", "255"},
                                             {"256|-1|255.5|1e400|-1e400", "error 6"},
                                             {"|x|1x", "error 13"}}) {
        for (const std::string& text : split(texts)) EXPECT_EQ(byte(text), value) << text;
    }
    EXPECT_EQ(toInt16(32767.4), 32767);
    EXPECT_THROW(toInt16(32767.5), RuntimeError);
    EXPECT_EQ(toInt32(-2147483648.0), INT32_MIN);
    EXPECT_THROW(toInt32(2147483648.0), RuntimeError);
    EXPECT_EQ(raised(32766), 32767);
    EXPECT_THROW(raised(32767), RuntimeError);
}

TEST(TypeNames, ConvertBothWaysForEveryTableAndValueType) {
    for (const auto& [table, file] : Fields{{"input status", "INPUTSTATUS"},
                                            {"coil", "COIL"},
                                            {"input register", "IREGISTER"},
                                            {"holding register", "HREGISTER"}}) {
        EXPECT_EQ(fileTypeName(table), file);
        EXPECT_EQ(displayTypeLabel(file), table);
        std::set<std::string> names;
        for (const std::string& type : valueTypesOf(table)) {
            const std::string name = fileTypeName(table + ":" + type);
            EXPECT_TRUE(name.starts_with(file + " VT_") && names.insert(name).second) << name;
            EXPECT_EQ(displayTypeLabel(name), table + ":" + type);
        }
    }
    std::string all;
    for (const std::string& type : valueTypesOf("holding register")) all += fileTypeName(type) + "|";
    EXPECT_EQ(all,
              " VT_BOOL| VT_UI2| VT_UI4| VT_I2| VT_I4| VT_R4| VT_BOOL ARRAY| VT_UI1 ARRAY| VT_UI2 ARRAY| "
              "VT_UI4 ARRAY| VT_I1 ARRAY| VT_I2 ARRAY| VT_I4 ARRAY| VT_R4 ARRAY| VT_BSTR|");
    // Unknown names are left out.
    EXPECT_EQ(fileTypeName("my table:boolean"), " VT_BOOL");
    EXPECT_EQ(fileTypeName("coil:nonsense"), "COIL");
    EXPECT_EQ(displayTypeLabel("VT_I2"), ":signed 16 bit");
    EXPECT_EQ(displayTypeLabel("HREGISTER NONSENSE"), "holding register");
    EXPECT_EQ(displayTypeLabel("nonsense"), "");
    EXPECT_EQ(splitDataType("x:input status array").label, "boolean array");
    EXPECT_EQ(splitDataType("coil").table, "coil");
    EXPECT_EQ(splitDataType("my:string:b").label, "string:b");
}

TEST(Refusals, NameTheItemFieldsInOrder) {
    ItemFields item;
    std::string fields;
    for (std::string* field :
         {&item.name, &item.table, &item.type, &item.address, &item.bit, &item.elements, &item.accessRight}) {
        fields += std::string(refusal(item)->field) + " ";
        *field = "boolean array";
    }
    EXPECT_EQ(fields, "name table type address bit elements accessRight ");
    EXPECT_FALSE(refusal(item));
}

TEST(Texts, UpperCasesLatinGreekAndCyrillicLetters) {
    EXPECT_EQ(upperCased("area_ß-äöü-ÿ-žč-жя-ω"), "AREA_ß-ÄÖÜ-Ÿ-ŽČ-ЖЯ-Ω");
}

TEST(ItemRecord, ShowsAddressAndSortKeyInTheList) {
    const auto row = [](std::string_view type, int address, std::int16_t bit, std::int16_t elements) {
        clsItem item;
        item.sDataType(type);
        item.nAddress(address);
        item.nBitNumber(bit);
        item.nElements(elements);
        ListView list;
        item.AddToListView(list, true);
        return std::string(list.cell(0, 2)) + " " + std::string(list.cell(0, 6));
    };
    EXPECT_EQ(row("holding register:boolean array", 100, 3, 8), "100/BIT03/LEN8 HR0010003");
    EXPECT_EQ(row("coil:anything", 7, 0, 0), "7/BIT00 CO0000700");
    EXPECT_EQ(row("input status:x array", 1, 0, 2), "1/BIT00/LEN2 IS0000100");
    EXPECT_EQ(row("holding register:signed 16 bit", 123456, 0, 0), "123456 HR12345600");
    EXPECT_EQ(row("holding register:boolean", -7, -5, 0), "-7/BIT-05 HR-00007-05");
    EXPECT_EQ(row("input register:string", 5, 0, 10), "5/LEN10 IR0000500");
    EXPECT_EQ(row("my table:signed 16 bit", 5, 0, 0), "5 0000500");
}

}  // namespace trevandix::testing
