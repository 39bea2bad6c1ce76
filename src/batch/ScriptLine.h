// One line of a script, split into words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tembrel {

struct ScriptLine {
  std::vector<std::string> words;  // the command and its arguments; none for a line that says nothing
  std::string mistake;             // why the line cannot be read; the words are not to be used then
};

// Words are separated by blanks. Double quotes group, also inside a word, and in them \" and \\ stand for a
// quote and a backslash; any other backslash is itself. A '#' that begins a word begins a comment.
ScriptLine SplitLine(std::string_view line);

}  // namespace tembrel
