#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "analysis/FourierTransform.h"

namespace tembrel {
namespace {

using Complex = std::complex<double>;
using Data = std::vector<Complex>;

constexpr long double kTwoPi = 6.283185307179586476925286766559L;

Data Noise(std::size_t count, unsigned seed) {
  std::mt19937 engine(seed);
  std::uniform_real_distribution<double> level(-1.0, 1.0);
  Data data;
  for (std::size_t i = 0; i < count; ++i) {
    data.emplace_back(level(engine), level(engine));
  }
  return data;
}

std::size_t Transform(Data& data, std::vector<std::size_t> dims, int sign) {
  return FourierTransform(data, dims, sign);
}

// The sum that a transform in two dimensions is, straight from its definition.
Data Sum2(const Data& data, std::size_t rows, std::size_t columns, int sign) {
  Data result(data.size());
  for (std::size_t at = 0; at < data.size(); ++at) {
    std::complex<long double> sum = 0;
    for (std::size_t from = 0; from < data.size(); ++from) {
      const std::size_t ofRows = at / columns * (from / columns);
      const std::size_t ofColumns = at % columns * (from % columns);
      const long double turns = static_cast<long double>(ofRows) / static_cast<long double>(rows) +
                                static_cast<long double>(ofColumns) / static_cast<long double>(columns);
      sum += std::complex<long double>(data[from]) * std::polar(1.0L, sign * kTwoPi * turns);
    }
    result[at] = {static_cast<double>(sum.real()), static_cast<double>(sum.imag())};
  }
  return result;
}

void ExpectNear(const Data& first, const Data& second, double tolerance) {
  ASSERT_EQ(first.size(), second.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    ASSERT_NEAR(first[i].real(), second[i].real(), tolerance) << i;
    ASSERT_NEAR(first[i].imag(), second[i].imag(), tolerance) << i;
  }
}

TEST(FourierTransform, IsTheSumItStandsFor) {
  for (const std::size_t length : {1, 2, 4, 8, 64, 256}) {
    for (const int sign : {1, -1}) {
      Data data = Noise(length, 1);
      const Data expected = Sum2(data, 1, length, sign);
      EXPECT_EQ(Transform(data, {length}, sign), length);
      ExpectNear(data, expected, 1e-8);
    }
  }
}

TEST(FourierTransform, TakesSeveralDimensions) {
  for (const int sign : {1, -1}) {
    Data data = Noise(128, 2);
    const Data expected = Sum2(data, 8, 16, sign);
    EXPECT_EQ(Transform(data, {8, 16}, sign), 128U);
    ExpectNear(data, expected, 1e-8);
  }
  // A dimension of length 1 more or less makes no difference.
  Data flat = Noise(32, 3);
  Data folded = flat;
  EXPECT_EQ(Transform(flat, {32}, 1), 32U);
  EXPECT_EQ(Transform(folded, {1, 32, 1}, 1), 32U);
  EXPECT_EQ(flat, folded);
  Data cube = Noise(64, 4);
  const Data before = cube;
  EXPECT_EQ(Transform(cube, {4, 2, 8}, 1), 64U);
  EXPECT_EQ(Transform(cube, {4, 2, 8}, -1), 64U);
  for (std::size_t i = 0; i < 64; ++i) {
    EXPECT_NEAR(cube[i].real(), before[i].real() * 64, 1e-8);
  }
}

TEST(FourierTransform, ForthAndBackMultipliesBy2048) {
  Data data = Noise(2048, 5);
  const Data before = data;
  EXPECT_EQ(Transform(data, {2048}, 1), 2048U);
  EXPECT_EQ(Transform(data, {2048}, -1), 2048U);
  for (std::size_t i = 0; i < 2048; ++i) {
    ASSERT_NEAR(data[i].real(), before[i].real() * 2048, 1e-6);
    ASSERT_NEAR(data[i].imag(), before[i].imag() * 2048, 1e-6);
  }
}

TEST(FourierTransform, PeaksInBins20And21For440Hertz) {
  Data data;
  for (int i = 0; i < 2048; ++i) {
    data.emplace_back(std::round(20000 * std::sin(static_cast<double>(kTwoPi) * 440 * i / 44100)), 0.0);
  }
  Transform(data, {2048}, 1);
  std::vector<std::size_t> order(1024);
  for (std::size_t i = 0; i < order.size(); ++i) {
    order[i] = i;
  }
  std::ranges::sort(order, std::greater<>(), [&](std::size_t bin) { return std::norm(data[bin]); });
  EXPECT_EQ(std::min(order[0], order[1]), 20U);
  EXPECT_EQ(std::max(order[0], order[1]), 21U);
}

// The circle constant of the transform shows in the last decimals: a quarter turn is not quite one.
TEST(FourierTransform, UsesItsOwnCircleConstant) {
  Data data{{0, 0}, {1, 0}, {0, 0}, {0, 0}};
  Transform(data, {4}, 1);
  const double residue = static_cast<double>(std::cos(3.1415926535979L / 2));
  EXPECT_NEAR(data[1].real(), residue, 1e-17);
  EXPECT_LT(data[1].real(), -4e-12);
  EXPECT_EQ(data[1].imag(), 1.0);
}

TEST(FourierTransform, TakesRoomBehindItsDataAndNoLessThanThat) {
  Data data = Noise(10, 6);
  const Data before = data;
  EXPECT_EQ(Transform(data, {8}, 1), 8U);
  EXPECT_EQ(data[8], before[8]);
  EXPECT_NE(data[0], before[0]);
  data = before;
  EXPECT_EQ(Transform(data, {16}, 1), 0U);
  EXPECT_EQ(Transform(data, {2, 8}, 1), 0U);
  EXPECT_EQ(Transform(data, {std::size_t{1} << 63U, std::size_t{1} << 63U}, 1), 0U);
  EXPECT_EQ(data, before);
}

TEST(FourierTransform, RefusesLengthsThatAreNoPowersOfTwo) {
  Data data = Noise(12, 7);
  const Data before = data;
  for (const std::size_t length : {0, 3, 6, 12}) {
    EXPECT_EQ(Transform(data, {length}, 1), 0U);
    EXPECT_EQ(Transform(data, {2, length}, 1), 0U);
  }
  EXPECT_EQ(data, before);
}

}  // namespace
}  // namespace tembrel
