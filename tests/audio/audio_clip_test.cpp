#include <limits>

#include "audio/AudioClip.h"
#include "gtest/gtest.h"
#include "tests/support/Blocks.h"

namespace tembrel {
namespace {

std::unique_ptr<AudioClip> ClipOf(std::span<const std::byte> bytes, const WaveFormat& format) {
  auto clip = std::make_unique<AudioClip>();
  clip->format = format;
  clip->data = test::BlockOf(bytes);
  clip->dataSize = static_cast<std::uint32_t>(bytes.size());
  return clip;
}

TEST(AudioClip, StartsEmpty) {
  const AudioClip clip;
  EXPECT_EQ(clip.dataSize, 0U);
  EXPECT_EQ(clip.Frames(), 0U);
  EXPECT_TRUE(clip.Bytes().empty());
  EXPECT_EQ(clip.format, WaveFormat());
}

TEST(AudioClip, CountsWholeFrames) {
  const auto clip = ClipOf(test::CountingBytes(11), PcmFormat(44100, 16, 2));
  EXPECT_EQ(clip->Frames(), 2U);
  clip->format.nBlockAlign = 0;
  EXPECT_EQ(clip->Frames(), 0U);
}

TEST(AudioClip, ACopySharesNothing) {
  const auto clip = ClipOf(test::CountingBytes(8), PcmFormat(22050, 16, 2));
  const std::unique_ptr<AudioClip> copy = clip->Copy();
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->format, clip->format);
  EXPECT_EQ(copy->dataSize, 8U);
  EXPECT_NE(copy->data.Data(), clip->data.Data());
  EXPECT_EQ(test::BytesOfBlock(copy->data, 8), test::CountingBytes(8));
  clip->data.Data()[0] = std::byte{99};
  EXPECT_EQ(test::BytesOfBlock(copy->data, 8), test::CountingBytes(8));
}

TEST(AudioClip, ACopyOfAnEmptyClipIsEmpty) {
  const AudioClip clip;
  const std::unique_ptr<AudioClip> copy = clip.Copy();
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->dataSize, 0U);
}

TEST(AudioClip, ACopyTakesOnlyTheBytesThatAreSound) {
  const auto clip = ClipOf(test::CountingBytes(8), PcmFormat(22050, 16, 2));
  clip->dataSize = 4;
  const std::unique_ptr<AudioClip> copy = clip->Copy();
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->data.Size(), 4U);
}

TEST(AudioClip, FreeingLeavesANullPointerAndReportsWhetherThereWasAClip) {
  auto clip = ClipOf(test::CountingBytes(8), PcmFormat(22050, 16, 2));
  EXPECT_EQ(FreeClip(clip), 0);
  EXPECT_EQ(clip, nullptr);
  EXPECT_EQ(FreeClip(clip), 5);
  EXPECT_EQ(clip, nullptr);
}

TEST(Duration, IsTruncatedAtEachDivision) {
  EXPECT_EQ(DurationInHundredths(176400, 4, 44100), 100U);
  EXPECT_EQ(DurationInHundredths(176399, 4, 44100), 99U);
  EXPECT_EQ(DurationInHundredths(7, 4, 1), 175U);
  EXPECT_EQ(DurationInHundredths(0, 4, 44100), 0U);
}

TEST(Duration, WrapsFromTheFirstSizeWhoseHundredfoldPasses32Bits) {
  EXPECT_EQ(DurationInHundredths(42949672, 1, 1), 4294967200U);
  EXPECT_EQ(DurationInHundredths(42949673, 1, 1), 4U);
  EXPECT_EQ(DurationInHundredths(635040000, 4, 44100), 635040000U * 100U / 4U / 44100U);
  EXPECT_NE(DurationInHundredths(635040000, 4, 44100), 360000U);
}

TEST(Duration, OfAZeroDivisorIsZero) {
  EXPECT_EQ(DurationInHundredths(100, 0, 44100), 0U);
  EXPECT_EQ(DurationInHundredths(100, 4, 0), 0U);
}

}  // namespace
}  // namespace tembrel
