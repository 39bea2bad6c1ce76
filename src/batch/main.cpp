#include <exception>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "app/VersionInfo.h"
#include "audio/ProgramPaths.h"
#include "batch/BatchOptions.h"
#include "batch/BatchSession.h"
#include "batch/CommandList.h"
#include "batch/ScriptRunner.h"
#include "platform/InputFile.h"
#include "platform/OutputFile.h"
#include "platform/Paths.h"

namespace tembrel {
namespace {

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr std::string_view kEditorName = "tembrel-qt";

// The editor's, as if it stood beside this program.
ProgramPaths PathsOf(const BatchOptions& options) {
  return options.programFolder
             ? PathsBelow(*options.programFolder)
             : ChooseProgramPaths(ExecutablePath().parent_path() / kEditorName, UserDataFolder());
}

Failure RunScriptFile(ScriptRunner& runner, const std::string& name) {
  if (name == "-") {
    return runner.RunScript(std::cin, name);
  }
  std::ifstream script(name, std::ios::binary);
  if (!script || std::filesystem::is_directory(name)) {
    return name + ": cannot be read";
  }
  return runner.RunScript(script, name);
}

int Run(const BatchOptions& options) {
  BatchSession session(PathsOf(options), std::cout, options.quiet ? nullptr : &std::cerr);
  ScriptRunner runner(session);
  Failure failure = options.task == BatchOptions::Task::RunCommands ? runner.RunCommands(options.commands)
                                                                    : RunScriptFile(runner, options.script);
  if (!std::cout.flush() && !failure) {
    failure = "the output could not be written";
  }
  if (failure) {
    std::cerr << "tembrel-batch: " << *failure << "\n";
    return kFailed;
  }
  return 0;
}

int Obey(const BatchOptions& options) {
  if (!options.mistake.empty()) {
    std::cerr << "tembrel-batch: " << options.mistake << "\n" << BatchUsage();
    return kWrongUsage;
  }
  switch (options.task) {
    case BatchOptions::Task::ShowHelp:
      std::cout << BatchUsage() << "\n" << CommandSummary();
      return 0;
    case BatchOptions::Task::ShowVersion:
      std::cout << "Tembrel " << CVersionInfo().Value(VersionKey::FileVersion).value_or("") << "\n";
      return 0;
    default:
      return Run(options);
  }
}

}  // namespace
}  // namespace tembrel

int main(int argc, char** argv) {
  tembrel::SurviveFileSizeLimit();
  try {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return tembrel::Obey(tembrel::ReadOptions(arguments));
  } catch (const std::exception& error) {
    std::cerr << "tembrel-batch: " << error.what() << "\n";
    return 1;
  }
}
