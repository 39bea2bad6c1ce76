#include "audio/AudioClip.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tembrel {

std::unique_ptr<AudioClip> AudioClip::Copy() const {
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(dataSize);
  if (!block) {
    return nullptr;
  }
  std::ranges::copy(Bytes(), block->Data());
  auto copy = std::make_unique<AudioClip>();
  copy->format = format;
  copy->data = std::move(*block);
  copy->dataSize = dataSize;
  return copy;
}

std::uint32_t DurationInHundredths(std::uint32_t dataSize, std::uint32_t blockAlign, std::uint32_t rate) {
  if (blockAlign == 0 || rate == 0) {
    return 0;
  }
  return dataSize * 100U / blockAlign / rate;
}

int FreeClip(std::unique_ptr<AudioClip>& clip) {
  constexpr int kNothingToFree = 5;
  if (!clip) {
    return kNothingToFree;
  }
  clip.reset();
  return 0;
}

}  // namespace tembrel
