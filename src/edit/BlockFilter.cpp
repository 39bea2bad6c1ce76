#include "edit/BlockFilter.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "analysis/FourierTransform.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr double kScale = 1.0 / kBlockPoints;
constexpr std::size_t kHalf = kBlockPoints / 2;
constexpr std::uint64_t kRumbleEnd = 64;  // hertz

BlockValues TriangularWindow() {
  BlockValues window{};
  for (std::size_t i = 0; i < kHalf; ++i) {
    window.at(i) = static_cast<float>(i) / kHalf;
    window.at(kHalf + i) = 1.0F - static_cast<float>(i) / kHalf;
  }
  return window;
}

// What rounding decides here can be heard, so this is done with the plain transform: whether a bin just fails
// to reach a whole number must not depend on the form of the transform.
void CleanSpectrum(const float* block, const BlockValues& window, BlockValues& filtered) {
  constexpr double kShare = 0.05;
  constexpr std::array<std::size_t, 1> kDims{kBlockPoints};
  std::array<std::complex<double>, kBlockPoints> bins;
  std::copy_n(block, kBlockPoints, bins.begin());
  FourierTransform(bins, kDims, 1);
  const auto [lowest, highest] =
      std::ranges::minmax(bins, {}, [](const std::complex<double>& bin) { return bin.real(); });
  const double threshold = kShare * (highest.real() - lowest.real());
  for (std::complex<double>& bin : bins) {
    if (std::fabs(std::trunc(bin.real())) < threshold) {
      bin.real(bin.real() * 0.5);
    }
  }
  FourierTransform(bins, kDims, -1);
  for (std::size_t i = 0; i < kBlockPoints; ++i) {
    filtered[i] = static_cast<float>(bins[i].real() * kScale) * window[i];
  }
}

TEMBREL_WIDE_LOOPS
void Multiply(double* values, const double* gains) {
  for (std::size_t i = 0; i < kBlockPoints; ++i) {
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      values[i * kLanes + lane] *= gains[i];
    }
  }
}

void LoadLane(const float* block, std::size_t lane, LaneBlocks& lanes) {
  for (std::size_t i = 0; i < kBlockPoints; ++i) {
    lanes.re[i * kLanes + lane] = block[i];
  }
}

void StoreLane(const LaneBlocks& lanes, std::size_t lane, const BlockValues& window, BlockValues& filtered) {
  for (std::size_t i = 0; i < kBlockPoints; ++i) {
    filtered[i] = static_cast<float>(lanes.re[i * kLanes + lane] * kScale) * window[i];
  }
}

}  // namespace

BlockFilter::BlockFilter(FilterMode filterMode, std::uint32_t sampleRate, std::span<const Breakpoint> table)
    : mode(filterMode), window(TriangularWindow()), reGains{}, imGains{} {
  reGains.fill(1.0);
  imGains.fill(1.0);
  if (mode == FilterMode::CutRumble) {
    for (std::size_t bin = 0; bin < kBlockPoints; ++bin) {
      const bool kept = std::uint64_t{sampleRate} * bin / kBlockPoints >= kRumbleEnd &&
                        std::uint64_t{sampleRate} * (kBlockPoints - bin) / kBlockPoints >= kRumbleEnd;
      reGains.at(bin) = kept ? 1.0 : 0.5;
    }
  }
  if (mode == FilterMode::Preset) {
    for (std::size_t bin = 0; bin < kHalf; ++bin) {
      const double gain = BandGainPercent(table, sampleRate, bin) * 0.01;
      reGains.at(bin) = gain;
      reGains.at(kBlockPoints - 1 - bin) = gain;
    }
    reGains.at(kHalf) = 1.0;
    imGains = reGains;
  }
}

void BlockFilter::Filter(std::span<const float* const> blocks,
                         std::array<BlockValues, kLanes>& filtered) const {
  if (mode != FilterMode::CleanSpectrum) {
    FilterByGains(blocks, filtered);
    return;
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    CleanSpectrum(blocks[i], window, filtered.at(i));
  }
}

void BlockFilter::FilterByGains(std::span<const float* const> blocks,
                                std::array<BlockValues, kLanes>& filtered) const {
  LaneBlocks lanes;
  if (blocks.size() < kLanes) {
    lanes.re.fill(0.0);
  }
  lanes.im.fill(0.0);
  for (std::size_t lane = 0; lane < blocks.size(); ++lane) {
    LoadLane(blocks[lane], lane, lanes);
  }
  transform.Forward(lanes);
  Multiply(lanes.re.data(), reGains.data());
  Multiply(lanes.im.data(), imGains.data());
  transform.Inverse(lanes);
  for (std::size_t lane = 0; lane < blocks.size(); ++lane) {
    StoreLane(lanes, lane, window, filtered.at(lane));
  }
}

}  // namespace tembrel
