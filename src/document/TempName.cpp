#include "document/TempName.h"

#include <system_error>
#include <utility>

#include "audio/ProgramPaths.h"

namespace tembrel {

std::optional<TempName> TakeTempName(const std::filesystem::path& folder, long long number) {
  constexpr int kNamesTried = 1000;
  for (int i = 0; i < kNamesTried; ++i) {
    std::filesystem::path path = folder / TempWaveName(number + i);
    std::error_code ignored;
    if (std::filesystem::exists(std::filesystem::symlink_status(path, ignored))) {
      continue;
    }
    if (std::optional<FileLock> lock = FileLock::TryLock(path)) {
      return TempName{std::move(path), *std::move(lock)};
    }
  }
  return std::nullopt;
}

}  // namespace tembrel
