// Playing and recording: one state for the whole program, moved by commands, buttons and two timers. It knows
// no sound server and no window. All of it is called on one thread.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include "audio/Settings.h"
#include "device/AudioDevice.h"
#include "device/Mixer.h"
#include "device/PlayClock.h"
#include "device/PlayedDocument.h"
#include "device/TransportHost.h"
#include "document/Prompts.h"

namespace tembrel {

class Transport {
 public:
  // Everything given outlives the transport. The settings are read anew at every recording.
  Transport(AudioDevice& audioDevice, Mixer& machineMixer, const MillisecondClock& millisecondClock,
            const Settings& programSettings, Prompts& questions, TransportHost& transportHost);
  // Ends what plays. What is recorded and was not saved is lost; see MayEnd().
  ~Transport();
  Transport(const Transport&) = delete;
  Transport& operator=(const Transport&) = delete;

  bool Playing() const { return playing; }
  bool Paused() const { return paused; }
  bool Recording() const { return recording; }
  bool PlayScreenMode() const { return playScreenMode; }
  const TransportButtons& Buttons() const { return buttons; }
  // The recorded source line, and the recording line's volume, as they were before the last recording. The
  // mixer is not set back to them.
  int RememberedLine() const { return rememberedLine; }
  std::int32_t RememberedVolume() const { return rememberedVolume; }

  // Plays the active document from the left edge of its view to its end; stops when something plays.
  void Play();
  // From the cursor to the end, and what the view shows. Nothing while something plays.
  void PlayFromCursor();
  void PlayScreen();
  // Pauses or goes on, while the Play or the Record button is down. A recording goes on all the same: only
  // the button changes.
  void Pause();
  // Ends playing and recording. A recording is saved under a name that is asked for, and opened; without a
  // name it is lost.
  void Stop();
  // Starts a recording; what plays ends first. Nothing while something is recorded.
  void Record();

  // The host's two timers, which run from StartTick() to StopTick() and from StartMeter() to StopMeter(): the
  // first moves the cursor and ends playing at the end, the second shows the recording's level, and says why
  // it has stopped by itself.
  void OnTick();
  void OnMeter();

  // The document that plays is about to close.
  void DocumentClosing();
  // Asks what to do with a recording that runs when the program is about to end. False: the program stays.
  bool MayEnd();

 private:
  enum class Range { ToEnd, FromCursor, Screen };
  void StartPlaying(Range range);
  void StartDevice(std::int32_t fromMs);
  void MoveCursorTo(std::uint32_t now);
  void GoOn();
  void StopPlaying();
  void StopRecording();
  bool KeepRecording();
  bool OpenAndRecord();
  void PrepareMixer();
  DeviceError SaveTo(const std::filesystem::path& target);
  bool SaveRecording(const std::filesystem::path& path);
  void SayDeviceError(DeviceError error);

  AudioDevice& device;
  Mixer& mixer;
  const MillisecondClock& clock;
  const Settings& settings;
  Prompts& prompts;
  TransportHost& host;

  TransportButtons buttons;
  bool playing = false;
  bool paused = false;
  bool recording = false;
  bool playScreenMode = false;  // the view stays where it is
  std::uint32_t startTime = 0;  // clock; moved forward by every pause's length
  std::int32_t endMs = 0;       // where playing ends and started, in the sound
  std::int32_t startMs = 0;     // anew at the cursor, when that was moved during a pause
  std::uint32_t pauseTime = 0;  // clock, when Pause was pressed and released
  std::uint32_t resumeTime = 0;
  std::int64_t pausedFrame = 0;  // where Pause has left the cursor
  std::filesystem::path recordFileName;
  std::unique_ptr<PlayedDocument> playDocument;
  int rememberedLine = 0;
  std::int32_t rememberedVolume = 0;
  bool failureSaid = false;  // the user knows why the recording has stopped
  bool asking = false;       // a question about the recording is open: its end is under way
};

}  // namespace tembrel
