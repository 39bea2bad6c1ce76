// The 16 bytes of a WAVE file's format chunk, and what they must say to be loaded.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "audio/WaveFormat.h"

namespace tembrel {

inline constexpr std::size_t kFormatRecordSize = 16;

// `record` holds at least kFormatRecordSize bytes; any values are taken.
WaveFormat ParseFormatRecord(std::span<const std::byte> record);

// Why sound of this format cannot be loaded, fit to follow "song.wav could not be read: "; empty when it can.
std::string FormatRecordFault(const WaveFormat& format);

}  // namespace tembrel
