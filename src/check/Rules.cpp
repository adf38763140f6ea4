#include "check/Rules.h"

#include <algorithm>
#include <array>

#include "check/Families.h"

namespace trevandix {

namespace {

constexpr Severity kError = Severity::Error;
constexpr Severity kWarning = Severity::Warning;
constexpr Severity kNote = Severity::Note;

// Name, severity, meaning, mending; the function that looks for it.
constexpr std::array kRows{
    RuleRow{{"markup", kError,
             "A value holds \"<\", \"&\" or \"]]>\", or an attribute holds a quotation mark; the file "
             "escapes nothing, so other programs, the server among them, cannot read it.",
             "Take the character out."},
            findMarkup},
    RuleRow{{"control-character", kError,
             "A value holds a line break, a TAB or another control character, which other programs refuse or "
             "change.",
             "Take the character out."},
            findControlCharacters},
    RuleRow{{"branch-name", kError,
             "The name of a branch stands in the file as the name of an element, but is no XML name: it is "
             "empty, or holds a blank, \":\" or another character that those do not have.",
             "Use letters, digits, \"_\" and \"-\", a letter first."},
            findBranchNames},
    RuleRow{{"branch-called-tag", kError,
             "A branch is called \"tag\", in whatever capitals, which is the name of items in the file; the "
             "file cannot be opened again.",
             "Give the branch another name."},
            findBranchesCalledTag},
    RuleRow{{"missing-name", kError, "An item or a unit has no name.", "Give it one."}, findMissingNames},
    RuleRow{{"key-collision", kError,
             "Two objects have the same key when the file is opened, such as branches that differ in "
             "capitals only, or an item and a branch of one name; the file cannot be opened again.",
             "Rename one of them."},
            findKeyCollisions},
    RuleRow{{"unknown-type", kError,
             "The file has no name for the table or the value type of an item, or for the table of a data "
             "type, which is lost.",
             "Choose ModBus type and data type again."},
            findUnknownTypes},
    RuleRow{{"not-in-file", kError,
             "An object was dragged to where the file has no place for it: below the ModBus folder, a data "
             "type or the first line of the tree, or, for a unit or a data type, below another object.",
             "Undo the move, or delete the object."},
            findMisplacedNodes},
    RuleRow{
        {"node-without-record", kError,
         "An object of the tree has lost its record, as a unit does that is dragged and a data type that "
         "gets another name; there is nothing to save.",
         "Undo the change; after another name of a data type, you may also save the file and open it again."},
        findNodesWithoutRecord},
    RuleRow{
        {"record-without-node", kError,
         "A record has lost its place in the tree in the same way; a unit without a place keeps the file "
         "from being saved.",
         "Undo the change; after another name of a data type, you may also save the file and open it again."},
        findRecordsWithoutNode},
    RuleRow{{"missing-data-type", kError,
             "The Modbus table of an item has no data type, so the server does not know the function codes.",
             "Add the data type below ModBus."},
            findMissingDataTypes},
    RuleRow{{"access-right", kError,
             "The Modbus table of an item, or the function codes of its data type, cannot give the access "
             "right: reading needs the read code, writing one of the two write codes, and writing an array "
             "or a string the one for several values.",
             "Change the access right, or the codes of the data type."},
            findAccessRights},
    RuleRow{{"address-range", kError,
             "An item begins or ends outside the addresses 0 to 65535; strings and 8-bit arrays take half as "
             "many registers as they have elements, rounded up.",
             "Change the address or the number of elements."},
            findAddresses},
    RuleRow{{"bit-range", kError, "A bit number is outside 0 to 15.", "Choose a bit of the register."},
            findBits},
    RuleRow{{"no-elements", kError, "An array or a string has no elements.", "Enter how many it has."},
            findElements},
    RuleRow{{"item-value", kError,
             "The item dialog does not offer the data type for the Modbus table of the item, or does not "
             "know the access right.",
             "Choose one of the list."},
            findItemValues},
    RuleRow{{"same-identifier", kError,
             "Two units have the same identifier at one address or port, where only one device can answer.",
             "Give each device an identifier of its own."},
            findSameIdentifiers},
    RuleRow{{"line-settings", kError,
             "Units on one port differ in baud rate, data bits, stop bits, parity or flow control.",
             "Give all units on a port the same settings."},
            findLineSettings},
    RuleRow{{"ip-address", kError, "An IP address is neither an address nor a host name.",
             "Enter one like 192.168.0.10, without leading zeros."},
            findIpAddresses},
    RuleRow{{"port-name", kError, "A port name is not \"COM\" and a number.", "Enter one like COM1."},
            findPortNames},
    RuleRow{{"unit-value", kError,
             "The unit dialog does not offer the baud rate, data bits, stop bits, parity or flow control of "
             "a unit.",
             "Choose one of the list."},
            findUnitValues},
    RuleRow{{"overlap", kWarning, "Items of one unit and Modbus table share registers or bits.",
             "Move one of them, unless they are to show the same registers in two ways."},
            findOverlaps},
    RuleRow{{"long-request", kWarning,
             "An array or a string is longer than one Modbus request carries: 125 registers or 2,000 bits to "
             "read, 123 registers or 1,968 bits to write.",
             "Split it."},
            findLongRequests},
    RuleRow{{"capitals-only", kWarning,
             "The names of units, or of items in one place, differ in capitals only; many OPC clients take "
             "them for the same.",
             "Rename one of them."},
            findNamesInCapitals},
    RuleRow{
        {"dot-in-name", kWarning, "A name holds \".\", which separates the names in a tag.", "Take it out."},
        findDots},
    RuleRow{{"blank-at-end", kWarning,
             "The name of a unit or an item begins or ends with a blank, which nobody sees and some programs "
             "drop.",
             "Take it out."},
            findBlanks},
    RuleRow{{"default-name", kWarning,
             "An object still has the name that its dialog proposed, such as \"New_Item_3\".", "Rename it."},
            findDefaultNames},
    RuleRow{{"other-name", kWarning,
             "A copy made by dragging shares its record with the original, so the file has the name that the "
             "original got later.",
             "Edit the copy in its dialog, which gives it a record of its own."},
            findOtherNames},
    RuleRow{{"empty-branch", kWarning, "A branch is empty.", "Add items, or delete the branch."},
            findEmptyBranches},
    RuleRow{{"function-code", kWarning,
             "A function code of a data type is not the usual one of its Modbus table.",
             "Enter the usual code, unless the device needs another."},
            findFunctionCodes},
    RuleRow{{"identifier-range", kWarning,
             "On a serial line, identifier 0 addresses all devices at once and 248 to 255 are reserved; for "
             "Modbus TCP/IP, the unit dialog does not take 255.",
             "Give the device another identifier."},
            findIdentifiers},
    RuleRow{{"timeout", kWarning, "A timeout is not above 0, or a silent interval is negative.",
             "Enter a time in milliseconds."},
            findTimeouts},
    RuleRow{{"branch-capitals", kNote,
             "Names of branches have small letters, and come back in capitals when the file is opened; said "
             "once for all branches.",
             "Write them in capitals, if that matters to you."},
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
