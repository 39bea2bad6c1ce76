#include "analysis/Spectrum.h"

#include <algorithm>
#include <array>

#include "analysis/FourierTransform.h"
#include "audio/Samples.h"

namespace tembrel {

namespace {

// The channel's samples from frame `first` on as real parts, transformed.
SpectrumBins BinsOf(const AudioClip& clip, std::uint32_t first, std::uint32_t channel) {
  const std::uint32_t channels = clip.format.nChannels;
  const std::byte* data = clip.Bytes().data();
  const auto frames =
      static_cast<std::uint32_t>(std::min<std::size_t>(clip.Frames() - first, kSpectrumPoints));
  SpectrumBins bins(kSpectrumPoints);
  for (std::uint32_t i = 0; i < frames; ++i) {
    const std::uint64_t index = (std::uint64_t{first} + i) * channels + channel;
    bins[i] = clip.format.wBitsPerSample == 16 ? Sample16(data, index)
                                               : static_cast<std::int8_t>(Sample8(data, index));
  }
  constexpr std::array kDims{kSpectrumPoints};
  FourierTransform(bins, kDims, +1);
  return bins;
}

}  // namespace

std::optional<Spectrum> ComputeSpectrum(const AudioClip& clip, std::int64_t cursorFrame) {
  if (!IsEditable(clip.format)) {
    return std::nullopt;
  }
  const std::int64_t last = std::int64_t{clip.Frames()} - static_cast<std::int64_t>(kSpectrumPoints);
  const auto first = static_cast<std::uint32_t>(std::max<std::int64_t>(std::min(cursorFrame, last), 0));
  const bool stereo = clip.format.nChannels == 2;
  const bool both = stereo && clip.format.wBitsPerSample == 16;
  Spectrum spectrum;
  spectrum.rate = clip.format.nSamplesPerSec;
  spectrum.bins = BinsOf(clip, first, stereo && !both ? 1 : 0);
  if (both) {
    spectrum.right = BinsOf(clip, first, 1);
  }
  return spectrum;
}

double BinFrequency(std::uint32_t rate, double bin) {
  constexpr double kShareOfABin = 0.00048828125;  // 1 / 2048
  return rate * bin * kShareOfABin;
}

double BinPower(const std::complex<double>& bin) {
  return bin.real() * bin.real() + bin.imag() * bin.imag();
}

}  // namespace tembrel
