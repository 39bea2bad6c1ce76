// Where a file's bytes go: the disk in the program, memory or a fault in a test. A writer that takes one of
// these can be made to fail at any of its writes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace tembrel {

class ByteOutput {
 public:
  virtual ~ByteOutput() = default;

  // Appends all of `bytes`; false with the system's reason when that fails, after which a part may have been
  // written.
  virtual bool Write(std::span<const std::byte> bytes, std::string& reason) = 0;

  // Replaces bytes that were written before, starting `offset` bytes from the beginning; appending goes on at
  // the end.
  virtual bool Overwrite(std::uint64_t offset, std::span<const std::byte> bytes, std::string& reason) = 0;

 protected:
  ByteOutput() = default;
  ByteOutput(const ByteOutput&) = default;
  ByteOutput& operator=(const ByteOutput&) = default;
};

}  // namespace tembrel
