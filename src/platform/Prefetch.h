// Has memory fetched that will be needed soon. Loops of many instructions a byte do not have it fetched far
// enough ahead by themselves: they work on a stretch while the next one is on its way.
#pragma once

#include <cstddef>
#include <span>

namespace tembrel {

inline constexpr std::size_t kStretch = 2048;  // bytes

// The cache line in which the byte lies.
inline void PrefetchForReading([[maybe_unused]] const std::byte* at) {
#ifdef __GNUC__
  __builtin_prefetch(at, 0);
#endif
}

inline void PrefetchForReading(std::span<const std::byte> bytes) {
  for (std::size_t at = 0; at < bytes.size(); at += 64) {
    PrefetchForReading(bytes.data() + at);
  }
}

inline void PrefetchForWriting(std::span<const std::byte> bytes) {
#ifdef __GNUC__
  for (std::size_t at = 0; at < bytes.size(); at += 64) {
    __builtin_prefetch(bytes.data() + at, 1);
  }
#endif
}

}  // namespace tembrel
