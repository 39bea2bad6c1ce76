// The demo recording: a short phrase for two plucked strings, 44.1 kHz, 16 bits, stereo.
#pragma once

#include <cstdint>
#include <vector>

namespace tembrel {

inline constexpr std::uint32_t kDemoRate = 44100;
inline constexpr std::uint16_t kDemoChannels = 2;

// Interleaved samples, left first; always the same.
std::vector<std::int16_t> DemoPhrase();

}  // namespace tembrel
