// The mixers of this machine: device 0 is the sound server with all sources it can record from, and every
// sound card follows with its own. Each has one destination, for recording, whose selector is the server's
// default source.
#pragma once

#include <memory>

#include "device/Mixer.h"
#include "platform/SoundServer.h"

namespace tembrel {

class ServerMixer : public Mixer {
 public:
  explicit ServerMixer(std::shared_ptr<SoundServer> soundServer);

  // 0 without a server.
  int DeviceCount() const override;
  std::optional<std::string> DeviceName(int device) const override;
  bool Hangs() const override { return server->Hangs(); }
  // The device has the source lines of this moment; none when the server hangs.
  std::unique_ptr<MixerDevice> Open(int device) override;

 private:
  std::shared_ptr<SoundServer> server;
};

}  // namespace tembrel
