// The position counter: the frame of the cursor and its time in seconds.
#pragma once

#include <QWidget>

namespace tembrel {

class CountWin : public QWidget {
 public:
  explicit CountWin(QWidget* parent);

  // A rate of -1 keeps the one shown before. Repaints only when what it shows has changed.
  void Update(qint64 newFrame, qint64 newRate);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void TellReaders();

  qint64 frame = 0;
  qint64 rate = 44100;
};

}  // namespace tembrel
