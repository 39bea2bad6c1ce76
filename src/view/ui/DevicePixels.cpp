#include "view/ui/DevicePixels.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace tembrel {

PaintArea UseDevicePixels(QPainter& painter, const QWidget& widget) {
  const double scale = widget.devicePixelRatioF();
  const QPointF corner = painter.deviceTransform().map(QPointF(0, 0));
  const QPointF opposite = painter.deviceTransform().map(QPointF(widget.width(), widget.height()));
  const QPoint first(qRound(corner.x()), qRound(corner.y()));
  const QPoint last(qRound(opposite.x()), qRound(opposite.y()));
  painter.translate((QPointF(first) - corner) / scale);
  painter.scale(1.0 / scale, 1.0 / scale);
  return {last.x() - first.x(), last.y() - first.y(), scale};
}

Raster RasterOf(QImage& image) {
  auto* pixels = reinterpret_cast<Rgb*>(image.bits());
  const auto stride = static_cast<int>(image.bytesPerLine() / static_cast<qsizetype>(sizeof(Rgb)));
  return {{pixels, static_cast<std::size_t>(stride) * static_cast<std::size_t>(image.height())},
          image.width(),
          image.height(),
          stride};
}

QFont ControlFont(int pixels, const PaintArea& area) {
  QFont font("Microsoft Sans Serif");
  font.setStyleHint(QFont::SansSerif);
  font.setPixelSize(area.Scaled(pixels));
  return font;
}

}  // namespace tembrel
