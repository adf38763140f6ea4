#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "model/Configuration.h"
#include "model/Refusal.h"

namespace trevandix {

/// A unit as it is entered: the text of each field, not yet converted. The fields of the other interface kind
/// do not count.
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

// What the fields offer. Bits may be others too.
inline constexpr std::array<std::string_view, 6> kBaudRates{"2400",  "9600",  "19200",
                                                            "38400", "57600", "115200"};
inline constexpr std::array<std::string_view, 3> kParities{"NO", "EVEN", "ODD"};
inline constexpr std::array<std::string_view, 4> kDataBits{"8", "7", "6", "5"};
inline constexpr std::array<std::string_view, 2> kStopBits{"1", "2"};
inline constexpr std::array<std::string_view, 2> kFlowControls{"NONE", "HARDWARE"};

/// The first field that is not valid in the configuration; nothing when all are. Whether the name is free is
/// another question. `edited` is the unit being edited, or nullptr.
std::optional<Refusal> refusal(const UnitFields& unit, const Configuration& configuration,
                               const clsPLC* edited);

}  // namespace trevandix
