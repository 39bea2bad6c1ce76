// What the waveform view of a document must look like: the picture functions' pixels with the cursor laid
// over them.
#pragma once

#include <optional>

#include <QImage>

#include "document/ui/AudioWin.h"
#include "view/PixelMap.h"
#include "view/WavePicture.h"
#include "view/ui/AudioEditWindow.h"
#include "view/ui/DevicePixels.h"

namespace tembrel::test {

// `size` in device pixels.
inline QImage ExpectedView(AudioWin& window, const QSize& size, bool withCursor = true) {
  const AudioEditWindow& widget = *window.EditWindow();
  const EditView& view = widget.View();
  QImage image(size, QImage::Format_RGB32);
  const PaintArea area{size.width(), size.height(), widget.devicePixelRatioF()};
  PaintPicture(RasterOf(image), window.Doc().Clip(), area, view.FirstVisibleFrame(), view.FramesOnScreen());
  if (withCursor) {
    const std::int64_t x =
        FrameToPixel(view.CursorFrame(), view.FirstVisibleFrame(), view.FramesOnScreen(), area.width);
    LayCursor(RasterOf(image), CursorStrip(area, x));
  }
  return image;
}

// The columns in which two pictures of one size differ.
inline QList<int> DifferingColumns(const QImage& a, const QImage& b) {
  QList<int> columns;
  for (int x = 0; x < a.width(); ++x) {
    for (int y = 0; y < a.height(); ++y) {
      if (a.pixel(x, y) != b.pixel(x, y)) {
        columns << x;
        break;
      }
    }
  }
  return columns;
}

}  // namespace tembrel::test
