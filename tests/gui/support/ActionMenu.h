// Selecting with the mouse and answering the action menu that follows, as a user would.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTest>

#include "document/ui/AudioWin.h"
#include "tests/gui/support/Input.h"
#include "view/Selection.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel::test {

inline constexpr double kDragRow = 30.0;

// The frames between two columns of the view, counted here and not by the view.
inline FrameRange FramesBetween(AudioEditWindow& window, std::int64_t left, std::int64_t right) {
  const EditView& view = window.View();
  const std::int64_t frames = view.FramesOnScreen();
  const std::int64_t first = view.FirstVisibleFrame();
  return {first + left * frames / window.width(), first + right * frames / window.width()};
}

inline void PressAt(AudioEditWindow& window, const QPointF& at) {
  SendMouse(window, QEvent::MouseButtonPress, at);
}
inline void DragTo(AudioEditWindow& window, const QPointF& at) {
  SendMouse(window, QEvent::MouseMove, at);
}
inline void ReleaseAt(AudioEditWindow& window, const QPointF& at) {
  SendMouse(window, QEvent::MouseButtonRelease, at);
}

// The left button goes down and the mouse moves; it is still held.
inline void BeginDrag(AudioEditWindow& window, double from, double to) {
  PressAt(window, {from, kDragRow});
  DragTo(window, {(from + to) / 2, kDragRow});
  DragTo(window, {to, kDragRow});
}

inline void EndDrag(AudioEditWindow& window, double at) {
  ReleaseAt(window, {at, kDragRow});
}

// The active window, or the main window: the offscreen platform leaves none active when a dialog closes, such
// as the progress of a slow load.
inline QWidget* WindowAtWork() {
  if (QWidget* active = QApplication::activeWindow()) {
    return active;
  }
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == "TMainWindow") {
      return window;
    }
  }
  qFatal("no window to work in");
}

// Does what opens the action menu and has `answer` give an answer; a menu still open then is closed. Returns
// when what was chosen is done. False when no menu came.
inline bool WithActionMenu(
    const std::function<void()>& opens, const std::function<void(QMenu&)>& answer = [](QMenu&) {}) {
  QWidget* window = WindowAtWork();
  opens();
  const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr || menu->objectName() != "actionMenu") {
    return false;
  }
  answer(*menu);
  if (menu != nullptr) {
    menu->close();
  }
  QCoreApplication::processEvents();
  // The offscreen platform leaves no window active when a menu closes as soon as it opened.
  window->activateWindow();
  return QTest::qWaitForWindowActive(window);
}

// Chooses the entry with this id by the keyboard.
inline void Choose(QMenu& menu, int id) {
  for (QAction* action : menu.actions()) {
    if (action->data().toInt() == id) {
      menu.setActiveAction(action);
      QTest::keyClick(&menu, Qt::Key_Return);
      return;
    }
  }
}

// Drags from one column to another and chooses the entry. False when no menu came.
inline bool DragAndChoose(AudioEditWindow& window, double from, double to, int id) {
  return WithActionMenu(
      [&] {
        BeginDrag(window, from, to);
        EndDrag(window, to);
      },
      [id](QMenu& menu) { Choose(menu, id); });
}

// The sound of the window's document.
inline std::vector<std::byte> SoundOf(const AudioWin& window) {
  const auto bytes = window.Doc().Clip()->Bytes();
  return {bytes.begin(), bytes.end()};
}

}  // namespace tembrel::test
