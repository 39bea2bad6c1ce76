#include "document/TempCopy.h"

#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "audio/WaveWriter.h"
#include "document/CopyPatch.h"
#include "document/TempName.h"
#include "platform/OutputFile.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

bool WriteChanges(OutputFile& file, const AudioClip& clip, const ClipChanges& changes, std::uint32_t oldSize,
                  const Progress& progress, std::string& reason) {
  const std::vector<PatchStep> steps = PlanPatch(changes, oldSize, clip.dataSize);
  std::uint64_t done = 0;
  for (const PatchStep& step : steps) {
    const auto start = static_cast<std::size_t>(step.range.start);
    const auto length = static_cast<std::size_t>(step.range.end - step.range.start);
    const bool written =
        step.kind == PatchStep::Kind::kSizes
            ? WriteWaveSizes(file, clip.dataSize, reason)
            : file.Overwrite(kWaveDataOffset + start, clip.Bytes().subspan(start, length), reason);
    if (!written) {
      return false;
    }
    if (progress) {
      progress(++done, steps.size());
    }
  }
  return !changes.ShiftedFrom() ||
         file.SetLength(kWaveDataOffset + clip.dataSize + clip.dataSize % 2, reason);
}

Progress Unstoppable(const Progress& progress) {
  if (!progress) {
    return {};
  }
  return [&progress](std::uint64_t done, std::uint64_t total) {
    progress(done, total);
    return true;
  };
}

WriteResult WriteWhole(const AudioClip& clip, const std::filesystem::path& path, const Progress& progress) {
  const WaveFormat& format = clip.format;
  return WriteWave(clip.Bytes(), format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, path,
                   progress);
}

}  // namespace

std::filesystem::path NotePath(const std::filesystem::path& tempWave) {
  return std::filesystem::path(tempWave).replace_extension(".txt");
}

std::filesystem::path PartPath(const std::filesystem::path& tempWave) {
  return std::filesystem::path(tempWave).replace_extension(".part");
}

std::optional<TempCopy> TempCopy::Create(const ProgramPaths& paths, long long number) {
  if (paths.tempFolder.empty()) {
    return std::nullopt;
  }
  std::optional<TempName> name = TakeTempName(paths.tempFolder, number);
  return name ? std::optional(TempCopy(std::move(name->path), std::move(name->lock))) : std::nullopt;
}

TempCopy::TempCopy(std::filesystem::path wavePath, FileLock fileLock)
    : path(std::move(wavePath)), lock(std::move(fileLock)) {}

TempCopy::TempCopy(TempCopy&& other) noexcept
    : path(std::exchange(other.path, {})),
      lock(std::exchange(other.lock, std::nullopt)),
      state(std::exchange(other.state, {})) {}

TempCopy& TempCopy::operator=(TempCopy&& other) noexcept {
  if (this != &other) {
    Remove();
    path = std::exchange(other.path, {});
    lock = std::exchange(other.lock, std::nullopt);
    state = std::exchange(other.state, {});
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
  const WriteResult result = WriteWhole(clip, path, progress);
  state.complete = result.ok;
  state.dataSize = clip.dataSize;
  if (result.cancelled) {
    return Result::Cancelled;
  }
  return result.ok ? Result::Written : Result::Failed;
}

// Writes beside the copy and renames over it: what it holds is worth keeping until there is something newer.
TempCopy::Result TempCopy::Replace(const AudioClip& clip, const Progress& progress) {
  const std::filesystem::path part = PartPath(path);
  std::optional<FileLock> partLock = FileLock::TryLock(part);
  std::error_code error;
  state.complete = partLock && WriteWhole(clip, part, progress).ok;
  if (state.complete) {
    std::filesystem::rename(part, path, error);
    state.complete = !error;
  }
  if (!state.complete) {
    if (partLock) {
      std::filesystem::remove(part, error);
    }
    return Result::Failed;
  }
  lock = std::move(partLock);
  state.dataSize = clip.dataSize;
  return Result::Written;
}

TempCopy::Result TempCopy::Update(const AudioClip& clip, const ClipChanges& changes,
                                  const Progress& progress) {
  const Progress telling = Unstoppable(progress);
  if (!state.complete || changes.All()) {
    return state.noted ? Replace(clip, telling) : Write(clip, telling);
  }
  if (changes.Empty()) {
    return Result::Written;
  }
  std::string reason;
  std::optional<OutputFile> file = OutputFile::OpenExisting(path, reason);
  state.complete =
      file && WriteChanges(*file, clip, changes, state.dataSize, telling, reason) && file->Close(reason);
  state.dataSize = clip.dataSize;
  return state.complete ? Result::Written : Result::Failed;
}

void TempCopy::NoteChanged(const std::string& name) {
  state.noted = WriteWholeFile(NotePath(path), name).ok || state.noted;
}

void TempCopy::KeepNote(const std::string& name) {
  std::error_code error;
  state.noted = state.noted && std::filesystem::exists(NotePath(path), error);
  if (!state.noted) {
    NoteChanged(name);
  }
}

void TempCopy::NoteUnchanged() {
  std::error_code ignored;
  std::filesystem::remove(NotePath(path), ignored);
  state.noted = false;
}

}  // namespace tembrel
