#include "view/WaveLines.h"

#include "view/Amplitude.h"
#include "view/ColumnExtremes.h"
#include "view/WaveSpan.h"

namespace tembrel {

namespace {

// From sample to sample, leaving out those that neither enter a new column nor leave their column's range.
void JoinSamples(const WaveSpan& span, const Amplitude& amplitude, int channel, std::vector<Line>& lines) {
  std::int64_t column = 0;
  int top = amplitude.RowOf(span.SampleAt(0, channel));
  int bottom = top;
  Line next{0, top, 0, top};
  for (std::int64_t frame = span.step; frame < span.frames; frame += span.step) {
    const std::int64_t x = span.ColumnOf(frame);
    const int y = amplitude.RowOf(span.SampleAt(frame, channel));
    if (x == column && y >= top && y <= bottom) {
      continue;
    }
    top = x == column ? std::min(top, y) : y;
    bottom = x == column ? std::max(bottom, y) : y;
    column = x;
    next = {next.x2, next.y2, static_cast<int>(x), y};
    lines.push_back(next);
  }
}

// A vertical line a column; where it would be a point, a step to the next column at that level.
void DrawColumns(const std::vector<Extremes>& columns, const Amplitude& amplitude, std::vector<Line>& lines) {
  for (std::size_t column = 0; column < columns.size();) {
    std::size_t next = column + 1;
    while (next < columns.size() && columns[next].Empty()) {
      ++next;
    }
    const auto x = static_cast<int>(column);
    const int top = amplitude.RowOf(columns[column].high);
    const int bottom = amplitude.RowOf(columns[column].low);
    const bool stepOn = top == bottom && next < columns.size();
    lines.push_back({x, top, stepOn ? static_cast<int>(next) : x, bottom});
    column = next;
  }
}

}  // namespace

bool DrawsAsStereo(const WaveFormat& format) {
  return format.nChannels >= 2;
}

std::int64_t ExaminedStep(bool sixteenBits, std::int64_t samples, std::int64_t columns) {
  if (!sixteenBits) {
    return 1;
  }
  if (samples >= 3'000'001) {
    return 20;
  }
  return samples > 80 * columns ? 5 : 1;
}

bool WaveIsDense(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                 std::int64_t framesOnScreen) {
  const std::optional<WaveSpan> span = WaveSpanOf(clip, area, first, framesOnScreen);
  return span && span->dense;
}

std::vector<Line> WaveLines(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                            std::int64_t framesOnScreen) {
  std::vector<Line> lines;
  const std::optional<WaveSpan> span = WaveSpanOf(clip, area, first, framesOnScreen);
  if (!span) {
    return lines;
  }
  const auto amplitudeOf = [&](int channel) {
    return Amplitude(area, span->sampleBytes == 1, span->channels == 2, channel);
  };
  if (!span->dense) {
    for (int channel = 0; channel < span->channels; ++channel) {
      JoinSamples(*span, amplitudeOf(channel), channel, lines);
    }
    return lines;
  }
  const std::vector<std::vector<Extremes>> columns = ColumnExtremes(*span);
  lines.reserve(static_cast<std::size_t>(span->ColumnCount()) * columns.size());
  for (int channel = 0; channel < span->channels; ++channel) {
    DrawColumns(columns[static_cast<std::size_t>(channel)], amplitudeOf(channel), lines);
  }
  return lines;
}

}  // namespace tembrel
