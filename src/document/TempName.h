// Names of temporary sounds, those of documents and of recordings alike: "temp<number>.wav" in one folder. A
// name that is taken is locked, so that no other running program takes it or counts it as left behind.
#pragma once

#include <filesystem>
#include <optional>

#include "platform/FileLock.h"

namespace tembrel {

struct TempName {
  std::filesystem::path path;
  FileLock lock;
};

// Takes the first free name from `number` upward, as an empty file. A link counts as taken wherever it leads.
// Nothing when the folder takes no file, or a thousand names are taken.
std::optional<TempName> TakeTempName(const std::filesystem::path& folder, long long number);

}  // namespace tembrel
