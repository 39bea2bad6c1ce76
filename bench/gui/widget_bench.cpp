// What a user waits for in the real document window, drawn offscreen, on 44.1 kHz 16-bit stereo, an hour of
// it (about 635 MB, written to the temporary folder and removed) or TEMBREL_BENCH_MINUTES minutes: from a
// wheel turn or a key to the finished paint of everything that changed, the picture handed to the window
// system included. The waveform view is 1600 x 600 pixels.
#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include "app/ui/PlayedWindow.h"
#include "audio/ProgramPaths.h"
#include "bench/support/Figures.h"
#include "bench/support/NoisySound.h"
#include "bench/support/Rounds.h"
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

constexpr QSize kViewSize(1600, 600);
constexpr int kSteps = 41;
constexpr std::int64_t kTenSeconds = std::int64_t{10} * bench::kRate;

// Targets in milliseconds.
constexpr double kOfView = 16;
constexpr double kOfCursor = 1;
constexpr double kOfDrag = 4;
constexpr double kBeyondLines = 15;

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

// The window and a user's hands on it.
class Desk {
 public:
  explicit Desk(AudioWin& audioWin) : window(audioWin), view(*audioWin.EditWindow()) {
    view.installEventFilter(&watch);
  }

  EditView& View() { return view.View(); }
  std::int64_t Frames() const { return window.Doc().Clip()->Frames(); }

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

  // The cursor at the start of the sound, and these frames shown.
  void Show(std::int64_t first, std::int64_t frames) {
    View().SetCursorPosition(0, false);
    View().Show(first, frames);
    QCoreApplication::processEvents();
  }
  // Ten seconds that no step before has shown.
  void ShowTenSeconds(int step) {
    const std::int64_t places = Frames() / bench::kRate - 35;
    Show((5 + (step * std::int64_t{83} + 2) % places) * bench::kRate, kTenSeconds);
  }
  void ShowAll() { Show(0, Frames()); }
  void ShowHalf() {
    View().ZoomAll();
    View().ZoomIn();
    QCoreApplication::processEvents();
  }
  void PutCursorInView() {
    View().SetCursorPosition(View().FirstVisibleFrame() + View().FramesOnScreen() / 4, false);
    QCoreApplication::processEvents();
  }

  // Times the steps, each with everything up to the window's flushed picture; `prepare` runs before each and
  // does not count. Fails when a step moves or paints nothing.
  bench::Times TimeSteps(benchmark::State& state, const std::function<void(int)>& prepare,
                         const std::function<void(int)>& step) {
    int i = 0;
    return bench::CountRounds(state, [&](const auto& count) {
      prepare(i);
      QCoreApplication::processEvents();
      watch.painted = false;
      const auto before = Shown();
      count([&] {
        step(i);
        QCoreApplication::sendPostedEvents();  // the update request paints and flushes the whole window
      });
      if (!watch.painted || Shown() == before) {
        bench::Fail(state, "nothing moved or was painted");
      }
      ++i;
    });
  }

  // Ticks far enough apart for the cursor to be in another column every time.
  bench::Times TimeTicks(benchmark::State& state) {
    test::FakeAudioDevice device;
    test::FakeMixer mixer;
    test::ManualClock clock;
    const Settings settings;
    test::ScriptedPrompts prompts;
    WindowHost host(window);
    Transport transport(device, mixer, clock, settings, prompts, host);
    transport.Play();
    const std::int64_t column = View().FramesOnScreen() / view.width() + 1;
    const auto apart = static_cast<std::uint32_t>(column * 1000 / bench::kRate + 1);
    return TimeSteps(
        state, [&](int) { clock.now += apart; }, [&](int) { transport.OnTick(); });
  }

  // The mouse, pressed at kDragStart, moves to where(step).
  bench::Times TimeDrag(benchmark::State& state, const std::function<double(int)>& where) {
    Mouse(QEvent::MouseButtonPress, kDragStart, Qt::LeftButton);
    bench::Times times = TimeSteps(
        state, [](int) {}, [&](int i) { Mouse(QEvent::MouseMove, where(i), Qt::NoButton); });
    View().CancelDrag();
    QCoreApplication::processEvents();
    return times;
  }

