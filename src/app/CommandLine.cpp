#include "app/CommandLine.h"

namespace tembrel {

namespace {

bool HasBlanks(std::string_view text) {
  return text.find_first_of(" \t") != std::string_view::npos;
}

}  // namespace

std::string FileNameOnCommandLine(std::string_view commandLine) {
  if (!commandLine.starts_with('"')) {
    return std::string(commandLine);
  }
  commandLine.remove_prefix(1);
  return std::string(commandLine.substr(0, commandLine.find('"')));
}

std::string JoinArguments(std::span<const std::string> arguments) {
  std::string line;
  bool first = true;
  for (const std::string& argument : arguments) {
    if (!first) {
      line += ' ';
    }
    first = false;
    if (argument.empty() || HasBlanks(argument)) {
      line += '"' + argument + '"';
    } else {
      line += argument;
    }
  }
  return line;
}

std::string StartUpFileName(std::span<const std::string> arguments,
                            const std::function<bool(const std::string&)>& exists) {
  if (arguments.empty()) {
    return {};
  }
  const std::string& first = arguments.front();
  if (arguments.size() == 1) {
    return first.starts_with('"') && !exists(first) ? FileNameOnCommandLine(first) : first;
  }
  return HasBlanks(first) && !first.starts_with('"') ? first
                                                     : FileNameOnCommandLine(JoinArguments(arguments));
}

std::filesystem::path FullPath(const std::string& name, const std::filesystem::path& startFolder) {
  if (name.empty()) {
    return {};
  }
  const std::filesystem::path given(name);
  std::filesystem::path full = given.is_absolute() ? std::filesystem::path() : startFolder;
  for (const std::filesystem::path& part : given) {
    if (part != ".") {
      full /= part;
    }
  }
  return full;
}

}  // namespace tembrel
