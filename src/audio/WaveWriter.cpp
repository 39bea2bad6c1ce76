#include "audio/WaveWriter.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

#include "audio/Riff.h"
#include "audio/RiffWriter.h"
#include "audio/WaveFormat.h"
#include "platform/OutputFile.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

constexpr std::uint64_t kBytesBesideData = 36;  // of those that the RIFF size counts
static_assert(kMostWaveBytes % 2 == 0 &&
              kMostWaveBytes + 2 > std::numeric_limits<std::uint32_t>::max() - kBytesBesideData &&
              kMostWaveBytes <= std::numeric_limits<std::uint32_t>::max() - kBytesBesideData);
constexpr std::uint32_t kRecordSize = 16;
constexpr const char* kTooLarge = "File too large: a WAVE file holds at most 4 GB";

std::array<std::byte, kRecordSize> RecordBytes(const WaveFormat& format) {
  std::array<std::byte, kRecordSize> bytes{};
  const std::span<std::byte> record(bytes);
  StoreLe16(format.wFormatTag, record);
  StoreLe16(format.nChannels, record.subspan(2));
  StoreLe32(format.nSamplesPerSec, record.subspan(4));
  StoreLe32(format.nAvgBytesPerSec, record.subspan(8));
  StoreLe16(format.nBlockAlign, record.subspan(12));
  StoreLe16(format.wBitsPerSample, record.subspan(14));
  return bytes;
}

// False when writing failed or was cancelled.
bool WriteData(RiffWriter& riff, std::span<const std::byte> data, const Progress& progress, bool& cancelled) {
  std::uint64_t done = 0;
  while (done < data.size()) {
    const std::uint64_t step = std::min<std::uint64_t>(data.size() - done, kProgressStep);
    if (!riff.Write(data.subspan(static_cast<std::size_t>(done), static_cast<std::size_t>(step)))) {
      return false;
    }
    done += step;
    if (progress && !progress(done, data.size())) {
      cancelled = true;
      return false;
    }
  }
  return true;
}

constexpr std::uint64_t kRiffSizeOffset = 4;
constexpr std::uint64_t kDataSizeOffset = 40;

}  // namespace

bool FitsInWaveFile(std::uint64_t dataBytes) {
  return dataBytes <= kMostWaveBytes;
}

bool WriteWaveSizes(ByteOutput& output, std::uint32_t dataBytes, std::string& reason) {
  const std::uint32_t pad = dataBytes % 2;
  std::array<std::byte, 4> riffSize{};
  std::array<std::byte, 4> dataSize{};
  StoreLe32(static_cast<std::uint32_t>(kBytesBesideData) + dataBytes + pad, riffSize);
  StoreLe32(dataBytes, dataSize);
  constexpr std::array<std::byte, 1> kPad{};
  return (pad == 0 || output.Overwrite(kWaveDataOffset + dataBytes, kPad, reason)) &&
         output.Overwrite(kRiffSizeOffset, riffSize, reason) &&
         output.Overwrite(kDataSizeOffset, dataSize, reason);
}

WriteResult WriteWaveTo(ByteOutput& output, std::span<const std::byte> data, std::uint32_t rate,
                        std::uint16_t bits, std::uint16_t channels, const Progress& progress) {
  WriteResult result;
  if (!FitsInWaveFile(data.size())) {
    result.reason = kTooLarge;
    return result;
  }
  RiffWriter riff(output);
  const OpenChunk form = riff.CreateForm(FourCc("WAVE"));
  const OpenChunk format = riff.CreateChunk(FourCc("fmt "), kRecordSize);
  riff.Write(RecordBytes(PcmFormat(rate, bits, channels)));
  riff.Ascend(format);
  const OpenChunk chunk = riff.CreateChunk(FourCc("data"));
  if (WriteData(riff, data, progress, result.cancelled)) {
    riff.Ascend(chunk);
    riff.Ascend(form);
  }
  result.ok = !riff.Failed() && !result.cancelled;
  result.reason = riff.Reason();
  return result;
}

WriteResult WriteWave(std::span<const std::byte> data, std::uint32_t rate, std::uint16_t bits,
                      std::uint16_t channels, const std::filesystem::path& path, const Progress& progress) {
  WriteResult result;
  if (!FitsInWaveFile(data.size())) {
    result.reason = kTooLarge;
    return result;
  }
  std::optional<OutputFile> file = OutputFile::Create(path, result.reason);
  if (!file) {
    return result;
  }
  result = WriteWaveTo(*file, data, rate, bits, channels, progress);
  if (result.ok) {
    result.ok = file->Close(result.reason);
  }
  return result;
}

WriteResult SaveWaveFile(std::span<const std::byte> data, std::uint32_t rate, std::uint16_t bits,
                         std::uint16_t channels, const std::filesystem::path& path,
                         const Progress& progress) {
  WriteResult result;
  if (!FitsInWaveFile(data.size())) {
    result.reason = kTooLarge;
    return result;
  }
  const ReplaceResult replaced = ReplaceFile(path, [&](ByteOutput& output, std::string& reason) {
    result = WriteWaveTo(output, data, rate, bits, channels, progress);
    reason = result.reason;
    return result.ok;
  });
  result.ok = replaced.ok;
  result.reason = replaced.reason;
  return result;
}

int WriteWaveFile(std::span<const std::byte> data, std::uint32_t rate, std::uint16_t bits,
                  std::uint16_t channels, const std::filesystem::path& path) {
  WriteWave(data, rate, bits, channels, path);
  return 1;
}

}  // namespace tembrel
