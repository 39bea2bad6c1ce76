// A button that stays down for as long as the program says so: a click only asks. Enter and Space press it
// when it has the keyboard.
#pragma once

#include <QToolButton>

namespace tembrel {

class ToggleButton : public QToolButton {
 public:
  explicit ToggleButton(QWidget* parent);

  // Shows it down or up at once.
  void SetPressed(bool pressed);

 protected:
  void nextCheckState() override {}
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tembrel
