#include "device/RecordingName.h"

#include <string>
#include <string_view>

#include "audio/AsciiText.h"
#include "document/StringTable.h"

namespace tembrel {

namespace {

constexpr std::string_view kWaveBeginning = "wav";
constexpr std::string_view kRecordingExtension = ".WAV";

std::string NameOf(const std::filesystem::path& path) {
  return path.filename().string();
}

}  // namespace

bool LosesItsExtension(const std::filesystem::path& typed) {
  const std::string name = NameOf(typed);
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos) {
    return false;
  }
  const std::string_view extension = std::string_view(name).substr(dot + 1, kWaveBeginning.size());
  return !SameInAnyCase(extension, kWaveBeginning);
}

std::filesystem::path RecordingPath(const std::filesystem::path& typed) {
  std::string name = NameOf(typed);
  if (const std::size_t dot = name.rfind('.'); dot != std::string::npos) {
    name.erase(dot);
  }
  return typed.parent_path() / name.append(kRecordingExtension);
}

std::optional<std::filesystem::path> AskRecordingPath(Prompts& prompts) {
  const std::optional<SaveChoice> choice =
      prompts.AskSavePath(ParseFileFilters(StringResource(kStringWaveFilter)), {});
  if (!choice) {
    return std::nullopt;
  }
  if (LosesItsExtension(choice->path) &&
      !prompts.AskOkCancel(std::string(StringResource(kStringSaveWarning)),
                           std::string(StringResource(kStringSaveTitle)))) {
    return std::nullopt;
  }
  return RecordingPath(choice->path);
}

}  // namespace tembrel
