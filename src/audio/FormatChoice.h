// The three numbers by which a person chooses a format of sound: of a recording, or for an effect.
#pragma once

#include <cstdint>

namespace tembrel {

struct FormatChoice {
  std::uint32_t rate = 0;      // hertz
  std::uint16_t bits = 0;      // 8 or 16 for sound that can be edited
  std::uint16_t channels = 0;  // 1 or 2 for sound that can be edited

  bool operator==(const FormatChoice&) const = default;
};

}  // namespace tembrel
