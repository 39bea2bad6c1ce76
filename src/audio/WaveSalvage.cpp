#include "audio/WaveSalvage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>

#include "audio/FormatRecord.h"
#include "audio/Riff.h"
#include "platform/InputFile.h"

namespace tembrel {

namespace {

constexpr std::size_t kHeaderSize = 44;
constexpr std::size_t kFormTypeOffset = 8;
constexpr std::size_t kFormatIdOffset = 12;
constexpr std::size_t kFormatSizeOffset = 16;
constexpr std::size_t kRecordOffset = 20;
constexpr std::size_t kDataIdOffset = 36;
constexpr std::size_t kDataSizeOffset = 40;

bool IsOwnHeader(std::span<const std::byte> header) {
  return LoadLe32(header) == FourCc("RIFF") && LoadLe32(header.subspan(kFormTypeOffset)) == FourCc("WAVE") &&
         LoadLe32(header.subspan(kFormatIdOffset)) == FourCc("fmt ") &&
         LoadLe32(header.subspan(kFormatSizeOffset)) == kFormatRecordSize &&
         LoadLe32(header.subspan(kDataIdOffset)) == FourCc("data");
}

SalvageResult Failure(std::string reason) {
  SalvageResult result;
  result.reason = std::move(reason);
  return result;
}

// Bytes of the data that are there, by the header's size and by the file's.
std::uint32_t DataSize(std::uint32_t declared, std::uint64_t available, std::uint32_t frame, bool& cutShort) {
  // The size is filled in after the data: 0 before data means that this did not happen any more.
  cutShort = declared > available || (declared == 0 && available > 0);
  if (!cutShort) {
    return declared;
  }
  const std::uint64_t most = std::numeric_limits<std::uint32_t>::max();
  const auto size = static_cast<std::uint32_t>(std::min(available, most));
  return size - size % frame;
}

bool Fill(const InputFile& file, std::span<std::byte> target, const Progress& progress,
          SalvageResult& result) {
  std::uint64_t done = 0;
  while (done < target.size()) {
    const std::uint64_t step = std::min<std::uint64_t>(target.size() - done, kProgressStep);
    const std::span<std::byte> part =
        target.subspan(static_cast<std::size_t>(done), static_cast<std::size_t>(step));
    if (file.ReadAt(kHeaderSize + done, part, result.reason) != part.size()) {
      result.reason = result.reason.empty() ? "it became shorter while it was read" : result.reason;
      return false;
    }
    done += step;
    if (progress && !progress(done, target.size())) {
      result.cancelled = true;
      return false;
    }
  }
  return true;
}

}  // namespace

SalvageResult SalvageClip(const std::filesystem::path& path, const Progress& progress) {
  SalvageResult result;
  const std::optional<InputFile> file = InputFile::Open(path, result.reason);
  std::array<std::byte, kHeaderSize> bytes{};
  const std::span<const std::byte> header(bytes);
  const std::size_t got = file ? file->ReadAt(0, bytes, result.reason) : 0;
  if (!result.reason.empty()) {
    return result;
  }
  if (got < kHeaderSize || !IsOwnHeader(header)) {
    return Failure("it does not begin like a copy that Tembrel writes");
  }
  const WaveFormat format = ParseFormatRecord(header.subspan(kRecordOffset));
  const std::string fault = FormatRecordFault(format);
  if (!fault.empty()) {
    return Failure(fault);
  }
  const std::uint32_t size = DataSize(LoadLe32(header.subspan(kDataSizeOffset)), file->Size() - kHeaderSize,
                                      format.nBlockAlign, result.cutShort);
  if (size == 0) {
    return Failure("it holds no sound");
  }
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(size);
  if (!block) {
    result.outOfMemory = true;
    result.reason = "there is not enough memory for its sound";
    return result;
  }
  if (Fill(*file, block->Bytes(), progress, result)) {
    result.clip = std::make_unique<AudioClip>();
    result.clip->format = format;
    result.clip->data = std::move(*block);
    result.clip->dataSize = size;
  }
  return result;
}

}  // namespace tembrel
