#include "view/ui/ZoomButton.h"

#include <QEvent>

#include "view/ui/ThemedIcon.h"

namespace tembrel {

namespace {

constexpr int kIconSize = 16;  // a size that icons are drawn for

}  // namespace

ZoomButton::ZoomButton(const ZoomButtonRow& row, QWidget* parent) : QToolButton(parent), iconName(row.icon) {
  setObjectName("ZoomButton");
  setProperty("controlId", row.id);
  setAccessibleName(row.name);
  setToolTip(row.name);
  setFocusPolicy(Qt::NoFocus);
  setIconSize({kIconSize, kIconSize});
  setIcon(ThemedIcon(iconName, palette()));
}

void ZoomButton::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    setIcon(ThemedIcon(iconName, palette()));
  }
  QToolButton::changeEvent(event);
}

}  // namespace tembrel
