#include "batch/LaterCommands.h"

#include <utility>

namespace tembrel {

namespace {

BatchCommand Later(std::string_view name, std::vector<ArgumentRule> arguments, Needs needs) {
  const auto refuse = [name](BatchSession& /*session*/, const Arguments& /*arguments*/) -> Failure {
    return "this version cannot do " + std::string(name) + " yet";
  };
  return {name, std::move(arguments), needs, refuse};
}

}  // namespace

std::vector<BatchCommand> LaterCommands() {
  std::vector<BatchCommand> commands{
      Later("pitch", {{"SEMITONES", ArgumentKind::Decimal, -24, 24}}, Needs::Selection),
      Later("duration", {{"PERCENT", ArgumentKind::Whole, 25, 400}}, Needs::Selection),
      Later("remove-noise", {{"STRENGTH", ArgumentKind::Whole, 0, 100}}, Needs::Selection),
      Later("plugins", {}, Needs::Nothing),
      Later("plugin", {{"NAME"}}, Needs::Selection),
  };
  for (BatchCommand& command : commands) {
    command.takesMore = command.name == "plugin";
  }
  return commands;
}

}  // namespace tembrel
