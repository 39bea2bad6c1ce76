// Lets the user hear a stretch of a clip, through a scratch file that the sound player reads and that is gone
// again when the call returns.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "audio/AudioClip.h"
#include "audio/Progress.h"
#include "device/SoundPlayer.h"

namespace tembrel {

struct AuditionResult {
  bool ok = false;
  bool cancelled = false;         // the progress function said so
  std::string message;            // of a failure, for the user
  std::int64_t milliseconds = 0;  // how long the sound lasts that plays now
};

class Audition {
 public:
  // The scratch file "play.wav" stands in the current folder; where that may not be written, or holds a file
  // of this name, which would be the user's, in `tempFolder`. The player outlives this object.
  Audition(SoundPlayer& soundPlayer, std::filesystem::path tempFolder);

  // Plays the bytes from `fromByte` up to, not including, `toByte` of the clip's sound, as far as there are
  // any, and returns as soon as they are on their way. What played before ends.
  AuditionResult AuditionOnce(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte,
                              const Progress& progress = {});
  // The same over and over; waits for dialogs that change a sound while it is heard.
  AuditionResult AuditionLoop(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte,
                              const Progress& progress = {});
  // Ends the sound that plays.
  void Stop();

 private:
  AuditionResult Play(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte, bool looping,
                      const Progress& progress);

  SoundPlayer& player;
  std::filesystem::path spareFolder;
};

}  // namespace tembrel
