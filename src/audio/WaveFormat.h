// The PCM format record of a WAVE file, and the quantities that follow from it.
#pragma once

#include <cstdint>

namespace tembrel {

inline constexpr std::uint16_t kPcmTag = 1;

// Field for field the 16-byte body of a "fmt " chunk.
struct WaveFormat {
  std::uint16_t wFormatTag = 0;       // kPcmTag; files with another tag are not loaded
  std::uint16_t nChannels = 0;        // 1 or 2 for sound that can be edited
  std::uint32_t nSamplesPerSec = 0;   // hertz
  std::uint32_t nAvgBytesPerSec = 0;  // bytes
  std::uint16_t nBlockAlign = 0;      // bytes per frame
  std::uint16_t wBitsPerSample = 0;   // 8 (unsigned, silence 128) or 16 (signed) for sound that can be edited

  bool operator==(const WaveFormat&) const = default;
};

// Bytes that hold one sample of `bits` bits: bits / 8, rounded up.
constexpr std::uint32_t BytesPerSample(std::uint32_t bits) {
  return (bits + 7) / 8;
}

// Bytes per frame as computed from bits and channels; equals nBlockAlign in files this program writes.
constexpr std::uint32_t FrameSize(std::uint32_t bits, std::uint32_t channels) {
  return BytesPerSample(bits) * channels;
}
constexpr std::uint32_t FrameSize(const WaveFormat& format) {
  return FrameSize(format.wBitsPerSample, format.nChannels);
}

// rate × bytes per sample × channels, in 32-bit unsigned arithmetic.
constexpr std::uint32_t BytesPerSecond(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels) {
  return rate * BytesPerSample(bits) * channels;
}

// rate × bytes per sample × channels × milliseconds × 0.001 in extended precision, truncated toward zero.
// Waits for effects that are told in milliseconds.
std::uint32_t BytesForMilliseconds(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels,
                                   std::uint32_t milliseconds);

// The record of PCM sound with these values, the two derived fields computed.
WaveFormat PcmFormat(std::uint32_t rate, std::uint16_t bits, std::uint16_t channels);

// True when a frame is its samples and nothing else. WAVE files are written in this way only; a file that is
// read may leave bytes unused in every frame.
constexpr bool HasPackedFrames(const WaveFormat& format) {
  return format.nBlockAlign == FrameSize(format);
}

// True for the four layouts the program edits: 8 or 16 bits, mono or stereo, frames packed without gaps.
bool IsEditable(const WaveFormat& format);

}  // namespace tembrel
