#include "document/TempCopy.h"

#include <algorithm>
#include <array>
#include <span>
#include <system_error>
#include <utility>

#include "audio/Riff.h"
#include "audio/WaveWriter.h"
#include "platform/OutputFile.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

constexpr int kNamesTried = 1000;
// In the files that WaveWriter writes.
constexpr std::uint64_t kRiffSizeOffset = 4;
constexpr std::uint64_t kDataSizeOffset = 40;
constexpr std::uint64_t kDataOffset = 44;
constexpr std::uint32_t kBytesBesideData = 36;

// What follows from a new length: the size fields, the pad byte and the end of the file.
bool WriteLength(OutputFile& file, std::uint32_t size, std::string& reason) {
  const std::uint32_t pad = size % 2;
  std::array<std::byte, 4> riffSize{};
  std::array<std::byte, 4> dataSize{};
  StoreLe32(kBytesBesideData + size + pad, riffSize);
  StoreLe32(size, dataSize);
  constexpr std::array<std::byte, 1> kPad{};
  return (pad == 0 || file.Overwrite(kDataOffset + size, kPad, reason)) &&
         file.Overwrite(kRiffSizeOffset, riffSize, reason) &&
         file.Overwrite(kDataSizeOffset, dataSize, reason) &&
         file.SetLength(kDataOffset + size + pad, reason);
}

bool WriteChanges(OutputFile& file, const AudioClip& clip, const ClipChanges& changes, std::string& reason) {
  const std::int64_t size = clip.dataSize;
  const std::int64_t unshifted = std::min(changes.ShiftedFrom().value_or(size), size);
  const auto write = [&](std::int64_t start, std::int64_t end) {
    const auto offset = static_cast<std::size_t>(start);
    return start >= end ||
           file.Overwrite(kDataOffset + offset,
                          clip.Bytes().subspan(offset, static_cast<std::size_t>(end - start)), reason);
  };
  for (const ByteRange& range : changes.Overwritten()) {
    if (!write(range.start, std::min(range.end, unshifted))) {
      return false;
    }
  }
  return !changes.ShiftedFrom() || (write(unshifted, size) && WriteLength(file, clip.dataSize, reason));
}

}  // namespace

std::filesystem::path NotePath(const std::filesystem::path& tempWave) {
  return std::filesystem::path(tempWave).replace_extension(".txt");
}

std::optional<TempCopy> TempCopy::Create(const ProgramPaths& paths, long long number) {
  if (paths.tempFolder.empty()) {
    return std::nullopt;
  }
  for (int i = 0; i < kNamesTried; ++i) {
    const std::filesystem::path path = paths.TempWavePath(number + i);
    std::error_code error;
    if (std::filesystem::exists(path, error) || error) {
      continue;
    }
    std::optional<FileLock> lock = FileLock::TryLock(path);
    if (lock) {
      return TempCopy(path, std::move(*lock));
    }
  }
  return std::nullopt;
}

TempCopy::TempCopy(std::filesystem::path wavePath, FileLock fileLock)
    : path(std::move(wavePath)), lock(std::move(fileLock)) {}

TempCopy::TempCopy(TempCopy&& other) noexcept
    : path(std::exchange(other.path, {})),
      lock(std::exchange(other.lock, std::nullopt)),
      complete(other.complete) {}

TempCopy& TempCopy::operator=(TempCopy&& other) noexcept {
  if (this != &other) {
    Remove();
    path = std::exchange(other.path, {});
    lock = std::exchange(other.lock, std::nullopt);
    complete = other.complete;
  }
  return *this;
}

TempCopy::~TempCopy() {
  Remove();
}

void TempCopy::Remove() {
  if (path.empty()) {
    return;
  }
  std::error_code ignored;
  NoteUnchanged();
  std::filesystem::remove(path, ignored);
  lock.reset();
}

TempCopy::Result TempCopy::Write(const AudioClip& clip, const Progress& progress) {
  const WaveFormat& format = clip.format;
  const WriteResult result =
      WriteWave(clip.Bytes(), format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, path, progress);
  complete = result.ok;
  if (result.cancelled) {
    return Result::Cancelled;
  }
  return result.ok ? Result::Written : Result::Failed;
}

TempCopy::Result TempCopy::Update(const AudioClip& clip, const ClipChanges& changes) {
  if (!complete || changes.All()) {
    return Write(clip);
  }
  if (changes.Empty()) {
    return Result::Written;
  }
  std::string reason;
  std::optional<OutputFile> file = OutputFile::OpenExisting(path, reason);
  complete = file && WriteChanges(*file, clip, changes, reason) && file->Close(reason);
  return complete ? Result::Written : Result::Failed;
}

void TempCopy::NoteChanged(const std::string& name) {
  WriteWholeFile(NotePath(path), name);
}

void TempCopy::NoteUnchanged() {
  std::error_code ignored;
  std::filesystem::remove(NotePath(path), ignored);
}

}  // namespace tembrel
