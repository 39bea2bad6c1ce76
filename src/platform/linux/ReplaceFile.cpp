#include "platform/ReplaceFile.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <optional>
#include <sys/random.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "platform/OutputFile.h"
#include "platform/linux/FlushFolder.h"
#include "platform/linux/SystemReason.h"

namespace tembrel {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as many as the system itself follows

// Does not contain the target's name, which may be as long as a name can be.
fs::path NameBeside(const fs::path& target) {
  std::uint64_t random = 0;
  if (getrandom(&random, sizeof random, GRND_NONBLOCK) != static_cast<ssize_t>(sizeof random)) {
    random = static_cast<std::uint64_t>(getpid());
  }
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string name = ".tembrel-";
  for (unsigned shift = 0; shift < 64; shift += 4) {
    name += kDigits[random >> shift & 0xFU];
  }
  return target.parent_path() / (name + ".tmp");
}

enum class Target { kMissing, kReplaceable, kRefused };

Target Examine(const fs::path& target, std::string& reason) {
  struct stat status {};
  if (stat(target.c_str(), &status) != 0) {
    if (errno == ENOENT) {
      return Target::kMissing;
    }
    reason = SystemReason(errno);
    return Target::kRefused;
  }
  if (!S_ISREG(status.st_mode)) {
    reason = S_ISDIR(status.st_mode) ? SystemReason(EISDIR) : kNotARegularFile;
    return Target::kRefused;
  }
  if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
    reason = SystemReason(errno);
    return Target::kRefused;
  }
  return Target::kReplaceable;
}

bool WriteBeside(OutputFile& file, const FillFile& fill, const fs::path* attributes, std::string& reason) {
  if (!fill(file, reason)) {
    return false;
  }
  if (attributes != nullptr) {
    file.TakeAttributesOf(*attributes);
  }
  return file.Flush(reason) && file.Close(reason);
}

}  // namespace

fs::path ResolveLinks(const fs::path& path) {
  fs::path resolved = path;
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(resolved, error); ++i) {
    const fs::path target = fs::read_symlink(resolved, error);
    if (error) {
      return path;
    }
    resolved = resolved.parent_path() / target;  // an absolute target replaces the folder
  }
  return fs::is_symlink(resolved, error) ? path : resolved;
}

ReplaceResult ReplaceFile(const fs::path& path, const FillFile& fill) {
  ReplaceResult result;
  const fs::path target = ResolveLinks(path);
  const Target found = Examine(target, result.reason);
  if (found == Target::kRefused) {
    return result;
  }
  const bool exists = found == Target::kReplaceable;
  const fs::path beside = NameBeside(target);
  std::optional<OutputFile> file = OutputFile::CreateNew(
      beside, exists ? OutputFile::Access::kOwnerOnly : OutputFile::Access::kDefault, result.reason);
  if (!file) {
    return result;
  }
  file->FlushOnTheWay();
  result.ok = WriteBeside(*file, fill, exists ? &target : nullptr, result.reason);
  if (result.ok && rename(beside.c_str(), target.c_str()) != 0) {
    result.reason = SystemReason(errno);
    result.ok = false;
  }
  if (result.ok) {
    FlushFolder(target.parent_path());
  } else {
    unlink(beside.c_str());
  }
  return result;
}

}  // namespace tembrel
