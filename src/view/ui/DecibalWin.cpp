#include "view/ui/DecibalWin.h"

#include <QPainter>

#include "view/AmplitudeMarks.h"
#include "view/RulerMarks.h"
#include "view/ui/DevicePixels.h"

namespace tembrel {

namespace {

constexpr int kFontHeight = 9;

}  // namespace

DecibalWin::DecibalWin(QWidget* parent) : QWidget(parent) {
  setObjectName("DecibalWin");
  setAccessibleName("Amplitude scale");
  setToolTip("Amplitude scale: 1.0 is full scale");
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void DecibalWin::ShowStereo(bool newValue) {
  if (newValue != stereo) {
    stereo = newValue;
    update();
  }
}

void DecibalWin::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const PaintArea area = UseDevicePixels(painter, *this);
  painter.fillRect(QRect(0, 0, area.width, area.height), QColor::fromRgb(kRulerPaperColor));
  painter.setFont(ControlFont(kFontHeight, area));
  painter.setPen(QColor::fromRgb(kRulerTextColor));
  // The digits, which have no descent, stand on their boxes' bottom.
  const QFontMetrics metrics = painter.fontMetrics();
  const int textHeight = metrics.tightBoundingRect("0123456789").height();
  for (const auto& [box, text] : ReadableLabels(AmplitudeLabels(area, stereo), area, textHeight)) {
    const QString shown = QString::fromStdString(text);
    painter.drawText(box.x + box.width - metrics.horizontalAdvance(shown), box.y + box.height, shown);
  }
}

}  // namespace tembrel
