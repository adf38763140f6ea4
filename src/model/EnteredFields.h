#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

// What the dialogs hold: a record's fields as texts, not yet converted, and the checks of what is entered.

namespace trevandix {

class Configuration;
class clsPLC;

struct ItemFields {
    std::string name;
    std::string comment;
    std::string table;  ///< name of a data type
    std::string type;   ///< label of a value type
    std::string address;
    std::string bit;       ///< ignored unless `hasBitNumber`
    std::string elements;  ///< ignored unless `hasElements`
    std::string accessRight;
};

/// The fields of the other interface kind are ignored.
struct UnitFields {
    std::string name;
    std::string identifier;
    std::string timeout;
    std::string address;
    std::string port;
    std::string baud;
    std::string parity;
    std::string dataBits;
    std::string stopBits;
    std::string flowControl;
    std::string silent;
};

// What the lists of the unit dialog offer. Data bits and stop bits may be others too.
inline constexpr std::array<std::string_view, 6> kBaudRates{"2400",  "9600",  "19200",
                                                            "38400", "57600", "115200"};
inline constexpr std::array<std::string_view, 3> kParities{"NO", "EVEN", "ODD"};
inline constexpr std::array<std::string_view, 4> kDataBits{"8", "7", "6", "5"};
inline constexpr std::array<std::string_view, 2> kStopBits{"1", "2"};
inline constexpr std::array<std::string_view, 2> kFlowControls{"NONE", "HARDWARE"};

struct DataTypeFields {
    std::string name;
    std::string readCode;
    std::string writeCode;   ///< ignored for a read-only table
    bool single = false;     ///< single values are written by a function of their own
    std::string singleCode;  ///< ignored unless `single`
};

/// Why what was entered is not accepted.
struct Refusal {
    std::string_view field;  ///< the invalid member of ItemFields, UnitFields or DataTypeFields
    std::string message;     ///< what the user is told
};

// Each returns the first invalid field; nothing when all are valid.

/// Does not check whether the name is free.
std::optional<Refusal> refusal(const ItemFields& item);
/// Does not check whether the name is free. `edited` is the unit being edited, or nullptr.
std::optional<Refusal> refusal(const UnitFields& unit, const Configuration& configuration,
                               const clsPLC* edited);
/// Checks whether the name is free unless an existing data type is `edited`.
std::optional<Refusal> refusal(const DataTypeFields& type, const Configuration& configuration, bool edited);

}  // namespace trevandix
