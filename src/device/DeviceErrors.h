// What can go wrong with the sound device, in numbers and in words.
#pragma once

#include <cstddef>
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

// The longest text of an error, in bytes.
inline constexpr std::size_t kLongestErrorText = 200;
// Leaves at most this many bytes of a text, and no half of a character at the end.
void CutText(std::string& text, std::size_t bytes);

// The text of the error with the reason in its place, no longer than that; empty for success.
std::string DeviceErrorText(DeviceError error, const std::string& reason);

}  // namespace tembrel
