// Plays one short WAVE file at a time, for auditions.
#pragma once

#include <filesystem>

namespace tembrel {

class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;

  // Reads the whole file, so that it may be deleted afterwards, and plays it, once or over and over; the
  // sound that plays already ends. Returns at once. False when the file cannot be read.
  virtual bool Play(const std::filesystem::path& wavePath, bool looping) = 0;
  // Ends the sound that plays.
  virtual void Stop() = 0;
};

}  // namespace tembrel
