#include "audio/WaveReader.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>
#include <vector>

#include "audio/Conversion.h"
#include "audio/FormatRecord.h"
#include "audio/Riff.h"
#include "audio/RiffReader.h"

namespace tembrel {

namespace {

constexpr std::uint32_t kWave = FourCc("WAVE");

// A file whose headers have been read; the reader stands at the first byte of the data.
struct OpenWave {
  RiffReader reader;
  WaveFormat format;
  RiffChunk data;
};

// Why there is no WAVE form in the file, as far as its first bytes tell.
std::string FormFault(const std::filesystem::path& path) {
  std::array<std::byte, 12> start{};
  std::string reason;
  const std::optional<InputFile> file = InputFile::Open(path, reason);
  const std::size_t got = file ? file->ReadAt(0, start, reason) : 0;
  if (!reason.empty()) {
    return reason;
  }
  if (got == 0) {
    return "it is empty";
  }
  const std::uint32_t id = LoadLe32(start);
  if (id == FourCc("RIFX")) {
    return "it is a WAVE file of the big-endian kind (RIFX)";
  }
  if (id == FourCc("RF64") || id == FourCc("BW64")) {
    return "it is a WAVE file of the 64-bit kind (RF64)";
  }
  return id == FourCc("RIFF") && got == start.size() ? "it is a RIFF file but not a WAVE file"
                                                     : "it is not a RIFF WAVE file";
}

std::string OrReadError(const RiffReader& reader, const char* otherwise) {
  return reader.ReadError().empty() ? otherwise : reader.ReadError();
}

// `recordBytes` says how much of a format chunk of the given size is read; all of it must be there.
template <typename RecordBytes>
std::optional<OpenWave> OpenWaveFile(const std::filesystem::path& path, std::string& reason,
                                     RecordBytes recordBytes) {
  std::optional<RiffReader> reader = RiffReader::Open(path, reason);
  if (!reader) {
    return std::nullopt;
  }
  const std::optional<RiffChunk> riff = reader->DescendForm(kWave);
  if (!riff) {
    reason = FormFault(path);
    return std::nullopt;
  }
  const std::optional<RiffChunk> formatChunk = reader->Descend(FourCc("fmt "), *riff);
  if (!formatChunk) {
    reason = OrReadError(*reader, "it has no format chunk");
    return std::nullopt;
  }
  std::vector<std::byte> record(recordBytes(formatChunk->size));
  if (formatChunk->size < kFormatRecordSize || record.size() < kFormatRecordSize ||
      reader->Read(record, reason) != record.size()) {
    reason = reason.empty() ? "its format chunk is too short" : reason;
    return std::nullopt;
  }
  const WaveFormat format = ParseFormatRecord(record);
  reason = FormatRecordFault(format);
  if (!reason.empty()) {
    return std::nullopt;
  }
  reader->Ascend(*formatChunk);
  const std::optional<RiffChunk> data = reader->Descend(FourCc("data"), *riff);
  if (!data) {
    reason = OrReadError(*reader, "it has no data chunk behind its format chunk");
    return std::nullopt;
  }
  return OpenWave{std::move(*reader), format, *data};
}

LoadResult Failure(std::string reason) {
  return {nullptr, std::move(reason), false};
}

enum class Filled { kWhole, kShort, kCancelled };

Filled Fill(RiffReader& reader, std::span<std::byte> target, const Progress& progress, std::string& reason) {
  std::uint64_t done = 0;
  while (done < target.size()) {
    const std::uint64_t step = std::min<std::uint64_t>(target.size() - done, kProgressStep);
    const std::span<std::byte> part =
        target.subspan(static_cast<std::size_t>(done), static_cast<std::size_t>(step));
    if (reader.Read(part, reason) != part.size()) {
      return Filled::kShort;
    }
    done += step;
    if (progress && !progress(done, target.size())) {
      return Filled::kCancelled;
    }
  }
  return Filled::kWhole;
}

}  // namespace

std::optional<WaveData> OpenWaveData(const std::filesystem::path& path, std::string& reason) {
  std::optional<OpenWave> wave = OpenWaveFile(path, reason, [](std::uint32_t) { return kFormatRecordSize; });
  if (!wave) {
    return std::nullopt;
  }
  const std::uint64_t start = wave->data.dataOffset;
  const std::uint64_t end = std::min(wave->data.End(), wave->reader.FileSize());
  const std::uint64_t frames = end > start ? (end - start) / wave->format.nBlockAlign : 0;
  return WaveData{std::move(wave->reader).TakeFile(), wave->format, start, frames};
}

LoadResult LoadClip(const std::filesystem::path& path, std::uint32_t targetRate, std::uint16_t targetBits,
                    std::uint16_t targetChannels, bool convert, const Progress& progress) {
  constexpr const char* kCutShort = "it ends before its data chunk does";
  std::string reason;
  std::optional<OpenWave> wave = OpenWaveFile(path, reason, [](std::uint32_t) { return kFormatRecordSize; });
  if (!wave) {
    return Failure(reason);
  }
  if (wave->data.size == 0) {
    return Failure("its data chunk is empty");
  }
  if (wave->data.End() > wave->reader.FileSize()) {
    return Failure(kCutShort);
  }
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(wave->data.size);
  if (!block) {
    return Failure("there is not enough memory for its sound");
  }
  switch (Fill(wave->reader, block->Bytes(), progress, reason)) {
    case Filled::kWhole:
      break;
    case Filled::kShort:
      return Failure(reason.empty() ? kCutShort : reason);
    case Filled::kCancelled:
      return {nullptr, {}, true};
  }
  std::uint32_t size = wave->data.size;
  if (convert) {
    block = ConvertData(targetRate, targetBits, targetChannels, wave->format, std::move(*block), size);
    if (!block) {
      return Failure("its sound cannot be converted to the wanted format");
    }
  }
  auto clip = std::make_unique<AudioClip>();
  clip->format = wave->format;
  clip->data = std::move(*block);
  clip->dataSize = size;
  return {std::move(clip), {}, false};
}

std::uint32_t ReadWaveInfo(const std::filesystem::path& path, std::uint32_t& frames) {
  // The whole format chunk must be there, but of its size only the low 16 bits count.
  const auto wholeChunk = [](std::uint32_t chunkSize) { return std::size_t{chunkSize & 0xFFFFU}; };
  std::string reason;
  const std::optional<OpenWave> wave = OpenWaveFile(path, reason, wholeChunk);
  frames = 0;
  if (!wave) {
    return kNoDuration;
  }
  frames = wave->data.size / wave->format.nBlockAlign;
  return DurationInHundredths(wave->data.size, wave->format.nBlockAlign, wave->format.nSamplesPerSec);
}

}  // namespace tembrel
