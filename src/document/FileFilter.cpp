#include "document/FileFilter.h"

namespace tembrel {

namespace {

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t end = text.find(separator);
    parts.emplace_back(text.substr(0, end));
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  return parts;
}

}  // namespace

std::vector<FileFilter> ParseFileFilters(std::string_view text) {
  std::vector<FileFilter> filters;
  if (text.empty()) {
    return filters;
  }
  const std::vector<std::string> parts = Split(text, text.back());
  for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
    filters.push_back({parts[i], Split(parts[i + 1], ';')});
  }
  return filters;
}

}  // namespace tembrel
