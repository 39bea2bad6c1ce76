#include "platform/OutputFile.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/SystemReason.h"

namespace tembrel {

namespace {

constexpr std::size_t kMostPerCall = std::size_t{1} << 30U;
constexpr std::uint64_t kFlushedAtOnce = std::uint64_t{4} << 20U;
// Without O_NONBLOCK opening a pipe waits for somebody to read from it.
constexpr int kOpenExistingFlags = O_WRONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
constexpr int kOpenFlags = kOpenExistingFlags | O_CREAT;
constexpr mode_t kNewFileMode = 0666;  // the user's mask takes its share
constexpr mode_t kPrivateMode = 0600;

// `move` writes up to a number of bytes and returns as write() does.
template <typename Move>
bool WriteAll(std::span<const std::byte> bytes, std::string& reason, Move move) {
  while (!bytes.empty()) {
    const ssize_t moved = move(bytes.data(), std::min(bytes.size(), kMostPerCall));
    if (moved < 0 && errno == EINTR) {
      continue;
    }
    if (moved <= 0) {
      reason = SystemReason(moved < 0 ? errno : EIO);
      return false;
    }
    bytes = bytes.subspan(static_cast<std::size_t>(moved));
  }
  return true;
}

}  // namespace

void SurviveFileSizeLimit() {
  std::signal(SIGXFSZ, SIG_IGN);
}

std::optional<OutputFile> OutputFile::Create(const std::filesystem::path& path, std::string& reason) {
  OutputFile file(open(path.c_str(), kOpenFlags | O_TRUNC, kNewFileMode));
  if (file.descriptor < 0) {
    reason = SystemReason(errno);
    return std::nullopt;
  }
  return file;
}

std::optional<OutputFile> OutputFile::CreateNew(const std::filesystem::path& path, Access access,
                                                std::string& reason) {
  const mode_t mode = access == Access::kOwnerOnly ? kPrivateMode : kNewFileMode;
  OutputFile file(open(path.c_str(), kOpenFlags | O_EXCL | O_NOFOLLOW, mode));
  if (file.descriptor < 0) {
    reason = SystemReason(errno);
    return std::nullopt;
  }
  return file;
}

std::optional<OutputFile> OutputFile::CreateNameless(const std::filesystem::path& folder, Access access) {
  const mode_t mode = access == Access::kOwnerOnly ? kPrivateMode : kNewFileMode;
  const char* const place = folder.empty() ? "." : folder.c_str();
  OutputFile file(open(place, O_WRONLY | O_CLOEXEC | O_TMPFILE, mode));
  if (file.descriptor < 0 || faccessat(AT_FDCWD, file.SystemsName().c_str(), F_OK, 0) != 0) {
    return std::nullopt;
  }
  return file;
}

bool OutputFile::GiveName(const std::filesystem::path& path, std::string& reason) {
  if (linkat(AT_FDCWD, SystemsName().c_str(), AT_FDCWD, path.c_str(), AT_SYMLINK_FOLLOW) != 0) {
    reason = SystemReason(errno);
    return false;
  }
  return true;
}

// The name under which this process finds what it has opened, nameless or not.
std::string OutputFile::SystemsName() const {
  return "/proc/self/fd/" + std::to_string(descriptor);
}

std::optional<OutputFile> OutputFile::OpenExisting(const std::filesystem::path& path, std::string& reason) {
  OutputFile file(open(path.c_str(), kOpenExistingFlags));
  if (file.descriptor < 0) {
    reason = SystemReason(errno);
    return std::nullopt;
  }
  return file;
}

OutputFile::OutputFile(OutputFile&& other) noexcept
    : descriptor(std::exchange(other.descriptor, -1)),
      flushesOnTheWay(other.flushesOnTheWay),
      unflushed(other.unflushed) {}

OutputFile& OutputFile::operator=(OutputFile&& other) noexcept {
  std::swap(descriptor, other.descriptor);
  std::swap(flushesOnTheWay, other.flushesOnTheWay);
  std::swap(unflushed, other.unflushed);
  return *this;
}

OutputFile::~OutputFile() {
  if (descriptor >= 0) {
    close(descriptor);
  }
}

bool OutputFile::Write(std::span<const std::byte> bytes, std::string& reason) {
  const bool written = WriteAll(bytes, reason, [this](const std::byte* data, std::size_t size) {
    return write(descriptor, data, size);
  });
  unflushed += bytes.size();
  if (flushesOnTheWay && unflushed >= kFlushedAtOnce) {
    // Where this cannot be had, Flush has more to do. It also is what reports that the disk failed.
    sync_file_range(descriptor, 0, 0, SYNC_FILE_RANGE_WRITE);
    unflushed = 0;
  }
  return written;
}

bool OutputFile::Overwrite(std::uint64_t offset, std::span<const std::byte> bytes, std::string& reason) {
  return WriteAll(bytes, reason, [this, &offset](const std::byte* data, std::size_t size) {
    const ssize_t moved = pwrite(descriptor, data, size, static_cast<off_t>(offset));
    if (moved > 0) {
      offset += static_cast<std::uint64_t>(moved);
    }
    return moved;
  });
}

bool OutputFile::SetLength(std::uint64_t length, std::string& reason) {
  int result = 0;
  do {
    result = ftruncate(descriptor, static_cast<off_t>(length));
  } while (result != 0 && errno == EINTR);
  if (result != 0) {
    reason = SystemReason(errno);
  }
  return result == 0;
}

bool OutputFile::Flush(std::string& reason) {
  if (fsync(descriptor) != 0) {
    reason = SystemReason(errno);
    return false;
  }
  return true;
}

bool OutputFile::Close(std::string& reason) {
  // An interrupted close has closed on Linux; trying again could hit a file another thread has opened
  // meanwhile.
  if (close(std::exchange(descriptor, -1)) != 0 && errno != EINTR) {
    reason = SystemReason(errno);
    return false;
  }
  return true;
}

void OutputFile::TakeAttributesOf(const std::filesystem::path& other) {
  struct stat theirs {};
  struct stat ours {};
  if (stat(other.c_str(), &theirs) != 0 || fstat(descriptor, &ours) != 0) {
    return;
  }
  mode_t mode = theirs.st_mode & 07777U;
  const bool sameOwner =
      ours.st_uid == theirs.st_uid || fchown(descriptor, theirs.st_uid, theirs.st_gid) == 0;
  const bool sameGroup =
      fstat(descriptor, &ours) == 0 &&
      (ours.st_gid == theirs.st_gid || fchown(descriptor, static_cast<uid_t>(-1), theirs.st_gid) == 0);
  if (!sameOwner || !sameGroup) {
    mode &= 0777U;  // the right to act as the owner or group must not pass to another
  }
  if (!sameGroup) {
    mode = (mode & ~070U) | (mode & 07U) << 3U;  // our group gets what anybody had, not what their group had
  }
  // File systems without permissions refuse; their files all have the same ones anyway.
  if (fchmod(descriptor, mode) != 0) {
    return;
  }
}

}  // namespace tembrel
