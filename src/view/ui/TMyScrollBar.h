// The document window's scroll bar: it holds a percentage and speaks the view's scroll codes instead of
// moving by itself.
#pragma once

#include <QScrollBar>

namespace tembrel {

class TMyScrollBar : public QScrollBar {
  Q_OBJECT

 public:
  // Range 0 to 100.
  TMyScrollBar(Qt::Orientation orientation, QWidget* parent);

  // Shows `percent` and a thumb as long as the visible share (0 to 1) of the whole, without asking for a
  // scroll.
  void ShowPosition(int percent, double visibleShare);

 Q_SIGNALS:
  // A request with the code of a scroll message (0 line back, 1 line on, 2 page back, 3 page on, 4 thumb
  // released, 5 thumb moved, 6 start, 7 end) and the thumb's percentage.
  void scrollRequested(int code, int percent);

 private:
  void Act(int action);
  void ThumbReleased();

  bool thumbMoved = false;  // since it was pressed
};

}  // namespace tembrel
