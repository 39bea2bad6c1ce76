// A file open for reading at any position. Only regular files are opened: a folder, a pipe or a device is
// refused at once and never waited for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

namespace tembrel {

class InputFile {
 public:
  // Nothing on failure, with the system's words for it in `reason` ("No such file or directory").
  static std::optional<InputFile> Open(const std::filesystem::path& path, std::string& reason);

  InputFile(InputFile&& other) noexcept;
  InputFile& operator=(InputFile&& other) noexcept;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile();

  // Bytes in the file when it was opened.
  std::uint64_t Size() const { return size; }

  // Fills `target` from the bytes that start at `offset` and returns how many there were: fewer than asked
  // for where the file ends, or where reading fails, which puts the system's words into `reason`.
  std::size_t ReadAt(std::uint64_t offset, std::span<std::byte> target, std::string& reason) const;

 private:
  InputFile(int openDescriptor, std::uint64_t length) : descriptor(openDescriptor), size(length) {}

  int descriptor = -1;
  std::uint64_t size = 0;
};

// The whole content of a small file. Nothing when it cannot be read, or holds more than `mostBytes`.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path, std::size_t mostBytes,
                                         std::string& reason);

}  // namespace tembrel
