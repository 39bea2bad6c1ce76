#include "tests/view/PlainWaveLines.h"

#include <algorithm>

namespace tembrel {
namespace {

struct Point {
  std::int64_t x;
  std::int64_t y;
};

Line Between(Point a, Point b) {
  return {static_cast<int>(a.x), static_cast<int>(a.y), static_cast<int>(b.x), static_cast<int>(b.y)};
}

std::int64_t RowOf(const AudioClip& clip, std::size_t index, const PaintArea& area, bool right) {
  const std::size_t size = BytesPerSample(clip.format.wBitsPerSample);
  const auto byteAt = [&](std::size_t i) { return std::to_integer<int>(clip.Bytes()[i]); };
  const std::int64_t H = area.height;
  std::int64_t level = 0;
  std::int64_t full = 0;
  if (size == 1) {
    const int b = byteAt(index);
    level = b >= 128 ? 128 - b : 127 - b;
    full = 128;
  } else {
    int v = byteAt(index * size + size - 1) * 256 + byteAt(index * size + size - 2);
    v = v >= 32768 ? v - 65536 : v;
    level = -v;
    full = 32767;
  }
  if (clip.format.nChannels == 1) {
    return (H * 10 / 11 / 2 * level) / full + H / 2;
  }
  const std::int64_t scale = std::max<std::int64_t>((H - area.Scaled(12)) * 10 / 11 / 4, 0);
  return scale * level / full + (right ? 3 * H / 4 : H / 4);
}

std::vector<Line> Joined(const std::vector<Point>& points) {
  std::vector<Line> lines;
  Point pen = points.front();
  std::int64_t low = pen.y;
  std::int64_t high = pen.y;
  std::int64_t column = pen.x;
  for (const Point& point : points) {
    if (point.x != column) {
      column = point.x;
      low = high = point.y;
    } else if (point.y < low) {
      low = point.y;
    } else if (point.y > high) {
      high = point.y;
    } else {
      continue;
    }
    lines.push_back(Between(pen, point));
    pen = point;
  }
  return lines;
}

std::vector<Line> Columns(const std::vector<Point>& points) {
  std::vector<Line> lines;
  std::int64_t column = points.front().x;
  std::int64_t low = points.front().y;
  std::int64_t high = low;
  for (const Point& point : points) {
    if (point.x != column) {
      lines.push_back(Between({column, low}, {low == high ? point.x : column, high}));
      column = point.x;
      low = high = point.y;
    }
    low = std::min(low, point.y);
    high = std::max(high, point.y);
  }
  lines.push_back(Between({column, low}, {column, high}));
  return lines;
}

}  // namespace

std::vector<Line> PlainWaveLines(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                                 std::int64_t framesOnScreen) {
  const std::int64_t channels = clip.format.nChannels;
  const std::int64_t sampleBytes = BytesPerSample(clip.format.wBitsPerSample);
  if (channels == 0 || sampleBytes == 0 || framesOnScreen <= 0 || area.width <= 0 || area.height <= 0) {
    return {};
  }
  const std::int64_t total = clip.dataSize / (channels * sampleBytes);
  const std::int64_t end = std::min(total, first + framesOnScreen);
  if (first >= end) {
    return {};
  }
  const std::int64_t x1 = std::min<std::int64_t>((end - first) * area.width / framesOnScreen, area.width);
  const std::int64_t firstIndex = first * channels;
  const std::int64_t lastIndex = end * channels;
  const std::int64_t samples = lastIndex - firstIndex;
  std::int64_t step = 1;
  if (sampleBytes > 1) {
    step = samples >= 3000001 ? 20 : samples > 80 * std::max<std::int64_t>(x1, 1) ? 5 : 1;
  }
  std::vector<Line> lines;
  for (std::int64_t channel = 0; channel < std::min<std::int64_t>(channels, 2); ++channel) {
    std::vector<Point> points;
    for (std::int64_t i = firstIndex; i < lastIndex; i += step * channels) {
      points.push_back({x1 * (i - firstIndex) / (lastIndex - firstIndex),
                        RowOf(clip, static_cast<std::size_t>(i + channel), area, channel == 1)});
    }
    const std::vector<Line> drawn = samples <= 2 * x1 ? Joined(points) : Columns(points);
    lines.insert(lines.end(), drawn.begin(), drawn.end());
  }
  return lines;
}

}  // namespace tembrel
