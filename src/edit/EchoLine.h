// The echoes of Reverb on one channel that comes piece by piece.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "edit/ClipEditor.h"

namespace tembrel {

inline constexpr std::size_t kEchoTaps = 4;

// Tap k (0 to 3) adds, from the sample (2k + 1) × delay on, 22 % of its own output (k + 1) × delay samples
// earlier to the output of the tap before it: the echoes of a tap are echoed again.
class EchoLine {
 public:
  // For `count` samples in all. Nothing when there is no memory, as the editor then says.
  static std::optional<EchoLine> Make(ClipEditor& editor, std::int64_t count, std::uint32_t delay);

  // Begins with the first sample again.
  void Restart();
  // Puts the next samples, in place.
  void Continue(std::span<float> samples);

 private:
  struct Tap {
    std::int64_t delays = 0;  // to what is echoed
    std::int64_t start = 0;   // the first sample that hears an echo
    bool echoes = false;      // there is such a sample
    // The outputs of the last `delays` delays, each delay in its own row of floats.
    MemoryBlock outputs;
  };

  explicit EchoLine(std::uint32_t delaySamples);
  std::int64_t LengthOfRun() const;
  float* Outputs(Tap& tap) const;
  void Run(std::span<float> samples);

  std::int64_t delay;
  std::int64_t position = 0;
  std::array<Tap, kEchoTaps> taps;
};

}  // namespace tembrel
