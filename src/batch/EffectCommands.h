// A command for every row of the effect table.
#pragma once

#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

std::vector<BatchCommand> EffectCommands();

}  // namespace tembrel
