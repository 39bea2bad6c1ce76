#include "audio/Conversion.h"

#include "gtest/gtest.h"
#include "tests/support/Blocks.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::Samples16;

// What came out, or nothing; checks that a failure leaves the size alone.
std::optional<Bytes> Result(const std::optional<MemoryBlock>& block, std::uint32_t sizeBefore,
                            std::uint32_t size) {
  if (!block) {
    EXPECT_EQ(size, sizeBefore);
    return std::nullopt;
  }
  EXPECT_LE(size, block->Size());
  return test::BytesOfBlock(*block, size);
}

std::optional<Bytes> Bits(const Bytes& input, std::uint32_t from, std::uint32_t to) {
  auto size = static_cast<std::uint32_t>(input.size());
  const std::uint32_t before = size;
  const auto block = ConvertBits(test::BlockOf(input), from, to, size);
  return Result(block, before, size);
}

std::optional<Bytes> Channels(const Bytes& input, std::uint32_t from, std::uint32_t to, std::uint32_t bytes) {
  auto size = static_cast<std::uint32_t>(input.size());
  const std::uint32_t before = size;
  const auto block = ConvertChannels(test::BlockOf(input), from, to, bytes, size);
  return Result(block, before, size);
}

std::optional<Bytes> Data(const Bytes& input, const WaveFormat& format, std::uint32_t rate,
                          std::uint32_t bits, std::uint32_t channels) {
  auto size = static_cast<std::uint32_t>(input.size());
  const std::uint32_t before = size;
  const auto block = ConvertData(rate, bits, channels, format, test::BlockOf(input), size);
  return Result(block, before, size);
}

TEST(ConvertBits, EightBitsBecomeSixteenAroundSilence) {
  EXPECT_EQ(Bits(BytesOf({0, 127, 128, 129, 255}), 8, 16), Samples16({-32768, -256, 0, 256, 32512}));
}

TEST(ConvertBits, SixteenBitsBecomeEightTruncatedTowardZero) {
  EXPECT_EQ(Bits(Samples16({-32768, -257, -256, -255, -1, 0, 255, 256, 32767}), 16, 8),
            BytesOf({0, 127, 127, 128, 128, 128, 128, 129, 255}));
}

TEST(ConvertBits, EveryEightBitSampleSurvivesTheWayThereAndBack) {
  Bytes all;
  for (int i = 0; i < 256; ++i) {
    all.push_back(static_cast<std::byte>(i));
  }
  EXPECT_EQ(Bits(Bits(all, 8, 16).value(), 16, 8), all);
}

TEST(ConvertBits, DropsALastOddByte) {
  EXPECT_EQ(Bits(BytesOf({0, 1, 7}), 16, 8), BytesOf({129}));
  EXPECT_EQ(Bits(BytesOf({7}), 16, 8), Bytes());
  EXPECT_EQ(Bits({}, 16, 8), Bytes());
  EXPECT_EQ(Bits({}, 8, 16), Bytes());
}

TEST(ConvertBits, RefusesOtherBitCounts) {
  for (const std::uint32_t bits : {0U, 1U, 7U, 12U, 24U, 32U, 65535U}) {
    EXPECT_EQ(Bits(BytesOf({1, 2, 3, 4}), bits, 16), std::nullopt) << bits;
    EXPECT_EQ(Bits(BytesOf({1, 2, 3, 4}), 8, bits), std::nullopt) << bits;
  }
}

TEST(ConvertBits, EqualCountsReturnTheSameBlockWhateverTheyAre) {
  for (const std::uint32_t bits : {0U, 8U, 16U, 24U}) {
    MemoryBlock block = test::BlockOf(BytesOf({1, 2, 3}));
    const std::byte* const start = block.Data();
    std::uint32_t size = 3;
    const auto result = ConvertBits(std::move(block), bits, bits, size);
    ASSERT_TRUE(result);
    EXPECT_EQ(result->Data(), start);
    EXPECT_EQ(size, 3U);
  }
}

TEST(ConvertBits, RefusesAResultThatNoClipCouldHold) {
  // A block of the true size would be too much to ask of the machine; the size is refused before the block is
  // read.
  std::optional<MemoryBlock> block = MemoryBlock::Allocate(std::size_t{1} << 20U);
  ASSERT_TRUE(block);
  std::uint32_t size = 0x80000000U;
  EXPECT_FALSE(ConvertBits(std::move(*block), 8, 16, size));
  EXPECT_EQ(size, 0x80000000U);
}

TEST(ConvertChannels, StereoBecomesMonoTruncatedTowardZeroInSixteenBits) {
  EXPECT_EQ(Channels(Samples16({-3, 0, 3, 0, 32767, 32767, -32768, -32768, 1, -2}), 2, 1, 2),
            Samples16({-1, 1, 32767, -32768, 0}));
}

TEST(ConvertChannels, StereoBecomesMonoRoundedDownInEightBits) {
  EXPECT_EQ(Channels(BytesOf({125, 128, 255, 255, 0, 1, 128, 128}), 2, 1, 1), BytesOf({126, 255, 0, 128}));
}

