#include "app/ui/FrameMenuBar.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

namespace tembrel {

void FrameMenuBar::Highlight(QAction* item) {
  highlighted = item;
  update();
}

void FrameMenuBar::paintEvent(QPaintEvent* event) {
  QMenuBar::paintEvent(event);
  if (highlighted == nullptr) {
    return;
  }
  QPainter painter(this);
  QStyleOptionMenuItem option;
  initStyleOption(&option, highlighted);
  option.rect = actionGeometry(highlighted);
  option.state |= QStyle::State_Selected | QStyle::State_Sunken;
  style()->drawControl(QStyle::CE_MenuBarItem, &option, &painter, this);
}

}  // namespace tembrel
