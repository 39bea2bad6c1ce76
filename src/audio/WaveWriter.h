// Writes PCM sound as a WAVE file of exactly three parts: RIFF header, 16-byte format record, data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "audio/Progress.h"
#include "platform/ByteOutput.h"

namespace tembrel {

struct WriteResult {
  bool ok = false;
  bool cancelled = false;  // the progress function said so
  std::string reason;      // of a failure: the system's words
};

// The most bytes of sound that a WAVE file can hold: the sizes in it have 32 bits, and count the headers and
// the pad byte of an odd number.
inline constexpr std::uint64_t kMostWaveBytes = 4294967258U;

bool FitsInWaveFile(std::uint64_t dataBytes);

// The file's bytes into any output.
WriteResult WriteWaveTo(ByteOutput& output, std::span<const std::byte> data, std::uint32_t rate,
                        std::uint16_t bits, std::uint16_t channels, const Progress& progress = {});

// Makes a file that WriteWaveTo has begun, and to which sound was appended or from which it was taken since,
// whole again: writes the sizes, and behind `dataBytes` of sound the pad byte that an odd number asks for.
// The file must not be longer.
bool WriteWaveSizes(ByteOutput& output, std::uint32_t dataBytes, std::string& reason);

// Where the sound starts in these files.
inline constexpr std::uint64_t kWaveDataOffset = 44;

// Writes in place, for files that can be made again: an existing file is cut to nothing first, and what was
// written before a failure stays.
WriteResult WriteWave(std::span<const std::byte> data, std::uint32_t rate, std::uint16_t bits,
                      std::uint16_t channels, const std::filesystem::path& path,
                      const Progress& progress = {});

// Writes beside the file and renames over it once the bytes are on the disk (see ReplaceFile): for the user's
// files.
WriteResult SaveWaveFile(std::span<const std::byte> data, std::uint32_t rate, std::uint16_t bits,
                         std::uint16_t channels, const std::filesystem::path& path,
                         const Progress& progress = {});

// WriteWave for those who do not ask how it went: always 1.
int WriteWaveFile(std::span<const std::byte> data, std::uint32_t rate, std::uint16_t bits,
                  std::uint16_t channels, const std::filesystem::path& path);

}  // namespace tembrel
