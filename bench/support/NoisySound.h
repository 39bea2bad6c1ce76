// The sound that is measured on: 44.1 kHz 16-bit stereo noise, of which no two stretches look the same and
// every column is high.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

#include "audio/AudioClip.h"

namespace tembrel::bench {

inline constexpr std::uint32_t kRate = 44100;    // hertz
inline constexpr std::uint32_t kFrameBytes = 4;  // of one frame

// The length of a long recording in seconds: TEMBREL_BENCH_MINUTES minutes, 1 to 400; without it an hour,
// which is what the targets are meant for. The output names it. To be called once.
std::uint32_t SoundSeconds();

// The same noise every time.
void FillWithNoise(AudioClip& clip);

// Nothing when there is no memory for it.
std::optional<AudioClip> NoisyClip(std::uint32_t seconds);

// False when there is no memory or no room for it.
bool WriteNoisyFile(const std::filesystem::path& path, std::uint32_t seconds);

}  // namespace tembrel::bench
