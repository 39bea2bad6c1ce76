// What a user waits for in the real document window, drawn offscreen, on 60 minutes of 44.1 kHz 16-bit stereo
// (about 635 MB, written to the temporary folder and removed): from a wheel turn or a key to the finished
// paint of everything that changed, the picture handed to the window system included. The waveform view is
// 1600 x 600 pixels.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <vector>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "app/ui/PlayedWindow.h"
#include "audio/ProgramPaths.h"
#include "device/Transport.h"
#include "document/ui/AudioWin.h"
#include "tests/support/FakeMixer.h"
#include "tests/support/FakeTransport.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedPrompts.h"
#include "view/WaveLines.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel {
namespace {

constexpr std::uint32_t kRate = 44100;
constexpr std::uint32_t kHour = kRate * 3600;  // frames
constexpr std::uint32_t kFrameSize = 4;        // bytes
constexpr QSize kViewSize(1600, 600);
constexpr int kSteps = 41;

void Put(std::ofstream& file, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) {
    file.put(static_cast<char>(value >> (8 * i) & 0xFF));
  }
}

// Noise: no two stretches look the same, and every column is high.
bool WriteHour(const std::filesystem::path& path) {
  std::ofstream file(path, std::ios::binary);
  const std::uint32_t size = kHour * kFrameSize;
  file << "RIFF";
  Put(file, 36 + size, 4);
  file << "WAVEfmt ";
  Put(file, 16, 4);
  Put(file, 1, 2);
  Put(file, 2, 2);
  Put(file, kRate, 4);
  Put(file, kRate * kFrameSize, 4);
  Put(file, kFrameSize, 2);
  Put(file, 16, 2);
  file << "data";
  Put(file, size, 4);
  std::vector<std::uint32_t> second(kRate);
  std::uint32_t state = 1;
  for (int i = 0; i < 3600; ++i) {
    for (std::uint32_t& frame : second) {
      state = state * 1664525U + 1013904223U;
      frame = state;
    }
    file.write(reinterpret_cast<const char*>(second.data()), std::streamsize{kRate} * kFrameSize);
  }
  return file.flush().good();
}

double Median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  return taken.count();
}

// Sees whether the view was painted.
class PaintWatch : public QObject {
 public:
  bool painted = false;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    painted = painted || event->type() == QEvent::Paint;
    return false;
  }
};

// Plays what the window shows, on a clock and a device that are not there.
class WindowHost : public test::FakeTransportHost {
 public:
  explicit WindowHost(AudioWin& audioWin) : window(audioWin) {}

  std::unique_ptr<PlayedDocument> ActiveDocument() override {
    return std::make_unique<PlayedWindow>(&window);
  }

 private:
  AudioWin& window;
};

class Bench {
 public:
  explicit Bench(AudioWin& audioWin) : window(audioWin), view(*audioWin.EditWindow()) {
    view.installEventFilter(&watch);
  }

  // Milliseconds for the event and everything up to the window's flushed picture; -1 when nothing moved or
  // was painted.
  double Step(const std::function<void()>& send) {
    QCoreApplication::processEvents();
    watch.painted = false;
    const EditView& rules = view.View();
    const auto Shown = [&rules] {
      const PixelColumns strip = rules.SelectionStrip();
      return std::array{rules.FirstVisibleFrame(), rules.FramesOnScreen(), rules.CursorFrame(),
                        std::int64_t{strip.from}, std::int64_t{strip.to}};
    };
    const auto before = Shown();
    const double taken = Milliseconds([&] {
      send();
      QCoreApplication::sendPostedEvents();  // the update request paints and flushes the whole window
    });
    return watch.painted && Shown() != before ? taken : -1;
  }

  void Turn(int steps, Qt::KeyboardModifiers keys) {
    const QPointF at = view.rect().center();
    QWheelEvent event(at, view.mapToGlobal(at), QPoint(), QPoint(0, 120 * steps), Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
  }

  void Press(int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&view, &event);
  }

  void Mouse(QEvent::Type type, double x, Qt::MouseButton button) {
    const QPointF at(x, view.height() / 3.0);
    QMouseEvent event(type, at, view.mapToGlobal(at), button, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &event);
  }

  // The median of `kSteps` steps; `prepare` runs before each and does not count.
  void Report(const char* what, double target, const std::function<void(int)>& prepare,
              const std::function<void(int)>& step) {
    std::vector<double> times;
    for (int i = 0; i < kSteps; ++i) {
      prepare(i);
      const double taken = Step([&] { step(i); });
      if (taken < 0) {
        std::printf("%-48s nothing moved or was painted\n", what);
        failed = true;
        return;
      }
      times.push_back(taken);
    }
    const double median = Median(times);
    const double worst = *std::ranges::max_element(times);
    std::printf("%-48s %8.3f ms  worst %8.3f ms  target %8.3f ms%s\n", what, median, worst, target,
                median < target ? "" : "  MISSED");
    failed = failed || median >= target;
  }

  double LinesOf(std::int64_t first, std::int64_t frames) {
    constexpr int kRounds = 9;
    std::vector<double> times;
    times.reserve(kRounds);
    std::size_t lines = 0;
    for (int i = 0; i < kRounds; ++i) {
      times.push_back(Milliseconds([&] {
        lines +=
            WaveLines(*window.Doc().Clip(), {kViewSize.width(), kViewSize.height()}, first, frames).size();
      }));
    }
    const double median = Median(times);
    std::printf("%-48s %8.3f ms  (%zu lines)\n", "  lines of the view alone", median, lines / kRounds);
    return median;
  }

