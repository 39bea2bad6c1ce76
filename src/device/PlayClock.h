// The arithmetic of playing: frames, milliseconds and the millisecond clock.
#pragma once

#include <cstdint>

namespace tembrel {

// Milliseconds since some moment, unsigned 32-bit: after 49.7 days they start again from 0. Differences of
// two readings are right all the same.
class MillisecondClock {
 public:
  virtual ~MillisecondClock() = default;
  virtual std::uint32_t Now() const = 0;
};

// Where a frame lies, in milliseconds, truncated toward zero. `rate` in hertz; with 0 everything is at the
// start. What passes 32 bits, weeks of sound, becomes the largest value.
std::int32_t MillisecondsOfFrame(std::int64_t frame, std::uint32_t rate);

// The frame that plays `elapsed` milliseconds after playing began at `startMs`.
std::int64_t PlayedFrame(std::uint32_t elapsed, std::int32_t startMs, std::uint32_t rate);

// Whether a playback from `startMs` to `endMs` is over after `elapsed` milliseconds; one that ends before it
// starts is over at once.
bool PlaybackIsOver(std::uint32_t elapsed, std::int32_t startMs, std::int32_t endMs);

}  // namespace tembrel
