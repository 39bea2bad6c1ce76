// What the plot of a spectrum consists of: the lines of its grid and the points its traces join, in device
// pixels.
#pragma once

#include <vector>

#include "analysis/Spectrum.h"
#include "analysis/SpectrumView.h"
#include "picture/Picture.h"

namespace tembrel {

// In painting order.
enum class SpectrumLayer { Level, CentreLevel, Bin };

struct SpectrumLine {
  SpectrumLayer layer = SpectrumLayer::Level;
  Line line;

  bool operator==(const SpectrumLine&) const = default;
};

// Eleven horizontal lines, the sixth of them the centre's, and a vertical one at each mark of the bins.
std::vector<SpectrumLine> SpectrumGrid(const PaintArea& area, const SpectrumView& view);

enum class TraceSide {
  Up,   // from mid-height upwards
  Down  // and downwards: the right channel
};

struct PlotPoint {
  int x = 0;
  int y = 0;

  bool operator==(const PlotPoint&) const = default;
};

// One point for every bin from the first shown to the last of all; those behind the last shown lie right of
// the area. The difference of the largest and the smallest power of all bins is half the height; bins of one
// power all lie at mid-height.
std::vector<PlotPoint> TracePoints(const SpectrumBins& bins, const PaintArea& area, const SpectrumView& view,
                                   TraceSide side);

}  // namespace tembrel
