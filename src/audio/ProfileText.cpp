#include "audio/ProfileText.h"

#include <algorithm>
#include <utility>

#include "audio/AsciiText.h"

namespace tembrel {

namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\v\f";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool SameName(std::string_view a, std::string_view b) {
  return SameInAnyCase(Trimmed(a), Trimmed(b));
}

// The name in the brackets of a section's line.
std::optional<std::string_view> SectionName(std::string_view line) {
  line = line.starts_with(kByteOrderMark) ? line.substr(kByteOrderMark.size()) : line;
  line = Trimmed(line);
  const std::size_t close = line.rfind(']');
  if (!line.starts_with('[') || close == std::string_view::npos) {
    return std::nullopt;
  }
  return line.substr(1, close - 1);
}

// Where the '=' of a "key=value" line stands.
std::optional<std::size_t> KeyEnd(std::string_view line) {
  const std::string_view text = Trimmed(line);
  const std::size_t equals = line.find('=');
  if (text.empty() || text.front() == ';' || text.front() == '#' || SectionName(line) ||
      equals == std::string_view::npos) {
    return std::nullopt;
  }
  return equals;
}

std::string ValueOf(const std::string& line, std::size_t keyEnd) {
  return std::string(Trimmed(std::string_view(line).substr(keyEnd + 1)));
}

}  // namespace

ProfileText::ProfileText(std::string_view text) {
  while (!text.empty()) {
    const std::size_t feed = text.find('\n');
    if (feed == std::string_view::npos) {
      lines.emplace_back(text);
      ends.emplace_back();
      break;
    }
    const std::size_t length = feed > 0 && text[feed - 1] == '\r' ? feed - 1 : feed;
    lines.emplace_back(text.substr(0, length));
    ends.emplace_back(text.substr(length, feed + 1 - length));
    text.remove_prefix(feed + 1);
  }
  if (!ends.empty() && !ends.front().empty()) {
    lineEnd = ends.front();
  }
}

std::size_t ProfileText::FindSection(std::string_view section, std::size_t from) const {
  for (std::size_t i = from; i < lines.size(); ++i) {
    const std::optional<std::string_view> name = SectionName(lines[i]);
    if (name && SameName(*name, section)) {
      return i;
    }
  }
  return kNone;
}

std::size_t ProfileText::SectionEnd(std::size_t header) const {
  std::size_t end = header + 1;
  while (end < lines.size() && !SectionName(lines[end])) {
    ++end;
  }
  return end;
}

std::size_t ProfileText::FindKey(std::string_view section, const std::string_view* key) const {
  for (std::size_t header = FindSection(section, 0); header != kNone;
       header = FindSection(section, header + 1)) {
    for (std::size_t i = header + 1; i < SectionEnd(header); ++i) {
      const std::optional<std::size_t> keyEnd = KeyEnd(lines[i]);
      if (keyEnd && (key == nullptr || SameName(std::string_view(lines[i]).substr(0, *keyEnd), *key))) {
        return i;
      }
    }
  }
  return kNone;
}

std::optional<std::string> ProfileText::Value(std::string_view section, std::string_view key) const {
  const std::size_t line = FindKey(section, &key);
  return line == kNone ? std::nullopt : std::optional(ValueOf(lines[line], *KeyEnd(lines[line])));
}

std::optional<std::string> ProfileText::FirstValue(std::string_view section) const {
  const std::size_t line = FindKey(section, nullptr);
  return line == kNone ? std::nullopt : std::optional(ValueOf(lines[line], *KeyEnd(lines[line])));
}

void ProfileText::SetValue(std::string_view section, std::string_view key, std::string_view value) {
  const std::size_t line = FindKey(section, &key);
  if (line != kNone) {
    const std::string old = lines[line];
    const std::size_t keyEnd = *KeyEnd(old);
    const std::size_t firstOfValue = old.find_first_not_of(" \t", keyEnd + 1);
    lines[line] = old.substr(0, std::min(firstOfValue, old.size())) + std::string(value);
    return;
  }
  std::size_t header = FindSection(section, 0);
  if (header == kNone) {
    if (!lines.empty() && !Trimmed(lines.back()).empty()) {
      InsertLine(lines.size(), "");
    }
    InsertLine(lines.size(), "[" + std::string(section) + "]");
    header = lines.size() - 1;
  }
  std::size_t place = SectionEnd(header);
  while (place > header + 1 && Trimmed(lines[place - 1]).empty()) {
    --place;
  }
  InsertLine(place, std::string(key) + "=" + std::string(value));
}

void ProfileText::InsertLine(std::size_t place, std::string line) {
  if (place > 0 && ends[place - 1].empty()) {
    ends[place - 1] = lineEnd;
  }
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place), std::move(line));
  ends.insert(ends.begin() + static_cast<std::ptrdiff_t>(place), lineEnd);
}

std::string ProfileText::Text() const {
  std::string text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    text += lines[i] + ends[i];
  }
  return text;
}

}  // namespace tembrel