TEST(ConvertChannels, MonoBecomesStereoByWritingEverySampleTwice) {
  EXPECT_EQ(Channels(Samples16({-3, 700}), 1, 2, 2), Samples16({-3, -3, 700, 700}));
  EXPECT_EQ(Channels(BytesOf({5, 200}), 1, 2, 1), BytesOf({5, 5, 200, 200}));
}

TEST(ConvertChannels, DropsAnIncompleteLastFrame) {
  EXPECT_EQ(Channels(BytesOf({2, 0, 4, 0, 9, 9, 9}), 2, 1, 2), Samples16({3}));
  EXPECT_EQ(Channels(BytesOf({9, 9, 9}), 2, 1, 2), Bytes());
  EXPECT_EQ(Channels({}, 1, 2, 2), Bytes());
  EXPECT_EQ(Channels(BytesOf({1, 2, 3}), 1, 2, 2), BytesOf({1, 2, 1, 2}));
}

TEST(ConvertChannels, RefusesCountsThatHaveNoMixing) {
  const Bytes input = test::CountingBytes(24);
  EXPECT_EQ(Channels(input, 3, 2, 2), std::nullopt);
  EXPECT_EQ(Channels(input, 6, 1, 2), std::nullopt);
  EXPECT_EQ(Channels(input, 1, 3, 1), std::nullopt);
  EXPECT_EQ(Channels(input, 0, 2, 2), std::nullopt);
  EXPECT_EQ(Channels(input, 2, 0, 2), std::nullopt);
}

TEST(ConvertChannels, RefusesOtherSampleSizes) {
  EXPECT_EQ(Channels(test::CountingBytes(24), 2, 1, 0), std::nullopt);
  EXPECT_EQ(Channels(test::CountingBytes(24), 2, 1, 3), std::nullopt);
}

TEST(ConvertChannels, EqualCountsReturnTheDataWhateverTheyAre) {
  EXPECT_EQ(Channels(test::CountingBytes(7), 5, 5, 3), test::CountingBytes(7));
}

TEST(ConvertData, OfTheSameFormatReturnsTheSameBlock) {
  MemoryBlock block = test::BlockOf(test::CountingBytes(7));
  const std::byte* const start = block.Data();
  std::uint32_t size = 7;
  const auto result = ConvertData(44100, 16, 2, PcmFormat(44100, 16, 2), std::move(block), size);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->Data(), start);
  EXPECT_EQ(size, 7U);
}

TEST(ConvertData, OfTheSameUnusualFormatReturnsTheData) {
  EXPECT_EQ(Data(test::CountingBytes(18), PcmFormat(96000, 24, 6), 96000, 24, 6), test::CountingBytes(18));
}

TEST(ConvertData, ConvertsBitsThenChannelsThenRate) {
  // 8-bit frames (130, 128) and (132, 132): bits (512, 0) and (1024, 1024), channels 256 and 1024, rate by
  // straight lines.
  EXPECT_EQ(Data(BytesOf({130, 128, 132, 132}), PcmFormat(22050, 8, 2), 44100, 16, 1),
            Samples16({256, 640, 1024, 1024}));
  // Bits before channels: -1 and -255 are both silence in 8 bits; their mean before would be as well, of 511
  // and 1 not.
  EXPECT_EQ(Data(Samples16({511, 1}), PcmFormat(22050, 16, 2), 22050, 8, 1), BytesOf({128}));
}

TEST(ConvertData, FailsWhenAStepFails) {
  const Bytes input = test::CountingBytes(24);
  EXPECT_EQ(Data(input, PcmFormat(44100, 24, 2), 44100, 16, 2), std::nullopt);
  EXPECT_EQ(Data(input, PcmFormat(44100, 16, 3), 44100, 16, 2), std::nullopt);
  EXPECT_EQ(Data(input, PcmFormat(44100, 16, 2), 0, 16, 2), std::nullopt);
  EXPECT_EQ(Data(input, PcmFormat(0, 16, 2), 44100, 16, 2), std::nullopt);
  EXPECT_EQ(Data(input, PcmFormat(44100, 24, 2), 44100, 24, 1), std::nullopt);
  EXPECT_EQ(Data(input, PcmFormat(44100, 16, 0), 22050, 16, 0), std::nullopt);
  EXPECT_EQ(Data(input, PcmFormat(44100, 4, 2), 22050, 4, 2), std::nullopt);
}

TEST(ConvertData, NeverLeavesItsBlocksWhateverTheFormatSays) {
  // Run under the sanitizers: every pair of counts over every small length.
  for (std::uint32_t length = 0; length <= 9; ++length) {
    for (const int bits : {0, 4, 8, 16, 24, 32}) {
      for (const int channels : {0, 1, 2, 3}) {
        for (const std::uint32_t rate : {0U, 1U, 11025U, 44100U, 0xFFFFFFFFU}) {
          for (const std::uint32_t targetBits : {8U, 16U, 24U}) {
            for (const std::uint32_t targetChannels : {1U, 2U, 3U}) {
              std::uint32_t size = length;
              const auto block = ConvertData(
                  22050, targetBits, targetChannels,
                  PcmFormat(rate, static_cast<std::uint16_t>(bits), static_cast<std::uint16_t>(channels)),
                  test::BlockOf(test::CountingBytes(length)), size);
              EXPECT_TRUE(!block || size <= block->Size());
            }
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace tembrel
