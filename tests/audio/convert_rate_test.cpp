#include <random>

#include "audio/Conversion.h"
#include "gtest/gtest.h"
#include "tests/support/Blocks.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::Samples16;

std::optional<Bytes> Rate(const Bytes& input, std::uint32_t from, std::uint32_t to, std::uint32_t bytes,
                          std::uint32_t channels) {
  auto size = static_cast<std::uint32_t>(input.size());
  const auto block = ConvertRate(test::BlockOf(input), from, to, bytes, channels, size);
  if (!block) {
    EXPECT_EQ(size, input.size());
    return std::nullopt;
  }
  EXPECT_EQ(size, block->Size());
  return test::BytesOfBlock(*block, size);
}

TEST(ConvertRateUp, DrawsStraightLinesAndRepeatsTheLastFrame) {
  EXPECT_EQ(Rate(Samples16({0, 10, 20}), 22050, 44100, 2, 1), Samples16({0, 5, 10, 15, 20, 20}));
}

TEST(ConvertRateUp, TruncatesTheStepTowardZero) {
  EXPECT_EQ(Rate(Samples16({0, -7, 7}), 11025, 44100, 2, 1),
            Samples16({0, -1, -2, -3, -7, -4, -1, 2, 7, 7, 7, 7}));
  EXPECT_EQ(Rate(BytesOf({10, 3, 6}), 11025, 44100, 1, 1), BytesOf({10, 9, 8, 7, 3, 3, 3, 3, 6, 6, 6, 6}));
}

TEST(ConvertRateUp, HasTheWholeRangeInOneStep) {
  EXPECT_EQ(Rate(Samples16({-32768, 32767}), 22050, 44100, 2, 1), Samples16({-32768, -1, 32767, 32767}));
  EXPECT_EQ(Rate(BytesOf({255, 0}), 22050, 44100, 1, 1), BytesOf({255, 128, 0, 0}));
}

TEST(ConvertRateUp, TreatsEveryChannelByItself) {
  EXPECT_EQ(Rate(Samples16({0, 100, 10, 200}), 22050, 44100, 2, 2),
            Samples16({0, 100, 5, 150, 10, 200, 10, 200}));
  EXPECT_EQ(Rate(BytesOf({0, 100, 10, 200}), 22050, 44100, 1, 2),
            BytesOf({0, 100, 5, 150, 10, 200, 10, 200}));
}

TEST(ConvertRateUp, UsesTheWholePartOfTheRatio) {
  EXPECT_EQ(Rate(Samples16({1, 2, 3}), 22050, 32000, 2, 1), Samples16({1, 2, 3}));
  EXPECT_EQ(Rate(Samples16({0, 10}), 10000, 29999, 2, 1), Samples16({0, 5, 10, 10}));
}

TEST(ConvertRateUp, OfNoFrameOrOneHasNoNeighbourToReachFor) {
  EXPECT_EQ(Rate({}, 22050, 44100, 2, 2), Bytes());
  EXPECT_EQ(Rate(BytesOf({1, 2, 3}), 22050, 44100, 2, 2), Bytes());
  EXPECT_EQ(Rate(Samples16({5, 6}), 11025, 44100, 2, 2), Samples16({5, 6, 5, 6, 5, 6, 5, 6}));
  EXPECT_EQ(Rate(BytesOf({7}), 22050, 44100, 1, 1), BytesOf({7, 7}));
}

TEST(ConvertRateUp, RefusesAResultThatNoClipCouldHold) {
  EXPECT_EQ(Rate(Samples16({1, 2}), 1, 0xFFFFFFFFU, 2, 1), std::nullopt);
  EXPECT_EQ(Rate(test::CountingBytes(4096), 1, 1U << 20U, 1, 1), std::nullopt);
}

TEST(ConvertRateDown, TakesMeansAndCopiesTheLastFrameAsItIs) {
  EXPECT_EQ(Rate(Samples16({10, 20, 30, 40, 50}), 44100, 22050, 2, 1), Samples16({15, 30}));
  EXPECT_EQ(Rate(BytesOf({130, 140, 200, 10, 20}), 44100, 22050, 1, 1), BytesOf({135, 200}));
}

TEST(ConvertRateDown, TruncatesMeansTowardSilence) {
  EXPECT_EQ(Rate(Samples16({-1, -2, 1, 2, 0, 0}), 44100, 22050, 2, 1), Samples16({-1, 1, 0}));
  EXPECT_EQ(Rate(BytesOf({127, 126, 129, 130, 128, 128}), 44100, 22050, 1, 1), BytesOf({127, 129, 128}));
}

