// The commands of the view: what it shows, and what it paints.
#pragma once

#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

std::vector<BatchCommand> ViewCommands();

}  // namespace tembrel
