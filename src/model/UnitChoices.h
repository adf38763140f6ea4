#pragma once

#include <array>
#include <string_view>

// What the unit dialog takes, and what it offers for the settings of a serial line.

namespace trevandix {

inline constexpr int kLastIdentifier = 254;  ///< of units, from 0
inline constexpr std::array<std::string_view, 6> kBaudRates{"2400",  "9600",  "19200",
                                                            "38400", "57600", "115200"};
inline constexpr std::array<std::string_view, 3> kParities{"NO", "EVEN", "ODD"};
inline constexpr std::array<std::string_view, 4> kDataBits{"8", "7", "6", "5"};
inline constexpr std::array<std::string_view, 2> kStopBits{"1", "2"};
inline constexpr std::array<std::string_view, 2> kFlowControls{"NONE", "HARDWARE"};

}  // namespace trevandix