TEST(ConvertRateDown, InSixteenBitStereoKeepsTheLastChannelInTheFirstSlotAndSilenceInTheOther) {
  EXPECT_EQ(Rate(Samples16({1, 100, 3, 300, 5, 500, 7, 700}), 44100, 22050, 2, 2),
            Samples16({200, 0, 5, 500}));
}

TEST(ConvertRateDown, InEightBitStereoKeepsBothChannels) {
  EXPECT_EQ(Rate(BytesOf({10, 100, 20, 200, 30, 40, 50, 60}), 44100, 22050, 1, 2),
            BytesOf({15, 150, 30, 40}));
}

TEST(ConvertRateDown, ByFourTakesFourFramesAMean) {
  EXPECT_EQ(Rate(Samples16({4, 8, 12, 16, 99, 1, 1, 1, 1}), 44100, 11025, 2, 1), Samples16({10, 99}));
}

TEST(ConvertRateDown, OfFewerFramesThanTheFactorIsEmpty) {
  EXPECT_EQ(Rate({}, 44100, 22050, 2, 2), Bytes());
  EXPECT_EQ(Rate(Samples16({5}), 44100, 22050, 2, 1), Bytes());
  EXPECT_EQ(Rate(Samples16({5, 6, 7}), 44100, 11025, 2, 1), Bytes());
  EXPECT_EQ(Rate(Samples16({5, 6, 7}), 0xFFFFFFFFU, 1, 2, 1), Bytes());
}

TEST(ConvertRateDown, ToOneFrameCopiesTheFirst) {
  EXPECT_EQ(Rate(Samples16({5, 6, 7}), 44100, 22050, 2, 1), Samples16({5}));
}

TEST(ConvertRate, RefusesZerosAndOtherSampleSizes) {
  const Bytes input = test::CountingBytes(12);
  EXPECT_EQ(Rate(input, 0, 44100, 2, 1), std::nullopt);
  EXPECT_EQ(Rate(input, 44100, 0, 2, 1), std::nullopt);
  EXPECT_EQ(Rate(input, 22050, 44100, 0, 1), std::nullopt);
  EXPECT_EQ(Rate(input, 22050, 44100, 2, 0), std::nullopt);
  EXPECT_EQ(Rate(input, 22050, 44100, 3, 1), std::nullopt);
}

TEST(ConvertRate, EqualRatesReturnTheDataWhateverTheRest) {
  EXPECT_EQ(Rate(test::CountingBytes(5), 0, 0, 3, 0), test::CountingBytes(5));
}

// The rule for one channel of 16-bit sound written out plainly, against random sound.
TEST(ConvertRate, AgreesWithThePlainRuleOnRandomSound) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    const std::size_t frames = random() % 50;
    const auto factor = static_cast<std::uint32_t>(1 + random() % 5);
    Bytes input;
    std::vector<int> samples;
    for (std::size_t i = 0; i < frames; ++i) {
      samples.push_back(static_cast<std::int16_t>(random()));
      test::Append16(input, static_cast<std::uint32_t>(samples.back()) & 0xFFFFU);
    }
    Bytes up;
    for (std::size_t i = 0; i < frames * factor; ++i) {
      const std::size_t at = i / factor;
      const int step = at + 1 < frames ? (samples[at + 1] - samples[at]) / static_cast<int>(factor) : 0;
      test::Append16(up,
                     static_cast<std::uint32_t>(samples[at] + step * static_cast<int>(i % factor)) & 0xFFFFU);
    }
    Bytes down;
    for (std::size_t i = 0; i < frames / factor; ++i) {
      int sum = 0;
      for (std::size_t j = 0; j < factor; ++j) {
        sum += samples[i * factor + j];
      }
      const int value = i + 1 == frames / factor ? samples[i * factor] : sum / static_cast<int>(factor);
      test::Append16(down, static_cast<std::uint32_t>(value) & 0xFFFFU);
    }
    // A factor of 1 with unequal rates comes from a ratio that is no whole number.
    EXPECT_EQ(Rate(input, 1000, 1000 * factor + 1, 2, 1), up);
    EXPECT_EQ(Rate(input, 1000 * factor + 1, 1000, 2, 1), down);
  }
}

}  // namespace
}  // namespace tembrel
