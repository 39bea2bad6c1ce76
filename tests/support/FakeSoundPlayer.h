// A sound player that remembers what it was given instead of playing it.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "device/SoundPlayer.h"
#include "tests/support/FileBytes.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {

struct PlayedSound {
  std::filesystem::path path;
  Bytes file;  // the file's bytes when it was to be played
  bool looping = false;
};

// What the player tells a test that has handed the player itself away.
struct PlayerLog {
  std::vector<PlayedSound> played;
  int stops = 0;
  bool canRead = true;
};

class FakeSoundPlayer : public SoundPlayer {
 public:
  // The log outlives the player.
  explicit FakeSoundPlayer(PlayerLog& playerLog) : log(playerLog) {}

  bool Play(const std::filesystem::path& wavePath, bool looping) override {
    log.played.push_back({wavePath, ReadBytes(wavePath), looping});
    return log.canRead;
  }
  void Stop() override { ++log.stops; }

 private:
  PlayerLog& log;
};

}  // namespace tembrel::test
