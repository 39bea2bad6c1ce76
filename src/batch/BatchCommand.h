// One command of a script: its name, what it takes, what must be there, and the function that does it.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "batch/Arguments.h"
#include "batch/BatchSession.h"
#include "batch/Failure.h"

namespace tembrel {

enum class Needs {
  Nothing,
  Document,   // an active document
  Selection,  // as Document, and a valid selection in it
};

struct BatchCommand {
  std::string_view name;
  std::vector<ArgumentRule> arguments;
  Needs needs = Needs::Document;
  std::function<Failure(BatchSession& session, const Arguments& arguments)> run;
  std::size_t optional = 0;  // so many of the arguments may be left out, from the last on
  bool takesMore = false;    // any number of words may follow
  bool allOrNone = false;    // of the optional arguments, not some
};

// "filter PRESET", "scroll CODE [VALUE]", "view [FIRST FRAMES]".
std::string UsageOf(const BatchCommand& command);

// Checks what the command needs and its arguments, and runs it.
Failure RunCommand(const BatchCommand& command, BatchSession& session, const Arguments& arguments);

}  // namespace tembrel
