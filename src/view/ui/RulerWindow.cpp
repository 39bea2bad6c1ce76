#include "view/ui/RulerWindow.h"

#include <QPainter>

#include "picture/AxisLabel.h"
#include "view/PixelMap.h"
#include "view/ui/DevicePixels.h"

namespace tembrel {

namespace {

constexpr int kFontHeight = 11;

QRect ToRect(const PixelRect& rect) {
  return {rect.x, rect.y, rect.width, rect.height};
}

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The marks upside down.
void Flip(AxisMarks& marks, int height) {
  const auto FlipBox = [height](PixelRect& box) { box.y = height - box.y - box.height; };
  FlipBox(marks.unitBox);
  for (AxisTick& tick : marks.ticks) {
    tick.line.y1 = height - 1 - tick.line.y1;
    tick.line.y2 = height - 1 - tick.line.y2;
    FlipBox(tick.box);
  }
}

}  // namespace

RulerWindow::RulerWindow(const EditView& shownView, const char* name, const char* description,
                         QWidget* parent)
    : QWidget(parent), view(shownView) {
  setObjectName(name);
  setAccessibleName(description);
  setToolTip(description);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void RulerWindow::ShowMouse(std::optional<std::int64_t> frame) {
  if (frame != mouseFrame) {
    mouseFrame = frame;
    update();
  }
}

void RulerWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const PaintArea area = UseDevicePixels(painter, *this);
  QImage image(area.width, area.height, QImage::Format_RGB32);
  if (image.isNull()) {
    return;
  }
  const Raster raster = RasterOf(image);
  Fill(raster, kRulerPaperColor);
  AxisMarks marks = Marks(area);
  if (IsBelowView()) {
    Flip(marks, area.height);
  }
  for (const AxisTick& tick : marks.ticks) {
    DrawLine(raster, tick.line, TickPen(area));
  }
  if (mouseFrame) {
    const auto x = static_cast<int>(
        FrameToPixel(*mouseFrame, view.FirstVisibleFrame(), view.FramesOnScreen(), area.width));
    FillRect(raster, {x, 0, area.Scaled(1), area.height}, kRulerTextColor);
  }
  painter.drawImage(0, 0, image);
  painter.setFont(ControlFont(kFontHeight, area));
  painter.setPen(QColor::fromRgb(kRulerTextColor));
  const QFontMetrics metrics = painter.fontMetrics();
  LeaveOutUnreadableLabels(marks, area,
                           [&](std::string_view text) { return metrics.horizontalAdvance(ToText(text)); });
  painter.drawText(ToRect(marks.unitBox), Qt::AlignCenter, ToText(marks.unit));
  for (const AxisTick& tick : marks.ticks) {
    painter.drawText(ToRect(tick.box), Qt::AlignCenter | Qt::TextDontClip, ToText(tick.label));
  }
}

AudioTimeWindow::AudioTimeWindow(const EditView& shownView, const Document& shownDocument, QWidget* parent)
    : RulerWindow(shownView, "AudioTimeWindow", "Time ruler", parent), document(shownDocument) {}

AxisMarks AudioTimeWindow::Marks(const PaintArea& area) const {
  const AudioClip* clip = document.Clip();
  return TimeRuler(area, clip == nullptr ? 0 : clip->format.nSamplesPerSec, View().FirstVisibleFrame(),
                   View().FramesOnScreen());
}

AudioSamplesWindow::AudioSamplesWindow(const EditView& shownView, QWidget* parent)
    : RulerWindow(shownView, "AudioSamplesWindow", "Sample ruler", parent) {}

AxisMarks AudioSamplesWindow::Marks(const PaintArea& area) const {
  return SampleRuler(area, View().FirstVisibleFrame(), View().FramesOnScreen());
}

}  // namespace tembrel
