#include "batch/ScriptRunner.h"

#include <vector>

#include "batch/CommandList.h"
#include "batch/ScriptLine.h"

namespace tembrel {

namespace {

// What some editors put before the first line.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

Failure ScriptRunner::RunLine(std::string_view line) {
  ScriptLine split = SplitLine(line);
  if (!split.mistake.empty()) {
    return split.mistake;
  }
  if (split.words.empty()) {
    return kSucceeded;
  }
  const BatchCommand* command = FindBatchCommand(split.words.front());
  if (command == nullptr) {
    return "unknown command \"" + split.words.front() + "\"";
  }
  split.words.erase(split.words.begin());
  return RunCommand(*command, session, Arguments(std::move(split.words)));
}

Failure ScriptRunner::RunScript(std::istream& script, const std::string& name) {
  std::string line;
  for (std::size_t number = 1; std::getline(script, line); ++number) {
    const bool marked = number == 1 && line.starts_with(kByteOrderMark);
    const std::string_view text = std::string_view(line).substr(marked ? kByteOrderMark.size() : 0);
    if (const Failure failure = RunLine(text)) {
      return name + ":" + std::to_string(number) + ": " + *failure;
    }
  }
  return script.bad() ? Failure(name + ": could not be read to its end") : kSucceeded;
}

Failure ScriptRunner::RunCommands(std::span<const std::string> commands) {
  for (std::size_t i = 0; i < commands.size(); ++i) {
    if (const Failure failure = RunLine(commands[i])) {
      return "-e " + std::to_string(i + 1) + ": " + *failure;
    }
  }
  return kSucceeded;
}

}  // namespace tembrel
