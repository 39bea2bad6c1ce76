#include "batch/CommandList.h"

#include <algorithm>

#include "batch/AnalysisCommands.h"
#include "batch/EditCommands.h"
#include "batch/EffectCommands.h"
#include "batch/FileCommands.h"
#include "batch/LaterCommands.h"
#include "batch/ViewCommands.h"

namespace tembrel {

const std::vector<BatchCommand>& BatchCommands() {
  static const std::vector<BatchCommand> kCommands = [] {
    std::vector<BatchCommand> commands;
    for (const auto& family : {FileCommands(), EditCommands(), EffectCommands(), ViewCommands(),
                               AnalysisCommands(), LaterCommands()}) {
      commands.insert(commands.end(), family.begin(), family.end());
    }
    return commands;
  }();
  return kCommands;
}

const BatchCommand* FindBatchCommand(std::string_view name) {
  const auto found = std::ranges::find(BatchCommands(), name, &BatchCommand::name);
  return found == BatchCommands().end() ? nullptr : &*found;
}

}  // namespace tembrel
