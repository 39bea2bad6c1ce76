#include "document/Export.h"

#include <system_error>

#include "audio/AsciiText.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

bool HasEnding(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && SameInAnyCase(name.substr(name.size() - ending.size()), ending);
}

}  // namespace

std::filesystem::path ExportName(const std::filesystem::path& soundFile, const std::string& what,
                                 const ExportKind& kind) {
  if (soundFile.empty()) {
    std::error_code ignored;
    return std::filesystem::current_path(ignored) / (what + kind.ending);
  }
  return soundFile.parent_path() / (soundFile.stem().string() + "-" + what + kind.ending);
}

std::optional<std::filesystem::path> SaveExport(Prompts& prompts, const ExportKind& kind,
                                                const std::filesystem::path& start,
                                                std::string_view content) {
  const std::optional<SaveChoice> choice = prompts.AskSavePath({kind.filter}, start);
  if (!choice) {
    return std::nullopt;
  }
  std::filesystem::path path = choice->path;
  if (!HasEnding(path.string(), kind.ending)) {
    path += kind.ending;
  }
  if (!MayWrite(path, prompts)) {
    return std::nullopt;
  }
  const ReplaceResult result = WriteWholeFile(path, content);
  if (!result.ok) {
    prompts.Error(path.string() + " could not be saved: " + result.reason + ".");
    return std::nullopt;
  }
  return path;
}

}  // namespace tembrel
