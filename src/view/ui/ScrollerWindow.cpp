#include "view/ui/ScrollerWindow.h"

#include <QMouseEvent>
#include <QPainter>

namespace tembrel {

namespace {

constexpr int kHeight = 16;
constexpr int kThumbHeight = kScrollerThumbBottom - kScrollerThumbTop + 1;

}  // namespace

ScrollerWindow::ScrollerWindow(QWidget* parent) : QWidget(parent) {
  setObjectName("ScrollerWindow");
  setFixedSize(kScrollerTrack, kHeight);
  TellReaders();
  setToolTip("Position in the sound: drag, or click beside the thumb for a screen");
}

void ScrollerWindow::TellReaders() {
  setAccessibleName(QString("Position: %1 percent").arg(scroller.Percent()));
}

void ScrollerWindow::SetPosition(int percent) {
  if (scroller.SetPercent(percent)) {
    TellReaders();
    update();
  }
}

void ScrollerWindow::Tell(const std::optional<ScrollerRequest>& request) {
  if (request) {
    TellReaders();
    update();
    Q_EMIT scrollRequested(static_cast<int>(request->code), request->percent);
  }
}

void ScrollerWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(isEnabled() ? QPalette::Base : QPalette::Window));
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const QRect thumb(scroller.Thumb(), kScrollerThumbTop, kScrollerThumb, kThumbHeight);
  painter.fillRect(thumb.adjusted(0, 0, -1, 0),
                   palette().color(isEnabled() ? QPalette::Highlight : QPalette::Mid));
}

void ScrollerWindow::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    Tell(scroller.Press(event->position().toPoint().x(), event->position().toPoint().y()));
  }
}

void ScrollerWindow::mouseMoveEvent(QMouseEvent* event) {
  Tell(scroller.Move(event->position().toPoint().x()));
}

void ScrollerWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    Tell(scroller.Release());
  }
}

}  // namespace tembrel
