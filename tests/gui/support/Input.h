// Mouse and wheel events for a widget, sent as the window system would.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QWidget>

namespace tembrel::test {

inline void SendMouse(QWidget& widget, QEvent::Type type, const QPointF& at,
                      Qt::MouseButton button = Qt::LeftButton) {
  const bool move = type == QEvent::MouseMove;
  const bool release = type == QEvent::MouseButtonRelease;
  QMouseEvent event(type, at, widget.mapToGlobal(at), move ? Qt::NoButton : button,
                    release ? Qt::NoButton : button, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

inline void Click(QWidget& widget, const QPointF& at, Qt::MouseButton button = Qt::LeftButton) {
  SendMouse(widget, QEvent::MouseButtonPress, at, button);
  SendMouse(widget, QEvent::MouseButtonRelease, at, button);
}

// `steps` of the wheel away from the user; negative ones towards them.
inline void TurnWheel(QWidget& widget, double steps, Qt::KeyboardModifiers keys = Qt::NoModifier) {
  const QPointF at = widget.rect().center();
  QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), QPoint(0, static_cast<int>(steps * 120)),
                    Qt::NoButton, keys, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &event);
}

}  // namespace tembrel::test
