// Where the system keeps this program and what belongs to its user. Nothing here is created but the documents
// folder.
#pragma once

#include <filesystem>
#include <optional>

namespace tembrel {

// The full path of the running program's file; empty when the system does not tell.
std::filesystem::path ExecutablePath();

// The user's folder for this program's data ("~/.local/share/tembrel") and for its configuration
// ("~/.config/tembrel"); empty when the user has no home.
std::filesystem::path UserDataFolder();
std::filesystem::path UserConfigFolder();

// The user's documents folder, created when missing; nothing when there is none and it cannot be made.
std::optional<std::filesystem::path> DocumentsFolder();

// True for an existing folder in which this program may create files.
bool IsWritableFolder(const std::filesystem::path& path);

}  // namespace tembrel
