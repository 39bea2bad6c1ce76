#include "app/ui/TransportControl.h"

#include <utility>

#include "app/ui/PlayedWindow.h"
#include "document/ui/AudioWin.h"
#include "view/StripButtons.h"
#include "view/ui/AudioEditWindow.h"

namespace tembrel {

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
      Q_EMIT recordingAsked();
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
