// Commands that scripts may name but this version cannot do yet: their arguments are checked, and then they
// say so.
#pragma once

#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

std::vector<BatchCommand> LaterCommands();

}  // namespace tembrel
