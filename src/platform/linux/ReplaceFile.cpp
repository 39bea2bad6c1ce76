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

// A file beside the target that will take its place. It has a name from the beginning only where it must:
// what has none leaves nothing behind when the program is killed.
class Successor {
 public:
  enum class Name { kLate, kEarly };

  static std::optional<Successor> Create(const fs::path& target, OutputFile::Access access, Name when,
                                         std::string& reason) {
    const fs::path name = NameBeside(target);
    if (when == Name::kLate) {
      std::optional<OutputFile> nameless = OutputFile::CreateNameless(target.parent_path(), access);
      if (nameless) {
        return Successor(name, std::move(*nameless), false);
      }
    }
    std::optional<OutputFile> named = OutputFile::CreateNew(name, access, reason);
    if (!named) {
      return std::nullopt;
    }
    return Successor(name, std::move(*named), true);
  }

  // Takes `attributes` from there, unless that is null.
  bool Write(const FillFile& fill, const fs::path* attributes, std::string& reason) {
    file.FlushOnTheWay();
    if (!fill(file, reason)) {
      return false;
    }
    if (attributes != nullptr) {
      file.TakeAttributesOf(*attributes);
    }
    return file.Flush(reason);
  }

  // What is written can only go again where this fails.
  bool GetName(std::string& reason) {
    isNamed = isNamed || file.GiveName(name, reason);
    return isNamed;
  }

  bool TakePlaceOf(const fs::path& target, std::string& reason) {
    if (!file.Close(reason)) {
      return false;
    }
    if (rename(name.c_str(), target.c_str()) != 0) {
      reason = SystemReason(errno);
      return false;
    }
    return true;
  }

  void Remove() const {
    if (isNamed) {
      unlink(name.c_str());
    }
  }

 private:
  Successor(fs::path nameBeside, OutputFile output, bool hasName)
      : name(std::move(nameBeside)), file(std::move(output)), isNamed(hasName) {}

  fs::path name;
  OutputFile file;
  bool isNamed;
};

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
  const auto access = exists ? OutputFile::Access::kOwnerOnly : OutputFile::Access::kDefault;
  const auto write = [&](Successor::Name when) {
    std::optional<Successor> written = Successor::Create(target, access, when, result.reason);
    result.ok = written && written->Write(fill, exists ? &target : nullptr, result.reason);
    return written;
  };
  std::optional<Successor> successor = write(Successor::Name::kLate);
  if (result.ok && !successor->GetName(result.reason)) {
    // This file system makes nameless files but cannot name them.
    result.reason.clear();
    successor = write(Successor::Name::kEarly);
  }
  if (!successor) {
    return result;
  }
  result.ok = result.ok && successor->TakePlaceOf(target, result.reason);
  if (result.ok) {
    FlushFolder(target.parent_path());
  } else {
    successor->Remove();
  }
  return result;
}

}  // namespace tembrel
