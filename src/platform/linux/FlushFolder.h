// For those who rename files.
#pragma once

#include <filesystem>

namespace tembrel {

// Makes a rename in the folder itself last through a power cut. Some file systems cannot; the file has its
// new name all the same.
void FlushFolder(const std::filesystem::path& folder);

}  // namespace tembrel
