#include "platform/InputFile.h"

namespace tembrel {

std::optional<std::string> ReadWholeFile(const std::filesystem::path& path, std::size_t mostBytes,
                                         std::string& reason) {
  const std::optional<InputFile> file = InputFile::Open(path, reason);
  if (!file) {
    return std::nullopt;
  }
  if (file->Size() > mostBytes) {
    reason = "File too large";
    return std::nullopt;
  }
  std::string content(static_cast<std::size_t>(file->Size()), '\0');
  std::string readError;
  content.resize(file->ReadAt(0, std::as_writable_bytes(std::span(content)), readError));
  if (!readError.empty()) {
    reason = readError;
    return std::nullopt;
  }
  return content;
}

}  // namespace tembrel
