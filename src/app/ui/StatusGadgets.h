// The three text gadgets of the status bar: rate, bits, channels.
#pragma once

#include <array>

#include <QObject>

#include "document/StatusTexts.h"

class QLabel;
class QStatusBar;

namespace tembrel {

class StatusGadgets : public QObject {
 public:
  // Puts the gadgets into the bar, left to right, with their initial texts.
  explicit StatusGadgets(QStatusBar* bar);

  void Show(const StatusTexts& texts);

 private:
  std::array<QLabel*, 3> labels;
};

}  // namespace tembrel
