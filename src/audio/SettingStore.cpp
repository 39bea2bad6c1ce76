#include "audio/SettingStore.h"

#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Paths.h"

namespace tembrel {

namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

std::string KeyPath(std::string_view section, std::string_view key) {
  std::string path(kSettingKeyPath);
  path.append("\\").append(section).append("\\").append(key);
  return path;
}

// The byte that the two hexadecimal digits at `at` stand for.
std::optional<char> HexByte(std::string_view text, std::size_t at) {
  if (at + 2 > text.size()) {
    return std::nullopt;
  }
  const std::size_t high = kHexDigits.find(text[at]);
  const std::size_t low = kHexDigits.find(text[at + 1]);
  if (high == std::string_view::npos || low == std::string_view::npos) {
    return std::nullopt;
  }
  return static_cast<char>(high << 4U | low);
}

}  // namespace

std::filesystem::path SettingStorePath() {
  const std::filesystem::path folder = UserConfigFolder();
  return folder.empty() ? folder : folder / "registry";
}

std::string QuoteSetting(std::string_view value) {
  std::string text = "\"";
  for (const char c : value) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\' || c == '"') {
      text += '\\';
      text += c;
    } else if (c == '\n') {
      text += "\\n";
    } else if (byte < 0x20 || byte == 0x7F) {
      text += "\\x";
      text += kHexDigits[byte >> 4U];
      text += kHexDigits[byte & 0xFU];
    } else {
      text += c;
    }
  }
  return text + '"';
}

std::string UnquoteSetting(std::string_view text) {
  if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"')) {
    return std::string(text);
  }
  text = text.substr(1, text.size() - 2);
  std::string value;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      value += text[i];
      continue;
    }
    ++i;
    const std::optional<char> byte = text[i] == 'x' ? HexByte(text, i + 1) : std::nullopt;
    if (byte) {
      value += *byte;
      i += 2;
    } else {
      value += text[i] == 'n' ? '\n' : text[i];
    }
  }
  return value;
}

std::string SettingStore::ReadSettingString(std::string_view section, std::string_view key,
                                            std::string_view defaultValue) const {
  const std::optional<std::string> text = ProfileFile(path).Text().FirstValue(KeyPath(section, key));
  return text ? UnquoteSetting(*text) : std::string(defaultValue);
}

long SettingStore::ReadSettingInt(std::string_view section, std::string_view key, long defaultValue) const {
  constexpr std::size_t kLongestNumber = 19;
  const std::string text =
      ReadSettingString(section, key, std::to_string(defaultValue)).substr(0, kLongestNumber);
  return std::strtol(text.c_str(), nullptr, 10);
}

ReplaceResult SettingStore::WriteSettingString(std::string_view section, std::string_view key,
                                               std::string_view value) {
  const ProfileEntry entry{std::string(section), std::string(key), std::string(value)};
  return WriteSettingStrings({&entry, 1});
}

ReplaceResult SettingStore::WriteSettingStrings(std::span<const ProfileEntry> entries) {
  std::vector<ProfileEntry> stored;
  stored.reserve(entries.size());
  for (const ProfileEntry& entry : entries) {
    stored.push_back({KeyPath(entry.section, entry.key), entry.key, QuoteSetting(entry.value)});
  }
  return ProfileFile(path).Write(stored);
}

}  // namespace tembrel
