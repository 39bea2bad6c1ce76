#include "analysis/Spectrum.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "analysis/FourierTransform.h"

namespace tembrel {
namespace {

AudioClip ClipOf(const WaveFormat& format, const std::vector<int>& samples) {
  const std::size_t sampleBytes = format.wBitsPerSample / 8U;
  AudioClip clip;
  clip.format = format;
  clip.data = std::move(MemoryBlock::Allocate(samples.size() * sampleBytes).value());
  clip.dataSize = static_cast<std::uint32_t>(samples.size() * sampleBytes);
  for (std::size_t i = 0; i < clip.dataSize; ++i) {
    const auto sample = static_cast<unsigned>(samples[i / sampleBytes]);
    clip.data.Data()[i] = static_cast<std::byte>(sample >> (8 * (i % sampleBytes)) & 0xFFU);
  }
  return clip;
}

SpectrumBins Transformed(const std::vector<double>& values) {
  SpectrumBins bins(kSpectrumPoints);
  std::ranges::copy(values, bins.begin());
  const std::array dims{kSpectrumPoints};
  FourierTransform(bins, dims, +1);
  return bins;
}

TEST(Spectrum, OfASineOf440HertzPeaksInBins20And21) {
  std::vector<int> samples;
  samples.reserve(5000);
  for (int i = 0; i < 5000; ++i) {
    samples.push_back(static_cast<int>(20000 * std::sin(2 * std::numbers::pi * 440 * i / 44100)));
  }
  const Spectrum spectrum = ComputeSpectrum(ClipOf(PcmFormat(44100, 16, 1), samples), 0).value();
  std::vector<std::pair<double, std::size_t>> powers;
  for (std::size_t bin = 0; bin < kSpectrumPoints / 2; ++bin) {
    powers.emplace_back(BinPower(spectrum.bins[bin]), bin);
  }
  std::ranges::sort(powers, std::greater());
  EXPECT_EQ(std::minmax(powers[0].second, powers[1].second), std::minmax<std::size_t>(20, 21));
  EXPECT_TRUE(spectrum.right.empty());
  EXPECT_EQ(spectrum.rate, 44100U);
}

TEST(Spectrum, BinsAreTheRateOver2048Apart) {
  EXPECT_EQ(BinFrequency(44100, 1), 21.533203125);
  EXPECT_EQ(BinFrequency(44100, 20.44), 44100 * 20.44 * 0.00048828125);
  EXPECT_EQ(BinPower({3.0, -4.0}), 25.0);
}

TEST(Spectrum, TakesTheFramesFromTheCursorOnAndTheLastOnesNearTheEnd) {
  std::vector<int> samples;
  std::vector<double> values;
  for (int i = 0; i < 3000; ++i) {
    samples.push_back(i * i % 7001 - 3000);
    values.push_back(samples.back());
  }
  const AudioClip clip = ClipOf(PcmFormat(22050, 16, 1), samples);
  const auto from = [&values](std::ptrdiff_t first) {
    return Transformed({values.begin() + first, values.begin() + first + 2048});
  };
  EXPECT_EQ(ComputeSpectrum(clip, 0)->bins, from(0));
  EXPECT_EQ(ComputeSpectrum(clip, 951)->bins, from(951));
  for (const int cursor : {952, 953, 2000, 3000}) {
    EXPECT_EQ(ComputeSpectrum(clip, cursor)->bins, from(952)) << cursor;
  }
}

TEST(Spectrum, OfSixteenBitStereoHasBothChannels) {
  std::vector<int> samples;
  std::vector<double> left;
  std::vector<double> right;
  for (int i = 0; i < 2048; ++i) {
    left.push_back(i % 100);
    right.push_back(-i % 37);
    samples.push_back(i % 100);
    samples.push_back(-i % 37);
  }
  const Spectrum spectrum = ComputeSpectrum(ClipOf(PcmFormat(44100, 16, 2), samples), 0).value();
  EXPECT_EQ(spectrum.bins, Transformed(left));
  EXPECT_EQ(spectrum.right, Transformed(right));
}

TEST(Spectrum, OfEightBitsTakesSignedBytesAndInStereoTheRightChannelOnly) {
  std::vector<int> mono;
  std::vector<int> stereo;
  std::vector<double> values;
  for (int i = 0; i < 2048; ++i) {
    const int byte = i % 256;
    mono.push_back(byte);
    stereo.push_back(i % 3);
    stereo.push_back(byte);
    values.push_back(byte < 128 ? byte : byte - 256);
  }
  EXPECT_EQ(ComputeSpectrum(ClipOf(PcmFormat(11025, 8, 1), mono), 0)->bins, Transformed(values));
  const Spectrum spectrum = ComputeSpectrum(ClipOf(PcmFormat(11025, 8, 2), stereo), 0).value();
  EXPECT_EQ(spectrum.bins, Transformed(values));
  EXPECT_TRUE(spectrum.right.empty());
}

TEST(Spectrum, OfAShortSoundIsFilledWithZeros) {
  const AudioClip clip = ClipOf(PcmFormat(44100, 16, 1), {1000, -2000, 3000});
  EXPECT_EQ(ComputeSpectrum(clip, 2)->bins, Transformed({1000, -2000, 3000}));
  const AudioClip oneByte = ClipOf(PcmFormat(44100, 8, 2), {5});
  EXPECT_EQ(ComputeSpectrum(oneByte, 0)->bins, Transformed({}));
}

TEST(Spectrum, OfOtherLayoutsIsNotThere) {
  EXPECT_FALSE(ComputeSpectrum(ClipOf(PcmFormat(44100, 24, 1), std::vector<int>(3000)), 0));
  EXPECT_FALSE(ComputeSpectrum(AudioClip(), 0));
}

}  // namespace
}  // namespace tembrel
