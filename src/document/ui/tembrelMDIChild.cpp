#include "document/ui/tembrelMDIChild.h"

#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QStyle>
#include <QStyleOptionTitleBar>

#include "document/ui/AudioWin.h"
#include "document/ui/ShortPath.h"

namespace tembrel {

tembrelMDIChild::tembrelMDIChild(AudioWin* audioWin, std::function<bool(tembrelMDIChild&)> closeQuestion,
                                 QWidget* parent)
    : TMDIChild(parent), window(audioWin), mayClose(std::move(closeQuestion)) {
  setObjectName("tembrelMDIChild");
  setAttribute(Qt::WA_DeleteOnClose);
  setWidget(window);
  setWindowIcon(QIcon(":/tembrel.svg"));
  connect(window, &QWidget::windowTitleChanged, this, &tembrelMDIChild::ShowTitle);
  ShowTitle();
}

// What the title bar has for its text, in logical pixels.
int tembrelMDIChild::TitleWidth() const {
  QStyleOptionTitleBar bar;
  bar.initFrom(this);
  bar.rect = QRect(0, 0, width(), style()->pixelMetric(QStyle::PM_TitleBarHeight, &bar, this));
  bar.titleBarFlags = windowFlags();
  bar.titleBarState = static_cast<int>(windowState());
  bar.subControls = QStyle::SC_All;
  return style()->subControlRect(QStyle::CC_TitleBar, &bar, QStyle::SC_TitleBarLabel, this).width();
}

// The document window keeps the whole path as its title; so does this one while the main window's caption
// shows it.
void tembrelMDIChild::ShowTitle() {
  QString shown = window->Title();
  if (!isMaximized()) {
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    const QFontMetrics metrics(font);
    const int room = TitleWidth();
    shown =
        ShortPath(shown, [&](const QString& text) { return metrics.horizontalAdvance(text + "*") <= room; });
  }
  setWindowTitle(shown.replace("[*]", "[*][*]") + "[*]");
}

void tembrelMDIChild::resizeEvent(QResizeEvent* event) {
  TMDIChild::resizeEvent(event);
  ShowTitle();
}

void tembrelMDIChild::changeEvent(QEvent* event) {
  TMDIChild::changeEvent(event);
  const QEvent::Type type = event->type();
  if (type == QEvent::WindowStateChange || type == QEvent::FontChange || type == QEvent::StyleChange) {
    ShowTitle();
  }
}

bool tembrelMDIChild::AskToClose() {
  return mayClose(*this);
}

void tembrelMDIChild::CloseUnasked() {
  asked = true;
  close();
}

void tembrelMDIChild::closeEvent(QCloseEvent* event) {
  if (!asked && !AskToClose()) {
    event->ignore();
    return;
  }
  asked = true;
  Q_EMIT closing();
  QMdiSubWindow::closeEvent(event);
}

}  // namespace tembrel
