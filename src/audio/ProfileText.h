// The text of a profile file: sections in brackets, "key=value" lines, comments. Changing one value leaves
// every other byte as it was, the order, the blanks, the comments and the kind of line ends included.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tembrel {

// Sections and keys are compared without regard to the case of ASCII letters and to blanks around them. Of
// two equal keys the first counts.
class ProfileText {
 public:
  ProfileText() = default;
  explicit ProfileText(std::string_view text);

  // What stands behind the '=', without blanks around it.
  std::optional<std::string> Value(std::string_view section, std::string_view key) const;
  // The value of the first key of the section, whatever its name.
  std::optional<std::string> FirstValue(std::string_view section) const;

  // Replaces the value, or adds the key at the end of the section, or both at the end of the text. `value`
  // must not contain a line end.
  void SetValue(std::string_view section, std::string_view key, std::string_view value);

  std::string Text() const;

 private:
  std::size_t FindSection(std::string_view section, std::size_t from) const;
  std::size_t SectionEnd(std::size_t header) const;
  std::size_t FindKey(std::string_view section, const std::string_view* key) const;  // any key when null
  void InsertLine(std::size_t place, std::string line);

  std::vector<std::string> lines;  // without their line ends
  std::vector<std::string> ends;   // the line end of each; empty for a last line that has none
  std::string lineEnd = "\n";
};

}  // namespace tembrel
