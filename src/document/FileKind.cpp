#include "document/FileKind.h"

#include <algorithm>
#include <array>

#include "audio/AsciiText.h"

namespace tembrel {

namespace {

constexpr std::size_t kComparedCharacters = 4;

struct KindRow {
  FileKind kind;
  std::string_view prefix;     // what the extension begins with
  std::string_view extension;  // what Save As appends
  std::string_view name;
};

// In the order of the Save As filters.
constexpr std::array kKinds{
    KindRow{FileKind::Wave, ".wav", ".wav", "WAVE"},      KindRow{FileKind::Mp3, ".mp3", ".mp3", "MP3"},
    KindRow{FileKind::Ogg, ".ogg", ".ogg", "Ogg Vorbis"}, KindRow{FileKind::Aiff, ".aif", ".aiff", "AIFF"},
    KindRow{FileKind::Cdr, ".cdr", ".cdr", "CDR"},
};

}  // namespace

FileKind FileKindOf(const std::filesystem::path& path) {
  const std::string name = path.filename().string();
  const std::size_t dot = name.rfind('.');
  if (dot == std::string::npos) {
    return FileKind::Unknown;
  }
  const std::string_view prefix = std::string_view(name).substr(dot, kComparedCharacters);
  const auto* row = std::ranges::find_if(
      kKinds, [prefix](const KindRow& kind) { return SameInAnyCase(prefix, kind.prefix); });
  return row == kKinds.end() ? FileKind::Unknown : row->kind;
}

std::string_view FileKindName(FileKind kind) {
  const auto* row = std::ranges::find(kKinds, kind, &KindRow::kind);
  return row == kKinds.end() ? std::string_view() : row->name;
}

std::filesystem::path SaveAsPath(const std::filesystem::path& chosen, int filter) {
  const bool known = filter >= 1 && filter <= static_cast<int>(kKinds.size());
  const KindRow& row = kKinds.at(known ? static_cast<std::size_t>(filter - 1) : 0);
  const std::string name = chosen.filename().string();
  std::size_t dot = name.rfind('.');
  if (dot == 0) {
    dot = std::string::npos;  // a hidden file's dot begins its name, not an extension
  }
  return chosen.parent_path() / (name.substr(0, dot) + std::string(row.extension));
}

}  // namespace tembrel
