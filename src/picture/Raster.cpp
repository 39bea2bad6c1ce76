#include "picture/Raster.h"

#include <algorithm>
#include <cstdlib>

namespace tembrel {

namespace {

constexpr int kFarthest = 1 << 29;

// How many pixels are drawn and left out in turn; no gaps when `off` is 0.
struct Pattern {
  std::int64_t on = 1;
  std::int64_t off = 0;
  std::int64_t start = 0;  // pixels of the pattern that are over when a line begins; less than on + off

  bool Draws(std::int64_t index) const { return (index + start) % (on + off) < on; }
};

Pattern PatternOf(const Pen& pen) {
  const std::int64_t scale = std::max(pen.patternScale, 1);
  switch (pen.style) {
    case PenStyle::Dash:
      return {18 * scale, 6 * scale, std::max(pen.patternStart, 0) % (kDashPeriod * scale)};
    case PenStyle::Dot:
      return {3 * scale, 3 * scale, std::max(pen.patternStart, 0) % (6 * scale)};
    case PenStyle::Solid:
      break;
  }
  return {};
}

// The raster with a size that its pixels really have.
Raster Sound(Raster raster) {
  raster.stride = std::max(raster.stride, 0);
  raster.width = std::clamp(raster.width, 0, raster.stride);
  const auto held = static_cast<std::int64_t>(raster.pixels.size());
  if (raster.width == 0 || held < raster.width) {
    raster.height = 0;
  } else {
    const std::int64_t rows = (held - raster.width) / raster.stride + 1;
    raster.height = static_cast<int>(std::clamp<std::int64_t>(raster.height, 0, rows));
  }
  return raster;
}

// One dimension of a line: along its longer side ("major") or across it.
struct Axis {
  std::int64_t from = 0;
  std::int64_t direction = 1;  // 1 or -1
  std::int64_t length = 0;     // steps to the other end

  Axis(int start, int end)
      : from(std::clamp(start, -kFarthest, kFarthest)),
        direction(end < start ? -1 : 1),
        length(std::abs(static_cast<std::int64_t>(std::clamp(end, -kFarthest, kFarthest)) - from)) {}
};

// A line's steps that lie inside the raster along the major axis; empty when first > last.
struct Steps {
  std::int64_t first = 0;
  std::int64_t last = 0;

