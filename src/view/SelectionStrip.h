// The selection as it is painted: the full height inverted over what is there. Laid over the kept picture, so
// that it disappears without a trace.
#pragma once

#include "picture/Picture.h"
#include "picture/Raster.h"
#include "view/EditView.h"

namespace tembrel {

// The device pixels of `columns` (logical pixels) on an area, full height, clipped to it.
PixelRect StripOf(const PaintArea& area, const PixelColumns& columns);

// Inverts the colours inside `strip`: once draws the selection, twice restores what was there.
void InvertStrip(const Raster& raster, const PixelRect& strip);

}  // namespace tembrel
