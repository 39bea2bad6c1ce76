// One of the tool buttons of a document window: of all of them exactly one is down.
#pragma once

#include <QToolButton>

namespace tembrel {

class CustomRadio2 : public QToolButton {
 public:
  explicit CustomRadio2(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tembrel
