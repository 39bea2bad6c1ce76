#include "edit/BlockFilter.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>

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

// Four numbers of a block, or the same number of four blocks.
using Four = float __attribute__((vector_size(kLanes * sizeof(float))));

// Rows become columns.
[[gnu::always_inline]] inline void Transpose(std::array<Four, kLanes>& rows) {
  const Four low01 = __builtin_shufflevector(rows[0], rows[1], 0, 4, 1, 5);
  const Four high01 = __builtin_shufflevector(rows[0], rows[1], 2, 6, 3, 7);
  const Four low23 = __builtin_shufflevector(rows[2], rows[3], 0, 4, 1, 5);
  const Four high23 = __builtin_shufflevector(rows[2], rows[3], 2, 6, 3, 7);
  rows[0] = __builtin_shufflevector(low01, low23, 0, 1, 4, 5);
  rows[1] = __builtin_shufflevector(low01, low23, 2, 3, 6, 7);
  rows[2] = __builtin_shufflevector(high01, high23, 0, 1, 4, 5);
  rows[3] = __builtin_shufflevector(high01, high23, 2, 3, 6, 7);
}

// The same number of the blocks stands `step` doubles behind the one before.
TEMBREL_WIDE_LOOPS
void LoadLanes(std::span<const float* const, kLanes> blocks, double* values, std::size_t step) {
  for (std::size_t i = 0; i < kBlockPoints; i += kLanes) {
    std::array<Four, kLanes> rows;
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      std::memcpy(&rows[lane], blocks[lane] + i, sizeof(Four));
    }
    Transpose(rows);
    for (std::size_t row = 0; row < kLanes; ++row) {
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        values[(i + row) * step + lane] = rows[row][lane];
      }
    }
  }
}

// Scaled, rounded, and under the window, which rounds once more.
TEMBREL_WIDE_LOOPS
void StoreLanes(const double* values, std::size_t step, const float* window,
                std::span<BlockValues, kLanes> filtered) {
  for (std::size_t i = 0; i < kBlockPoints; i += kLanes) {
    std::array<Four, kLanes> rows;
    for (std::size_t row = 0; row < kLanes; ++row) {
      for (std::size_t lane = 0; lane < kLanes; ++lane) {
        rows[row][lane] = static_cast<float>(values[(i + row) * step + lane] * kScale) * window[i + row];
      }
    }
    Transpose(rows);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      std::memcpy(&filtered[lane][i], &rows[lane], sizeof(Four));
    }
  }
}

// The blocks, and silence up to `count`.
template <std::size_t count>
std::array<const float*, count> Filled(std::span<const float* const> blocks) {
  static constexpr BlockValues kSilence{};
  std::array<const float*, count> filled{};
  filled.fill(kSilence.data());
  std::ranges::copy(blocks, filled.begin());
  return filled;
}

}  // namespace

BlockFilter::BlockFilter(FilterMode filterMode, std::uint32_t sampleRate, std::span<const Breakpoint> table)
    : mode(filterMode), window(TriangularWindow()), gains{}, evenGains{} {
  gains.re.fill(1.0);
  gains.im.fill(1.0);
  if (mode == FilterMode::CutRumble) {
    for (std::size_t bin = 0; bin < kBlockPoints; ++bin) {
      const bool kept = std::uint64_t{sampleRate} * bin / kBlockPoints >= kRumbleEnd &&
                        std::uint64_t{sampleRate} * (kBlockPoints - bin) / kBlockPoints >= kRumbleEnd;
      gains.re.at(bin) = kept ? 1.0 : 0.5;
    }
  }
  if (mode == FilterMode::Preset) {
    for (std::size_t bin = 0; bin < kHalf; ++bin) {
      const double gain = BandGainPercent(table, sampleRate, bin) * 0.01;
      gains.re.at(bin) = gain;
      gains.re.at(kBlockPoints - 1 - bin) = gain;
    }
    gains.re.at(kHalf) = 1.0;
    gains.im = gains.re;
  }
  for (std::size_t bin = 0; bin < kBlockPoints; ++bin) {
    evenGains.at(bin) = (gains.re.at(bin) + gains.re.at((kBlockPoints - bin) % kBlockPoints)) / 2;
  }
}

void BlockFilter::Filter(std::span<const float* const> blocks, std::span<BlockValues> filtered) const {
  if (mode != FilterMode::CleanSpectrum) {
    FilterByGains(blocks, filtered);
    return;
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    CleanSpectrum(blocks[i], window, filtered[i]);
  }
}

void BlockFilter::FilterByGains(std::span<const float* const> blocks, std::span<BlockValues> filtered) const {
  const std::array<const float*, kLanes> loaded = Filled<kLanes>(blocks);
  LaneValues values;
  LaneBins bins;
  LoadLanes(loaded, values.data(), kLanes);
  transform.Forward(values, bins);
  transform.Inverse(bins, gains, values);
  StoreLanes(values.data(), kLanes, window.data(), filtered.first<kLanes>());
}

void BlockFilter::FilterPairs(std::span<const float* const> blocks, std::span<BlockValues> filtered) const {
  const std::array<const float*, 2 * kLanes> all = Filled<2 * kLanes>(blocks);
  const std::span loaded(all);
  LaneBins values;
  LaneBins bins;
  LoadLanes(loaded.first<kLanes>(), values.data(), 2 * kLanes);
  LoadLanes(loaded.last<kLanes>(), values.data() + kLanes, 2 * kLanes);
  pairTransform.ForwardPairs(values, bins);
  pairTransform.InversePairs(bins, evenGains, values);
  StoreLanes(values.data(), 2 * kLanes, window.data(), filtered.first<kLanes>());
  StoreLanes(values.data() + kLanes, 2 * kLanes, window.data(), filtered.subspan<kLanes, kLanes>());
}

}  // namespace tembrel
