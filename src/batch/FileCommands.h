// The commands that open, save, close and describe documents, and echo.
#pragma once

#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

std::vector<BatchCommand> FileCommands();

}  // namespace tembrel
