// What every cursor move costs while the spectrum window follows it, drawn offscreen: from the move to the
// finished paint of all that changed, the picture handed to the window system included. The sound is noise,
// 44.1 kHz 16-bit stereo, so that both traces go up and down at every bin; the plot is as wide as a large
// screen. While playing, there is one such move every 100 ms.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <vector>

#include <QApplication>
#include <QEvent>

#include "analysis/ui/SpectrumWin.h"
#include "app/ConsolePrompts.h"
#include "audio/AudioClip.h"

namespace tembrel {
namespace {

constexpr double kTarget = 4;  // milliseconds
constexpr int kSteps = 201;
constexpr int kFramesApart = 2000;
constexpr std::uint32_t kFrames = 441000;
constexpr QSize kWindowSize(1900, 900);

AudioClip Noise() {
  AudioClip clip;
  clip.format = PcmFormat(44100, 16, 2);
  clip.dataSize = kFrames * clip.format.nBlockAlign;
  clip.data = std::move(MemoryBlock::Allocate(clip.dataSize).value());
  std::uint32_t state = 1;
  for (std::uint32_t i = 0; i < clip.dataSize; ++i) {
    state = state * 1664525U + 1013904223U;
    clip.data.Data()[i] = static_cast<std::byte>(state >> 24U);
  }
  return clip;
}

class PaintCounter : public QObject {
 public:
  int paints = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    paints += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

template <class Work>
std::vector<double> Times(const Work& work) {
  std::vector<double> times;
  for (int i = 0; i < kSteps; ++i) {
    const auto start = std::chrono::steady_clock::now();
    work(std::int64_t{i} * kFramesApart);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    times.push_back(taken.count());
  }
  std::ranges::sort(times);
  return times;
}

int Run() {
  const AudioClip clip = Noise();
  ConsolePrompts prompts;
  SpectrumWin window(prompts);
  window.resize(kWindowSize);
  window.show();
  window.Compute(&clip, 0);
  QCoreApplication::processEvents();
  PaintCounter counter;
  window.findChild<QWidget*>("SpectrumDisplayWin")->installEventFilter(&counter);

  const std::vector<double> alone = Times([&](std::int64_t frame) { ComputeSpectrum(clip, frame); });
  const std::vector<double> whole = Times([&](std::int64_t frame) {
    window.Compute(&clip, frame);
    QCoreApplication::sendPostedEvents();  // the update request paints and flushes the window
  });
  if (counter.paints != kSteps) {
    std::fprintf(stderr, "%d of %d moves were painted\n", counter.paints, kSteps);
    return 1;
  }
  const double median = whole[kSteps / 2];
  std::printf("window %d x %d, medians of %d moves\n", window.width(), window.height(), kSteps);
  std::printf("computing alone      %7.3f ms  worst %7.3f ms\n", alone[kSteps / 2], alone.back());
  std::printf("computing to picture %7.3f ms  worst %7.3f ms  target %7.3f ms%s\n", median, whole.back(),
              kTarget, median < kTarget ? "" : "  MISSED");
  return median < kTarget ? 0 : 1;
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return tembrel::Run();
}
