// The commands that look at the sound's frequencies.
#pragma once

#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

std::vector<BatchCommand> AnalysisCommands();

}  // namespace tembrel
