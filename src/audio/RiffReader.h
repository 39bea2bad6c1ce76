// Finds chunks in a RIFF file and reads them. The reader has one position that descending, reading and
// ascending move.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/InputFile.h"

namespace tembrel {

struct RiffChunk {
  std::uint32_t id = 0;
  // Bytes of content as declared, the form type of a RIFF chunk among them; may be a lie.
  std::uint32_t size = 0;
  std::uint64_t dataOffset = 0;  // where the content starts in the file

  // Where the content ends if the declared size is true; may lie behind the end of the file.
  std::uint64_t End() const { return dataOffset + size; }
};

// Sizes in a foreign file may say anything. Chunks are looked for inside the part of their parent that the
// file really has; the content of a chunk that was found may be longer than the parent says (programs that
// get the outer size wrong are common) but is never read beyond the end of the file.
class RiffReader {
 public:
  static std::optional<RiffReader> Open(const std::filesystem::path& path, std::string& reason);

  std::uint64_t FileSize() const { return file.Size(); }

  // Finds the first RIFF chunk of the file with this form type, whatever chunks stand before it, and stops
  // behind the form type.
  std::optional<RiffChunk> DescendForm(std::uint32_t formType);

  // Finds the next chunk with this identifier between the position and the end of `parent`, and stops at its
  // content. The position stays where it was when there is none.
  std::optional<RiffChunk> Descend(std::uint32_t id, const RiffChunk& parent);

  // Reads on from the position; returns the bytes read, fewer than asked for where the file ends or reading
  // fails.
  std::size_t Read(std::span<std::byte> target, std::string& reason);

  // Goes behind the chunk and its pad byte.
  void Ascend(const RiffChunk& chunk);

  // The file, for reading on without looking for chunks.
  InputFile TakeFile() && { return std::move(file); }

  // The system's words when a header that was looked for could not be read; empty when it simply is not
  // there.
  const std::string& ReadError() const { return readError; }

 private:
  explicit RiffReader(InputFile openFile) : file(std::move(openFile)) {}
  std::optional<RiffChunk> HeaderAt(std::uint64_t offset, std::uint64_t end);
  std::span<const std::byte> Look(std::uint64_t offset, std::size_t length);

  InputFile file;
  std::uint64_t position = 0;
  std::vector<std::byte> window;  // bytes of the file around the headers that are being looked at
  std::uint64_t windowOffset = 0;
  std::string readError;
};

}  // namespace tembrel
