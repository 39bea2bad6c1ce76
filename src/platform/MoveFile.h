// Gives a finished file another name, on another disk if need be.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>

#include "platform/ReplaceFile.h"

namespace tembrel {

// Bytes that are on the other disk, of all there are.
using MoveProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

// Moves the file `from` to the name `to`, which nobody may have (a link that leads nowhere is followed), and
// brings it to the disk. It gets the permissions of a new file. On failure `from` is as it was and nothing
// stands at `to` that did not before. `progress`, unless empty, is called while a large file is copied to
// another disk.
ReplaceResult MoveFile(const std::filesystem::path& from, const std::filesystem::path& to,
                       const MoveProgress& progress = {});

}  // namespace tembrel
