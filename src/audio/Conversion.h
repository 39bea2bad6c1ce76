// Turns a block of samples of one format into another, in the plain form: for LoadClip with a wanted format,
// and for the tests to hold FormatEdit against, which does the same piece by piece on all processors. Every
// function consumes its block and hands back the result, which is the same block when there was nothing to
// do; nothing is what a failure gives.
#pragma once

#include <cstdint>
#include <optional>

#include "audio/WaveFormat.h"
#include "platform/MemoryBlock.h"

namespace tembrel {

// In all of these `size` is the number of bytes of the block that are sound, at most its length; it is
// updated to that of the result and left alone on failure. A result of 4 GiB or more is a failure, as is a
// divisor of 0.

// Converts from `format` to the target: bits, then channels, then rate.
std::optional<MemoryBlock> ConvertData(std::uint32_t targetRate, std::uint32_t targetBits,
                                       std::uint32_t targetChannels, const WaveFormat& format,
                                       MemoryBlock data, std::uint32_t& size);

// 8 and 16 bits only; a last odd byte of 16-bit sound is dropped.
std::optional<MemoryBlock> ConvertBits(MemoryBlock data, std::uint32_t fromBits, std::uint32_t toBits,
                                       std::uint32_t& size);

// Mono to stereo and back only: between other counts no mixing is defined, so they fail. Bytes per sample 1
// or 2.
std::optional<MemoryBlock> ConvertChannels(MemoryBlock data, std::uint32_t fromChannels,
                                           std::uint32_t toChannels, std::uint32_t bytesPerSample,
                                           std::uint32_t& size);

// Stretches or shrinks by the whole number of times that one rate goes into the other, so only whole ratios
// are exact: 22050 to 32000 Hz changes nothing. Bytes per sample 1 or 2.
std::optional<MemoryBlock> ConvertRate(MemoryBlock data, std::uint32_t fromRate, std::uint32_t toRate,
                                       std::uint32_t bytesPerSample, std::uint32_t channels,
                                       std::uint32_t& size);

}  // namespace tembrel
