// All commands a script may use.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "batch/BatchCommand.h"

namespace tembrel {

const std::vector<BatchCommand>& BatchCommands();

// The usage of each, a line a command; those that this version cannot do yet under a heading of their own.
std::string CommandSummary();

// Null for an unknown name.
const BatchCommand* FindBatchCommand(std::string_view name);

}  // namespace tembrel
