#include "device/SoundServices.h"

#include "device/SilentServices.h"

namespace tembrel {

SoundServices OpenSoundServices(const std::filesystem::path& /*tempFolder*/) {
  return SilentServices();
}

}  // namespace tembrel
