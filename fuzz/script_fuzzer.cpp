// Any text as a line of a script: its words, put in quotes, are the same words again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "batch/ScriptLine.h"

namespace {

std::string Quoted(const std::string& word) {
  std::string quoted = "\"";
  for (const char letter : word) {
    if (letter == '"' || letter == '\\') {
      quoted += '\\';
    }
    quoted += letter;
  }
  return quoted + "\" ";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const tembrel::ScriptLine split = tembrel::SplitLine({reinterpret_cast<const char*>(bytes), size});
  if (!split.mistake.empty()) {
    return 0;
  }
  std::string line;
  for (const std::string& word : split.words) {
    line += Quoted(word);
  }
  const tembrel::ScriptLine again = tembrel::SplitLine(line);
  if (!again.mistake.empty() || again.words != split.words) {
    std::abort();
  }
  return 0;
}
