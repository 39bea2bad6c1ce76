// The user's string settings: recent files and the last folder. One file of the user holds them, a section a
// setting, named by its whole key path.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "audio/ProfileFile.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

inline constexpr std::string_view kSettingKeyPath = "Software\\Veloran Software\\Tembrel\\1.0\\Settings";

// Values are kept byte for byte whatever they hold: line ends, quotes, blanks at the ends, bytes that are no
// text.
class SettingStore {
 public:
  // `storeFile` need not exist; its folder is created when something is written.
  explicit SettingStore(std::filesystem::path storeFile) : path(std::move(storeFile)) {}

  // The first value found under the setting's key, whatever its name; `defaultValue` when there is none.
  std::string ReadSettingString(std::string_view section, std::string_view key,
                                std::string_view defaultValue) const;

  // The number that the first 19 characters of the setting start with, or 0. No setting here is a number, or
  // written alone, so far.
  long ReadSettingInt(std::string_view section, std::string_view key, long defaultValue) const;

  ReplaceResult WriteSettingString(std::string_view section, std::string_view key, std::string_view value);
  // Several at once; all are stored or none.
  ReplaceResult WriteSettingStrings(std::span<const ProfileEntry> entries);

 private:
  std::filesystem::path path;
};

// Where the running program's user has the store; empty when the user has no home.
std::filesystem::path SettingStorePath();

// A value as it stands in the file, in double quotes with backslash escapes, and back. What is no quoted text
// is taken as it is.
std::string QuoteSetting(std::string_view value);
std::string UnquoteSetting(std::string_view text);

}  // namespace tembrel
