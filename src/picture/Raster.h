// A scan-line painter on 32-bit pixels someone else owns: fills, rectangles and one-colour lines, without
// antialiasing. Needed to paint tens of thousands of short lines within a frame.
#pragma once

#include <cstdint>
#include <span>

#include "picture/Picture.h"

namespace tembrel {

using Rgb = std::uint32_t;  // 0xFFRRGGBB

// A rectangle of `width` × `height` pixels with its top left corner at (x, y).
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool Empty() const { return width <= 0 || height <= 0; }
  bool operator==(const PixelRect&) const = default;
};

// Rows from top to bottom, `stride` pixels apart. Everything drawn is clipped to it, and to what the span
// really holds.
struct Raster {
  std::span<Rgb> pixels;
  int width = 0;
  int height = 0;
  int stride = 0;
};

inline constexpr int kDashPeriod = 24;  // pixels of a dash and the gap after it

enum class PenStyle {
  Solid,
  Dash,  // 18 pixels on, 6 off; kDashPeriod together
  Dot    // 3 on, 3 off
};

// Gaps leave what is below. The pattern starts anew with each line, after its first `patternStart` pixels,
// and is counted along the line's longer side. With `drawsEnds` the line's first and last pixel are drawn
// even where the pattern has a gap.
struct Pen {
  Rgb color = 0xFF000000;
  int thickness = 1;  // pixels, across the line's longer side
  PenStyle style = PenStyle::Solid;
  int patternScale = 1;  // pixels one pixel of the pattern stands for
  int patternStart = 0;  // at least 0; pixels of the raster, so patternScale times those of the pattern
  bool drawsEnds = false;

  bool operator==(const Pen&) const = default;
};

// The part of `rect` inside an area of width × height.
PixelRect Clipped(const PixelRect& rect, int width, int height);

void Fill(const Raster& raster, Rgb color);
void FillRect(const Raster& raster, const PixelRect& rect, Rgb color);

// Both ends are drawn. Coordinates beyond ±2^29 are moved to that limit.
void DrawLine(const Raster& raster, const Line& line, const Pen& pen);

}  // namespace tembrel
