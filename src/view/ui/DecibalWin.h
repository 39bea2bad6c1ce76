// The amplitude scale at the left of the waveform view: a linear scale from 1.0 to -1.0 for each channel.
#pragma once

#include <QWidget>

namespace tembrel {

class DecibalWin : public QWidget {
 public:
  static constexpr int kWidth = 36;

  explicit DecibalWin(QWidget* parent);

  // One scale, or one for each of two channels.
  void ShowStereo(bool newValue);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool stereo = false;
};

}  // namespace tembrel
