// A profile file on the disk (TEMBREL.INI): numbers read with defaults, values written all at once or not at
// all.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "audio/ProfileText.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

struct ProfileEntry {
  std::string section;
  std::string key;
  std::string value;  // without line ends
};

class ProfileFile {
 public:
  // Reads the file; one that is missing or cannot be read has no values.
  explicit ProfileFile(std::filesystem::path profilePath);

  // The number the value starts with, after an optional sign; 0 for text that starts with no number, the
  // nearest int for one that is too large. A missing or empty value gives the default. Quotes around a value
  // do not count.
  int ReadInt(std::string_view section, std::string_view key, int defaultValue) const;

  const ProfileText& Text() const { return text; }

  // Changes these values in what now stands in the file, which is created when missing, and leaves the rest
  // as it is. A file that exists but cannot be read is not touched.
  ReplaceResult Write(std::span<const ProfileEntry> entries);

 private:
  std::filesystem::path path;
  ProfileText text;
};

// The number reading of ProfileFile::ReadInt for one value.
int ProfileNumber(std::string_view value);

}  // namespace tembrel
