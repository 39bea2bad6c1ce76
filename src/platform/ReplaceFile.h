// Saving that cannot lose the old file: the new content is written beside it, brought to the disk and renamed
// over it in one step. For everything of the user's that is rewritten.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "platform/ByteOutput.h"

namespace tembrel {

struct ReplaceResult {
  bool ok = false;
  std::string reason;  // on failure what `fill` said, else the system's words ("No space left on device")
};

// Writes the new content; false, with a reason, ends the replacement.
using FillFile = std::function<bool(ByteOutput& output, std::string& reason)>;

// Makes `fill`'s output the content of the file at `path`. A symbolic link stays one: what it points to is
// replaced, or created when it dangles. An existing file keeps its permissions, and owner and group where
// this user may give them; one that may not be written is refused even where its folder would allow the
// rename. Other hard links of the file keep the old content. On failure the old file is as it was and nothing
// is left beside it.
ReplaceResult ReplaceFile(const std::filesystem::path& path, const FillFile& fill);

// ReplaceFile with content that is already in memory.
ReplaceResult WriteWholeFile(const std::filesystem::path& path, std::string_view content);

// Follows symbolic links to the path that would be written. A link that leads round in a circle is returned
// unresolved.
std::filesystem::path ResolveLinks(const std::filesystem::path& path);

}  // namespace tembrel
