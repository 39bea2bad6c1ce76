#include <array>
#include <complex>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <vector>

#include "analysis/FourierTransform.h"
#include "analysis/LaneTransform.h"

namespace tembrel {
namespace {

using Block = std::vector<std::complex<double>>;

std::array<Block, kLanes> Noise() {
  std::mt19937 engine(1);
  std::uniform_real_distribution<double> level(-1.0, 1.0);
  std::array<Block, kLanes> blocks;
  for (Block& block : blocks) {
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      block.emplace_back(level(engine), level(engine));
    }
  }
  return blocks;
}

std::unique_ptr<LaneBlocks> Packed(const std::array<Block, kLanes>& blocks) {
  auto lanes = std::make_unique<LaneBlocks>();
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      lanes->re.at(i * kLanes + lane) = blocks.at(lane)[i].real();
      lanes->im.at(i * kLanes + lane) = blocks.at(lane)[i].imag();
    }
  }
  return lanes;
}

// Far closer than the two are to the transform with the true pi: the twiddles are the same.
TEST(LaneTransform, IsThePlainTransformOfEachBlockUpToRounding) {
  const LaneTransform transform;
  for (const int sign : {1, -1}) {
    std::array<Block, kLanes> blocks = Noise();
    const auto lanes = Packed(blocks);
    (sign == 1 ? transform.Forward(*lanes) : transform.Inverse(*lanes));
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      FourierTransform(blocks.at(lane), std::array<std::size_t, 1>{kBlockPoints}, sign);
      for (std::size_t i = 0; i < kBlockPoints; ++i) {
        ASSERT_NEAR(lanes->re.at(i * kLanes + lane), blocks.at(lane)[i].real(), 2e-13);
        ASSERT_NEAR(lanes->im.at(i * kLanes + lane), blocks.at(lane)[i].imag(), 2e-13);
      }
    }
  }
}

}  // namespace
}  // namespace tembrel
