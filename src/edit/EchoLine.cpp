#include "edit/EchoLine.h"

#include <algorithm>
#include <utility>

#include "edit/FloatBlock.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr int kEchoPercent = 22;
// Samples that run through all taps at a time: they and what is echoed stay in the processor's cache.
constexpr std::size_t kRun = 8192;
// Samples that go into a tap's memory before the last of them are moved to its start.
constexpr std::size_t kRoom = 4 * kRun;

TEMBREL_WIDE_LOOPS
void AddEchoes(const float* __restrict samples, const float* __restrict echoed, float* __restrict out,
               std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    out[i] = static_cast<float>(samples[i] + kEchoPercent * static_cast<double>(echoed[i]) * 0.01);
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
          editor.Allocate((static_cast<std::uint64_t>(tap.distance) + kRoom) * sizeof(float));
      if (!block) {
        return std::nullopt;
      }
      tap.outputs = std::move(*block);
    }
  }
  line.Restart();
  return line;
}

// What stands for the outputs before the first is never echoed.
void EchoLine::Restart() {
  position = 0;
  for (Tap& tap : taps) {
    tap.filled = static_cast<std::size_t>(tap.distance);
  }
}

void EchoLine::Continue(std::span<float> samples) {
  while (!samples.empty()) {
    const std::span<float> run = samples.first(std::min(kRun, samples.size()));
    Run(run);
    samples = samples.subspan(run.size());
  }
}

void EchoLine::Run(std::span<float> samples) {
  std::span<const float> heard = samples;
  for (Tap& tap : taps) {
    if (!tap.outputs.Empty()) {
      heard = RunTap(tap, heard, position);
    }
  }
  if (heard.data() != samples.data()) {
    std::ranges::copy(heard, samples.begin());
  }
  position += static_cast<std::int64_t>(samples.size());
}

// The outputs, which stay where they are until the tap's next run.
std::span<const float> EchoLine::RunTap(Tap& tap, std::span<const float> samples, std::int64_t position) {
  const std::span<float> outputs = AsFloats(tap.outputs);
  const auto distance = static_cast<std::size_t>(tap.distance);
  if (tap.filled + samples.size() > outputs.size()) {
    std::copy_n(&outputs[tap.filled] - distance, distance, outputs.begin());
    tap.filled = distance;
  }
  const std::span<float> out = outputs.subspan(tap.filled, samples.size());
  const auto silent = static_cast<std::size_t>(
      std::clamp<std::int64_t>(tap.start - position, 0, static_cast<std::int64_t>(samples.size())));
  std::ranges::copy(samples.first(silent), out.begin());
  // A delay of 0 echoes the sample itself. Otherwise at most `distance` outputs can be had at a time.
  for (std::size_t at = silent; at < samples.size();) {
    const std::size_t length = distance == 0 ? samples.size() - at : std::min(distance, samples.size() - at);
    const float* const echoed = distance == 0 ? &samples[at] : &out[at] - distance;
    AddEchoes(&samples[at], echoed, &out[at], length);
    at += length;
  }
  tap.filled += samples.size();
  return out;
}

}  // namespace tembrel
