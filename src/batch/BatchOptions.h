// What the command line of tembrel-batch asks for.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tembrel {

struct BatchOptions {
  enum class Task { RunScript, RunCommands, ShowHelp, ShowVersion };

  Task task = Task::RunScript;
  std::string script;                                  // "-" for standard input
  std::vector<std::string> commands;                   // in the order given
  std::optional<std::filesystem::path> programFolder;  // none: as the editor finds it
  bool quiet = false;
  std::string mistake;  // wrong usage, for a person; nothing else counts then
};

// `arguments` without the program's own name.
BatchOptions ReadOptions(std::span<const std::string> arguments);

// How the program is called: the answer to wrong usage, and the beginning of the help.
std::string_view BatchUsage();

}  // namespace tembrel
