#include "device/ServerAudioDevice.h"

#include <algorithm>
#include <utility>

#include "device/DeviceErrors.h"

namespace tembrel {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// The caller's clock counts whole milliseconds, rounded more than once.
constexpr milliseconds kRounding{2};
// The caller's clock may be a tick ahead after a pause: so close to the end, the sound goes on to it.
constexpr std::uint64_t kEndSlackMs = 150;
// A server that lags behind more than this is not waited for.
constexpr std::uint64_t kLongestLagMs = 500;

}  // namespace

ServerAudioDevice::ServerAudioDevice(std::shared_ptr<SoundServer> soundServer, std::filesystem::path folder)
    : server(std::move(soundServer)), tempFolder(std::move(folder)) {}

ServerAudioDevice::~ServerAudioDevice() = default;

DeviceError ServerAudioDevice::Failed(DeviceError error, const std::string& reason) {
  if (error != kDeviceSuccess) {
    reasons[error] = reason;
  }
  return error;
}

std::string ServerAudioDevice::ErrorText(DeviceError error) const {
  const auto found = reasons.find(error);
  return DeviceErrorText(error, found == reasons.end() ? std::string() : found->second);
}

DeviceError ServerAudioDevice::OpenPlayback(const std::filesystem::path& wavePath, std::int32_t startMs) {
  std::string reason;
  std::shared_ptr<FileSound> opened = FileSound::Open(wavePath, reason);
  if (opened == nullptr) {
    return Failed(kFileUnreadable, reason);
  }
  playing.reset();
  sound = std::move(opened);
  nextFrame = FrameAtMilliseconds(startMs, sound->Format().rate, sound->Frames());
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::Play() {
  if (sound == nullptr) {
    return Failed(kNothingOpen, {});
  }
  if (playing != nullptr && !playing->Ended()) {
    return kDeviceSuccess;
  }
  playing.reset();
  ending.reset();
  sound->Limit(nextFrame, sound->Frames());
  StreamResult result = server->StartPlayback(
      sound->Format(), [source = sound](std::span<std::byte> target) { return source->Read(target); });
  playing = std::move(result.stream);
  playedSince = steady_clock::now();
  return Failed(ErrorOfFault(result.fault), result.reason);
}

std::uint64_t ServerAudioDevice::FrameByTheClock() const {
  const auto elapsed =
      std::chrono::duration_cast<milliseconds>(steady_clock::now() - playedSince + kRounding);
  const std::uint32_t rate = sound->Format().rate;
  const std::uint64_t frame = nextFrame + static_cast<std::uint64_t>(elapsed.count()) * rate / 1000;
  return frame + kEndSlackMs * rate / 1000 >= sound->Frames() ? sound->Frames() : frame;
}

DeviceError ServerAudioDevice::StopPlayback() {
  if (playing == nullptr) {
    return kDeviceSuccess;
  }
  const std::uint64_t due = FrameByTheClock();
  const std::uint64_t heard = nextFrame + playing->FramesPassed();
  if (heard < due && due - heard <= kLongestLagMs * sound->Format().rate / 1000) {
    sound->EndAt(due);
    ending = std::move(playing);
  }
  playing.reset();
  nextFrame = due;
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::ClosePlayback() {
  playing.reset();
  sound.reset();
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::OpenRecording() {
  CloseRecording();
  recordingOpen = true;
  recordingFormat = kDefaultPlayback;
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::SetRecordingFormat(const FormatChoice& format) {
  const bool known = (format.bits == 8 || format.bits == 16) &&
                     (format.channels == 1 || format.channels == 2) && format.rate > 0;
  if (!recordingOpen || take != nullptr || !known) {
    return Failed(kNothingOpen, {});
  }
  recordingFormat = format;
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::Record() {
  if (!recordingOpen) {
    return Failed(kNothingOpen, {});
  }
  if (take != nullptr) {
    return kDeviceSuccess;
  }
  std::string reason;
  std::shared_ptr<Take> begun = Take::Begin(tempFolder, recordingFormat, reason);
  if (begun == nullptr) {
    return Failed(kTakeNotBegun, reason);
  }
  const SoundFormat format{recordingFormat.rate, recordingFormat.bits / 8U, recordingFormat.channels};
  StreamResult result = server->StartRecording(
      format, [begun](std::span<const std::byte> frames) { begun->Push(frames); },
      [begun] { begun->Fail(kServerLost); });
  if (result.stream == nullptr) {
    begun->Finish();
    begun->Remove();
    return Failed(ErrorOfFault(result.fault), result.reason);
  }
  recording = std::move(result.stream);
  take = std::move(begun);
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::StopRecording() {
  if (take == nullptr) {
    return kDeviceSuccess;
  }
  recording.reset();
  take->Finish();
  const DeviceError failure = take->Failure();
  return Failed(failure, take->FailureReason());
}

DeviceError ServerAudioDevice::SaveRecording(const std::filesystem::path& path,
                                             const MoveProgress& progress) {
  if (take == nullptr) {
    return Failed(kNothingOpen, {});
  }
  StopRecording();
  std::string reason;
  saveFailed = !take->MoveTo(path, progress, reason);
  if (saveFailed) {
    return Failed(kTakeNotSaved, reason);
  }
  take.reset();
  return kDeviceSuccess;
}

DeviceError ServerAudioDevice::CloseRecording() {
  recording.reset();
  if (take != nullptr) {
    take->Finish();
    if (!saveFailed) {
      take->Remove();
    }
    take.reset();
  }
  saveFailed = false;
  recordingOpen = false;
  return kDeviceSuccess;
}

RecordingState ServerAudioDevice::AskRecording() {
  if (take == nullptr) {
    return {};
  }
  const RecordingState state = take->Ask();
  Failed(state.failure, take->FailureReason());
  return state;
}

}  // namespace tembrel
