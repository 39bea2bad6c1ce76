#include "edit/EchoPeak.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "edit/EchoLine.h"
#include "edit/FloatBlock.h"
#include "edit/SampleFloat.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

TEMBREL_WIDE_LOOPS
void RaiseTo(float* __restrict magnitudes, const float* __restrict values, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    magnitudes[i] = std::max(magnitudes[i], std::fabs(values[i]));
  }
}

}  // namespace

NearPeak::NearPeak(MemoryBlock block) : columns(std::move(block)) {
  std::ranges::fill(AsFloats(columns), 0.0F);
}

std::optional<NearPeak> NearPeak::Make(ClipEditor& editor, std::int64_t columnCount) {
  std::optional<MemoryBlock> block = editor.Allocate(static_cast<std::uint64_t>(columnCount) * sizeof(float));
  return block ? std::optional(NearPeak(std::move(*block))) : std::nullopt;
}

// Near outputs two errors below the largest are below it exactly too. Nothing is divided by a peak of 1 or
// less: where that stands does not matter.
void NearPeak::Take(std::span<const float> outputs, std::int64_t column) {
  const float magnitude = LargestMagnitude(outputs);
  largest = std::max(largest, magnitude);
  if (magnitude < std::max(largest, 1.0F) - 2 * kNearEchoError) {
    return;
  }
  const std::span<float> magnitudes = AsFloats(columns);
  for (auto at = static_cast<std::size_t>(column); !outputs.empty(); at = 0) {
    const std::size_t count = std::min(outputs.size(), magnitudes.size() - at);
    RaiseTo(magnitudes.data() + at, outputs.data(), count);
    outputs = outputs.subspan(count);
  }
}

void NearPeak::AddColumns(float magnitude, std::int64_t first, std::vector<std::int64_t>& found) const {
  const std::span<const float> magnitudes = AsFloats(columns);
  for (std::size_t column = 0; column < magnitudes.size() && found.size() <= kMostColumns; ++column) {
    if (magnitudes[column] >= magnitude - 2 * kNearEchoError) {
      found.push_back(first + static_cast<std::int64_t>(column));
    }
  }
}

bool MayPassUnity(float magnitude) {
  return magnitude + kNearEchoError > 1.0F;
}

// The columns side by side are a sound of their own, with as many samples in a delay as there are columns.
std::optional<float> PeakOfColumns(ClipEditor& editor, const EffectFrames& range,
                                   std::span<const std::byte> frames, std::size_t channel, std::int64_t delay,
                                   std::span<const std::int64_t> columns) {
  std::optional<EchoLine> line =
      EchoLine::Make(editor, range.count, static_cast<std::int64_t>(columns.size()));
  if (!line) {
    return std::nullopt;
  }
  const std::size_t frameSize = FrameSize(range.format);
  std::vector<std::byte> gathered(columns.size() * frameSize);
  std::vector<float> outputs(columns.size());
  float peak = 0;
  for (std::int64_t row = 0; row < range.count; row += delay) {
    std::size_t count = 0;
    for (const std::int64_t column : columns) {
      const std::int64_t frame = row + column;
      if (frame < range.count) {
        std::memcpy(gathered.data() + count * frameSize,
                    frames.data() + static_cast<std::size_t>(frame) * frameSize, frameSize);
        ++count;
      }
    }
    const std::span<float> values = std::span(outputs).first(count);
    SamplesToFloat(range.format, std::span(gathered).first(count * frameSize), values,
                   static_cast<std::int64_t>(count), range.Selector(channel));
    line->Continue(values);
    peak = std::max(peak, LargestMagnitude(values));
  }
  return peak;
}

}  // namespace tembrel
