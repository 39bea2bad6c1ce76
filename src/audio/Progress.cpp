#include "audio/Progress.h"

namespace tembrel {

namespace {

constexpr std::uint64_t kHalf = 1U << 20;

Progress HalfFrom(const Progress& whole, std::uint64_t start) {
  if (!whole) {
    return {};
  }
  return [&whole, start](std::uint64_t done, std::uint64_t total) {
    const double fraction = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    return whole(start + static_cast<std::uint64_t>(fraction * static_cast<double>(kHalf)), 2 * kHalf);
  };
}

}  // namespace

Progress FirstHalf(const Progress& whole) {
  return HalfFrom(whole, 0);
}

Progress SecondHalf(const Progress& whole) {
  return HalfFrom(whole, kHalf);
}

}  // namespace tembrel
