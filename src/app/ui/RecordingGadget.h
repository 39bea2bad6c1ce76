// What the status bar shows of a recording: its time, a level meter, and a clip light that stays on until it
// is clicked or the next recording begins.
#pragma once

#include <QWidget>

#include "device/RecordingMeter.h"

class QLabel;

namespace tembrel {

class ClipLight;
class LevelMeterWidget;

class RecordingGadget : public QWidget {
  Q_OBJECT

 public:
  explicit RecordingGadget(QWidget* parent);

  void Start();
  void Show(const RecordingState& state);
  // Goes away; a clip light that is on stays, alone.
  void End();

 private:
  void ClearClip();
  void Refresh();

  RecordingMeter meter;
  bool running = false;
  QLabel* time;
  LevelMeterWidget* bars;
  ClipLight* light;
};

}  // namespace tembrel
