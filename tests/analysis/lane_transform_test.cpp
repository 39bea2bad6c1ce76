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

std::array<Block, kLanes> Noise(unsigned seed = 1) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> level(-1.0, 1.0);
  std::array<Block, kLanes> blocks;
  for (Block& block : blocks) {
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      block.emplace_back(level(engine), 0.0);
    }
  }
  return blocks;
}

void TransformPlainly(Block& block, int sign) {
  FourierTransform(block, std::array<std::size_t, 1>{kBlockPoints}, sign);
}

// Far closer than the two are to the transform with the true pi: the twiddles are the same.
TEST(LaneTransform, IsThePlainTransformOfEachBlockUpToRounding) {
  const LaneTransform transform;
  std::array<Block, kLanes> blocks = Noise();
  const auto values = std::make_unique<LaneValues>();
  const auto bins = std::make_unique<LaneBins>();
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      values->at(i * kLanes + lane) = blocks.at(lane)[i].real();
    }
    TransformPlainly(blocks.at(lane), 1);
  }
  transform.Forward(*values, *bins);
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      ASSERT_NEAR(bins->at(2 * i * kLanes + lane), blocks.at(lane)[i].real(), 2e-13);
      ASSERT_NEAR(bins->at((2 * i + 1) * kLanes + lane), blocks.at(lane)[i].imag(), 2e-13);
    }
  }
}

TEST(LaneTransform, MultipliesByTheGainsOnTheWayBack) {
  const LaneTransform transform;
  std::array<Block, kLanes> blocks = Noise();
  const auto values = std::make_unique<LaneValues>();
  const auto bins = std::make_unique<LaneBins>();
  BinGains gains;
  for (std::size_t i = 0; i < kBlockPoints; ++i) {
    gains.re.at(i) = static_cast<double>(i % 7) / 4;
    gains.im.at(i) = static_cast<double>(i % 5) / 4;
  }
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    TransformPlainly(blocks.at(lane), 1);
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      std::complex<double>& bin = blocks.at(lane)[i];
      bins->at(2 * i * kLanes + lane) = bin.real();
      bins->at((2 * i + 1) * kLanes + lane) = bin.imag();
      bin = {bin.real() * gains.re.at(i), bin.imag() * gains.im.at(i)};
    }
    TransformPlainly(blocks.at(lane), -1);
  }
  transform.Inverse(*bins, gains, *values);
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      ASSERT_NEAR(values->at(i * kLanes + lane), blocks.at(lane)[i].real(), 1e-11);
    }
  }
}

// One block of every pair far louder than the other.
TEST(LaneTransform, KeepsPairsOfBlocksApart) {
  const LaneTransform transform(Turns::True);
  const std::array<Block, kLanes> loud = Noise(1);
  const std::array<Block, kLanes> quiet = Noise(2);
  constexpr double kQuiet = 1e-5;
  EvenGains gains;
  for (std::size_t i = 0; i <= kBlockPoints / 2; ++i) {
    gains.at(i) = gains.at((kBlockPoints - i) % kBlockPoints) = static_cast<double>(i % 7) / 4;
  }
  const auto filter = [&](double loudness) {
    auto values = std::make_unique<LaneBins>();
    const auto bins = std::make_unique<LaneBins>();
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      for (std::size_t i = 0; i < kBlockPoints; ++i) {
        values->at(2 * i * kLanes + lane) = loud.at(lane)[i].real() * loudness;
        values->at((2 * i + 1) * kLanes + lane) = quiet.at(lane)[i].real() * kQuiet;
      }
    }
    transform.ForwardPairs(*values, *bins);
    transform.InversePairs(*bins, gains, *values);
    return values;
  };
  const auto both = filter(1);
  const auto alone = filter(0);
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    Block expected = loud.at(lane);
    TransformPlainly(expected, 1);
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      expected[i] *= gains.at(i);
    }
    TransformPlainly(expected, -1);
    for (std::size_t i = 0; i < kBlockPoints; ++i) {
      ASSERT_NEAR(both->at(2 * i * kLanes + lane), expected[i].real(), 1e-7);  // the plain form's own turns
      ASSERT_NEAR(both->at((2 * i + 1) * kLanes + lane), alone->at((2 * i + 1) * kLanes + lane), 1e-11);
    }
  }
}

}  // namespace
}  // namespace tembrel