  // Computing the lines of such a view alone.
  double LinesMilliseconds(std::int64_t frames) const {
    const auto compute = [&] {
      benchmark::DoNotOptimize(
          WaveLines(*window.Doc().Clip(), {kViewSize.width(), kViewSize.height()}, 0, frames).size());
    };
    return bench::TakeRounds(9, compute).Median();
  }

  static constexpr double kDragStart = 100;

 private:
  std::array<std::int64_t, 5> Shown() const {
    const EditView& rules = view.View();
    const PixelColumns strip = rules.SelectionStrip();
    return {rules.FirstVisibleFrame(), rules.FramesOnScreen(), rules.CursorFrame(), strip.from, strip.to};
  }

  AudioWin& window;
  AudioEditWindow& view;
  PaintWatch watch;
};

void Report(benchmark::State& state, const bench::Times& times, double target) {
  bench::Report(state, {{"median_ms", times.Median(), target}, {"worst_ms", times.Worst()}});
}

// Of views that show so many frames that their lines take most of the time.
void ReportBeyondLines(benchmark::State& state, const bench::Times& times, double lines) {
  bench::Report(state, {{"median_ms", times.Median()},
                        {"worst_ms", times.Worst()},
                        {"lines_ms", lines},
                        {"beyond_lines_ms", times.Median() - lines, kBeyondLines}});
}

// A view of ten seconds, elsewhere before every step.
void RegisterTenSeconds(Desk& desk, const std::string& name, const std::function<void()>& step) {
  bench::Register(("10_s/" + name).c_str(), kSteps, [&desk, step](benchmark::State& state) {
    Report(state,
           desk.TimeSteps(
               state, [&](int i) { desk.ShowTenSeconds(i); }, [&](int) { step(); }),
           kOfView);
  });
}

void RegisterScrollingAndZooming(Desk& desk) {
  RegisterTenSeconds(desk, "wheel_a_quarter_screen", [&desk] { desk.Turn(-1, Qt::NoModifier); });
  RegisterTenSeconds(desk, "shift_wheel_a_screen", [&desk] { desk.Turn(-1, Qt::ShiftModifier); });
  RegisterTenSeconds(desk, "ctrl_page_up_a_quarter_screen",
                     [&desk] { desk.Press(Qt::Key_PageUp, Qt::ControlModifier); });
  RegisterTenSeconds(desk, "ctrl_wheel_in_to_5_s", [&desk] { desk.Turn(1, Qt::ControlModifier); });
  bench::Register("5_s/ctrl_wheel_out_to_10_s", kSteps, [&desk](benchmark::State& state) {
    const auto prepare = [&](int i) {
      desk.ShowTenSeconds(i);
      desk.View().ZoomIn();
    };
    Report(state, desk.TimeSteps(state, prepare, [&](int) { desk.Turn(-1, Qt::ControlModifier); }), kOfView);
  });
  bench::Register("whole_file/ctrl_wheel_out_to_all", kSteps, [&desk](benchmark::State& state) {
    desk.ShowAll();
    const double lines = desk.LinesMilliseconds(desk.Frames());
    const bench::Times times = desk.TimeSteps(
        state, [&](int) { desk.ShowHalf(); }, [&](int) { desk.Turn(-1, Qt::ControlModifier); });
    ReportBeyondLines(state, times, lines);
  });
  bench::Register("half_file/wheel_a_quarter_screen", kSteps, [&desk](benchmark::State& state) {
    desk.ShowAll();
    const double lines = desk.LinesMilliseconds(desk.Frames() / 2);
    const bench::Times times = desk.TimeSteps(
        state, [&](int) { desk.ShowHalf(); }, [&](int) { desk.Turn(-1, Qt::NoModifier); });
    ReportBeyondLines(state, times, lines);
  });
  bench::Register("half_file/ctrl_wheel_in_from_all", kSteps, [&desk](benchmark::State& state) {
    desk.ShowAll();
    const double lines = desk.LinesMilliseconds(desk.Frames() / 2);
    const bench::Times times = desk.TimeSteps(
        state, [&](int) { desk.View().ZoomAll(); }, [&](int) { desk.Turn(1, Qt::ControlModifier); });
    ReportBeyondLines(state, times, lines);
  });
}

