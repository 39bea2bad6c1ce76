#include "document/Opening.h"

#include <string_view>

#include "document/FileKind.h"
#include "platform/InputFile.h"

namespace tembrel {

bool CanBeRead(const std::filesystem::path& path) {
  std::string reason;
  return InputFile::Open(path, reason).has_value();
}

std::string DoesNotExistText(const std::filesystem::path& path) {
  return path.string() + " does not exist.";
}

LoadOutcome ImportFile(Document& document, const std::filesystem::path& path, const FormatChoice& playback,
                       const Progress& progress) {
  const FileKind kind = FileKindOf(path);
  if (kind == FileKind::Wave) {
    return document.LoadFile(path, path.string(), playback, progress);
  }
  if (kind == FileKind::Unknown) {
    document.FailToLoad(path.string(), "its name does not end like a sound file's (.wav)");
  } else {
    document.FailToLoad(path.string(),
                        "this version does not read " + std::string(FileKindName(kind)) + " files yet");
  }
  return LoadOutcome::Failed;
}

}  // namespace tembrel
