// The sound of a plucked string: a burst of noise that runs round a delay line as long as one period and is
// smoothed a little each time. For the demo recording.
#pragma once

#include <cstdint>
#include <vector>

namespace tembrel {

// `frames` samples between -1 and 1 at `rate` hertz, decaying. The same arguments give the same samples;
// `seed` makes the pluck. Empty when the pitch in hertz is not above 0 and at most half the rate.
std::vector<double> PluckString(double pitch, double rate, std::size_t frames, std::uint32_t seed);

}  // namespace tembrel
