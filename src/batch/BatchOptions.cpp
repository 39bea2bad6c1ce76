#include "batch/BatchOptions.h"

namespace tembrel {

namespace {

class OptionReader {
 public:
  explicit OptionReader(std::span<const std::string> givenArguments) : arguments(givenArguments) {}

  BatchOptions Read() {
    while (at < arguments.size() && options.mistake.empty() && !answered) {
      ReadNext();
    }
    if (options.mistake.empty() && !answered && !hasScript && !hasCommands) {
      options.mistake = "no script and no command given";
    }
    return options;
  }

 private:
  void ReadNext() {
    const std::string& argument = arguments[at++];
    const bool isOption = !optionsEnded && argument.size() > 1 && argument.starts_with('-');
    if (!isOption) {
      TakeWord(argument);
    } else if (argument == "--") {
      optionsEnded = true;
    } else if (argument == "-e") {
      TakeCommand();
    } else if (argument == "-p") {
      TakeFolder();
    } else if (argument == "-q") {
      options.quiet = true;
    } else if (argument == "-h" || argument == "--help") {
      Answer(BatchOptions::Task::ShowHelp);
    } else if (argument == "--version") {
      Answer(BatchOptions::Task::ShowVersion);
    } else {
      options.mistake = "unknown option " + argument;
    }
  }

  void Answer(BatchOptions::Task task) {
    options.task = task;
    answered = true;
  }

  // The first word is the script; after -e every word is a command.
  void TakeWord(const std::string& word) {
    if (hasCommands) {
      options.commands.push_back(word);
    } else if (hasScript) {
      options.mistake = "more than one script given";
    } else {
      options.script = word;
      hasScript = true;
    }
  }

  void TakeCommand() {
    if (hasScript) {
      options.mistake = "a script and commands given";
    } else if (at == arguments.size()) {
      options.mistake = "-e needs a command";
    } else {
      options.task = BatchOptions::Task::RunCommands;
      hasCommands = true;
      options.commands.push_back(arguments[at++]);
    }
  }

  void TakeFolder() {
    if (at == arguments.size()) {
      options.mistake = "-p needs a folder";
    } else {
      options.programFolder = arguments[at++];
    }
  }

  std::span<const std::string> arguments;
  std::size_t at = 0;
  BatchOptions options;
  bool optionsEnded = false;
  bool hasScript = false;
  bool hasCommands = false;
  bool answered = false;
};

}  // namespace

BatchOptions ReadOptions(std::span<const std::string> arguments) {
  return OptionReader(arguments).Read();
}

std::string_view BatchUsage() {
  return "usage: tembrel-batch [options] SCRIPT          run a script; '-' is standard input\n"
         "       tembrel-batch [options] -e COMMAND ...  run the commands given, in order\n"
         "\n"
         "  -p FOLDER   the program folder (default: as the editor finds it)\n"
         "  -q          no progress\n"
         "  -h, --help  this help, and every command\n"
         "  --version   the version\n"
         "\n"
         "A script has one command a line; '#' starts a comment. Double quotes group words.\n";
}

}  // namespace tembrel
