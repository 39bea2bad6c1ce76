#include "audio/RiffReader.h"

#include <algorithm>
#include <array>

#include "audio/Riff.h"

namespace tembrel {

namespace {

constexpr std::uint32_t kRiff = FourCc("RIFF");
constexpr std::size_t kHeaderSize = 8;
constexpr std::size_t kFormTypeSize = 4;
constexpr std::size_t kWindowSize = 65536;
// Gigabytes of empty chunks, or of zeros, which look the same, are given up on before anybody has to wait for
// them.
constexpr int kMostChunks = 1 << 20;

std::uint64_t EndWithPad(const RiffChunk& chunk) {
  return chunk.End() + chunk.size % 2;
}

}  // namespace

std::optional<RiffReader> RiffReader::Open(const std::filesystem::path& path, std::string& reason) {
  std::optional<InputFile> file = InputFile::Open(path, reason);
  if (!file) {
    return std::nullopt;
  }
  return RiffReader(std::move(*file));
}

std::optional<RiffChunk> RiffReader::DescendForm(std::uint32_t formType) {
  std::uint64_t offset = 0;
  for (int i = 0; i < kMostChunks; ++i) {
    const std::optional<RiffChunk> chunk = HeaderAt(offset, FileSize());
    if (!chunk) {
      return std::nullopt;
    }
    if (chunk->id == kRiff) {
      const std::span<const std::byte> form = Look(chunk->dataOffset, kFormTypeSize);
      if (form.size() == kFormTypeSize && LoadLe32(form) == formType) {
        position = chunk->dataOffset + kFormTypeSize;
        return chunk;
      }
    }
    offset = EndWithPad(*chunk);
  }
  return std::nullopt;
}

std::optional<RiffChunk> RiffReader::Descend(std::uint32_t id, const RiffChunk& parent) {
  std::uint64_t offset = position;
  for (int i = 0; i < kMostChunks; ++i) {
    const std::optional<RiffChunk> chunk = HeaderAt(offset, std::min(parent.End(), FileSize()));
    if (!chunk) {
      return std::nullopt;
    }
    if (chunk->id == id) {
      position = chunk->dataOffset;
      return chunk;
    }
    offset = EndWithPad(*chunk);
  }
  return std::nullopt;
}

std::size_t RiffReader::Read(std::span<std::byte> target, std::string& reason) {
  const std::size_t got = file.ReadAt(position, target, reason);
  position += got;
  return got;
}

void RiffReader::Ascend(const RiffChunk& chunk) {
  position = EndWithPad(chunk);
}

std::optional<RiffChunk> RiffReader::HeaderAt(std::uint64_t offset, std::uint64_t end) {
  if (offset > end || end - offset < kHeaderSize) {
    return std::nullopt;
  }
  const std::span<const std::byte> bytes = Look(offset, kHeaderSize);
  if (bytes.size() < kHeaderSize) {
    return std::nullopt;
  }
  RiffChunk chunk;
  chunk.id = LoadLe32(bytes);
  chunk.size = LoadLe32(bytes.subspan(4));
  chunk.dataOffset = offset + kHeaderSize;
  return chunk;
}

std::span<const std::byte> RiffReader::Look(std::uint64_t offset, std::size_t length) {
  if (offset < windowOffset || offset + length > windowOffset + window.size()) {
    const std::uint64_t left = offset < FileSize() ? FileSize() - offset : 0;
    window.resize(static_cast<std::size_t>(std::min<std::uint64_t>(left, kWindowSize)));
    windowOffset = offset;
    window.resize(file.ReadAt(offset, window, readError));
  }
  const std::span<const std::byte> seen =
      std::span(window).subspan(static_cast<std::size_t>(offset - windowOffset));
  return seen.first(std::min(length, seen.size()));
}

}  // namespace tembrel
