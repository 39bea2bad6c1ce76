#include "device/Transport.h"

#include <optional>
#include <string_view>
#include <utility>

#include "device/DeviceErrors.h"
#include "device/OldFileAside.h"
#include "device/RecordingName.h"
#include "device/RecordingSource.h"
#include "document/StringTable.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

constexpr std::string_view kEndQuestion =
    "A recording is running.\n\nYes stops it and asks for the name to save it under, No throws it away, and "
    "Cancel goes on recording.";

// A flag that is set for as long as this lives.
class Raised {
 public:
  explicit Raised(bool& raisedFlag) : flag(raisedFlag) { flag = true; }
  ~Raised() { flag = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag;
};

}  // namespace

Transport::Transport(AudioDevice& audioDevice, Mixer& machineMixer, const MillisecondClock& millisecondClock,
                     const Settings& programSettings, Prompts& questions, TransportHost& transportHost)
    : device(audioDevice),
      mixer(machineMixer),
      clock(millisecondClock),
      settings(programSettings),
      prompts(questions),
      host(transportHost) {}

Transport::~Transport() {
  if (playing) {
    device.StopPlayback();
    device.ClosePlayback();
  }
  if (recording) {
    device.StopRecording();
    device.CloseRecording();
  }
}

// ---- Playing

void Transport::Play() {
  if (playing) {
    Stop();
  } else {
    StartPlaying(Range::ToEnd);
  }
}

void Transport::PlayFromCursor() {
  StartPlaying(Range::FromCursor);
}

void Transport::PlayScreen() {
  StartPlaying(Range::Screen);
}

void Transport::StartPlaying(Range range) {
  if (playing || recording) {
    return;
  }
  std::unique_ptr<PlayedDocument> active = host.ActiveDocument();
  if (active == nullptr) {
    return;
  }
  playDocument = std::move(active);
  buttons.play = true;
  host.TransportChanged();
  const std::uint32_t rate = playDocument->Rate();
  const std::int64_t first = playDocument->FirstVisibleFrame();
  const bool screen = range == Range::Screen;
  startMs = MillisecondsOfFrame(range == Range::FromCursor ? playDocument->CursorFrame() : first, rate);
  StartDevice(startMs);
  host.StartTick();
  playing = true;
  startTime = clock.Now();
  endMs = MillisecondsOfFrame(screen ? first + playDocument->FramesOnScreen() : playDocument->Frames(), rate);
  playScreenMode = screen;
  host.TransportChanged();
}

// What goes wrong is not said: the cursor runs by the clock, in silence.
void Transport::StartDevice(std::int32_t fromMs) {
  const std::filesystem::path file = playDocument->WorkingFile();
  host.PlaybackIsSilent(file.empty() && playDocument->Frames() > 0);
  if (!file.empty() && device.OpenPlayback(file, fromMs) == kDeviceSuccess) {
    device.Play();
  }
}

void Transport::OnTick() {
  if (!playing) {
    return;
  }
  if (!playDocument->IsOpen()) {
    StopPlaying();
    return;
  }
  const std::uint32_t now = clock.Now();
  if (paused) {
    return;
  }
  MoveCursorTo(now);
  if (PlaybackIsOver(now - startTime, startMs, endMs)) {
    Stop();
    playDocument->SetCursorPosition(playDocument->FirstVisibleFrame(), false);
    playScreenMode = false;
  }
}

// To where the sound is by the clock. The screen that Play Screen plays is not left.
void Transport::MoveCursorTo(std::uint32_t now) {
  const std::int64_t frame = PlayedFrame(now - startTime, startMs, playDocument->Rate());
  if (!playScreenMode || frame < playDocument->FirstVisibleFrame() + playDocument->FramesOnScreen()) {
    playDocument->SetCursorPosition(frame, false);
  }
}

void Transport::Pause() {
  if (!buttons.play && !buttons.record) {
    return;
  }
  buttons.pause = !buttons.pause;
  host.TransportChanged();
  if (!playing) {
    return;
  }
  if (buttons.pause) {
    paused = true;
    pauseTime = clock.Now();
    device.StopPlayback();
    device.ClosePlayback();
    // The cursor stands where the last tick put it, and the sound is to go on where it stopped.
    if (playDocument->IsOpen()) {
      MoveCursorTo(pauseTime);
    }
    pausedFrame = playDocument->CursorFrame();
  } else {
    GoOn();
  }
  host.TransportChanged();
}

// The sound goes on at the cursor. A cursor that somebody has moved meanwhile is where playing starts anew.
void Transport::GoOn() {
  const std::int64_t cursor = playDocument->CursorFrame();
  const std::int32_t cursorMs = MillisecondsOfFrame(cursor, playDocument->Rate());
  StartDevice(cursorMs);
  resumeTime = clock.Now();
  if (cursor == pausedFrame) {
    startTime += resumeTime - pauseTime;
  } else {
    startMs = cursorMs;
    startTime = resumeTime;
  }
  paused = false;
}

void Transport::Stop() {
  if (playing) {
    StopPlaying();
  }
  if (recording) {
    StopRecording();
  }
}

