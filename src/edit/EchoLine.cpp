#include "edit/EchoLine.h"

#include <algorithm>
#include <utility>

#include "edit/FloatBlock.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr int kEchoPercent = 22;
// Samples that run through all taps at a time: they and what is echoed stay in the processor's cache, and
// what is echoed is seldom moved.
constexpr std::size_t kRun = 8192;

inline float WithEcho(float sample, float echoed) {
  return static_cast<float>(sample + kEchoPercent * static_cast<double>(echoed) * 0.01);
}

TEMBREL_WIDE_LOOPS
void AddEchoes(float* __restrict samples, const float* __restrict echoed, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    samples[i] = WithEcho(samples[i], echoed[i]);
  }
}

}  // namespace

EchoLine::EchoLine(std::int64_t sampleCount, std::uint32_t delay) : count(sampleCount) {
  for (std::size_t k = 0; k < taps.size(); ++k) {
    const auto number = static_cast<std::int64_t>(k);
    taps.at(k).distance = (number + 1) * delay;
    taps.at(k).start = (2 * number + 1) * delay;
  }
}

std::optional<EchoLine> EchoLine::Make(ClipEditor& editor, std::int64_t count, std::uint32_t delay) {
  EchoLine line(count, delay);
  for (Tap& tap : line.taps) {
    if (tap.start < count) {
      std::optional<MemoryBlock> block =
          editor.Allocate((static_cast<std::uint64_t>(tap.distance) + kRun) * sizeof(float));
      if (!block) {
        return std::nullopt;
      }
      tap.recent = std::move(*block);
    }
  }
  return line;
}

void EchoLine::Continue(std::span<float> samples) {
  while (!samples.empty()) {
    const std::span<float> run = samples.first(std::min(kRun, samples.size()));
    Run(run);
    samples = samples.subspan(run.size());
  }
}

void EchoLine::Run(std::span<float> samples) {
  for (Tap& tap : taps) {
    if (!tap.recent.Empty()) {
      RunTap(tap, samples, position);
    }
  }
  position += static_cast<std::int64_t>(samples.size());
}

// `recent` holds the outputs from `distance` before the run on, so an output's echo stands at its own index.
void EchoLine::RunTap(Tap& tap, std::span<float> samples, std::int64_t position) {
  const std::span<float> recent = AsFloats(tap.recent);
  const auto distance = static_cast<std::size_t>(tap.distance);
  const auto silent =
      std::clamp<std::int64_t>(tap.start - position, 0, static_cast<std::int64_t>(samples.size()));
  std::ranges::copy(samples, recent.begin() + tap.distance);
  const std::span<float> outputs = recent.subspan(distance);
  // A delay of 0 echoes the sample itself. Otherwise at most `distance` outputs can be had at a time.
  for (auto at = static_cast<std::size_t>(silent); at < samples.size();) {
    const std::size_t length = distance == 0 ? samples.size() - at : std::min(distance, samples.size() - at);
    AddEchoes(&samples[at], &recent[at], length);
    std::copy_n(&samples[at], length, &outputs[at]);
    at += length;
  }
  std::copy_n(recent.begin() + static_cast<std::ptrdiff_t>(samples.size()), distance, recent.begin());
}

}  // namespace tembrel
