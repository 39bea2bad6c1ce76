// The whole picture of a view, painted: background, grid and waveform, and the cursor laid over it. The
// colours and pens of the view stand here, once.
#pragma once

#include <cstdint>

#include "audio/AudioClip.h"
#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

inline constexpr Rgb kPaperColor = 0xFFFFFFFF;
inline constexpr Rgb kGridColor = 0xFF969696;    // 150, 150, 150; the band between the channels too
inline constexpr Rgb kCentreColor = 0xFF800040;  // 128, 0, 64
inline constexpr Rgb kTimeColor = 0xFF464646;    // 70, 70, 70, dotted
inline constexpr Rgb kWaveColor = 0xFF0000FF;    // 0, 0, 255, dashed
inline constexpr Rgb kCursorColor = 0xFFFF00FF;  // 255, 0, 255, laid over in NOT-XOR mode
inline constexpr int kCursorWidth = 3;           // logical pixels

// The pen of a layer. Lines get thicker with the area's scale, but for the columns of a dense waveform, which
// are one device pixel each.
Pen PenOf(Layer layer, const PaintArea& area, bool denseWave);

// The pen of one line of a dense waveform: `pen` is the layer's. The dashes of neighbouring columns are
// shifted against each other, so that in every row one of four columns has a gap, whatever the outline; the
// ends of each column are always drawn.
Pen ColumnPen(Pen pen, const Line& line);

// Paints the whole area into the raster's top left corner: paper, grid, waveform. Without a clip only the
// grid, in the mono layout at 44100 Hz.
void PaintPicture(const Raster& raster, const AudioClip* clip, const PaintArea& area, std::int64_t first,
                  std::int64_t framesOnScreen);

// The strip of a cursor whose centre is device pixel column x, clipped to the area; empty when it lies
// outside.
PixelRect CursorStrip(const PaintArea& area, std::int64_t x);

// NOT-XOR with the cursor's colour over `strip`: once draws the cursor, twice restores what was there.
void LayCursor(const Raster& raster, const PixelRect& strip);

}  // namespace tembrel
