// The sound device of this machine: plays and records through the sound server.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "device/AudioDevice.h"
#include "device/Take.h"
#include "device/WaveSound.h"
#include "platform/SoundServer.h"

namespace tembrel {

class ServerAudioDevice : public AudioDevice {
 public:
  // Recordings are taken down in `folder` until they are saved.
  ServerAudioDevice(std::shared_ptr<SoundServer> soundServer, std::filesystem::path folder);
  // A recording that is still there stays in the folder, to be recovered at the next start.
  ~ServerAudioDevice() override;

  // The first frame is the one nearest to `startMs`. The file is read while it plays.
  DeviceError OpenPlayback(const std::filesystem::path& wavePath, std::int32_t startMs) override;
  DeviceError Play() override;
  // What is heard lags a little behind the clock. After a stop the sound goes on to the place where the clock
  // says it is, so that one who plays on from there, or waits for the end by the clock, loses nothing.
  DeviceError StopPlayback() override;
  DeviceError ClosePlayback() override;

  DeviceError OpenRecording() override;
  DeviceError SetRecordingFormat(const FormatChoice& format) override;
  DeviceError Record() override;
  DeviceError StopRecording() override;
  // A recording that could not be saved is kept by CloseRecording(), to be recovered at the next start.
  DeviceError SaveRecording(const std::filesystem::path& path, const MoveProgress& progress) override;
  DeviceError CloseRecording() override;
  RecordingState AskRecording() override;

  // Tells the reason of the last error of this number.
  std::string ErrorText(DeviceError error) const override;

 private:
  DeviceError Failed(DeviceError error, const std::string& reason);
  std::uint64_t FrameByTheClock() const;

  std::shared_ptr<SoundServer> server;
  std::filesystem::path tempFolder;
  std::map<DeviceError, std::string> reasons;

  std::shared_ptr<FileSound> sound;      // what is open
  std::unique_ptr<SoundStream> playing;  // it, since Play()
  std::unique_ptr<SoundStream> ending;   // what was stopped, on its last stretch
  std::uint64_t nextFrame = 0;           // where Play() starts, and since Play() where it has started
  std::chrono::steady_clock::time_point playedSince;

  bool recordingOpen = false;
  FormatChoice recordingFormat = kDefaultPlayback;
  std::shared_ptr<Take> take;
  std::unique_ptr<SoundStream> recording;
  bool saveFailed = false;
};

}  // namespace tembrel
