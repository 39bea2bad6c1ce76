#include "analysis/SpectrumPicture.h"

#include <algorithm>
#include <cmath>

#include "analysis/BinMarks.h"
#include "analysis/SpectrumLines.h"

namespace tembrel {

namespace {

Pen PenOf(Rgb color, const PaintArea& area, PenStyle style = PenStyle::Solid) {
  const int thickness = std::max(1, static_cast<int>(std::floor(area.Scale())));
  return {color, thickness, style, thickness};
}

Rgb ColorOf(SpectrumLayer layer) {
  switch (layer) {
    case SpectrumLayer::Level:
      break;
    case SpectrumLayer::CentreLevel:
      return kSpectrumCentreColor;
    case SpectrumLayer::Bin:
      return kSpectrumBinColor;
  }
  return kSpectrumLevelColor;
}

void PaintTrace(const Raster& raster, const std::vector<PlotPoint>& points, const Pen& pen) {
  for (std::size_t i = 1; i < points.size() && points[i - 1].x < raster.width; ++i) {
    DrawLine(raster, {points[i - 1].x, points[i - 1].y, points[i].x, points[i].y}, pen);
  }
}

}  // namespace

void PaintSpectrum(const Raster& raster, const Spectrum* spectrum, const PaintArea& area,
                   const SpectrumView& view) {
  Fill(raster, kSpectrumPaperColor);
  for (const auto& [layer, line] : SpectrumGrid(area, view)) {
    DrawLine(raster, line, PenOf(ColorOf(layer), area));
  }
  if (spectrum == nullptr) {
    return;
  }
  PaintTrace(raster, TracePoints(spectrum->bins, area, view, TraceSide::Up), PenOf(kSpectrumLeftColor, area));
  if (!spectrum->right.empty()) {
    PaintTrace(raster, TracePoints(spectrum->right, area, view, TraceSide::Down),
               PenOf(kSpectrumRightColor, area));
  }
}

void PaintMarker(const Raster& raster, const PaintArea& area, const SpectrumView& view) {
  const int x =
      BinToPixel({view.FirstBin(), view.VisibleBins(), area.width, area.LogicalWidth()}, view.MarkerBin());
  DrawLine(raster, {x, 0, x, area.height - 1}, PenOf(kSpectrumMarkerColor, area, PenStyle::Dot));
}

}  // namespace tembrel
