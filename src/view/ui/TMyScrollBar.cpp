#include "view/ui/TMyScrollBar.h"

#include <algorithm>

#include <QSignalBlocker>

namespace tembrel {

namespace {

constexpr int kEnd = 100;
constexpr int kLongestPage = 100000;

}  // namespace

TMyScrollBar::TMyScrollBar(Qt::Orientation orientation, QWidget* parent) : QScrollBar(orientation, parent) {
  setObjectName("TMyScrollBar");
  setRange(0, kEnd);
  ShowPosition(0, 1.0);
  setTracking(false);
  setFocusPolicy(Qt::NoFocus);
  setContextMenuPolicy(Qt::NoContextMenu);
  connect(this, &QScrollBar::actionTriggered, this, &TMyScrollBar::Act);
  connect(this, &QScrollBar::sliderPressed, this, [this] { thumbMoved = false; });
  connect(this, &QScrollBar::sliderReleased, this, &TMyScrollBar::ThumbReleased);
  connect(this, &QScrollBar::sliderMoved, this, [this](int percent) {
    thumbMoved = true;
    Q_EMIT scrollRequested(5, percent);
  });
}

void TMyScrollBar::ShowPosition(int percent, double visibleShare) {
  const QSignalBlocker blocker(this);
  const double page = visibleShare >= 1.0 ? kLongestPage : kEnd * visibleShare / (1.0 - visibleShare);
  setPageStep(static_cast<int>(std::clamp(page, 1.0, static_cast<double>(kLongestPage))));
  if (!isSliderDown()) {
    setValue(percent);
  }
}

// A click on the thumb that does not move it asks for nothing: a percent is coarse, and the view may stand
// between two.
void TMyScrollBar::ThumbReleased() {
  if (thumbMoved) {
    Q_EMIT scrollRequested(4, sliderPosition());
  }
}

void TMyScrollBar::Act(int action) {
  switch (action) {
    case SliderSingleStepSub:
      Q_EMIT scrollRequested(0, value());
      break;
    case SliderSingleStepAdd:
      Q_EMIT scrollRequested(1, value());
      break;
    case SliderPageStepSub:
      Q_EMIT scrollRequested(2, value());
      break;
    case SliderPageStepAdd:
      Q_EMIT scrollRequested(3, value());
      break;
    case SliderToMinimum:
      Q_EMIT scrollRequested(6, 0);
      break;
    case SliderToMaximum:
      Q_EMIT scrollRequested(7, kEnd);
      break;
    case SliderMove:
      Q_EMIT scrollRequested(4, sliderPosition());
      break;
    default:
      break;
  }
}

}  // namespace tembrel
