// The frame of any window in the document area. Tab leads out of it.
#pragma once

#include <QMdiSubWindow>

namespace tembrel {

class TMDIChild : public QMdiSubWindow {
  Q_OBJECT

 public:
  using QMdiSubWindow::QMdiSubWindow;

 Q_SIGNALS:
  // Tab (`next`) or Shift+Tab was pressed inside. The keyboard stays here unless somebody takes it.
  void tabbedOut(bool next);

 protected:
  // Otherwise the keyboard would go round inside the frame.
  bool focusNextPrevChild(bool next) override;
};

}  // namespace tembrel
