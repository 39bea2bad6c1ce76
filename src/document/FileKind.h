// What kind of sound file a name stands for, by its extension.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tembrel {

enum class FileKind { Unknown, Wave, Mp3, Ogg, Aiff, Cdr };

// Only the first four characters of the extension count, the dot included, and case does not: x.wave is a
// WAVE file and x.aif an AIFF file. A name without a dot is unknown.
FileKind FileKindOf(const std::filesystem::path& path);

// "MP3", "Ogg Vorbis", …; "" for an unknown kind.
std::string_view FileKindName(FileKind kind);

// The path Save As writes to: what the user typed after the name's last dot goes, and the extension of the
// chosen filter comes instead. `filter` counts from 1 in the order of the Save As filters; one out of range
// counts as 1.
std::filesystem::path SaveAsPath(const std::filesystem::path& chosen, int filter);

}  // namespace tembrel
