#include "view/ui/ToolTipWindow.h"

#include <QEnterEvent>
#include <QPainter>
#include <QToolTip>

#include "view/ui/DevicePixels.h"

namespace tembrel {

namespace {

constexpr int kFontHeight = 11;
constexpr char kTipId[] = "tipId";
// A mouse on its way to the next button is away no longer than this: the tip moves on with it.
constexpr int kGapMs = 150;

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

ToolTipWindow::ToolTipWindow(QWidget* frame) : QWidget(frame), rules(*this) {
  setObjectName("ToolTipWindow");
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFont(ControlFont(kFontHeight, {}));
  tipTimer.setSingleShot(true);
  endTimer.setSingleShot(true);
  connect(&tipTimer, &QTimer::timeout, this, [this] { rules.TipTimeOver(); });
  connect(&endTimer, &QTimer::timeout, this, [this] { rules.EndTimeOver(); });
  leaveTimer.setSingleShot(true);
  leaveTimer.setInterval(kGapMs);
  connect(&leaveTimer, &QTimer::timeout, this, [this] { ShowTip(kNoToolTip, {}); });
  hide();
}

void ToolTipWindow::Watch(QWidget* control, int tipId) {
  control->setProperty(kTipId, tipId);
  control->installEventFilter(this);
}

bool ToolTipWindow::eventFilter(QObject* watched, QEvent* event) {
  auto* control = qobject_cast<QWidget*>(watched);
  if (control == nullptr) {
    return false;
  }
  if (event->type() == QEvent::Enter) {
    leaveTimer.stop();
    const QPoint mouse = static_cast<QEnterEvent*>(event)->position().toPoint();
    ShowTip(control->property(kTipId).toInt(), control->mapTo(parentWidget(), mouse));
  } else if (event->type() == QEvent::Leave) {
    leaveTimer.start();
  } else if (event->type() == QEvent::MouseButtonPress) {
    ShowTip(kNoToolTip, {});
  }
  return false;
}

int ToolTipWindow::TextWidth(std::string_view measured) {
  return fontMetrics().horizontalAdvance(ToText(measured));
}

void ToolTipWindow::ShowTip(std::string_view newText, int x, int y, int width, int height) {
  text = ToText(newText);
  setAccessibleName(text);
  setGeometry(std::min(x, std::max(0, parentWidget()->width() - width)), y, width, height);
  raise();
  show();
  update();
}

void ToolTipWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QToolTip::palette().color(QPalette::ToolTipBase));
  painter.setPen(QToolTip::palette().color(QPalette::ToolTipText));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.drawText(rect(), Qt::AlignCenter, text);
}

}  // namespace tembrel
