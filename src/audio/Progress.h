// How a long reading or writing tells how far it is, and how it is told to stop.
#pragma once

#include <cstdint>
#include <functional>

namespace tembrel {

// Called with bytes done and bytes in all, at least once every 8 MiB and once at the end. Returning false
// cancels the work. An empty function is never called.
using Progress = std::function<bool(std::uint64_t done, std::uint64_t total)>;

// Bytes that are moved between two calls.
inline constexpr std::uint64_t kProgressStep = 8U << 20U;

// The progress of a part of some work, told as progress of the whole: it begins at the share `from` and ends
// at `to`, 0 to 1. `whole` outlives the part.
Progress PartOf(const Progress& whole, double from, double to);
// Of the first and the second of two equal parts.
Progress FirstHalf(const Progress& whole);
Progress SecondHalf(const Progress& whole);

}  // namespace tembrel
