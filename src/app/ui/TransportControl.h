// The transport among the windows: its two timers, the active document's view as what it plays, and signals
// for the strip and the status bar.
#pragma once

#include <functional>

#include <QObject>
#include <QPointer>
#include <QTimer>

#include "app/StripState.h"
#include "device/SoundServices.h"
#include "device/SteadyClock.h"
#include "device/Transport.h"

namespace tembrel {

class AudioWin;

class TransportControl : public QObject, private TransportHost {
  Q_OBJECT

 public:
  // What the transport needs of the program.
  struct Program {
    std::function<AudioWin*()> activeDocument;  // null when there is none to play
    std::function<void()> showRecordingSetup;
    std::function<void(const std::filesystem::path&)> openDocument;
  };

  // What is given outlives the control.
  TransportControl(SoundServices& sound, const Settings& settings, Prompts& questions, Program theProgram);

  void Play() { transport.Play(); }
  void PlayFromCursor() { transport.PlayFromCursor(); }
  void PlayScreen() { transport.PlayScreen(); }
  void Stop() { transport.Stop(); }
  // The strip's button with this tool tip was let go.
  void Press(int tipId);

  bool Playing() const { return transport.Playing(); }
  bool Recording() const { return transport.Recording(); }
  StripContext Strip() const;

  // The window is about to close: what plays in it stops.
  void DocumentClosing(const AudioWin* window);
  // Asks about a recording that runs. False: the program stays.
  bool MayEnd() { return transport.MayEnd(); }

 Q_SIGNALS:
  // The buttons stand otherwise.
  void changed();
  // What plays has no file that could be heard, or that is over.
  void silentChanged(bool silent);
  // A recording is to begin: what is heard otherwise would be in it.
  void recordingAsked();
  void recordingStarted();
  void recordingProgressed(const tembrel::RecordingState& state);
  void recordingEnded();

 private:
  std::unique_ptr<PlayedDocument> ActiveDocument() override;
  void TransportChanged() override { Q_EMIT changed(); }
  void PlaybackIsSilent(bool silent) override { Q_EMIT silentChanged(silent); }
  void StartTick() override { tickTimer.start(); }
  void StopTick() override { tickTimer.stop(); }
  void StartMeter() override;
  void StopMeter() override;
  void ShowRecording(const RecordingState& state) override { Q_EMIT recordingProgressed(state); }
  void ShowRecordingSetup() override { program.showRecordingSetup(); }
  void OpenRecording(const std::filesystem::path& path) override { program.openDocument(path); }
  void Rewind();

  Program program;
  SteadyClock clock;
  QTimer tickTimer;
  QTimer meterTimer;
  QPointer<AudioWin> played;  // what the last Play began with
  Transport transport;
};

}  // namespace tembrel
