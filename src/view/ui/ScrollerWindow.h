// The small position scroller of the top strip.
#pragma once

#include <optional>

#include <QWidget>

#include "view/Scroller.h"

namespace tembrel {

class ScrollerWindow : public QWidget {
  Q_OBJECT

 public:
  explicit ScrollerWindow(QWidget* parent);

  // Where the active view is, 0 to 100.
  void SetPosition(int percent);

 Q_SIGNALS:
  // A horizontal scroll request: a page left or right, or the thumb moved or released at a percentage.
  void scrollRequested(int code, int percent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void TellReaders();
  void Tell(const std::optional<ScrollerRequest>& request);

  Scroller scroller;
};

}  // namespace tembrel
