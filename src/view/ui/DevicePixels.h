// Painting on whole device pixels, crisp at every scale factor.
#pragma once

#include <QFont>

#include "picture/Picture.h"
#include "picture/Raster.h"

class QImage;
class QPainter;
class QWidget;

namespace tembrel {

// Sets the painter so that one unit is one device pixel of the widget, counted from the first whole one, and
// tells how many there are.
PaintArea UseDevicePixels(QPainter& painter, const QWidget& widget);

// The image's pixels, which must be of a 32-bit RGB format.
Raster RasterOf(QImage& image);

// The small sans-serif font of rulers and counters, `pixels` logical pixels high, for painting on `area`.
QFont ControlFont(int pixels, const PaintArea& area);

}  // namespace tembrel
