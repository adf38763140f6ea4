#include "check/Rules.h"

#include <algorithm>
#include <array>

#include "check/Families.h"

namespace trevandix {

namespace {

constexpr Severity kError = Severity::Error;
constexpr Severity kWarning = Severity::Warning;
constexpr Severity kNote = Severity::Note;

// Name, severity, meaning, mending; the function that finds it.
constexpr std::array kRows{
    RuleRow{{"markup", kError,
             "A value holds `<`, `&` or `]]>`, or an attribute a quotation mark; nothing is escaped in the "
             "file, so that other programs, the server among them, cannot read it.",
             "Take the character out."},
            findMarkup},
    RuleRow{{"control-character", kError,
             "A value holds a line break, a TAB or another control character, which other programs refuse or "
             "read as something else.",
             "Take the character out."},
            findControlCharacters},
    RuleRow{{"branch-name", kError,
             "A branch's name is empty or no XML name (it has a blank, a `:` or another character that those "
             "do not have), but stands in the file as the name of an element.",
             "Use letters, digits, `_` and `-`, a letter first."},
            findBranchNames},
    RuleRow{
        {"branch-called-tag", kError,
         "A branch is called \"tag\", in any capitals, which in the file is the name of items, so that the "
         "file cannot be opened again.",
         "Give the branch another name."},
        findBranchesCalledTag},
    RuleRow{{"missing-name", kError, "A unit or an item has no name.", "Give it one."}, findMissingNames},
    RuleRow{
        {"key-collision", kError,
         "Two objects have the same key when the file is opened, such as branches that differ in capitals "
         "only, an item and a branch of one name, or a unit called \"ModBus\"; the file cannot be opened "
         "again.",
         "Rename one of them."},
        findKeyCollisions},
    RuleRow{{"unknown-type", kError,
             "The file has no name for the table or the value type of an item, or for the table of a data "
             "type, so that it is lost.",
             "Choose ModBus type and data type again in the dialog."},
            findUnknownTypes},
    RuleRow{{"not-in-file", kError,
             "An object stands where the file has no place for it: below the ModBus folder, a data type or "
             "the first line, or a unit or data type that was dragged.",
             "Drag it to a unit or a branch, or undo what moved it."},
            findMisplacedNodes},
    RuleRow{{"node-without-record", kError,
             "An object of the tree has lost its record, as moving a unit or another name for a data type "
             "does, so that there is nothing to save.",
             "Undo the change; for a data type, save and open the file."},
            findNodesWithoutRecord},
    RuleRow{{"record-without-node", kError,
             "A record has no object in the tree, as its node was moved or has got another name; a unit of "
             "that kind cannot be saved, and what was below it is lost.",
             "Undo the change; for a data type, save and open the file."},
            findRecordsWithoutNode},
    RuleRow{{"missing-data-type", kError,
             "An item is in a Modbus table that has no data type, so that the server does not know how to "
             "read it.",
             "Add the data type below ModBus."},
            findMissingDataTypes},
    RuleRow{{"access-right", kError,
             "An item has an access right that its table or the function codes of its data type cannot give: "
             "reading needs the read code, writing one of the write codes, writing an array or a string the "
             "code of several values.",
             "Change the access right, or the codes of the data type."},
            findAccessRights},
    RuleRow{{"address-range", kError,
             "An item begins or ends outside the addresses 0 to 65535; strings and 8-bit arrays take half as "
             "many registers as elements, rounded up.",
             "Correct the address or the number of elements."},
            findAddresses},
    RuleRow{{"bit-range", kError, "A bit number is outside 0 to 15.", "Choose a bit of the register."},
            findBits},
    RuleRow{{"no-elements", kError, "An array or a string has no elements.", "Enter the number of elements."},
            findElements},
    RuleRow{{"item-value", kError,
             "An item's data type or access right is none that the item dialog offers for its table.",
             "Choose one of the list."},
            findItemValues},
    RuleRow{{"same-identifier", kError,
             "Two units have the same identifier at one address or port, so that both mean the same device.",
             "Give each device an identifier of its own."},
            findSameIdentifiers},
    RuleRow{{"line-settings", kError,
             "Units on one port have different settings of the line (baud rate, bits, parity, flow control).",
             "Give all units on a port the same settings."},
            findLineSettings},
    RuleRow{{"ip-address", kError, "An IP address is neither an address nor the name of a host.",
             "Enter one like 192.168.0.10, without leading zeros."},
            findIpAddresses},
    RuleRow{{"port-name", kError, "A port name is not \"COM\" and a number.", "Enter one like COM1."},
            findPortNames},
    RuleRow{{"unit-value", kError, "A setting of a serial line is none that the unit dialog offers.",
             "Choose one of the list."},
            findUnitValues},
    RuleRow{{"overlap", kWarning, "Items of one unit and table share registers or bits.",
             "Move one of them, unless both shall see the same value."},
            findOverlaps},
    RuleRow{{"long-request", kWarning,
             "An array or a string is longer than one Modbus request carries: 125 registers or 2,000 bits to "
             "read, 123 registers or 1,968 bits to write.",
             "Split it."},
            findLongRequests},
    RuleRow{{"capitals-only", kWarning,
             "Names of units, or of items in one place, differ in capitals only, which many OPC clients take "
             "for the same.",
             "Give one of them another name."},
            findNamesInCapitals},
    RuleRow{{"dot-in-name", kWarning, "A name holds a full stop, which separates the names of a tag.",
             "Take it out."},
            findDots},
    RuleRow{{"blank-at-end", kWarning,
             "The name of a unit or an item begins or ends with a blank, which nobody sees and some programs "
             "drop.",
             "Take it out."},
            findBlanks},
    RuleRow{{"default-name", kWarning,
             "An object still has the name that its dialog proposed, such as \"New_Item_3\".",
             "Give it a name of its own."},
            findDefaultNames},
    RuleRow{{"other-name", kWarning,
             "An item is a copy that shares its record with the original, and has the original's new name in "
             "the file.",
             "Confirm the copy in its dialog, which gives it a record of its own."},
            findOtherNames},
    RuleRow{{"empty-branch", kWarning, "A branch holds nothing.", "Add items, or delete the branch."},
            findEmptyBranches},
    RuleRow{{"function-code", kWarning,
             "A function code of a data type is not the one that Modbus has for the table.",
             "Enter the usual code, unless the device is special."},
            findFunctionCodes},
    RuleRow{{"identifier-range", kWarning,
             "On a serial line, 0 is the identifier for messages to all devices and those above 247 are "
             "reserved; for Modbus TCP/IP the unit dialog does not take 255.",
             "Give the device another identifier."},
            findIdentifiers},
    RuleRow{{"timeout", kWarning, "A timeout is not above 0, or a silent interval is negative.",
             "Enter a time in milliseconds."},
            findTimeouts},
    RuleRow{{"branch-capitals", kNote,
             "Names of branches have small letters, and come back in capitals when the file is opened; told "
             "once for the whole file.",
             "Write them in capitals if that matters to you."},
            findSmallLetters},
};

constexpr auto kRules = [] {
    std::array<Rule, kRows.size()> all{};
    std::ranges::transform(kRows, all.begin(), &RuleRow::rule);
    return all;
}();

}  // namespace

std::span<const RuleRow> ruleRows() {
    return kRows;
}

std::span<const Rule> rules() {
    return kRules;
}

}  // namespace trevandix
