// All commands a script may use.
#pragma once

#include <string_view>
#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

const std::vector<BatchCommand>& BatchCommands();

// Null for an unknown name.
const BatchCommand* FindBatchCommand(std::string_view name);

}  // namespace tembrel
