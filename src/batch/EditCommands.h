// The commands that select, move the cursor and change the sound.
#pragma once

#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

std::vector<BatchCommand> EditCommands();

}  // namespace tembrel
