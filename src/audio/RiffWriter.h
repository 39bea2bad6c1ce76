// Writes a RIFF file chunk by chunk. Sizes need not be known before: ascending out of a chunk fixes its size
// and pads it to an even length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "platform/ByteOutput.h"

namespace tembrel {

// A chunk that is being written. Chunks are closed in the reverse order of their creation.
struct OpenChunk {
  std::uint64_t dataOffset = 0;
  std::uint32_t writtenSize = 0;  // what stands in the size field now
};

class RiffWriter {
 public:
  // Writes to the end of `out`, which must be empty and outlive the writer.
  explicit RiffWriter(ByteOutput& out) : output(&out) {}

  // After the first failure nothing more is written and everything returns false or an idle chunk.
  OpenChunk CreateForm(std::uint32_t formType);
  // `expectedSize` goes into the size field, which then needs no fixing if it comes true.
  OpenChunk CreateChunk(std::uint32_t id, std::uint32_t expectedSize = 0);
  bool Write(std::span<const std::byte> bytes);
  bool Ascend(const OpenChunk& chunk);

  bool Failed() const { return failed; }
  // The system's words for the first failure.
  const std::string& Reason() const { return reason; }

 private:
  OpenChunk Create(std::uint32_t id, std::uint32_t expectedSize);

  ByteOutput* output;
  std::uint64_t position = 0;
  bool failed = false;
  std::string reason;
};

}  // namespace tembrel
