#include "audio/WaveFormat.h"

#include <cmath>

namespace tembrel {

std::uint32_t BytesForMilliseconds(std::uint32_t rate, std::uint32_t bits, std::uint32_t channels,
                                   std::uint32_t milliseconds) {
  // The factor has double precision, a little above a thousandth: whole seconds come out whole. The nearest
  // extended number is a little below, and would lose the last byte of every second.
  constexpr long double kThousandth = 0.001;
  constexpr long double kWrap = 4294967296.0L;
  const long double bytes = static_cast<long double>(rate) * BytesPerSample(bits) * channels * milliseconds;
  return static_cast<std::uint32_t>(std::fmod(std::trunc(bytes * kThousandth), kWrap));
}

WaveFormat PcmFormat(std::uint32_t rate, std::uint16_t bits, std::uint16_t channels) {
  WaveFormat format;
  format.wFormatTag = kPcmTag;
  format.nChannels = channels;
  format.nSamplesPerSec = rate;
  format.nAvgBytesPerSec = BytesPerSecond(rate, bits, channels);
  format.nBlockAlign = static_cast<std::uint16_t>(FrameSize(bits, channels));
  format.wBitsPerSample = bits;
  return format;
}

bool IsEditable(const WaveFormat& format) {
  return format.wFormatTag == kPcmTag && (format.wBitsPerSample == 8 || format.wBitsPerSample == 16) &&
         (format.nChannels == 1 || format.nChannels == 2) && HasPackedFrames(format);
}

}  // namespace tembrel
