// What can go wrong with the sound device, in numbers and in words.
#pragma once

#include <string>

#include "device/AudioDevice.h"
#include "platform/SoundServer.h"

namespace tembrel {

enum DeviceErrors : DeviceError {
  kServerAbsent = 1,
  kServerHung,
  kServerRefused,   // reason: the server's words
  kServerLost,      // in the middle of a recording
  kNothingOpen,     // no file to play, or no recording
  kFileUnreadable,  // reason: as of LoadClip
  kTakeNotBegun,    // reason: the system's words
  kTakeNotWritten,  // in the middle of a recording; reason: the system's words
  kTakeTooLong,     // in the middle of a recording
  kTakeNotSaved,    // reason: the system's words
};

DeviceError ErrorOfFault(SoundFault fault);

// The text of the error with the reason in its place, at most 200 characters; empty for success.
std::string DeviceErrorText(DeviceError error, const std::string& reason);

}  // namespace tembrel
