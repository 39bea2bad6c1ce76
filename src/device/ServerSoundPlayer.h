// Plays auditions through the sound server.
#pragma once

#include <memory>

#include "device/SoundPlayer.h"
#include "platform/SoundServer.h"

namespace tembrel {

class ServerSoundPlayer : public SoundPlayer {
 public:
  explicit ServerSoundPlayer(std::shared_ptr<SoundServer> soundServer);

  // Without a server the sound is silent, and true is returned.
  bool Play(const std::filesystem::path& wavePath, bool looping) override;
  void Stop() override;

 private:
  std::shared_ptr<SoundServer> server;
  std::unique_ptr<SoundStream> stream;
};

}  // namespace tembrel
