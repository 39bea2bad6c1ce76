#include "platform/ReplaceFile.h"

namespace tembrel {

ReplaceResult WriteWholeFile(const std::filesystem::path& path, std::string_view content) {
  return ReplaceFile(path, [content](ByteOutput& output, std::string& reason) {
    return output.Write(std::as_bytes(std::span(content)), reason);
  });
}

}  // namespace tembrel
