#include "audio/ProfileFile.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <system_error>
#include <utility>

#include "platform/InputFile.h"

namespace tembrel {

namespace {

constexpr std::size_t kMostBytes = std::size_t{1} << 20U;  // a hundred times what all settings take

bool IsMissing(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::status(path, error).type() == std::filesystem::file_type::not_found;
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted =
      value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.front() == value.back();
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

int ProfileNumber(std::string_view value) {
  value = WithoutQuotes(value);
  value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
  const bool negative = value.starts_with('-');
  if (negative || value.starts_with('+')) {
    value.remove_prefix(1);
  }
  constexpr long long kMost = std::numeric_limits<int>::max();
  long long number = 0;
  for (const char c : value) {
    if (c < '0' || c > '9') {
      break;
    }
    number = std::min(number * 10 + (c - '0'), kMost + 1);
  }
  return static_cast<int>(negative ? -number : std::min(number, kMost));
}

ProfileFile::ProfileFile(std::filesystem::path profilePath) : path(std::move(profilePath)) {
  std::string reason;
  text = ProfileText(ReadWholeFile(path, kMostBytes, reason).value_or(""));
}

int ProfileFile::ReadInt(std::string_view section, std::string_view key, int defaultValue) const {
  const std::optional<std::string> value = text.Value(section, key);
  return value && !value->empty() ? ProfileNumber(*value) : defaultValue;
}

ReplaceResult ProfileFile::Write(std::span<const ProfileEntry> entries) {
  ReplaceResult result;
  const bool missing = IsMissing(path);
  const std::optional<std::string> content =
      missing ? std::optional<std::string>("") : ReadWholeFile(path, kMostBytes, result.reason);
  if (!content) {
    return result;
  }
  text = ProfileText(*content);
  for (const ProfileEntry& entry : entries) {
    text.SetValue(entry.section, entry.key, entry.value);
  }
  const std::string newContent = text.Text();
  if (!missing && newContent == *content) {
    result.ok = true;
    return result;
  }
  if (missing) {
    std::error_code ignored;  // the write that follows says what is wrong
    std::filesystem::create_directories(path.parent_path(), ignored);
  }
  return WriteWholeFile(path, newContent);
}

}  // namespace tembrel
