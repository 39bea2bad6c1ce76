// The spacing of time marks and where they fall: shared by the grid's vertical lines and the time ruler, so
// that a ruler's tick always stands over its line.
#pragma once

#include <cstdint>
#include <vector>

namespace tembrel {

inline constexpr std::uint32_t kRateWithoutClip = 44100;  // hertz, for time marks while there is no sound
inline constexpr int kTimeMarkSpacing = 120;              // logical pixels aimed at between two marks

// Seconds between marks for a wish of `raw` seconds: trunc(raw) above 1; otherwise the largest of 0.5, 0.2,
// 0.1 ... 0.00001 that is strictly below raw (so exactly 1 gives 0.5), and 0.00001 for anything at or below
// 0.00002.
double TimeStep(double raw);

// The part of a sound whose marks are wanted, and the pixels it is shown on.
struct TimeView {
  std::uint32_t rate = kRateWithoutClip;  // hertz; 0 counts as kRateWithoutClip
  std::int64_t first = 0;                 // frame at the left edge
  std::int64_t framesOnScreen = 0;        // frames over the whole width
  int width = 0;                          // device pixels
  int logicalWidth = 0;                   // the same in logical pixels; decides the spacing
};

struct TimeMark {
  int x = 0;             // 0..width-1, device pixels
  double seconds = 0.0;  // from the start of the sound

  bool operator==(const TimeMark&) const = default;
};

struct TimeMarks {
  double step = 0.0;  // seconds between marks
  std::vector<TimeMark> marks;
};

// The marks at t = trunc(start / step) × step and every step while t < start + span, at x = trunc((t - start)
// × width / span), all in exact integer arithmetic: a mark does not move by a pixel when the view scrolls.
// Marks left of the view are left out. A view of no frames or no width has no marks; the number of marks is
// bounded by the width.
TimeMarks MarksOf(const TimeView& view);

}  // namespace tembrel
