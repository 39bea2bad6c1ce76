// The strip below the menu bar that holds the tool buttons and counters.
#pragma once

#include <QWidget>

namespace tembrel {

class GrayStatic : public QWidget {
 public:
  static constexpr int kWidth = 640;
  static constexpr int kHeight = 49;

  explicit GrayStatic(QWidget* parent) : QWidget(parent) {
    setObjectName("GrayStatic");
    setFixedSize(kWidth, kHeight);
  }
};

}  // namespace tembrel
