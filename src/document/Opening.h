// What opening a file does before and beside the window: is it there, what kind is it, get its sound into a
// document.
#pragma once

#include <filesystem>
#include <string>

#include "audio/Progress.h"
#include "audio/Settings.h"
#include "document/Document.h"

namespace tembrel {

// True when the file can be opened for reading.
bool CanBeRead(const std::filesystem::path& path);

// "%s does not exist."
std::string DoesNotExistText(const std::filesystem::path& path);

// Gets the sound of `path` into the document, by its extension. A kind that the program does not read leaves
// the document empty with a notice.
LoadOutcome ImportFile(Document& document, const std::filesystem::path& path, const FormatChoice& playback,
                       const Progress& progress = {});

}  // namespace tembrel
