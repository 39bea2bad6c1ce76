#include "batch/CommandList.h"

#include <algorithm>

#include "batch/AnalysisCommands.h"
#include "batch/EditCommands.h"
#include "batch/EffectCommands.h"
#include "batch/FileCommands.h"
#include "batch/LaterCommands.h"
#include "batch/ViewCommands.h"

namespace tembrel {

namespace {

std::vector<BatchCommand> CommandsOfThisVersion() {
  std::vector<BatchCommand> commands;
  for (const auto& family :
       {FileCommands(), EditCommands(), EffectCommands(), ViewCommands(), AnalysisCommands()}) {
    commands.insert(commands.end(), family.begin(), family.end());
  }
  return commands;
}

std::string Lines(std::string_view heading, const std::vector<BatchCommand>& commands) {
  std::string lines(heading);
  for (const BatchCommand& command : commands) {
    lines += "  " + UsageOf(command) + "\n";
  }
  return lines;
}

}  // namespace

const std::vector<BatchCommand>& BatchCommands() {
  static const std::vector<BatchCommand> kCommands = [] {
    std::vector<BatchCommand> commands = CommandsOfThisVersion();
    const std::vector<BatchCommand> later = LaterCommands();
    commands.insert(commands.end(), later.begin(), later.end());
    return commands;
  }();
  return kCommands;
}

std::string CommandSummary() {
  return Lines("Commands:\n", CommandsOfThisVersion()) +
         Lines("\nCommands that this version cannot do yet:\n", LaterCommands());
}

const BatchCommand* FindBatchCommand(std::string_view name) {
  const auto found = std::ranges::find(BatchCommands(), name, &BatchCommand::name);
  return found == BatchCommands().end() ? nullptr : &*found;
}

}  // namespace tembrel
