#include "view/ui/CustomRadio2.h"

#include "view/ui/PressedButton.h"

namespace tembrel {

CustomRadio2::CustomRadio2(QWidget* parent) : QToolButton(parent) {
  setObjectName("CustomRadio2");
  setFocusPolicy(Qt::NoFocus);
  setCheckable(true);
  setAutoExclusive(true);
}

// Styles draw a checked button of this size hardly otherwise than a raised one.
void CustomRadio2::paintEvent(QPaintEvent* event) {
  if (isChecked()) {
    PaintPressedButton(*this);
  } else {
    QToolButton::paintEvent(event);
  }
}

}  // namespace tembrel
