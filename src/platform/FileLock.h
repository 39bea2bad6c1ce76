// An advisory lock on a file that ends with the object or with the program, however that dies: it tells a
// file that a running program is using from one that was left behind.
#pragma once

#include <filesystem>
#include <optional>

namespace tembrel {

// The lock belongs to the file, not to its content: it stays while the file is cut short and written again,
// and ends when another file is renamed over it.
class FileLock {
 public:
  // Creates the file when it is missing. Nothing when it is locked, by this program or another, is no regular
  // file or cannot be opened for writing.
  static std::optional<FileLock> TryLock(const std::filesystem::path& path);

  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  explicit FileLock(int openDescriptor) : descriptor(openDescriptor) {}
  void Release();

  int descriptor = -1;
};

}  // namespace tembrel
