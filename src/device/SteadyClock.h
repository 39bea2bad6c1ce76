// The machine's millisecond clock, which nobody can set.
#pragma once

#include <chrono>

#include "device/PlayClock.h"

namespace tembrel {

class SteadyClock : public MillisecondClock {
 public:
  std::uint32_t Now() const override {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
  }
};

}  // namespace tembrel
