// Runs a script or a list of commands, one after the other up to the first that fails.
#pragma once

#include <istream>
#include <span>
#include <string>
#include <string_view>

#include "batch/BatchSession.h"
#include "batch/Failure.h"

namespace tembrel {

class ScriptRunner {
 public:
  // The session outlives the runner.
  explicit ScriptRunner(BatchSession& runningSession) : session(runningSession) {}

  // On failure "NAME:LINE: reason", lines counted from 1.
  Failure RunScript(std::istream& script, const std::string& name);
  // On failure "-e N: reason", commands counted from 1.
  Failure RunCommands(std::span<const std::string> commands);

 private:
  Failure RunLine(std::string_view line);

  BatchSession& session;
};

}  // namespace tembrel
