// A desk with the spectrum window: opening it on sines and finding its parts.
#pragma once

#include <cmath>
#include <numbers>
#include <string>

#include <QToolButton>

#include "analysis/SpectrumPicture.h"
#include "analysis/ui/SingleFrequencyWindow.h"
#include "analysis/ui/SpectrumDisplayWin.h"
#include "analysis/ui/SpectrumFrequencyWindow.h"
#include "analysis/ui/SpectrumWin.h"
#include "tests/gui/support/Desk.h"
#include "view/ui/DevicePixels.h"

namespace tembrel::test {

class SpectrumDesk : public Desk {
 public:
  // A second of a sine at 44.1 kHz, in stereo with another one on the right.
  AudioWin& OpenSine(const std::string& name, std::uint32_t bits, double hertz, double rightHertz = 0) {
    const std::uint32_t channels = rightHertz > 0 ? 2 : 1;
    Bytes sound;
    for (int i = 0; i < 44100; ++i) {
      for (std::uint32_t channel = 0; channel < channels; ++channel) {
        const double turns = (channel == 0 ? hertz : rightHertz) * i / 44100;
        const auto level = static_cast<int>(std::lround(100 * std::sin(2 * std::numbers::pi * turns)));
        if (bits == 16) {
          Append16(sound, static_cast<std::uint32_t>(level * 256));
        } else {
          sound.push_back(static_cast<std::byte>(level + 128));
        }
      }
    }
    WriteBytes(scratch / name, WaveFile(44100, bits, channels, sound));
    Client().OpenDocument(scratch / name);
    QCoreApplication::processEvents();
    return *Client().ActiveDocument();
  }

  SpectrumWin& OpenSpectrum() {
    Run(kCommandAudioSpectrum);
    return Window();
  }
  SpectrumWin& Window() {
    SpectrumWin* window = Client().Spectrum();
    if (window == nullptr) {
      qFatal("no spectrum window");
    }
    return *window;
  }
  QMdiSubWindow& Child() { return *qobject_cast<QMdiSubWindow*>(Window().parentWidget()); }
  template <class Part>
  Part& PartOf(const char* name) {
    return *dynamic_cast<Part*>(Window().findChild<QWidget*>(name));
  }
  SpectrumDisplayWin& Display() { return PartOf<SpectrumDisplayWin>("SpectrumDisplayWin"); }
  SpectrumFrequencyWindow& Axis() { return PartOf<SpectrumFrequencyWindow>("SpectrumFrequencyWindow"); }
  SingleFrequencyWindow& Readout() { return PartOf<SingleFrequencyWindow>("SingleFrequencyWindow"); }
  TMyScrollBar& Bar() { return PartOf<TMyScrollBar>("TMyScrollBar"); }
  QToolButton* Button(int id) {
    for (QToolButton* button : Window().findChildren<QToolButton*>()) {
      if (button->property("controlId").toInt() == id) {
        return button;
      }
    }
    return nullptr;
  }

  // The bins' numbers for what the document's sound and cursor are now.
  static Spectrum SpectrumOf(AudioWin& document) {
    return ComputeSpectrum(*document.Doc().Clip(), document.EditWindow()->View().CursorFrame()).value();
  }

  // What the display must look like, without a marker.
  QImage ExpectedDisplay(const Spectrum& spectrum, const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    PaintSpectrum(RasterOf(image), &spectrum, {size.width(), size.height(), Display().devicePixelRatioF()},
                  Window().View());
    return image;
  }
  bool Shows(const Spectrum& spectrum) {
    const QImage shown = OnScreen(Display());
    return shown == ExpectedDisplay(spectrum, shown.size());
  }
};

}  // namespace tembrel::test
