#include "audio/RiffWriter.h"

#include <array>
#include <limits>

#include "audio/Riff.h"

namespace tembrel {

namespace {

constexpr std::size_t kSizeFieldSize = 4;

}  // namespace

OpenChunk RiffWriter::CreateForm(std::uint32_t formType) {
  const OpenChunk chunk = Create(FourCc("RIFF"), 0);
  std::array<std::byte, 4> type{};
  StoreLe32(formType, type);
  Write(type);
  return chunk;
}

OpenChunk RiffWriter::CreateChunk(std::uint32_t id, std::uint32_t expectedSize) {
  return Create(id, expectedSize);
}

OpenChunk RiffWriter::Create(std::uint32_t id, std::uint32_t expectedSize) {
  std::array<std::byte, 8> header{};
  StoreLe32(id, header);
  StoreLe32(expectedSize, std::span(header).subspan(4));
  Write(header);
  return {position, expectedSize};
}

bool RiffWriter::Write(std::span<const std::byte> bytes) {
  if (failed) {
    return false;
  }
  if (!output->Write(bytes, reason)) {
    failed = true;
    return false;
  }
  position += bytes.size();
  return true;
}

bool RiffWriter::Ascend(const OpenChunk& chunk) {
  const std::uint64_t size = position - chunk.dataOffset;
  if (!failed && size > std::numeric_limits<std::uint32_t>::max()) {
    reason = "File too large";
    failed = true;
  }
  if (size % 2 != 0) {
    constexpr std::array<std::byte, 1> kPad{};
    Write(kPad);
  }
  if (failed || size == chunk.writtenSize) {
    return !failed;
  }
  std::array<std::byte, kSizeFieldSize> field{};
  StoreLe32(static_cast<std::uint32_t>(size), field);
  failed = !output->Overwrite(chunk.dataOffset - kSizeFieldSize, field, reason);
  return !failed;
}

}  // namespace tembrel
