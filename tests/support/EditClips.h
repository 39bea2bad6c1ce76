// Small clips to edit, in the four layouts, and memory for them that runs out on demand.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <span>
#include <utility>

#include "audio/AudioClip.h"
#include "edit/EditMemory.h"
#include "tests/support/LiteralUndo.h"

namespace tembrel::test {

inline const std::array kLayouts{PcmFormat(22050, 8, 1), PcmFormat(22050, 8, 2), PcmFormat(44100, 16, 1),
                                 PcmFormat(44100, 16, 2)};

inline AudioClip ClipOf(const WaveFormat& format, std::span<const std::byte> bytes) {
  AudioClip clip;
  clip.format = format;
  clip.data = std::move(MemoryBlock::Allocate(bytes.size()).value());
  std::ranges::copy(bytes, clip.data.Data());
  clip.dataSize = static_cast<std::uint32_t>(bytes.size());
  return clip;
}

inline Bytes BytesOfClip(const AudioClip& clip) {
  return LiteralCopy(clip).data;
}

class Dice {
 public:
  explicit Dice(unsigned seed) : engine(seed) {}

  // first..last, both included.
  std::int64_t Roll(std::int64_t first, std::int64_t last) {
    return std::uniform_int_distribution<std::int64_t>(first, last)(engine);
  }
  bool OneIn(int n) { return Roll(1, n) == 1; }
  Bytes Noise(std::int64_t count) {
    Bytes bytes;
    for (std::int64_t i = 0; i < count; ++i) {
      bytes.push_back(static_cast<std::byte>(Roll(0, 255)));
    }
    return bytes;
  }
  const WaveFormat& Layout() { return kLayouts.at(static_cast<std::size_t>(Roll(0, 3))); }

 private:
  std::mt19937 engine;
};

// Memory that is refused while `refuse` says so.
struct ScarceMemory {
  std::function<bool(std::size_t size)> refuse = [](std::size_t) { return false; };
  int asked = 0;

  EditMemory Memory() {
    EditMemory memory;
    memory.allocate = [this](std::size_t size) -> std::optional<MemoryBlock> {
      ++asked;
      return refuse(size) ? std::nullopt : MemoryBlock::Allocate(size);
    };
    memory.resize = [this](MemoryBlock& block, std::size_t size) {
      ++asked;
      return !refuse(size) && block.Resize(size);
    };
    return memory;
  }
};

}  // namespace tembrel::test
