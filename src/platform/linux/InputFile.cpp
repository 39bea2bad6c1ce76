#include "platform/InputFile.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "platform/linux/SystemReason.h"

namespace tembrel {

namespace {

constexpr std::size_t kMostPerCall = std::size_t{1} << 30U;  // the system moves a little under 2 GiB a call

}  // namespace

std::optional<InputFile> InputFile::Open(const std::filesystem::path& path, std::string& reason) {
  // Without O_NONBLOCK opening a pipe waits for somebody to write into it.
  InputFile file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY), 0);
  struct stat status {};
  if (file.descriptor < 0 || fstat(file.descriptor, &status) != 0) {
    reason = SystemReason(errno);
    return std::nullopt;
  }
  if (!S_ISREG(status.st_mode)) {
    reason = S_ISDIR(status.st_mode) ? SystemReason(EISDIR) : kNotARegularFile;
    return std::nullopt;
  }
  file.size = static_cast<std::uint64_t>(status.st_size);
  return file;
}

InputFile::InputFile(InputFile&& other) noexcept
    : descriptor(std::exchange(other.descriptor, -1)), size(std::exchange(other.size, 0)) {}

InputFile& InputFile::operator=(InputFile&& other) noexcept {
  std::swap(descriptor, other.descriptor);
  std::swap(size, other.size);
  return *this;
}

InputFile::~InputFile() {
  if (descriptor >= 0) {
    close(descriptor);
  }
}

std::size_t InputFile::ReadAt(std::uint64_t offset, std::span<std::byte> target, std::string& reason) const {
  std::size_t done = 0;
  while (done < target.size()) {
    const std::size_t wanted = std::min(target.size() - done, kMostPerCall);
    const ssize_t got = pread(descriptor, target.data() + done, wanted, static_cast<off_t>(offset + done));
    if (got < 0 && errno == EINTR) {
      continue;
    }
    if (got < 0) {
      reason = SystemReason(errno);
    }
    if (got <= 0) {
      break;
    }
    done += static_cast<std::size_t>(got);
  }
  return done;
}

}  // namespace tembrel
