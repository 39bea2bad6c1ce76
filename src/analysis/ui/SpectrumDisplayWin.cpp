#include "analysis/ui/SpectrumDisplayWin.h"

#include <QMouseEvent>
#include <QPainter>

#include "analysis/SpectrumPicture.h"
#include "view/ui/DevicePixels.h"

namespace tembrel {

SpectrumDisplayWin::SpectrumDisplayWin(const Spectrum& shownSpectrum, const SpectrumView& shownView,
                                       QWidget* parent)
    : QWidget(parent), spectrum(shownSpectrum), view(shownView) {
  setObjectName("SpectrumDisplayWin");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName("Spectrum plot");
  setMouseTracking(true);
  setCursor(Qt::CrossCursor);
}

void SpectrumDisplayWin::ShowMarker(bool show) {
  if (show || markerShown) {
    update();
  }
  markerShown = show;
}

void SpectrumDisplayWin::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const PaintArea area = UseDevicePixels(painter, *this);
  if (picture.size() != QSize(area.width, area.height)) {
    picture = QImage(area.width, area.height, QImage::Format_RGB32);
  }
  if (picture.isNull()) {
    return;
  }
  const Raster raster = RasterOf(picture);
  PaintSpectrum(raster, &spectrum, area, view);
  if (markerShown) {
    PaintMarker(raster, area, view);
  }
  painter.drawImage(0, 0, picture);
}

void SpectrumDisplayWin::mouseMoveEvent(QMouseEvent* event) {
  Q_EMIT mouseMoved(event->position().x());
}

void SpectrumDisplayWin::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    Q_EMIT mousePressed(event->position().x());
  } else {
    event->ignore();
  }
}

}  // namespace tembrel
