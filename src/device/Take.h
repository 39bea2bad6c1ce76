// One recording while it is taken down: sound comes in on the sound server's thread and goes to a file on a
// thread of its own, so that neither the server nor the window waits for the disk.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "audio/WaveWriter.h"
#include "device/AudioDevice.h"
#include "device/LevelMeter.h"
#include "device/TakeFile.h"

namespace tembrel {

// The most bytes of sound in a recording: a multiple of every frame's size.
inline constexpr std::uint64_t kMostTakeBytes = kMostWaveBytes / 4 * 4;

class Take {
 public:
  // Null on failure, with the system's words.
  static std::unique_ptr<Take> Begin(const std::filesystem::path& tempFolder, const FormatChoice& format,
                                     std::string& reason, std::uint64_t mostBytes = kMostTakeBytes);

  // For Begin().
  Take(TakeFile takeFile, const FormatChoice& soundFormat, std::uint64_t mostBytes);
  Take(const Take&) = delete;
  Take& operator=(const Take&) = delete;
  // What was not moved stays in the folder, to be recovered at the next start.
  ~Take();

  // Whole frames; on any thread. After a failure nothing more is taken.
  void Push(std::span<const std::byte> frames);
  // Nothing more comes, for this reason.
  void Fail(DeviceError error, const std::string& reason = {});
  RecordingState Ask();
  // What the state would say of it, and why.
  DeviceError Failure() const;
  std::string FailureReason() const;

  // Waits until everything is in the file. The rest is for afterwards.
  void Finish();
  bool MoveTo(const std::filesystem::path& target, const MoveProgress& progress, std::string& reason);
  void Remove();

 private:
  void WriteOn();
  bool WriteOut(std::span<const std::byte> frames, std::string& reason);
  void FailLocked(DeviceError error, const std::string& reason);

  TakeFile file;  // the writer's while it runs
  std::uint64_t unsettled = 0;
  const FormatChoice format;
  const std::uint64_t most;

  mutable std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::byte> waiting;  // not in the file yet
  std::uint64_t taken = 0;         // bytes accepted
  Levels levels;
  DeviceError failure = kDeviceSuccess;
  std::string failureReason;
  bool finishing = false;

  std::thread writer;
};

}  // namespace tembrel
