// What every cursor move costs while the spectrum window follows it, drawn offscreen: from the move to the
// finished paint of all that changed, the picture handed to the window system included; and the spectrum
// alone. The sound is ten seconds of noise, 44.1 kHz 16-bit stereo, so that both traces go up and down at
// every bin; the plot is as wide as a large screen. While playing, there is one such move every 100 ms.
#include <cstdint>
#include <cstdio>
#include <optional>

#include <QApplication>
#include <QEvent>

#include "analysis/ui/SpectrumWin.h"
#include "app/ConsolePrompts.h"
#include "bench/support/Figures.h"
#include "bench/support/NoisySound.h"
#include "bench/support/Rounds.h"

namespace tembrel {
namespace {

constexpr int kMoves = 201;
constexpr std::int64_t kFramesApart = 2000;
constexpr QSize kWindowSize(1900, 900);

class PaintCounter : public QObject {
 public:
  int paints = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    paints += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
};

void TimeSpectrum(benchmark::State& state, const AudioClip& clip) {
  std::int64_t frame = 0;
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) {
    count([&] { benchmark::DoNotOptimize(ComputeSpectrum(clip, frame)); });
    frame += kFramesApart;
  });
  bench::Report(state, {{"median_ms", times.Median()}, {"worst_ms", times.Worst()}});
}

void TimeMoves(benchmark::State& state, const AudioClip& clip, SpectrumWin& window) {
  constexpr double kTarget = 4;  // milliseconds
  PaintCounter counter;
  window.findChild<QWidget*>("SpectrumDisplayWin")->installEventFilter(&counter);
  std::int64_t frame = 0;
  const bench::Times times = bench::CountRounds(state, [&](const auto& count) {
    const int before = counter.paints;
    count([&] {
      window.Compute(&clip, frame);
      QCoreApplication::sendPostedEvents();  // the update request paints and flushes the window
    });
    if (counter.paints != before + 1) {
      bench::Fail(state, "a move was not painted once");
    }
    frame += kFramesApart;
  });
  bench::Report(state, {{"median_ms", times.Median(), kTarget}, {"worst_ms", times.Worst()}});
}

int Run() {
  const std::optional<AudioClip> clip = bench::NoisyClip(10);
  if (!clip) {
    std::fputs("there is no memory for the sound\n", stderr);
    return 1;
  }
  ConsolePrompts prompts;
  SpectrumWin window(prompts);
  window.resize(kWindowSize);
  window.show();
  window.Compute(&*clip, 0);
  QCoreApplication::processEvents();
  bench::Register("spectrum_alone", kMoves, [&](benchmark::State& state) { TimeSpectrum(state, *clip); });
  bench::Register("move_to_picture", kMoves,
                  [&](benchmark::State& state) { TimeMoves(state, *clip, window); });
  return bench::RunRegistered();
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return tembrel::bench::ReadFlags(argc, argv) ? tembrel::Run() : 1;
}
