#include "platform/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace tembrel {

namespace {

constexpr int kAttempts = 10;
constexpr mode_t kPrivateMode = 0600;

bool LockNow(int descriptor) {
  int result = 0;
  do {
    result = flock(descriptor, LOCK_EX | LOCK_NB);
  } while (result != 0 && errno == EINTR);
  return result == 0;
}

enum class State { kInPlace, kGone, kUnfit };

// Between opening and locking, the one who held the lock may have removed the file: the lock is then on a
// file that no path leads to.
State StateOf(int descriptor, const std::filesystem::path& path) {
  struct stat held {};
  struct stat named {};
  if (fstat(descriptor, &held) != 0 || !S_ISREG(held.st_mode)) {
    return State::kUnfit;
  }
  if (lstat(path.c_str(), &named) != 0) {
    return State::kGone;
  }
  return held.st_dev == named.st_dev && held.st_ino == named.st_ino ? State::kInPlace : State::kGone;
}

}  // namespace

std::optional<FileLock> FileLock::TryLock(const std::filesystem::path& path) {
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    FileLock lock(
        open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, kPrivateMode));
    if (lock.descriptor < 0 || !LockNow(lock.descriptor)) {
      return std::nullopt;
    }
    const State state = StateOf(lock.descriptor, path);
    if (state == State::kInPlace) {
      return lock;
    }
    if (state == State::kUnfit) {
      return std::nullopt;
    }
  }
  return std::nullopt;
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  if (this != &other) {
    Release();
    descriptor = std::exchange(other.descriptor, -1);
  }
  return *this;
}

FileLock::~FileLock() {
  Release();
}

void FileLock::Release() {
  if (descriptor >= 0) {
    close(std::exchange(descriptor, -1));  // the lock goes with its last descriptor
  }
}

}  // namespace tembrel
