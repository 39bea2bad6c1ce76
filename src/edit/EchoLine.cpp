#include "edit/EchoLine.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr double kEcho = 0.22;
// Samples that run through all taps at a time, while they are in the processor's first cache.
constexpr std::int64_t kRun = 1024;

// Vectors that lie in two cache lines take twice as long.
constexpr std::size_t kCacheLine = 64;
constexpr auto kAligned = static_cast<std::int64_t>(kCacheLine / sizeof(float));

TEMBREL_WIDEST_LOOPS
void Widen(const float* __restrict samples, double* __restrict values, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    values[i] = samples[i];
  }
}

TEMBREL_WIDEST_LOOPS
void Narrow(const double* __restrict values, float* __restrict samples, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] = static_cast<float>(values[i]);
  }
}

// Each output takes the place of the one that it echoes. All values are floats.
TEMBREL_WIDEST_LOOPS
void AddEchoes(double* __restrict values, float* __restrict outputs, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const double sum = values[i] + static_cast<double>(outputs[i]) * kEcho;
    outputs[i] = static_cast<float>(sum);
    values[i] = outputs[i];
  }
}

// One tap after the other, sample by sample: what lies between them stays in the processor.
TEMBREL_WIDEST_LOOPS
void AddFourEchoes(float* __restrict samples, float* __restrict first, float* __restrict second,
                   float* __restrict third, float* __restrict fourth, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    first[i] = static_cast<float>(static_cast<double>(samples[i]) + static_cast<double>(first[i]) * kEcho);
    second[i] = static_cast<float>(static_cast<double>(first[i]) + static_cast<double>(second[i]) * kEcho);
    third[i] = static_cast<float>(static_cast<double>(second[i]) + static_cast<double>(third[i]) * kEcho);
    fourth[i] = static_cast<float>(static_cast<double>(third[i]) + static_cast<double>(fourth[i]) * kEcho);
    samples[i] = fourth[i];
  }
}

// The same in single precision.
TEMBREL_WIDEST_LOOPS
void AddFourEchoesNearly(float* __restrict samples, float* __restrict first, float* __restrict second,
                         float* __restrict third, float* __restrict fourth, std::size_t count) {
  constexpr auto kNearEcho = static_cast<float>(kEcho);
  for (std::size_t i = 0; i < count; ++i) {
    first[i] = samples[i] + first[i] * kNearEcho;
    second[i] = first[i] + second[i] * kNearEcho;
    third[i] = second[i] + third[i] * kNearEcho;
    fourth[i] = third[i] + fourth[i] * kNearEcho;
    samples[i] = fourth[i];
  }
}

// A delay of 0.
void EchoSamplesThemselves(std::span<double> values) {
  for (double& value : values) {
    value = static_cast<float>(value + value * kEcho);
  }
}

std::int64_t RoundedUp(std::int64_t count) {
  return (count + kAligned - 1) / kAligned * kAligned;
}

// From the first cache line on.
float* AsFloats(MemoryBlock& block) {
  void* start = block.Data();
  std::size_t size = block.Size();
  return static_cast<float*>(std::align(kCacheLine, sizeof(float), start, size));
}

}  // namespace

EchoLine::EchoLine(std::int64_t delaySamples) : delay(delaySamples) {
  for (std::size_t k = 0; k < taps.size(); ++k) {
    const auto number = static_cast<std::int64_t>(k);
    taps.at(k).delays = number + 1;
    taps.at(k).start = (2 * number + 1) * delay;
  }
}

std::optional<EchoLine> EchoLine::Make(ClipEditor& editor, std::int64_t count, std::int64_t delay) {
  EchoLine line(delay);
  for (Tap& tap : line.taps) {
    tap.echoes = tap.start < count;
    if (tap.echoes) {
      std::optional<MemoryBlock> block = editor.Allocate(
          static_cast<std::uint64_t>(tap.delays * RoundedUp(delay)) * sizeof(float) + kCacheLine);
      if (!block) {
        return std::nullopt;
      }
      tap.outputs = std::move(*block);
    }
  }
  return line;
}

// What stands in for outputs before the first is never echoed.
void EchoLine::Restart(EchoRounding newRounding) {
  rounding = newRounding;
  position = 0;
}

void EchoLine::Continue(std::span<float> samples) {
  while (!samples.empty()) {
    const std::span<float> run =
        samples.first(std::min(static_cast<std::size_t>(LengthOfRun()), samples.size()));
    Run(run);
    samples = samples.subspan(run.size());
  }
}

// Up to the end of a delay at most, and from an aligned output if possible.
std::int64_t EchoLine::LengthOfRun() const {
  if (delay == 0) {
    return kRun;
  }
  const std::int64_t at = position % delay;
  const std::int64_t wanted = at % kAligned == 0 ? kRun : kAligned - at % kAligned;
  return std::min(wanted, delay - at);
}

// Where the outputs of the samples at the present position stand.
float* EchoLine::Outputs(Tap& tap) const {
  return AsFloats(tap.outputs) + position / delay % tap.delays * RoundedUp(delay) + position % delay;
}

void EchoLine::Run(std::span<float> samples) {
  const bool all = delay > 0 && std::ranges::all_of(taps, [this](const Tap& tap) {
                     return tap.echoes && position >= tap.start;
                   });
  if (all) {
    const auto add = rounding == EchoRounding::Exact ? AddFourEchoes : AddFourEchoesNearly;
    add(samples.data(), Outputs(taps[0]), Outputs(taps[1]), Outputs(taps[2]), Outputs(taps[3]),
        samples.size());
    position += static_cast<std::int64_t>(samples.size());
    return;
  }
  alignas(kCacheLine) std::array<double, kRun> buffer;
  const std::span<double> values = std::span(buffer).first(samples.size());
  Widen(samples.data(), values.data(), values.size());
  for (Tap& tap : taps) {
    if (!tap.echoes) {
      continue;
    }
    if (delay == 0) {
      EchoSamplesThemselves(values);
      continue;
    }
    float* const outputs = Outputs(tap);
    if (position < tap.start) {
      Narrow(values.data(), outputs, values.size());
    } else {
      AddEchoes(values.data(), outputs, values.size());
    }
  }
  Narrow(values.data(), samples.data(), values.size());
  position += static_cast<std::int64_t>(samples.size());
}

}  // namespace tembrel
