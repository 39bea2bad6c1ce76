#include "document/Prompts.h"

#include <system_error>

namespace tembrel {

Progress ProgressOf(ProgressDisplay& display) {
  return [&display](std::uint64_t done, std::uint64_t total) { return display.Report(done, total); };
}

bool MayWrite(const std::filesystem::path& path, Prompts& prompts) {
  std::error_code ignored;
  // A folder of that name is no file to overwrite: whoever writes will say that it is in the way.
  return !std::filesystem::exists(path, ignored) || std::filesystem::is_directory(path, ignored) ||
         prompts.AskYesNo(path.string() + " exists. Overwrite?");
}

}  // namespace tembrel
