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

// From now on a write beyond the system's limit on the size of files fails ("File too large") instead of
// ending the program. For the start of a program.
void SurviveFileSizeLimit();

// Every failure puts the system's words into `reason` ("No space left on device").
class OutputFile : public ByteOutput {
 public:
  // Creates the file or cuts an existing one to nothing, keeping its identity: a lock on it stays.
  static std::optional<OutputFile> Create(const std::filesystem::path& path, std::string& reason);
  // Opens a file that is there, to change bytes in it.
  static std::optional<OutputFile> OpenExisting(const std::filesystem::path& path, std::string& reason);
  enum class Access {
    kDefault,    // what the user's mask leaves of reading and writing for all
    kOwnerOnly,  // until TakeAttributesOf
  };
  // Creates a file; fails when the name is taken, be it by a dangling link.
  static std::optional<OutputFile> CreateNew(const std::filesystem::path& path, Access access,
                                             std::string& reason);

  // Creates a file in this folder that has no name yet and is gone with this program, however that ends.
  // Fails, without a reason, where the file system has no such files or could not name them later.
  static std::optional<OutputFile> CreateNameless(const std::filesystem::path& folder, Access access);
  // Gives a nameless file its name; fails when that is taken.
  bool GiveName(const std::filesystem::path& path, std::string& reason);

  OutputFile(OutputFile&& other) noexcept;
  OutputFile& operator=(OutputFile&& other) noexcept;
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() override;

  bool Write(std::span<const std::byte> bytes, std::string& reason) override;
  bool Overwrite(std::uint64_t offset, std::span<const std::byte> bytes, std::string& reason) override;

  // Cuts the file to this many bytes, or lengthens it with zeros.
  bool SetLength(std::uint64_t length, std::string& reason);

  // From now on what is written is on its way to the disk while more is written: for a file that will be
  // flushed. Without it, Flush has all of it before it.
  void FlushOnTheWay() { flushesOnTheWay = true; }

  // Waits until the bytes have reached the disk.
  bool Flush(std::string& reason);

  // Ends writing. Some systems tell only here that bytes were lost; a file that is destroyed unclosed tells
  // nobody.
  bool Close(std::string& reason);

  // Gives the file the permissions of another, and its owner and group as far as the system lets this user;
  // rights of a group that could not be given are not given to this user's group instead.
  void TakeAttributesOf(const std::filesystem::path& other);

 private:
  explicit OutputFile(int openDescriptor) : descriptor(openDescriptor) {}
  std::string SystemsName() const;

  int descriptor = -1;
  bool flushesOnTheWay = false;
  std::uint64_t unflushed = 0;  // bytes written since the disk was last told
};

}  // namespace tembrel
