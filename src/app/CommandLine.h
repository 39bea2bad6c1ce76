// The one file that the command line asks the program to open.
#pragma once

#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace tembrel {

// The file name on a command line (without the program's own name). When the line begins with a double quote
// it is what stands between the first and the second one, or the rest when there is no second; otherwise it
// is the whole line, blanks included.
std::string FileNameOnCommandLine(std::string_view commandLine);

// The command line that a shell split into these arguments: they stand a blank apart, and one that is empty
// or holds blanks was quoted and is quoted again.
std::string JoinArguments(std::span<const std::string> arguments);

// The file name that the program's arguments (without the program's own name) ask for, "" for none. An
// argument that cannot be anything but a whole name is taken as it is: a single one, unless it begins with a
// double quote and no such file exists, and a first one with blanks. Everything else goes by the rule of the
// command line.
std::string StartUpFileName(std::span<const std::string> arguments,
                            const std::function<bool(const std::string&)>& exists);

// The name as a full path, seen from `startFolder`; "" stays "". Links are not followed and ".." is kept,
// since it may lead elsewhere behind a link; "." goes.
std::filesystem::path FullPath(const std::string& name, const std::filesystem::path& startFolder);

}  // namespace tembrel
