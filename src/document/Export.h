// Saving something that was made from a document - a picture, a table - under a name the user is asked for.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "document/FileFilter.h"
#include "document/Prompts.h"

namespace tembrel {

struct ExportKind {
  FileFilter filter;
  std::string ending;  // ".png"; put behind a name that does not have it
};

// The name proposed for something called `what` made from the sound in that file: "song-spectrum.png" beside
// "song.wav", "spectrum.png" in the current folder without a file.
std::filesystem::path ExportName(const std::filesystem::path& soundFile, const std::string& what,
                                 const ExportKind& kind);

// Asks for a name, starting from `start`, and before it overwrites; writes beside the file and replaces it.
// What stands in the way is said, with the file's name. The path written, or nothing.
std::optional<std::filesystem::path> SaveExport(Prompts& prompts, const ExportKind& kind,
                                                const std::filesystem::path& start, std::string_view content);

}  // namespace tembrel
