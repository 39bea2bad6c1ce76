#include "audio/WaveFormat.h"
#include "gtest/gtest.h"

namespace tembrel {
namespace {

TEST(WaveFormat, DerivesTheFieldsThatFollowFromTheOthers) {
  const WaveFormat format = PcmFormat(44100, 16, 2);
  EXPECT_EQ(format.wFormatTag, 1);
  EXPECT_EQ(format.nChannels, 2);
  EXPECT_EQ(format.nSamplesPerSec, 44100U);
  EXPECT_EQ(format.nAvgBytesPerSec, 176400U);
  EXPECT_EQ(format.nBlockAlign, 4);
  EXPECT_EQ(format.wBitsPerSample, 16);
}

TEST(WaveFormat, ASampleTakesTheNextWholeByte) {
  EXPECT_EQ(BytesPerSample(0), 0U);
  EXPECT_EQ(BytesPerSample(1), 1U);
  EXPECT_EQ(BytesPerSample(8), 1U);
  EXPECT_EQ(BytesPerSample(9), 2U);
  EXPECT_EQ(BytesPerSample(12), 2U);
  EXPECT_EQ(BytesPerSample(16), 2U);
  EXPECT_EQ(BytesPerSample(24), 3U);
  EXPECT_EQ(FrameSize(12, 2), 4U);
  EXPECT_EQ(FrameSize(PcmFormat(8000, 24, 6)), 18U);
}

TEST(WaveFormat, BytesPerSecondIsRateTimesFrameSize) {
  EXPECT_EQ(BytesPerSecond(22050, 8, 1), 22050U);
  EXPECT_EQ(BytesPerSecond(44100, 16, 2), 176400U);
  EXPECT_EQ(BytesPerSecond(48000, 24, 6), 864000U);
  EXPECT_EQ(BytesPerSecond(0x80000000U, 16, 1), 0U);  // 32-bit arithmetic
}

TEST(WaveFormat, BytesForMillisecondsAreTruncated) {
  EXPECT_EQ(BytesForMilliseconds(44100, 16, 2, 1), 176U);  // 176.4
  EXPECT_EQ(BytesForMilliseconds(11025, 8, 1, 100), 1102U);
  EXPECT_EQ(BytesForMilliseconds(11025, 8, 1, 999), 11013U);
  EXPECT_EQ(BytesForMilliseconds(44100, 16, 2, 0), 0U);
  EXPECT_EQ(BytesForMilliseconds(0, 16, 2, 1000), 0U);
}

TEST(WaveFormat, BytesForWholeSecondsLoseNothing) {
  for (const std::uint32_t rate : {11025U, 22050U, 44100U, 48000U}) {
    for (const std::uint32_t bits : {8U, 16U}) {
      for (const std::uint32_t channels : {1U, 2U}) {
        for (std::uint32_t seconds = 1; seconds <= 3600; ++seconds) {
          ASSERT_EQ(BytesForMilliseconds(rate, bits, channels, seconds * 1000),
                    BytesPerSecond(rate, bits, channels) * seconds)
              << rate << " " << bits << " " << channels << " " << seconds;
        }
      }
    }
  }
}

TEST(WaveFormat, BytesForMillisecondsOfNonsenseDoNotTrap) {
  EXPECT_EQ(BytesForMilliseconds(0x80000000U, 16, 1, 1000), 0U);
}

TEST(WaveFormat, OnlyPackedEightAndSixteenBitMonoAndStereoCanBeEdited) {
  EXPECT_TRUE(IsEditable(PcmFormat(44100, 8, 1)));
  EXPECT_TRUE(IsEditable(PcmFormat(44100, 8, 2)));
  EXPECT_TRUE(IsEditable(PcmFormat(44100, 16, 1)));
  EXPECT_TRUE(IsEditable(PcmFormat(44100, 16, 2)));
  EXPECT_TRUE(IsEditable(PcmFormat(1, 16, 2)));
  EXPECT_FALSE(IsEditable(PcmFormat(44100, 24, 2)));
  EXPECT_FALSE(IsEditable(PcmFormat(44100, 12, 2)));
  EXPECT_FALSE(IsEditable(PcmFormat(44100, 16, 3)));
  EXPECT_FALSE(IsEditable(PcmFormat(44100, 16, 0)));
  EXPECT_FALSE(IsEditable(WaveFormat()));
  WaveFormat gapped = PcmFormat(44100, 16, 2);
  gapped.nBlockAlign = 8;
  EXPECT_FALSE(IsEditable(gapped));
  WaveFormat compressed = PcmFormat(44100, 16, 2);
  compressed.wFormatTag = 2;
  EXPECT_FALSE(IsEditable(compressed));
}

}  // namespace
}  // namespace tembrel
