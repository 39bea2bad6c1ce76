// The name a finished recording is saved under.
#pragma once

#include <filesystem>
#include <optional>

#include "document/Prompts.h"

namespace tembrel {

// True for a name with an extension that does not begin with "wav" in upper or lower case: it will be
// replaced, and the user is told first.
bool LosesItsExtension(const std::filesystem::path& typed);

// The name with any extension cut off and ".WAV" in its place.
std::filesystem::path RecordingPath(const std::filesystem::path& typed);

// Asks for the name; nothing when the user steps back, in the dialog or when told of the extension.
std::optional<std::filesystem::path> AskRecordingPath(Prompts& prompts);

}  // namespace tembrel
