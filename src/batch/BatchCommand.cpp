#include "batch/BatchCommand.h"

#include <algorithm>

namespace tembrel {

namespace {

Failure CheckArguments(const BatchCommand& command, const Arguments& arguments) {
  const std::size_t most = command.arguments.size();
  const std::size_t least = most - command.optional;
  if (arguments.Count() < least || (arguments.Count() > most && !command.takesMore)) {
    const bool tooFew = arguments.Count() < least;
    return std::string(tooFew ? "too few arguments: " : "too many arguments: ") + UsageOf(command);
  }
  for (std::size_t i = 0; i < std::min(arguments.Count(), most); ++i) {
    if (Failure failure = arguments.Check(i, command.arguments[i])) {
      return std::string(command.name) + ": " + *failure;
    }
  }
  return kSucceeded;
}

Failure CheckNeeds(const BatchCommand& command, BatchSession& session) {
  const BatchDocument* document = session.Active();
  if (command.needs != Needs::Nothing && document == nullptr) {
    return std::string(command.name) + " needs a document, and none is open";
  }
  if (command.needs == Needs::Selection && !document->View().HasSelection()) {
    return std::string(command.name) + " needs a selection, and there is none";
  }
  return kSucceeded;
}

}  // namespace

std::string UsageOf(const BatchCommand& command) {
  std::string usage(command.name);
  for (std::size_t i = 0; i < command.arguments.size(); ++i) {
    const std::string name(command.arguments[i].name);
    const bool optional = i + command.optional >= command.arguments.size();
    usage += optional ? " [" + name + "]" : " " + name;
  }
  return usage + (command.takesMore ? " ..." : "");
}

Failure RunCommand(const BatchCommand& command, BatchSession& session, const Arguments& arguments) {
  if (Failure failure = CheckArguments(command, arguments)) {
    return failure;
  }
  if (Failure failure = CheckNeeds(command, session)) {
    return failure;
  }
  return command.run(session, arguments);
}

}  // namespace tembrel
