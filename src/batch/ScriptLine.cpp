#include "batch/ScriptLine.h"

namespace tembrel {

namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

bool IsBlank(char letter) {
  return kBlanks.find(letter) != std::string_view::npos;
}

// Reads what stands between quotes, from behind the opening one to behind the closing one. False when there
// is no closing one.
bool ReadQuoted(std::string_view line, std::size_t& at, std::string& word) {
  for (; at < line.size(); ++at) {
    char letter = line[at];
    if (letter == '"') {
      ++at;
      return true;
    }
    if (letter == '\\' && at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '\\')) {
      letter = line[++at];
    }
    word += letter;
  }
  return false;
}

}  // namespace

ScriptLine SplitLine(std::string_view line) {
  ScriptLine split;
  std::size_t at = 0;
  while (true) {
    at = line.find_first_not_of(kBlanks, at);
    if (at == std::string_view::npos || line[at] == '#') {
      return split;
    }
    std::string& word = split.words.emplace_back();
    while (at < line.size() && !IsBlank(line[at])) {
      if (line[at] != '"') {
        word += line[at++];
      } else if (!ReadQuoted(line, ++at, word)) {
        split.mistake = "a quote is not closed";
        return split;
      }
    }
  }
}

}  // namespace tembrel
