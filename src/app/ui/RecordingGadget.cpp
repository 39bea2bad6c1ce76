#include "app/ui/RecordingGadget.h"

#include <array>

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include "view/ui/ToggleButton.h"

namespace tembrel {

namespace {

constexpr int kHeight = 18;
constexpr int kMeterWidth = 160;
constexpr int kLightWidth = 38;
constexpr int kFrame = 2;
constexpr char kWidestTime[] = "00:00:00.0";

// The meter is dark whatever the palette: its colours mean something.
constexpr QRgb kMeterPaper = 0xFF202020;
struct ZoneColours {
  QRgb lit;
  QRgb unlit;
};
constexpr std::array<ZoneColours, 3> kZoneColours{{
    {0xFF30C040, 0xFF1C3A20},
    {0xFFE8C020, 0xFF4A4018},
    {0xFFF04030, 0xFF4C201C},
}};

void PaintText(QPainter& painter, const QRect& rect, const QColor& colour, const QString& text) {
  QFont font = painter.font();
  font.setPixelSize(11);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(colour);
  painter.drawText(rect, Qt::AlignCenter, text);
}

}  // namespace

class LevelMeterWidget : public QWidget {
 public:
  LevelMeterWidget(const RecordingMeter& shownMeter, QWidget* parent) : QWidget(parent), meter(shownMeter) {
    setObjectName("LevelMeter");
    setFixedSize(kMeterWidth, kHeight);
    setToolTip("Recording level, left above right: -60 dB to full scale");
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(kMeterPaper));
    if (meter.NoSound()) {
      PaintText(painter, rect(), QColor::fromRgb(kZoneColours.back().lit), kNoSoundText);
      return;
    }
    painter.translate(kFrame, kFrame);
    for (const MeterBar& bar : meter.Bars(width() - 2 * kFrame, height() - 2 * kFrame)) {
      const ZoneColours& colours = kZoneColours.at(static_cast<std::size_t>(bar.zone));
      painter.fillRect(bar.x, bar.y, bar.width, bar.height,
                       QColor::fromRgb(bar.lit ? colours.lit : colours.unlit));
    }
  }

 private:
  const RecordingMeter& meter;
};

class ClipLight : public ToggleButton {
 public:
  explicit ClipLight(QWidget* parent) : ToggleButton(parent) {
    setObjectName("ClipLight");
    setText("CLIP");
    setFixedSize(kLightWidth, kHeight);
    setToolTip("The sound was too loud. Click to clear.");
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const ZoneColours& colours = kZoneColours.back();
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(isChecked() ? colours.lit : colours.unlit));
    PaintText(painter, rect(), isChecked() ? Qt::white : QColor(0x90, 0x70, 0x70), text());
    if (hasFocus()) {
      painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
  }
};

RecordingGadget::RecordingGadget(QWidget* parent)
    : QWidget(parent),
      time(new QLabel(this)),
      bars(new LevelMeterWidget(meter, this)),
      light(new ClipLight(this)) {
  setObjectName("RecordingGadget");
  time->setObjectName("recordingTime");
  time->setToolTip("Time recorded");
  time->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  time->setFixedWidth(time->fontMetrics().horizontalAdvance(kWidestTime) + 4);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(6);
  row->addWidget(time);
  row->addWidget(bars);
  row->addWidget(light);
  connect(light, &QToolButton::clicked, this, &RecordingGadget::ClearClip);
  hide();
}

void RecordingGadget::Start() {
  running = true;
  time->show();
  bars->show();
  meter.Start();
  Refresh();
  show();
}

void RecordingGadget::Show(const RecordingState& state) {
  meter.Take(state);
  Refresh();
}

void RecordingGadget::End() {
  running = false;
  time->hide();
  bars->hide();
  setVisible(meter.Clipped());
}

void RecordingGadget::ClearClip() {
  meter.ClearClip();
  Refresh();
  setVisible(running);
}

void RecordingGadget::Refresh() {
  time->setText(QString::fromStdString(meter.TimeText()));
  bars->setAccessibleName("Recording level: " + QString::fromStdString(meter.LevelText()));
  bars->update();
  light->SetPressed(meter.Clipped());
  light->setEnabled(meter.Clipped());
  light->setAccessibleName(meter.Clipped() ? "Clip light, on: the sound was too loud" : "Clip light, off");
}

}  // namespace tembrel
