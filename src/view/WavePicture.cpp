#include "view/WavePicture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "view/GridLines.h"
#include "view/TimeStep.h"
#include "view/WaveLines.h"

namespace tembrel {

Pen PenOf(Layer layer, const PaintArea& area, bool denseWave) {
  const int thickness = std::max(1, static_cast<int>(std::floor(area.Scale())));
  switch (layer) {
    case Layer::Band:
    case Layer::Grid:
      return {kGridColor, thickness, PenStyle::Solid, thickness};
    case Layer::Centre:
      return {kCentreColor, thickness, PenStyle::Solid, thickness};
    case Layer::Time:
      return {kTimeColor, thickness, PenStyle::Dot, thickness};
    case Layer::Wave:
      break;
  }
  return {kWaveColor, denseWave ? 1 : thickness, PenStyle::Dash, thickness};
}

// Counted from the area's top and not from the column's, or the gaps would follow the outline. The four
// starts are a quarter of the pattern apart each, as long as a gap is, so that the gaps of four columns take
// turns.
Pen ColumnPen(Pen pen, const Line& line) {
  constexpr std::array kStarts{0, 12, 6, 18};
  const auto column = static_cast<std::size_t>(std::max(line.x1, 0));
  const int start = kStarts.at(column % kStarts.size()) * pen.patternScale;
  pen.patternStart = (start + std::max(line.y1, 0)) % (kDashPeriod * pen.patternScale);
  pen.drawsEnds = true;
  return pen;
}

void PaintPicture(const Raster& raster, const AudioClip* clip, const PaintArea& area, std::int64_t first,
                  std::int64_t framesOnScreen) {
  Raster part = raster;
  part.width = std::min(raster.width, area.width);
  part.height = std::min(raster.height, area.height);
  Fill(part, kPaperColor);

  const bool stereo = clip != nullptr && DrawsAsStereo(clip->format);
  const std::uint32_t rate = clip != nullptr ? clip->format.nSamplesPerSec : kRateWithoutClip;
  for (const auto& [layer, line] : GridLines(area, stereo, rate, first, framesOnScreen)) {
    if (layer == Layer::Band) {
      FillRect(part, {line.x1, line.y1, line.x2 - line.x1 + 1, line.y2 - line.y1 + 1}, kGridColor);
    } else {
      DrawLine(part, line, PenOf(layer, area, false));
    }
  }
  if (clip != nullptr) {
    const bool dense = WaveIsDense(*clip, area, first, framesOnScreen);
    const Pen pen = PenOf(Layer::Wave, area, dense);
    for (const Line& line : WaveLines(*clip, area, first, framesOnScreen)) {
      DrawLine(part, line, dense ? ColumnPen(pen, line) : pen);
    }
  }
}

PixelRect CursorStrip(const PaintArea& area, std::int64_t x) {
  const int width = std::max(area.Scaled(kCursorWidth), 1);
  if (x < -width || x > std::int64_t{area.width} + width) {
    return {};
  }
  return Clipped({static_cast<int>(x) - width / 2, 0, width, area.height}, area.width, area.height);
}

void LayCursor(const Raster& raster, const PixelRect& strip) {
  constexpr Rgb kColorBits = 0x00FFFFFF;
  if (raster.width > raster.stride || raster.stride <= 0) {
    return;
  }
  const std::size_t stride = static_cast<std::size_t>(raster.stride);
  const PixelRect part = Clipped(strip, raster.width, raster.height);
  const auto left = static_cast<std::size_t>(part.x);
  const auto width = static_cast<std::size_t>(part.width);
  for (int y = part.y; y < part.y + part.height; ++y) {
    const std::size_t start = static_cast<std::size_t>(y) * stride + left;
    if (start + width > raster.pixels.size()) {
      return;
    }
    for (Rgb& pixel : raster.pixels.subspan(start, width)) {
      pixel = (pixel & ~kColorBits) | (~(pixel ^ kCursorColor) & kColorBits);
    }
  }
}

}  // namespace tembrel
