#include "view/ui/ToggleButton.h"

#include <QKeyEvent>

#include "view/ui/PressedButton.h"

namespace tembrel {

ToggleButton::ToggleButton(QWidget* parent) : QToolButton(parent) {
  setObjectName("ToggleButton");
  setCheckable(true);
  setAutoRaise(true);
  setFocusPolicy(Qt::TabFocus);
}

void ToggleButton::SetPressed(bool pressed) {
  if (pressed != isChecked()) {
    setChecked(pressed);
    repaint();
  }
}

// Space is a command of the main window, too: with the keyboard here it is the button's.
bool ToggleButton::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space) {
    event->accept();
  }
  return QToolButton::event(event);
}

void ToggleButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
    QToolButton::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    click();
  }
}

// Styles draw a checked flat button hardly otherwise than a raised one: down, it has the colour of a
// selection.
void ToggleButton::paintEvent(QPaintEvent* event) {
  if (!isChecked()) {
    QToolButton::paintEvent(event);
    return;
  }
  PaintPressedButton(*this);
}

}  // namespace tembrel
