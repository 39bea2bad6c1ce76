// Reads WAVE files: the whole sound, or only how long it is.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "audio/AudioClip.h"
#include "audio/Progress.h"
#include "audio/WaveFormat.h"
#include "platform/InputFile.h"

namespace tembrel {

struct LoadResult {
  std::unique_ptr<AudioClip> clip;  // null on failure
  std::string reason;               // on failure, fit to follow "song.wav could not be read: "
  bool cancelled = false;           // the progress function said so; there is no clip and no reason then
};

// Reads integer PCM of any bit and channel count. With `convert` the data, but not the format record, is
// turned into the target format: the record tells where the data came from, not what it now is. Takes no more
// memory than the file has bytes (and, converting, than the result has).
LoadResult LoadClip(const std::filesystem::path& path, std::uint32_t targetRate, std::uint16_t targetBits,
                    std::uint16_t targetChannels, bool convert, const Progress& progress = {});

// The sound of a WAVE file that stays open to be read piece by piece.
struct WaveData {
  InputFile file;
  WaveFormat format;
  std::uint64_t offset = 0;  // where the first frame starts in the file
  std::uint64_t frames = 0;  // whole ones that are there
};

// What LoadClip would read, or as much of it as the file has when it ends early. Nothing on failure, with the
// reason.
std::optional<WaveData> OpenWaveData(const std::filesystem::path& path, std::string& reason);

inline constexpr std::uint32_t kNoDuration = 0xFFFFFFFF;

// The length of the file's sound in hundredths of a second by DurationInHundredths, and in frames, from the
// headers alone: a data chunk that says more than the file holds is believed. kNoDuration, and 0 frames, for
// what LoadClip refuses by its headers.
std::uint32_t ReadWaveInfo(const std::filesystem::path& path, std::uint32_t& frames);

}  // namespace tembrel
