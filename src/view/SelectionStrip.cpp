#include "view/SelectionStrip.h"

#include <cstddef>

namespace tembrel {

PixelRect StripOf(const PaintArea& area, const PixelColumns& columns) {
  const int left = area.Scaled(columns.from);
  return Clipped({left, 0, area.Scaled(columns.to) - left, area.height}, area.width, area.height);
}

void InvertStrip(const Raster& raster, const PixelRect& strip) {
  constexpr Rgb kColors = 0x00FFFFFF;
  const PixelRect inside = Clipped(strip, raster.width, raster.height);
  for (int y = inside.y; y < inside.y + inside.height; ++y) {
    const std::size_t row = static_cast<std::size_t>(y) * static_cast<std::size_t>(raster.stride) +
                            static_cast<std::size_t>(inside.x);
    for (std::size_t x = row; x < row + static_cast<std::size_t>(inside.width) && x < raster.pixels.size();
         ++x) {
      raster.pixels[x] ^= kColors;
    }
  }
}

}  // namespace tembrel
