// The file dialogs' filters, taken from their string resources.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tembrel {

struct FileFilter {
  std::string name;                   // "Wave files (*.wav)"
  std::vector<std::string> patterns;  // "*.wav"

  bool operator==(const FileFilter&) const = default;
};

// Splits "name|pattern;pattern|name|pattern|": the text's last character is its separator. A name without
// patterns at the end is dropped.
std::vector<FileFilter> ParseFileFilters(std::string_view text);

}  // namespace tembrel
