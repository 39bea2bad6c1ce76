#include "document/TempCopy.h"

#include <system_error>
#include <utility>

#include "audio/WaveWriter.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

constexpr int kNamesTried = 1000;

}  // namespace

std::filesystem::path NotePath(const std::filesystem::path& tempWave) {
  return std::filesystem::path(tempWave).replace_extension(".txt");
}

std::optional<TempCopy> TempCopy::Create(const ProgramPaths& paths, long long number) {
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
    : path(std::exchange(other.path, {})), lock(std::exchange(other.lock, std::nullopt)) {}

TempCopy& TempCopy::operator=(TempCopy&& other) noexcept {
  if (this != &other) {
    Remove();
    path = std::exchange(other.path, {});
    lock = std::exchange(other.lock, std::nullopt);
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
  if (result.cancelled) {
    return Result::Cancelled;
  }
  return result.ok ? Result::Written : Result::Failed;
}

void TempCopy::NoteChanged(const std::string& name) {
  WriteWholeFile(NotePath(path), name);
}

void TempCopy::NoteUnchanged() {
  std::error_code ignored;
  std::filesystem::remove(NotePath(path), ignored);
}

}  // namespace tembrel
