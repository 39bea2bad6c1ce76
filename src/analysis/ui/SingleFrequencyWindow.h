// The readout above a spectrum: the frequency picked, its note, and a notice beside them.
#pragma once

#include <QWidget>

#include "analysis/FrequencyPick.h"

namespace tembrel {

class SingleFrequencyWindow : public QWidget {
 public:
  explicit SingleFrequencyWindow(QWidget* parent);

  // -1 for either keeps what is shown of it.
  void ShowPick(const FrequencyPick& pick);
  // A line at the right of the note; empty for none.
  void ShowNotice(const QString& text);

  // "440 Hz, A5 (69)".
  QString Text() const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  FrequencyPick shown;
  QString notice;
};

}  // namespace tembrel