  Steps(const Axis& major, std::int64_t limit) {
    const std::int64_t entering = major.direction > 0 ? -major.from : major.from - (limit - 1);
    const std::int64_t leaving = major.direction > 0 ? limit - 1 - major.from : major.from;
    first = std::max<std::int64_t>(entering, 0);
    last = std::min(leaving, major.length);
  }
};

// `raster` is sound. Pixels [low, high] along the major axis, `thickness` across.
void FillAlong(const Raster& raster, bool horizontal, std::int64_t low, std::int64_t high,
               std::int64_t across, const Pen& pen) {
  const auto from = static_cast<int>(low);
  const auto length = static_cast<int>(high - low + 1);
  const int edge = static_cast<int>(across) - (pen.thickness - 1) / 2;
  FillRect(raster,
           horizontal ? PixelRect{from, edge, length, pen.thickness}
                      : PixelRect{edge, from, pen.thickness, length},
           pen.color);
}

void DrawStraight(const Raster& raster, bool horizontal, const Axis& major, std::int64_t across,
                  const Steps& steps, const Pen& pen) {
  const Pattern pattern = PatternOf(pen);
  const std::int64_t period = pattern.off == 0 ? major.length + 1 : pattern.on + pattern.off;
  const std::int64_t on = pattern.off == 0 ? period : pattern.on;
  const std::int64_t phase = pattern.start;
  for (std::int64_t start = (steps.first + phase) / period * period - phase; start <= steps.last;
       start += period) {
    const std::int64_t first = std::max(start, steps.first);
    const std::int64_t last = std::min(start + on - 1, steps.last);
    if (first <= last) {
      const std::int64_t one = major.from + major.direction * first;
      const std::int64_t other = major.from + major.direction * last;
      FillAlong(raster, horizontal, std::min(one, other), std::max(one, other), across, pen);
    }
  }
}

void DrawSlanted(const Raster& raster, bool horizontal, const Axis& major, const Axis& minor,
                 const Steps& steps, const Pen& pen) {
  const Pattern pattern = PatternOf(pen);
  const std::int64_t breadth = horizontal ? raster.height : raster.width;
  const std::int64_t whole = 2 * major.length;
  // The distance across, rounded, is (2 × step × minor + major) / (2 × major); kept as quotient and
  // remainder.
  const std::int64_t start = 2 * steps.first * minor.length + major.length;
  std::int64_t offset = start / whole;
  std::int64_t remainder = start % whole;
  for (std::int64_t step = steps.first; step <= steps.last; ++step) {
    if (pattern.Draws(step)) {
      const std::int64_t along = major.from + major.direction * step;
      const std::int64_t across = minor.from + minor.direction * offset;
      if (pen.thickness > 1) {
        FillAlong(raster, horizontal, along, along, across, pen);
      } else if (across >= 0 && across < breadth) {
        const std::int64_t at = horizontal ? across * raster.stride + along : along * raster.stride + across;
        raster.pixels[static_cast<std::size_t>(at)] = pen.color;
      }
    }
    remainder += 2 * minor.length;
    if (remainder >= whole) {
      remainder -= whole;
      ++offset;
    }
  }
}

// The line's ends where they fall into a gap.
void DrawEnds(const Raster& raster, bool horizontal, const Axis& major, const Axis& minor, const Pen& pen) {
  const Pattern pattern = PatternOf(pen);
  if (!pattern.Draws(0)) {
    FillAlong(raster, horizontal, major.from, major.from, minor.from, pen);
  }
  if (!pattern.Draws(major.length)) {
    const std::int64_t end = major.from + major.direction * major.length;
    FillAlong(raster, horizontal, end, end, minor.from + minor.direction * minor.length, pen);
  }
}

}  // namespace

PixelRect Clipped(const PixelRect& rect, int width, int height) {
  const std::int64_t left = std::max(rect.x, 0);
  const std::int64_t top = std::max(rect.y, 0);
  const std::int64_t right = std::min(std::int64_t{rect.x} + rect.width, std::int64_t{width});
  const std::int64_t bottom = std::min(std::int64_t{rect.y} + rect.height, std::int64_t{height});
  if (left >= right || top >= bottom) {
    return {};
  }
  return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(right - left),
          static_cast<int>(bottom - top)};
}

void Fill(const Raster& raster, Rgb color) {
  FillRect(raster, {0, 0, raster.width, raster.height}, color);
}

void FillRect(const Raster& raster, const PixelRect& rect, Rgb color) {
  const Raster sound = Sound(raster);
  const PixelRect part = Clipped(rect, sound.width, sound.height);
  if (part.Empty()) {
    return;
  }
  Rgb* row = sound.pixels.data() + static_cast<std::ptrdiff_t>(part.y) * sound.stride + part.x;
  for (int y = 0; y < part.height; ++y, row += sound.stride) {
    std::fill_n(row, part.width, color);
  }
}

void DrawLine(const Raster& raster, const Line& line, const Pen& pen) {
  const Raster sound = Sound(raster);
  const Axis x(line.x1, line.x2);
  const Axis y(line.y1, line.y2);
  if (sound.height == 0 || pen.thickness < 1) {
    return;
  }
  const bool horizontal = x.length > y.length;
  const Axis& major = horizontal ? x : y;
  const Axis& minor = horizontal ? y : x;
  const Steps steps(major, horizontal ? sound.width : sound.height);
  if (minor.length == 0) {
    DrawStraight(sound, horizontal, major, minor.from, steps, pen);
  } else {
    DrawSlanted(sound, horizontal, major, minor, steps, pen);
  }
  if (pen.drawsEnds) {
    DrawEnds(sound, horizontal, major, minor, pen);
  }
}

}  // namespace tembrel
