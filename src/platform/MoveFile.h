// Gives a finished file another name, on another disk if need be.
#pragma once

#include <filesystem>

#include "platform/ReplaceFile.h"

namespace tembrel {

// Moves the file `from` to the name `to`, which nobody may have (a link that leads nowhere is followed), and
// brings it to the disk. It gets the permissions of a new file. On failure `from` is as it was and nothing
// stands at `to` that did not before.
ReplaceResult MoveFile(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace tembrel