  void TenSeconds() {
    constexpr double kTarget = 16;
    const std::int64_t shown = std::int64_t{10} * kRate;
    EditView& rules = view.View();
    const auto Elsewhere = [&](int i) {
      rules.Show((i * std::int64_t{83} + 7) * kRate, shown);
      QCoreApplication::processEvents();
    };
    Report("10 s: wheel, a quarter screen", kTarget, Elsewhere, [&](int) { Turn(-1, Qt::NoModifier); });
    Report("10 s: Shift+wheel, a screen", kTarget, Elsewhere, [&](int) { Turn(-1, Qt::ShiftModifier); });
    Report("10 s: Ctrl+Page Up, a quarter screen", kTarget, Elsewhere,
           [&](int) { Press(Qt::Key_PageUp, Qt::ControlModifier); });
    Report("10 s: Ctrl+wheel, zoom in to 5 s", kTarget, Elsewhere,
           [&](int) { Turn(1, Qt::ControlModifier); });
    Report(
        "5 s: Ctrl+wheel, zoom out to 10 s", kTarget,
        [&](int i) {
          Elsewhere(i);
          rules.ZoomIn();
          QCoreApplication::processEvents();
        },
        [&](int) { Turn(-1, Qt::ControlModifier); });
    Report(
        "10 s: cursor, Right", 1, [](int) {}, [&](int) { Press(Qt::Key_Right, Qt::NoModifier); });
    Report(
        "10 s: cursor, across half the screen", 1, [](int) {},
        [&](int i) {
          rules.SetCursorPosition(rules.FirstVisibleFrame() + (i % 2 == 0 ? shown / 4 : shown * 3 / 4),
                                  false);
        });
    Ticks("10 s: a tick of playing");
    Drag("10 s: drag-select, 10 pixels", "10 s: drag-select, across the screen");
  }

  // Ticks far enough apart for the cursor to be in another column every time.
  void Ticks(const char* what) {
    test::FakeAudioDevice device;
    test::FakeMixer mixer;
    test::ManualClock clock;
    const Settings settings;
    test::ScriptedPrompts prompts;
    WindowHost host(window);
    Transport transport(device, mixer, clock, settings, prompts, host);
    transport.Play();
    const std::int64_t column = view.View().FramesOnScreen() / view.width() + 1;
    const auto step = static_cast<std::uint32_t>(column * 1000 / kRate + 1);
    Report(
        what, 1, [&](int) { clock.now += step; }, [&](int) { transport.OnTick(); });
  }

  // The selection grows by a few pixels a move, and jumps across the screen.
  void Drag(const char* grow, const char* jump) {
    constexpr double kTarget = 4;
    constexpr double kStart = 100;
    Mouse(QEvent::MouseButtonPress, kStart, Qt::LeftButton);
    Report(
        grow, kTarget, [](int) {},
        [&](int i) { Mouse(QEvent::MouseMove, kStart + 10.0 * (i + 1), Qt::NoButton); });
    Report(
        jump, kTarget, [](int) {},
        [&](int i) { Mouse(QEvent::MouseMove, i % 2 == 0 ? 1500.0 : kStart + 50.0, Qt::NoButton); });
    view.View().CancelDrag();
    QCoreApplication::processEvents();
  }

  void WholeFile() {
    constexpr double kMore = 15;
    EditView& rules = view.View();
    const auto Half = [&](int) {
      rules.ZoomAll();
      rules.ZoomIn();
      QCoreApplication::processEvents();
    };
    rules.Show(0, kHour);
    rules.SetCursorPosition(0, false);
    const double whole = LinesOf(0, kHour);
    Report("whole file: Ctrl+wheel, zoom out to all", whole + kMore, Half,
           [&](int) { Turn(-1, Qt::ControlModifier); });
    const double half = LinesOf(0, kHour / 2);
    Report("30 min: wheel, a quarter screen", half + kMore, Half, [&](int) { Turn(-1, Qt::NoModifier); });
    Report(
        "30 min: Ctrl+wheel, zoom in from all", half + kMore,
        [&](int) {
          rules.ZoomAll();
          QCoreApplication::processEvents();
        },
        [&](int) { Turn(1, Qt::ControlModifier); });
    rules.ZoomAll();
    QCoreApplication::processEvents();
    Report(
        "whole file: cursor, Right", 1, [](int) {}, [&](int) { Press(Qt::Key_Right, Qt::NoModifier); });
    Ticks("whole file: a tick of playing");
    Drag("whole file: drag-select, 10 pixels", "whole file: drag-select, across the screen");
  }

  bool failed = false;

 private:
  AudioWin& window;
  AudioEditWindow& view;
  PaintWatch watch;
};

int Run() {
  const test::ScratchFolder scratch;
  const ProgramPaths paths = PathsBelow(scratch.Path());
  std::filesystem::create_directories(paths.tempFolder);
  const std::filesystem::path hour = scratch / "hour.wav";
  if (!WriteHour(hour)) {
    std::fputs("the hour of sound could not be written\n", stderr);
    return 1;
  }
  AudioWin window(paths, 1, "hour.wav");
  if (window.Doc().LoadFile(hour, hour.string(), {}) != LoadOutcome::Loaded) {
    std::fputs("the hour of sound could not be read\n", stderr);
    return 1;
  }
  std::error_code ignored;
  std::filesystem::remove(hour, ignored);
  window.resize(kViewSize + QSize(100, 100));
  window.show();
  QCoreApplication::processEvents();
  window.resize(window.size() + kViewSize - window.EditWindow()->size());
  window.ShowLoadedDocument();
  QCoreApplication::processEvents();
  std::printf("view %d x %d, %.1f device pixels a pixel, medians of %d steps\n", window.EditWindow()->width(),
              window.EditWindow()->height(), window.devicePixelRatioF(), kSteps);
  Bench bench(window);
  bench.TenSeconds();
  bench.WholeFile();
  return bench.failed ? 1 : 0;
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return tembrel::Run();
}
