// The two lines of the position counter.
#pragma once

#include <cstdint>
#include <string>

namespace tembrel {

// The frame as a whole number.
std::string CounterFrameText(std::int64_t frame);

// frame / rate in seconds with three decimals, a point whatever the locale; a rate of 0 or less gives
// "0.000".
std::string CounterTimeText(std::int64_t frame, std::int64_t rate);

}  // namespace tembrel
