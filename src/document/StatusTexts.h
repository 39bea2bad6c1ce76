// The texts of the three status-bar gadgets.
#pragma once

#include <cstdint>
#include <string>

namespace tembrel {

struct StatusTexts {
  std::string rate;      // "44100 Hz"
  std::string bits;      // "16 Bits" for 16 bits, "8 Bits" for anything else
  std::string channels;  // "Stereo" for 2 channels, "Mono" for anything else

  bool operator==(const StatusTexts&) const = default;
};

StatusTexts FormatStatusTexts(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels);

// What the gadgets show before any format is known.
StatusTexts InitialStatusTexts();

}  // namespace tembrel
