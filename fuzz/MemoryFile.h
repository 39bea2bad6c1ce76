// The bytes a fuzzer invents as a file that can be opened by its path and never touches the disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace tembrel::fuzz {

class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* bytes, std::size_t size) : descriptor(memfd_create("fuzz", MFD_CLOEXEC)) {
    complete = descriptor >= 0 && write(descriptor, bytes, size) == static_cast<ssize_t>(size);
  }
  ~MemoryFile() {
    if (descriptor >= 0) {
      close(descriptor);
    }
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  bool Complete() const { return complete; }
  std::filesystem::path Path() const { return "/proc/self/fd/" + std::to_string(descriptor); }

 private:
  int descriptor;
  bool complete = false;
};

}  // namespace tembrel::fuzz
