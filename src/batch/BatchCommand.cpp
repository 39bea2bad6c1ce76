#include "batch/BatchCommand.h"

#include <algorithm>

namespace tembrel {

namespace {

Failure CheckArguments(const BatchCommand& command, const Arguments& arguments) {
  const std::size_t most = command.arguments.size();
  const std::size_t given = arguments.Count();
  const std::size_t least = most - command.optional;
  const bool tooFew = given < least || (command.allOrNone && given > least && given < most);
  if (tooFew || (given > most && !command.takesMore)) {
    return std::string(tooFew ? "too few arguments: " : "too many arguments: ") + UsageOf(command);
  }
  for (std::size_t i = 0; i < std::min(given, most); ++i) {
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
  if (command.needs == Needs::Selection && !document->HasSelection()) {
    return std::string(command.name) + " needs a selection, and there is none";
  }
  return kSucceeded;
}

}  // namespace

std::string UsageOf(const BatchCommand& command) {
  const std::size_t count = command.arguments.size();
  const std::size_t firstOptional = count - command.optional;
  std::string usage(command.name);
  for (std::size_t i = 0; i < count; ++i) {
    const bool opens = i == firstOptional || (i > firstOptional && !command.allOrNone);
    const bool closes = i >= firstOptional && (i + 1 == count || !command.allOrNone);
    usage += opens ? " [" : " ";
    usage += command.arguments[i].name;
    usage += closes ? "]" : "";
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
