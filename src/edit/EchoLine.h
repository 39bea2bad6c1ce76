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

// How the sums of sound and echo are rounded: from double precision, or from single precision, several times
// as fast and with a little other result.
enum class EchoRounding { Exact, Near };

// How far near outputs are from exact ones at most, for samples up to 1.01. In each tap the output, at most
// 1.01 / 0.78^4 = 2.73, is rounded once exactly and once nearly, and nearly also the echo, a fifth of it, and
// the factor: less than 3 × 2^-24 of it in all. A tap's own echoes and the next tap each pass an error on
// with a gain of 1 / 0.78, so that the last output is off by less than 4 × 3 × 2^-24 × 2.73 / 0.78 = 2.6e-6.
inline constexpr float kNearEchoError = 0x1p-18F;  // 3.8e-6

// Tap k (0 to 3) adds, from the sample (2k + 1) × delay on, 22 % of its own output (k + 1) × delay samples
// earlier to the output of the tap before it: the echoes of a tap are echoed again.
class EchoLine {
 public:
  // For `count` samples in all. Nothing when there is no memory, as the editor then says.
  static std::optional<EchoLine> Make(ClipEditor& editor, std::int64_t count, std::int64_t delay);

  // Begins with the first sample again.
  void Restart(EchoRounding newRounding = EchoRounding::Exact);
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

  explicit EchoLine(std::int64_t delaySamples);
  std::int64_t LengthOfRun() const;
  float* Outputs(Tap& tap) const;
  void Run(std::span<float> samples);

  std::int64_t delay;
  EchoRounding rounding = EchoRounding::Exact;
  std::int64_t position = 0;
  std::array<Tap, kEchoTaps> taps;
};

}  // namespace tembrel
