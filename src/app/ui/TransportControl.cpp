#include "app/ui/TransportControl.h"

#include <utility>

#include "document/ui/AudioWin.h"
#include "view/StripButtons.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel {

namespace {

// A document window as what the transport plays, also after it has closed.
class PlayedWindow : public PlayedDocument {
 public:
  explicit PlayedWindow(AudioWin* audioWindow) : window(audioWindow) {}

  bool IsOpen() const override { return !window.isNull(); }
  std::int64_t Frames() const override { return Clip() == nullptr ? 0 : Clip()->Frames(); }
  // Without sound it is the rate that the view counts with.
  std::uint32_t Rate() const override {
    constexpr std::uint32_t kRateWithoutSound = 44100;
    return Clip() == nullptr ? kRateWithoutSound : Clip()->format.nSamplesPerSec;
  }
  std::filesystem::path WorkingFile() const override {
    return IsOpen() ? window->Doc().TempFileName() : std::filesystem::path();
  }
  std::int64_t FirstVisibleFrame() const override { return IsOpen() ? View().FirstVisibleFrame() : 0; }
  std::int64_t FramesOnScreen() const override { return IsOpen() ? View().FramesOnScreen() : 0; }
  std::int64_t CursorFrame() const override { return IsOpen() ? View().CursorFrame() : 0; }
  void SetCursorPosition(std::int64_t frame, bool force) override {
    if (IsOpen()) {
      View().SetCursorPosition(frame, force);
    }
  }

 private:
  const AudioClip* Clip() const { return IsOpen() ? window->Doc().Clip() : nullptr; }
  EditView& View() const { return window->EditWindow()->View(); }

  QPointer<AudioWin> window;
};

}  // namespace

TransportControl::TransportControl(SoundServices& sound, const Settings& settings, Prompts& questions,
                                   Program theProgram)
    : program(std::move(theProgram)),
      transport(*sound.device, *sound.mixer, clock, settings, questions, *this) {
  tickTimer.setTimerType(Qt::PreciseTimer);
  tickTimer.setInterval(kTickMs);
  connect(&tickTimer, &QTimer::timeout, this, [this] { transport.OnTick(); });
  meterTimer.setTimerType(Qt::PreciseTimer);
  meterTimer.setInterval(kMeterMs);
  connect(&meterTimer, &QTimer::timeout, this, [this] { transport.OnMeter(); });
}

void TransportControl::Press(int tipId) {
  switch (tipId) {
    case kStripRewind:
      return Rewind();
    case kStripPlay:
      return transport.Play();
    case kStripPause:
      return transport.Pause();
    case kStripStop:
      return transport.Stop();
    case kStripRecord:
      return transport.Record();
    default:
      return;
  }
}

// As the Home key: the cursor goes to the start, and the view with it.
void TransportControl::Rewind() {
  AudioWin* active = program.activeDocument();
  if (active != nullptr && !transport.Playing()) {
    active->EditWindow()->View().KeyPress(EditKey::Home, false, false);
  }
}

StripContext TransportControl::Strip() const {
  return {transport.Buttons(), transport.Playing(), transport.Recording(),
          program.activeDocument() != nullptr};
}

void TransportControl::DocumentClosing(const AudioWin* window) {
  if (window == played) {
    transport.DocumentClosing();
  }
}

std::unique_ptr<PlayedDocument> TransportControl::ActiveDocument() {
  AudioWin* active = program.activeDocument();
  if (active == nullptr) {
    return nullptr;
  }
  played = active;
  return std::make_unique<PlayedWindow>(active);
}

void TransportControl::StartMeter() {
  meterTimer.start();
  Q_EMIT recordingStarted();
}

void TransportControl::StopMeter() {
  meterTimer.stop();
  Q_EMIT recordingEnded();
}

}  // namespace tembrel
