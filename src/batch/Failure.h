// How a command of a script says that it failed.
#pragma once

#include <optional>
#include <string>

namespace tembrel {

// Nothing on success, otherwise the reason for a person: a sentence that begins with what it is about.
using Failure = std::optional<std::string>;

inline constexpr std::nullopt_t kSucceeded = std::nullopt;

}  // namespace tembrel