// What moves nothing but the cursor or the selection, in the view that `show` brings.
void RegisterMoves(Desk& desk, const std::string& shown, const std::function<void()>& show) {
  bench::Register((shown + "/cursor_right").c_str(), kSteps, [&desk, show](benchmark::State& state) {
    show();
    desk.PutCursorInView();
    Report(state,
           desk.TimeSteps(
               state, [](int) {}, [&](int) { desk.Press(Qt::Key_Right, Qt::NoModifier); }),
           kOfCursor);
  });
  bench::Register((shown + "/playing_tick").c_str(), kSteps, [&desk, show](benchmark::State& state) {
    show();
    desk.PutCursorInView();
    Report(state, desk.TimeTicks(state), kOfCursor);
  });
  bench::Register((shown + "/drag_10_pixels").c_str(), kSteps, [&desk, show](benchmark::State& state) {
    show();
    Report(state, desk.TimeDrag(state, [](int i) { return Desk::kDragStart + 10.0 * (i + 1); }), kOfDrag);
  });
  bench::Register((shown + "/drag_across").c_str(), kSteps, [&desk, show](benchmark::State& state) {
    show();
    const auto Across = [](int i) { return i % 2 == 0 ? 1500.0 : Desk::kDragStart + 50.0; };
    Report(state, desk.TimeDrag(state, Across), kOfDrag);
  });
}

void RegisterCursorAcross(Desk& desk) {
  bench::Register("10_s/cursor_across_half_the_screen", kSteps, [&desk](benchmark::State& state) {
    desk.ShowTenSeconds(0);
    const auto jump = [&](int i) {
      desk.View().SetCursorPosition(desk.View().FirstVisibleFrame() + kTenSeconds * (i % 2 == 0 ? 1 : 3) / 4,
                                    false);
    };
    Report(state,
           desk.TimeSteps(
               state, [](int) {}, jump),
           kOfCursor);
  });
}

int Run() {
  const test::ScratchFolder scratch;
  const ProgramPaths paths = PathsBelow(scratch.Path());
  std::filesystem::create_directories(paths.tempFolder);
  const std::filesystem::path file = scratch / "noise.wav";
  AudioWin window(paths, 1, "noise.wav");
  if (!bench::WriteNoisyFile(file, bench::SoundSeconds()) ||
      window.Doc().LoadFile(file, file.string(), {}) != LoadOutcome::Loaded) {
    std::fputs("the recording could not be made\n", stderr);
    return 1;
  }
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
  window.resize(kViewSize + QSize(100, 100));
  window.show();
  QCoreApplication::processEvents();
  window.resize(window.size() + kViewSize - window.EditWindow()->size());
  window.ShowLoadedDocument();
  QCoreApplication::processEvents();
  benchmark::AddCustomContext("device pixels a pixel", std::to_string(window.devicePixelRatioF()));
  benchmark::AddCustomContext("view", std::to_string(window.EditWindow()->width()) + " x " +
                                          std::to_string(window.EditWindow()->height()));
  Desk desk(window);
  RegisterScrollingAndZooming(desk);
  RegisterCursorAcross(desk);
  RegisterMoves(desk, "10_s", [&desk] { desk.ShowTenSeconds(0); });
  RegisterMoves(desk, "whole_file", [&desk] { desk.ShowAll(); });
  return bench::RunRegistered();
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return tembrel::bench::ReadFlags(argc, argv) ? tembrel::Run() : 1;
}
