// Sound services that neither play nor record: for runs that nobody listens to.
#pragma once

#include "device/SoundServices.h"

namespace tembrel {

// Playing and auditions succeed and are not heard, recording says that there is no sound server, and there
// are no mixer devices.
SoundServices SilentServices();

}  // namespace tembrel
