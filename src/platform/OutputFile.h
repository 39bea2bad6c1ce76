// A file being written in place. What stands at the path is lost the moment it is opened: for a file somebody
// cares about use ReplaceFile.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "platform/ByteOutput.h"

namespace tembrel {

// Every failure puts the system's words into `reason` ("No space left on device").
class OutputFile : public ByteOutput {
 public:
  // Creates the file or cuts an existing one to nothing, keeping its identity: a lock on it stays.
  static std::optional<OutputFile> Create(const std::filesystem::path& path, std::string& reason);
  // Creates a file that nobody else may read yet; fails when the name is taken.
  static std::optional<OutputFile> CreateNew(const std::filesystem::path& path, std::string& reason);

  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() override;

  bool Write(std::span<const std::byte> bytes, std::string& reason) override;
  bool Overwrite(std::uint64_t offset, std::span<const std::byte> bytes, std::string& reason) override;

  // Waits until the bytes have reached the disk.
  bool Flush(std::string& reason);

  // Ends writing. Some systems tell only here that bytes were lost; a file that is destroyed unclosed tells
  // nobody.
  bool Close(std::string& reason);

  // Gives the file the owner, group and permissions of another, as far as the system lets this user.
  bool TakeAttributesOf(const std::filesystem::path& other, std::string& reason);
  // Gives the file the permissions that a newly created file has.
  bool TakeNewFilePermissions(std::string& reason);

 private:
  explicit OutputFile(int openDescriptor) : descriptor(openDescriptor) {}
  void CloseQuietly();

  int descriptor = -1;
  std::uint64_t written = 0;
};

}  // namespace tembrel
