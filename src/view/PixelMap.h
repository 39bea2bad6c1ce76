// Where a frame stands on the screen and which frame stands under a pixel. Needed wherever the view and its
// rulers meet the mouse or the cursor.
#pragma once

#include <cstdint>

namespace tembrel {

// trunc((frame - first) × width / framesOnScreen) in floating point: the pixel column of `frame` in a view
// `width` pixels wide that shows `framesOnScreen` frames from `first` on. Frames outside the view give pixels
// outside 0..width-1. A view of no frames gives 0.
std::int64_t FrameToPixel(std::int64_t frame, std::int64_t first, std::int64_t framesOnScreen,
                          std::int64_t width);

// first + trunc(x × framesOnScreen / width): the frame under pixel x, which may be fractional on a screen
// with more than one device pixel a pixel. Not limited to the sound; a view of no width gives `first`.
std::int64_t PixelToFrame(double x, std::int64_t first, std::int64_t framesOnScreen, std::int64_t width);

}  // namespace tembrel
