// The system's words for a failed call, as shown to the user.
#pragma once

#include <string>

namespace tembrel {

// For an errno value: "No such file or directory".
std::string SystemReason(int errorNumber);

// For a folder, a pipe or a device where a file was asked for; the system has no word of its own for it.
inline constexpr const char* kNotARegularFile = "Not a regular file";

}  // namespace tembrel
