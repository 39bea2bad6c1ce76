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

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
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
  AxisMarks axis = AxisOf(area, spectrum.rate, view);
  for (const AxisTick& tick : axis.ticks) {
    DrawLine(raster, tick.line, TickPen(area));
  }
  painter.drawImage(0, 0, image);
  painter.setFont(ControlFont(kFontHeight, area));
  painter.setPen(QColor::fromRgb(kSpectrumTextColor));
  const QFontMetrics metrics = painter.fontMetrics();
  LeaveOutUnreadableLabels(axis, area,
                           [&](std::string_view text) { return metrics.horizontalAdvance(ToText(text)); });
  painter.drawText(ToRect(axis.unitBox), kTextPlace, ToText(axis.unit));
  for (const AxisTick& tick : axis.ticks) {
    painter.drawText(ToRect(tick.box), kTextPlace, ToText(tick.label));
  }
}

}  // namespace tembrel
