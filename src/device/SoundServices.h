// The sound device, the sound player and the mixer of this machine, over one shared connection to its sound
// server. The program opens them once.
#pragma once

#include <filesystem>
#include <memory>

#include "device/AudioDevice.h"
#include "device/Mixer.h"
#include "device/SoundPlayer.h"

namespace tembrel {

struct SoundServices {
  std::unique_ptr<AudioDevice> device;
  std::unique_ptr<SoundPlayer> player;
  std::unique_ptr<Mixer> mixer;
};

// None of the three is null, and nothing is waited for: the server is looked for when it is first needed.
// That takes a second at most, once; without a server the device and the player are silent and there are no
// mixer devices. Recordings are taken down in `tempFolder` until they are saved.
SoundServices OpenSoundServices(const std::filesystem::path& tempFolder);

}  // namespace tembrel
