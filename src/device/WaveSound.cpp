#include "device/WaveSound.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace tembrel {

namespace {

constexpr std::uint32_t kMostSampleBytes = 4;
constexpr std::uint32_t kMostRate = 384'000;
constexpr std::uint32_t kMostChannels = 32;
constexpr std::size_t kUnpackedBytes = 65'536;

bool AsTheServerWants(const WaveFormat& format) {
  return HasPackedFrames(format) && BytesPerSample(format.wBitsPerSample) <= kMostSampleBytes;
}

}  // namespace

std::optional<SoundFormat> PlayableFormat(const WaveFormat& format) {
  const std::uint32_t sampleBytes = BytesPerSample(format.wBitsPerSample);
  if (sampleBytes == 0 || format.nChannels == 0 || format.nChannels > kMostChannels ||
      format.nSamplesPerSec == 0 || format.nSamplesPerSec > kMostRate ||
      format.nBlockAlign < FrameSize(format)) {
    return std::nullopt;
  }
  return SoundFormat{format.nSamplesPerSec, std::min(sampleBytes, kMostSampleBytes), format.nChannels};
}

void PackFrames(const WaveFormat& format, std::span<const std::byte> frames, std::span<std::byte> packed) {
  if (AsTheServerWants(format)) {
    std::ranges::copy(frames, packed.begin());
    return;
  }
  const std::size_t sampleBytes = BytesPerSample(format.wBitsPerSample);
  const std::size_t kept = std::min<std::size_t>(sampleBytes, kMostSampleBytes);
  std::byte* to = packed.data();
  for (std::size_t frame = 0; frame + format.nBlockAlign <= frames.size(); frame += format.nBlockAlign) {
    for (std::size_t channel = 0; channel < format.nChannels; ++channel) {
      const std::size_t sampleEnd = frame + (channel + 1) * sampleBytes;
      std::memcpy(to, frames.data() + sampleEnd - kept, kept);
      to += kept;
    }
  }
}

std::uint64_t FrameAtMilliseconds(std::int32_t startMs, std::uint32_t rate, std::uint64_t frames) {
  const auto milliseconds = static_cast<std::uint64_t>(std::max(startMs, 0));
  return std::min((milliseconds * rate + 500) / 1000, frames);
}

std::shared_ptr<FileSound> FileSound::Open(const std::filesystem::path& path, std::string& reason) {
  std::optional<WaveData> data = OpenWaveData(path, reason);
  if (!data) {
    return nullptr;
  }
  const std::optional<SoundFormat> format = PlayableFormat(data->format);
  if (!format) {
    reason = "sound of its format cannot be played";
    return nullptr;
  }
  return std::make_shared<FileSound>(std::move(*data), *format);
}

FileSound::FileSound(WaveData data, const SoundFormat& soundFormat)
    : wave(std::move(data)), format(soundFormat), end(wave.frames) {
  if (!AsTheServerWants(wave.format)) {
    const std::size_t frameBytes = wave.format.nBlockAlign;
    unpacked.resize(std::max(kUnpackedBytes / frameBytes, std::size_t{1}) * frameBytes);
  }
}

void FileSound::Limit(std::uint64_t first, std::uint64_t behindLast) {
  position = std::min(first, wave.frames);
  end = std::min(behindLast, wave.frames);
}

// Reads from the position on; returns the frames that there were.
std::size_t FileSound::ReadFrames(std::uint64_t most, std::span<std::byte> target) {
  const std::size_t align = wave.format.nBlockAlign;
  std::uint64_t frames = std::min<std::uint64_t>(target.size() / format.FrameBytes(), most);
  if (!unpacked.empty()) {
    frames = std::min<std::uint64_t>(frames, unpacked.size() / align);
  }
  const std::span<std::byte> room = unpacked.empty() ? target : std::span(unpacked);
  const std::span<std::byte> place = room.first(static_cast<std::size_t>(frames) * align);
  std::string ignored;
  const std::size_t got = wave.file.ReadAt(wave.offset + position * align, place, ignored) / align;
  if (!unpacked.empty()) {
    PackFrames(wave.format, place.first(got * align), target);
  }
  return got;
}

std::size_t FileSound::Read(std::span<std::byte> target) {
  const std::uint64_t stop = end;
  std::size_t done = 0;
  while (position < stop) {
    const std::size_t frames = ReadFrames(stop - position, target.subspan(done));
    if (frames == 0) {
      break;
    }
    position += frames;
    done += frames * format.FrameBytes();
  }
  return done;
}

ClipSound::ClipSound(std::unique_ptr<AudioClip> sound, bool endless)
    : clip(std::move(sound)), looping(endless && clip->Frames() > 0) {}

std::size_t ClipSound::Read(std::span<std::byte> target) {
  const std::optional<SoundFormat> format = PlayableFormat(clip->format);
  const std::size_t frameBytes = format ? format->FrameBytes() : 1;
  const std::uint64_t align = clip->format.nBlockAlign;
  std::size_t done = 0;
  while (format && target.size() - done >= frameBytes) {
    if (position == clip->Frames()) {
      if (!looping) {
        break;
      }
      position = 0;
    }
    const std::uint64_t frames =
        std::min<std::uint64_t>((target.size() - done) / frameBytes, clip->Frames() - position);
    PackFrames(clip->format,
               clip->Bytes().subspan(static_cast<std::size_t>(position * align),
                                     static_cast<std::size_t>(frames * align)),
               target.subspan(done));
    position += frames;
    done += static_cast<std::size_t>(frames) * frameBytes;
  }
  return done;
}

}  // namespace tembrel
