// The tool tip pop-up of the main frame, one for the whole program.
#pragma once

#include <QTimer>
#include <QWidget>

#include "view/ToolTipRules.h"

namespace tembrel {

class ToolTipWindow : public QWidget, private ToolTipListener {
 public:
  // The pop-up appears inside `frame`.
  explicit ToolTipWindow(QWidget* frame);

  // Shows the tip with this id while the mouse rests over `control`.
  void Watch(QWidget* control, int tipId);

  // See ToolTipRules::Show; pixels of the frame.
  void ShowTip(int tipId, const QPoint& at) { rules.Show(tipId, at.x(), at.y()); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void StartTipTimer(int milliseconds) override { tipTimer.start(milliseconds); }
  void StopTipTimer() override { tipTimer.stop(); }
  void StartEndTimer(int milliseconds) override { endTimer.start(milliseconds); }
  void StopEndTimer() override { endTimer.stop(); }
  int TextWidth(std::string_view text) override;
  void ShowTip(std::string_view newText, int x, int y, int width, int height) override;
  void HideTip() override { hide(); }

  ToolTipRules rules;
  QTimer tipTimer;
  QTimer endTimer;
  QTimer leaveTimer;
  QString text;
};

}  // namespace tembrel
