#include "device/SoundServices.h"

#include "device/ServerAudioDevice.h"
#include "device/ServerMixer.h"
#include "device/ServerSoundPlayer.h"
#include "platform/SoundServer.h"

namespace tembrel {

SoundServices OpenSoundServices(const std::filesystem::path& tempFolder) {
  const std::shared_ptr<SoundServer> server = FindSoundServer();
  return {std::make_unique<ServerAudioDevice>(server, tempFolder),
          std::make_unique<ServerSoundPlayer>(server), std::make_unique<ServerMixer>(server)};
}

}  // namespace tembrel
