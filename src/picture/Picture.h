// What a painted view consists of: lines in device pixels, each in a layer that says with which pen it is
// drawn. Computed without a window; the raster, the widget and the scalable drawing all paint from these.
#pragma once

#include <cmath>

namespace tembrel {

// Both ends belong to the line: a full-width line runs from 0 to width - 1.
struct Line {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;

  bool operator==(const Line&) const = default;
};

// In painting order. A Band is the filled rectangle between its two corners, both included.
enum class Layer { Band, Grid, Centre, Time, Wave };

struct LayerLine {
  Layer layer = Layer::Grid;
  Line line;

  bool operator==(const LayerLine&) const = default;
};

// The area painted, in device pixels. `scale` is device pixels per logical pixel (1.0, 1.5, 2.0, ...);
// distances that are stated in pixels are multiplied by it.
struct PaintArea {
  int width = 0;
  int height = 0;
  double scale = 1.0;

  // The scale, or 1 when it is no usable number.
  double Scale() const { return scale > 0.0 && scale < 64.0 ? scale : 1.0; }
  // A distance of `pixels` logical pixels in device pixels, rounded.
  int Scaled(int pixels) const { return static_cast<int>(std::lround(pixels * Scale())); }
  int LogicalWidth() const { return static_cast<int>(std::lround(width / Scale())); }

  bool operator==(const PaintArea&) const = default;
};

}  // namespace tembrel
