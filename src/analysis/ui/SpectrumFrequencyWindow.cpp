#include "analysis/ui/SpectrumFrequencyWindow.h"

#include <QPainter>

#include "analysis/SpectrumAxis.h"
#include "picture/AxisLabel.h"
#include "view/ui/DevicePixels.h"

namespace tembrel {

namespace {

constexpr int kFontHeight = 9;
constexpr int kTextPlace = Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip;

QRect ToRect(const PixelRect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

}  // namespace

SpectrumFrequencyWindow::SpectrumFrequencyWindow(const Spectrum& shownSpectrum, const SpectrumView& shownView,
                                                 QWidget* parent)
    : QWidget(parent), spectrum(shownSpectrum), view(shownView) {
  setObjectName("SpectrumFrequencyWindow");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName("Frequency axis");
  setToolTip("Frequency in hertz");
}

void SpectrumFrequencyWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const PaintArea area = UseDevicePixels(painter, *this);
  QImage image(area.width, area.height, QImage::Format_RGB32);
  if (image.isNull()) {
    return;
  }
  const Raster raster = RasterOf(image);
  Fill(raster, kSpectrumAxisPaperColor);
  const SpectrumAxis axis = AxisOf(area, spectrum.rate, view);
  for (const SpectrumTick& tick : axis.ticks) {
    DrawLine(raster, tick.line, TickPen(area));
  }
  painter.drawImage(0, 0, image);
  painter.setFont(ControlFont(kFontHeight, area));
  painter.setPen(QColor::fromRgb(kSpectrumTextColor));
  const QString unit =
      QString::fromUtf8(kSpectrumAxisUnit.data(), static_cast<qsizetype>(kSpectrumAxisUnit.size()));
  painter.drawText(ToRect(axis.unitBox), kTextPlace, unit);
  for (const SpectrumTick& tick : axis.ticks) {
    painter.drawText(ToRect(tick.box), kTextPlace, QString::fromStdString(tick.label));
  }
}

}  // namespace tembrel
