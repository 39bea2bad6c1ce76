// WAVE sound on its way to the sound server: from a file piece by piece, or from memory.
#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "audio/AudioClip.h"
#include "audio/WaveReader.h"
#include "platform/SoundServer.h"

namespace tembrel {

// How the server is told of sound of this format; nothing when it cannot take it in any way. Samples of more
// than four bytes are played by their upper four.
std::optional<SoundFormat> PlayableFormat(const WaveFormat& format);

// Takes from whole frames of a file what the server gets: samples alone, of at most four bytes. `packed` has
// room for as many frames as there are in `frames`.
void PackFrames(const WaveFormat& format, std::span<const std::byte> frames, std::span<std::byte> packed);

// The first frame that is played when playing starts at `startMs`, the nearest one; within the sound.
std::uint64_t FrameAtMilliseconds(std::int32_t startMs, std::uint32_t rate, std::uint64_t frames);

// Reads the sound where it is asked for, so that an hour takes no memory; the file may be changed, cut short
// or removed meanwhile.
class FileSound {
 public:
  // Null when the file is not one that can be played, with the reason.
  static std::shared_ptr<FileSound> Open(const std::filesystem::path& path, std::string& reason);

  // Open() gives objects; `soundFormat` is PlayableFormat() of the data's.
  FileSound(WaveData data, const SoundFormat& soundFormat);

  const SoundFormat& Format() const { return format; }
  std::uint64_t Frames() const { return wave.frames; }
  // Read() gives these frames next, and then no more; not while it may be running.
  void Limit(std::uint64_t first, std::uint64_t behindLast);
  // Read() ends here, or where it stands by then if that is further on; at any time.
  void EndAt(std::uint64_t frame) { end = frame; }

  // A PullSound: whole frames; fewer than there is room for at the end, or where the file can no longer be
  // read.
  std::size_t Read(std::span<std::byte> target);

 private:
  std::size_t ReadFrames(std::uint64_t most, std::span<std::byte> target);

  WaveData wave;
  SoundFormat format;
  std::uint64_t position = 0;  // frames
  std::atomic<std::uint64_t> end = 0;
  std::vector<std::byte> unpacked;  // room for frames as the file has them, where the server wants others
};

// The whole sound of a clip, once or over and over.
class ClipSound {
 public:
  ClipSound(std::unique_ptr<AudioClip> sound, bool endless);

  // A PullSound.
  std::size_t Read(std::span<std::byte> target);

 private:
  std::unique_ptr<AudioClip> clip;
  bool looping;
  std::uint64_t position = 0;  // frames
};

}  // namespace tembrel
