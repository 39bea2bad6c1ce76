// The main frame's menu bar; one of its items can be shown highlighted without being open.
#pragma once

#include <QMenuBar>

namespace tembrel {

class FrameMenuBar : public QMenuBar {
 public:
  using QMenuBar::QMenuBar;

  // Highlights the item; null for none.
  void Highlight(QAction* item);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QAction* highlighted = nullptr;
};

}  // namespace tembrel
