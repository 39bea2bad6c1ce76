#include "view/ui/CountWin.h"

#include <QPainter>

#include "view/CounterText.h"

namespace tembrel {

namespace {

constexpr QSize kSize(120, 40);
constexpr int kTile = 40;
constexpr int kCentre = 49;
constexpr int kFrameTextHeight = 16;
constexpr int kTimeTextHeight = 12;
constexpr int kFrameTop = 3;
constexpr int kTimeTop = 22;

QFont CounterFont(int pixels, QFont::Weight weight) {
  QFont font("MS Sans Serif");
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

// One piece of the background, in the colours of the desktop.
void DrawTile(QPainter& painter, int x, const QPalette& palette) {
  const QRect tile(x, 0, kTile, kTile);
  painter.fillRect(tile, palette.color(QPalette::Base));
  painter.fillRect(tile.left(), tile.top(), tile.width(), 1, palette.color(QPalette::Mid));
  painter.fillRect(tile.left(), tile.bottom(), tile.width(), 1, palette.color(QPalette::Mid));
}

void DrawCentred(QPainter& painter, int top, int height, const QString& text) {
  painter.drawText(QRect(0, top, 2 * kCentre, height), Qt::AlignHCenter | Qt::AlignTop | Qt::TextDontClip,
                   text);
}

}  // namespace

CountWin::CountWin(QWidget* parent) : QWidget(parent) {
  setObjectName("CountWindow");
  setFixedSize(kSize);
  setToolTip("Position of the cursor: frame and seconds");
  TellReaders();
}

void CountWin::Update(qint64 newFrame, qint64 newRate) {
  const qint64 keptRate = newRate < 0 ? rate : newRate;
  if (newFrame == frame && keptRate == rate) {
    return;
  }
  frame = newFrame;
  rate = keptRate;
  TellReaders();
  update();
}

void CountWin::TellReaders() {
  setAccessibleName(QString("Position: frame %1, %2 seconds")
                        .arg(QString::fromStdString(CounterFrameText(frame)),
                             QString::fromStdString(CounterTimeText(frame, rate))));
}

void CountWin::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  for (int x = 0; x < width(); x += kTile) {
    DrawTile(painter, x, palette());
  }
  painter.setPen(palette().color(QPalette::Text));
  painter.setFont(CounterFont(kFrameTextHeight, QFont::Bold));
  DrawCentred(painter, kFrameTop, kFrameTextHeight, QString::fromStdString(CounterFrameText(frame)));
  painter.setFont(CounterFont(kTimeTextHeight, QFont::Medium));
  DrawCentred(painter, kTimeTop, kTimeTextHeight, QString::fromStdString(CounterTimeText(frame, rate)));
}

}  // namespace tembrel
