#include "document/ui/tembrelMDIChild.h"

#include <utility>

#include <QCloseEvent>

#include "document/ui/AudioWin.h"

namespace tembrel {

tembrelMDIChild::tembrelMDIChild(AudioWin* audioWin, std::function<bool(tembrelMDIChild&)> closeQuestion,
                                 QWidget* parent)
    : TMDIChild(parent), window(audioWin), mayClose(std::move(closeQuestion)) {
  setObjectName("tembrelMDIChild");
  setAttribute(Qt::WA_DeleteOnClose);
  setWidget(window);
  setWindowIcon(QIcon(":/tembrel.svg"));
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
