#include "view/ui/PressedButton.h"

#include <QPainter>
#include <QToolButton>

namespace tembrel {

void PaintPressedButton(QToolButton& button) {
  constexpr double kCorner = 3.0;
  const QPalette& palette = button.palette();
  const bool enabled = button.isEnabled();
  QPainter painter(&button);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(button.hasFocus() ? QPen(palette.color(QPalette::ButtonText), 1) : QPen(Qt::NoPen));
  painter.setBrush(palette.brush(enabled ? QPalette::Active : QPalette::Disabled, QPalette::Highlight));
  painter.drawRoundedRect(QRectF(button.rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
  QRect place(QPoint(), button.iconSize());
  place.moveCenter(button.rect().center());
  button.icon().paint(&painter, place, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled, QIcon::On);
}

}  // namespace tembrel
