#include "analysis/ui/SingleFrequencyWindow.h"

#include <QPainter>

#include "analysis/SpectrumAxis.h"
#include "view/ui/DevicePixels.h"

namespace tembrel {

namespace {

constexpr int kFontHeight = 9;
constexpr int kNoticeLeft = 150;

QRect ToRect(const PixelRect& rect, const PaintArea& area) {
  return {area.Scaled(rect.x), area.Scaled(rect.y), area.Scaled(rect.width), area.Scaled(rect.height)};
}

}  // namespace

SingleFrequencyWindow::SingleFrequencyWindow(QWidget* parent) : QWidget(parent) {
  setObjectName("SingleFrequencyWindow");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setToolTip("Frequency and note under the mouse");
  ShowPick(shown);
}

void SingleFrequencyWindow::ShowPick(const FrequencyPick& pick) {
  if (pick.frequency >= 0) {
    shown.frequency = pick.frequency;
  }
  if (pick.note >= 0) {
    shown.note = pick.note;
  }
  setAccessibleName(Text());
  update();
}

void SingleFrequencyWindow::ShowNotice(const QString& text) {
  if (text != notice) {
    notice = text;
    setAccessibleDescription(notice);
    update();
  }
}

QString SingleFrequencyWindow::Text() const {
  const NoteText text = TextOfNote(shown.frequency, shown.note);
  return QString::fromStdString(text.frequency + ", " + text.note);
}

void SingleFrequencyWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const PaintArea area = UseDevicePixels(painter, *this);
  painter.fillRect(0, 0, area.width, area.height, QColor::fromRgb(kSpectrumAxisPaperColor));
  painter.setFont(ControlFont(kFontHeight, area));
  painter.setPen(QColor::fromRgb(kSpectrumTextColor));
  const auto draw = [&painter](const QRect& box, const QString& text) {
    painter.drawText(box, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, text);
  };
  const NoteText text = TextOfNote(shown.frequency, shown.note);
  draw(ToRect(kFrequencyTextBox, area), QString::fromStdString(text.frequency));
  draw(ToRect(kNoteTextBox, area), QString::fromStdString(text.note));
  const int left = area.Scaled(kNoticeLeft);
  const QRect room(left, area.Scaled(kNoteTextBox.y), area.width - left, area.Scaled(kNoteTextBox.height));
  if (room.width() > 0) {
    draw(room, painter.fontMetrics().elidedText(notice, Qt::ElideRight, room.width()));
  }
}

}  // namespace tembrel