void Transport::StopPlaying() {
  buttons = {};
  host.TransportChanged();
  device.StopPlayback();
  device.ClosePlayback();
  playing = false;
  paused = false;
  playScreenMode = false;
  host.StopTick();
  host.PlaybackIsSilent(false);
  host.TransportChanged();
}

void Transport::DocumentClosing() {
  if (playing) {
    StopPlaying();
  }
}

// ---- Recording

void Transport::Record() {
  if (recording || asking) {
    return;
  }
  if (settings.recording.showDialog) {
    const Raised open(asking);
    host.ShowRecordingSetup();
  }
  if (playing) {
    StopPlaying();
  }
  device.ClosePlayback();
  if (!OpenAndRecord()) {
    return;
  }
  recording = true;
  failureSaid = false;
  buttons.record = true;
  host.TransportChanged();
  PrepareMixer();
  host.StartMeter();
}

bool Transport::OpenAndRecord() {
  if (device.OpenRecording() != kDeviceSuccess) {
    return false;
  }
  device.SetRecordingFormat(settings.playback);
  if (const DeviceError error = device.Record(); error != kDeviceSuccess) {
    device.CloseRecording();
    SayDeviceError(error);
    return false;
  }
  return true;
}

void Transport::PrepareMixer() {
  const RecordingSettings& wanted = settings.recording;
  rememberedLine = CurrentRecordingSource(mixer, wanted.mixer);
  if (wanted.recordingLine == -1) {
    return;
  }
  SelectRecordingSource(mixer, wanted.mixer, wanted.recordingLine);
  rememberedVolume = GetLineVolume(mixer, wanted.mixer, wanted.recordingLine);
  SetLineVolume(mixer, wanted.mixer, wanted.recordingLine, wanted.recordingVolume);
}

void Transport::OnMeter() {
  if (!recording) {
    return;
  }
  const RecordingState state = device.AskRecording();
  host.ShowRecording(state);
  if (state.failure == kDeviceSuccess || asking || prompts.ShowsProgress()) {
    return;  // a failure is still there when the question is answered or the task is done
  }
  host.StopMeter();
  failureSaid = true;
  {
    const Raised open(asking);
    SayDeviceError(state.failure);
  }
  Stop();
}

void Transport::StopRecording() {
  if (asking) {
    return;
  }
  const Raised underWay(asking);
  KeepRecording();
}

// Ends the recording; true when it was saved.
bool Transport::KeepRecording() {
  // Pause did nothing to the recording but was down: nothing would ever release it.
  buttons.record = false;
  buttons.pause = false;
  host.TransportChanged();
  host.StopMeter();
  const DeviceError failure = device.StopRecording();
  if (failure != kDeviceSuccess && !failureSaid) {
    SayDeviceError(failure);  // before the name is asked: what is to be saved is not all
  }
  const std::optional<std::filesystem::path> name = AskRecordingPath(prompts);
  bool saved = false;
  if (name) {
    recordFileName = *name;
    saved = SaveRecording(recordFileName);
  }
  device.CloseRecording();
  recording = false;
  host.TransportChanged();
  if (saved) {
    host.OpenRecording(recordFileName);
  }
  return saved;
}

// A long take that goes to another disk is copied; the window shows how far it is.
DeviceError Transport::SaveTo(const std::filesystem::path& target) {
  const std::unique_ptr<ProgressDisplay> display =
      prompts.ShowProgress("Saving " + target.filename().string());
  display->ForbidCancel();
  return device.SaveRecording(target, ProgressOf(*display));
}

bool Transport::SaveRecording(const std::filesystem::path& path) {
  if (!MayWrite(path, prompts)) {
    device.CloseRecording();
    return false;
  }
  // A link stays one: what it leads to is replaced.
  const std::filesystem::path target = ResolveLinks(path);
  OldFileAside old(target);
  const DeviceError error = SaveTo(target);
  if (error != kDeviceSuccess) {
    old.PutBack();
    device.CloseRecording();
    if (old.Reason().empty()) {
      SayDeviceError(error);
    } else {
      // All that the device saw is a file in its way.
      prompts.Error(DeviceErrorText(kTakeNotSaved, old.Reason()));
    }
    return false;
  }
  old.Remove();
  return true;
}

void Transport::SayDeviceError(DeviceError error) {
  std::string text = device.ErrorText(error);
  CutText(text, kLongestErrorText);
  prompts.Error(text);
}

bool Transport::MayEnd() {
  if (!recording) {
    return !asking;
  }
  if (asking) {
    return false;
  }
  Answer answer = Answer::Cancel;
  {
    const Raised open(asking);
    answer = prompts.AskYesNoCancel(std::string(kEndQuestion), std::string(kProgramName));
  }
  if (answer == Answer::Cancel) {
    return false;
  }
  const Raised underWay(asking);
  if (answer == Answer::Yes) {
    return KeepRecording();
  }
  buttons.record = false;
  buttons.pause = false;
  host.StopMeter();
  device.StopRecording();
  device.CloseRecording();
  recording = false;
  host.TransportChanged();
  return true;
}

}  // namespace tembrel
