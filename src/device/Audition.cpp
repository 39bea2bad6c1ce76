#include "device/Audition.h"

#include <algorithm>
#include <optional>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "audio/WaveWriter.h"
#include "platform/OutputFile.h"

namespace tembrel {

namespace {

constexpr const char* kScratchName = "play.wav";
constexpr const char* kUnplayable = "This sound cannot be played.";

std::span<const std::byte> Stretch(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte) {
  const std::int64_t size = clip.dataSize;
  const std::int64_t from = std::clamp<std::int64_t>(fromByte, 0, size);
  const std::int64_t to = std::clamp<std::int64_t>(toByte, from, size);
  return clip.Bytes().subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
}

std::int64_t Milliseconds(const WaveFormat& format, std::size_t bytes) {
  constexpr std::uint64_t kInASecond = 1000;
  const std::uint64_t bytesASecond = std::uint64_t{format.nSamplesPerSec} * format.nBlockAlign;
  return bytesASecond == 0 ? 0 : static_cast<std::int64_t>(bytes * kInASecond / bytesASecond);
}

// A file that is removed with the object.
class ScratchFile {
 public:
  static std::optional<ScratchFile> CreateNew(const std::filesystem::path& path, std::string& reason) {
    std::optional<OutputFile> output = OutputFile::CreateNew(path, OutputFile::Access::kOwnerOnly, reason);
    return output ? std::optional(ScratchFile(path, *std::move(output))) : std::nullopt;
  }

  ScratchFile(ScratchFile&& other) noexcept
      : path(std::exchange(other.path, {})), output(std::move(other.output)) {}
  ScratchFile& operator=(ScratchFile&&) = delete;
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;
  ~ScratchFile() {
    std::error_code ignored;
    if (!path.empty()) {
      std::filesystem::remove(path, ignored);
    }
  }

  const std::filesystem::path& Path() const { return path; }
  OutputFile& Output() { return output; }

 private:
  ScratchFile(std::filesystem::path filePath, OutputFile file)
      : path(std::move(filePath)), output(std::move(file)) {}

  std::filesystem::path path;
  OutputFile output;
};

// Where the scratch file may stand, the first choice first.
std::vector<std::filesystem::path> Places(const std::filesystem::path& spareFolder) {
  std::vector<std::filesystem::path> places;
  std::error_code error;
  const std::filesystem::path current = std::filesystem::current_path(error);
  // What stands in the Temp folder under this name is left from a run that died.
  const std::filesystem::path spare = spareFolder / kScratchName;
  if (!error && current / kScratchName != spare) {
    places.push_back(current / kScratchName);
  }
  std::filesystem::remove(spare, error);
  places.push_back(spare);
  return places;
}

}  // namespace

Audition::Audition(SoundPlayer& soundPlayer, std::filesystem::path tempFolder)
    : player(soundPlayer), spareFolder(std::move(tempFolder)) {}

AuditionResult Audition::AuditionOnce(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte,
                                      const Progress& progress) {
  return Play(clip, fromByte, toByte, false, progress);
}

AuditionResult Audition::AuditionLoop(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte,
                                      const Progress& progress) {
  return Play(clip, fromByte, toByte, true, progress);
}

void Audition::Stop() {
  player.Stop();
}

AuditionResult Audition::Play(const AudioClip& clip, std::int64_t fromByte, std::int64_t toByte, bool looping,
                              const Progress& progress) {
  const WaveFormat& format = clip.format;
  if (!HasPackedFrames(format)) {
    return {.ok = false, .cancelled = false, .message = kUnplayable};  // the file would hold other sound
  }
  const std::span<const std::byte> stretch = Stretch(clip, fromByte, toByte);
  std::string reason;
  for (const std::filesystem::path& place : Places(spareFolder)) {
    std::optional<ScratchFile> file = ScratchFile::CreateNew(place, reason);
    if (!file) {
      continue;
    }
    const WriteResult written = WriteWaveTo(file->Output(), stretch, format.nSamplesPerSec,
                                            format.wBitsPerSample, format.nChannels, progress);
    if (written.cancelled) {
      return {.ok = false, .cancelled = true, .message = {}};
    }
    reason = written.reason;
    if (written.ok && file->Output().Close(reason)) {
      const bool plays = player.Play(file->Path(), looping);
      return {plays, false, plays ? "" : kUnplayable, Milliseconds(format, stretch.size())};
    }
  }
  return {.ok = false, .cancelled = false, .message = "The sound cannot be played: " + reason + "."};
}

}  // namespace tembrel
