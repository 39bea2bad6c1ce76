// Noise that is never silent, and what a stereo sink with 16 bits gives of it.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "audio/WaveFormat.h"
#include "tests/support/SoundTap.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {

// Every sample of every frame differs from silence, and from full scale.
inline Bytes NoiseBytes(const WaveFormat& format, std::size_t frames, unsigned seed = 1) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> level8(1, 120);
  std::uniform_int_distribution<int> level16(1, 32000);
  std::bernoulli_distribution negative;
  Bytes bytes;
  for (std::size_t i = 0; i < frames * format.nChannels; ++i) {
    const int level =
        (format.wBitsPerSample == 8 ? level8(random) : level16(random)) * (negative(random) ? -1 : 1);
    if (format.wBitsPerSample == 8) {
      bytes.push_back(static_cast<std::byte>(level + 128));
    } else {
      Append16(bytes, static_cast<std::uint16_t>(level));
    }
  }
  return bytes;
}

inline std::vector<StereoFrame> AsHeard(const WaveFormat& format, const Bytes& bytes) {
  const std::size_t sampleBytes = format.wBitsPerSample / 8;
  const auto sample = [&](std::size_t index) -> std::uint32_t {
    const unsigned low = std::to_integer<unsigned>(bytes[index * sampleBytes]);
    return sampleBytes == 1 ? ((low ^ 0x80U) << 8U)
                            : low | std::to_integer<unsigned>(bytes[index * sampleBytes + 1]) << 8U;
  };
  std::vector<StereoFrame> frames;
  for (std::size_t i = 0; i < bytes.size() / sampleBytes; i += format.nChannels) {
    frames.push_back(sample(i) | sample(i + format.nChannels - 1) << 16U);
  }
  return frames;
}

}  // namespace tembrel::test
