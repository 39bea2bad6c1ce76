// Clips for the view's tests: made from levels, or filled with noise of a given loudness.
#pragma once

#include <algorithm>
#include <cstring>
#include <random>
#include <vector>

#include "audio/AudioClip.h"

namespace tembrel {

inline AudioClip ClipOfBytes(std::uint16_t bits, std::uint16_t channels,
                             const std::vector<std::uint8_t>& bytes) {
  AudioClip clip;
  clip.format = {kPcmTag, channels, 44100, 0, 0, bits};
  clip.format.nBlockAlign = static_cast<std::uint16_t>(FrameSize(bits, channels));
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(bytes.size());
  if (block) {
    clip.data = std::move(*block);
    clip.dataSize = static_cast<std::uint32_t>(bytes.size());
    std::transform(bytes.begin(), bytes.end(), clip.data.Data(),
                   [](std::uint8_t byte) { return std::byte{byte}; });
  }
  return clip;
}

inline AudioClip ClipOfSamples(std::uint16_t channels, const std::vector<int>& samples) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(samples.size() * 2);
  for (const int sample : samples) {
    bytes.push_back(static_cast<std::uint8_t>(sample & 0xFF));
    bytes.push_back(static_cast<std::uint8_t>((sample >> 8) & 0xFF));
  }
  return ClipOfBytes(16, channels, bytes);
}

// `loudness` 0 gives one constant byte, 255 every byte value.
inline AudioClip NoiseClip(std::uint16_t bits, std::uint16_t channels, std::size_t frames, unsigned loudness,
                           unsigned seed) {
  std::minstd_rand random(seed + 1);
  std::vector<std::uint8_t> bytes(frames * FrameSize(bits, channels));
  for (std::uint8_t& byte : bytes) {
    byte = static_cast<std::uint8_t>(127 + (random() >> 8U) % (loudness + 1));
  }
  return ClipOfBytes(bits, channels, bytes);
}

}  // namespace tembrel
