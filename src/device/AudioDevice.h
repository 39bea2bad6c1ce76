// What the transport needs of a sound device: play a WAVE file from a millisecond on, and record one. The
// real device speaks to the sound server, tests use one of their own. Everything is called on one thread and
// comes back at once but for the waits stated.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "audio/Settings.h"
#include "platform/MoveFile.h"

namespace tembrel {

// 0 for success; anything else is an error that ErrorText() puts into words.
using DeviceError = int;
inline constexpr DeviceError kDeviceSuccess = 0;

// How a recording stands.
struct RecordingState {
  std::int64_t milliseconds = 0;         // of sound taken down so far
  double peakLeft = 0.0;                 // largest magnitude since the last question, 0.0 to 1.0
  double peakRight = 0.0;                // equal to peakLeft in mono
  bool clipped = false;                  // a sample reached full scale since the last question
  DeviceError failure = kDeviceSuccess;  // why the recording has stopped by itself; what was taken down stays
};

class AudioDevice {
 public:
  virtual ~AudioDevice() = default;

  // Opens the WAVE file for output, moves to `startMs` milliseconds and prepares output. When the file cannot
  // be opened what was open before stays open.
  virtual DeviceError OpenPlayback(const std::filesystem::path& wavePath, std::int32_t startMs) = 0;
  // Plays from the current position to the end and returns at once. Without an open device, or without a
  // sound server, an error.
  virtual DeviceError Play() = 0;
  // Both do nothing without an open device.
  virtual DeviceError StopPlayback() = 0;
  virtual DeviceError ClosePlayback() = 0;

  // Opens a new recording that has no name yet; SetRecordingFormat() comes before Record().
  virtual DeviceError OpenRecording() = 0;
  virtual DeviceError SetRecordingFormat(const FormatChoice& format) = 0;
  // Starts recording from the server's recording source and returns at once.
  virtual DeviceError Record() = 0;
  // What has stopped the recording before, or has kept its end from being taken down, if anything.
  virtual DeviceError StopRecording() = 0;
  // Moves what was recorded to `path`, which does not exist. On another disk that takes its time, of which
  // `progress` tells unless it is empty.
  virtual DeviceError SaveRecording(const std::filesystem::path& path, const MoveProgress& progress) = 0;
  // What was not saved is lost. Does nothing without an open recording.
  virtual DeviceError CloseRecording() = 0;
  // Peaks and clip mark start anew with every question.
  virtual RecordingState AskRecording() = 0;

  // At most 200 characters.
  virtual std::string ErrorText(DeviceError error) const = 0;
};

}  // namespace tembrel
