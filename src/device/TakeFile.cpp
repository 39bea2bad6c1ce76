#include "device/TakeFile.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "audio/WaveWriter.h"
#include "document/TempCopy.h"
#include "document/TempName.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

namespace {

namespace fs = std::filesystem;

std::string Words(std::errc error) {
  return std::make_error_code(error).message();
}

}  // namespace

std::optional<TakeFile> TakeFile::Create(const fs::path& tempFolder, const FormatChoice& soundFormat,
                                         std::string& reason) {
  std::error_code error;
  if (!fs::is_directory(tempFolder, error)) {
    reason = Words(std::errc::no_such_file_or_directory);
    return std::nullopt;
  }
  std::optional<TempName> name = TakeTempName(tempFolder, 1);
  if (!name) {
    reason = Words(std::errc::permission_denied);
    return std::nullopt;
  }
  std::optional<OutputFile> output = OutputFile::Create(name->path, reason);
  if (output && WriteWaveTo(*output, {}, soundFormat.rate, soundFormat.bits, soundFormat.channels).ok) {
    return TakeFile(std::move(name->path), std::move(name->lock), std::move(*output), soundFormat);
  }
  fs::remove(name->path, error);
  reason = reason.empty() ? Words(std::errc::no_space_on_device) : reason;
  return std::nullopt;
}

TakeFile::TakeFile(fs::path wavePath, FileLock fileLock, OutputFile output, const FormatChoice& soundFormat)
    : path(std::move(wavePath)), lock(std::move(fileLock)), file(std::move(output)), format(soundFormat) {}

bool TakeFile::Append(std::span<const std::byte> frames, std::string& reason) {
  if (!file.Write(frames, reason)) {
    CutToFrames();
    return false;
  }
  soundBytes += frames.size();
  return true;
}

// After a failed write: keeps what of it is in the file, in whole frames and an even number of bytes, for
// which no pad byte must be found room.
void TakeFile::CutToFrames() {
  std::error_code error;
  const std::uint64_t length = fs::file_size(path, error);
  if (error || length < kWaveDataOffset) {
    return;
  }
  const std::uint64_t frame = std::uint64_t{format.bits} / 8 * format.channels;
  const std::uint64_t unit = std::max<std::uint64_t>(frame, 2);
  const std::uint64_t kept = (length - kWaveDataOffset) / unit * unit;
  std::string ignored;
  if (file.SetLength(kWaveDataOffset + kept, ignored)) {
    soundBytes = kept;
  }
}

bool TakeFile::Settle(std::string& reason) {
  if (!file.Flush(reason) || !WriteWaveSizes(file, static_cast<std::uint32_t>(soundBytes), reason)) {
    return false;
  }
  // Not before there is any sound: nobody wants to recover silence of no length.
  noted = noted || (soundBytes > 0 && WriteWholeFile(NotePath(path), {}).ok);
  return true;
}

bool TakeFile::MoveTo(const fs::path& target, const MoveProgress& progress, std::string& reason) {
  const ReplaceResult moved = MoveFile(path, target, progress);
  reason = moved.reason;
  if (moved.ok) {
    std::error_code ignored;
    fs::remove(NotePath(path), ignored);
    lock.reset();
  }
  return moved.ok;
}

void TakeFile::Remove() {
  std::error_code ignored;
  fs::remove(NotePath(path), ignored);
  fs::remove(path, ignored);
  lock.reset();
}

}  // namespace tembrel
