#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "audio/Samples.h"
#include "edit/SampleFloat.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::Samples16;

// -32768 to 32767 in this order.
Bytes EverySample16() {
  Bytes samples(131072);
  for (std::uint64_t i = 0; i < 65536; ++i) {
    StoreSample16(samples.data(), i, static_cast<std::int64_t>(i) - 32768);
  }
  return samples;
}

TEST(Int16ToFloat, IsTheExtendedProductRoundedForEverySample) {
  const Bytes samples = EverySample16();
  std::vector<float> floats(65536);
  Int16ToFloat(samples, floats, 65536, kMonoChannel);
  for (int value = -32768; value <= 32767; ++value) {
    const auto expected = static_cast<float>(static_cast<long double>(value) * (1.0L / 32767.0L));
    ASSERT_EQ(floats[static_cast<std::uint16_t>(value + 32768)], expected) << value;
  }
}

TEST(FloatToInt16, BringsEverySampleBack) {
  const Bytes samples = EverySample16();
  std::vector<float> floats(65536);
  Bytes back(samples.size());
  Int16ToFloat(samples, floats, 65536, kMonoChannel);
  const std::vector<float> before = floats;
  FloatToInt16(back, floats, 65536, kMonoChannel);
  EXPECT_EQ(back, samples);
  for (std::size_t i = 0; i < floats.size(); ++i) {
    ASSERT_EQ(floats[i], before[i] * 32767.0F);  // the buffer is left scaled
  }
}

TEST(FloatToInt16, TruncatesTowardZeroAndWraps) {
  std::vector<float> floats{1.99F / 32767, -1.99F / 32767,   1.0F,
                            -1.0F,         32768.0F / 32767, 2.0F,
                            1e30F,         -1e30F,           std::numeric_limits<float>::quiet_NaN()};
  Bytes samples(2 * floats.size());
  FloatToInt16(samples, floats, static_cast<std::int64_t>(floats.size()), kMonoChannel);
  EXPECT_EQ(samples, Samples16({1, -1, 32767, -32767, -32768, -2, 0, 0, 0}));
}

TEST(UInt8ToFloat, AndBackKeepEveryByte) {
  Bytes samples;
  for (int value = 0; value < 256; ++value) {
    samples.push_back(static_cast<std::byte>(value));
  }
  std::vector<float> floats(256);
  UInt8ToFloat(samples, floats, 256, kMonoChannel);
  EXPECT_EQ(floats[0], -1.0F);
  EXPECT_EQ(floats[127], -1.0F / 128);
  EXPECT_EQ(floats[128], 0.0F);
  EXPECT_EQ(floats[255], 127.0F / 128);
  Bytes back(256);
  FloatToUInt8(back, floats, 256, kMonoChannel);
  EXPECT_EQ(back, samples);
  EXPECT_EQ(floats[0], -128.0F);
}

TEST(FloatToUInt8, TruncatesAfterAddingTheCentreAndWraps) {
  std::vector<float> floats{-1e-9F, 0.99F / 128, -0.99F / 128, 1.0F, -1.5F, 1e30F};
  Bytes samples(floats.size());
  FloatToUInt8(samples, floats, static_cast<std::int64_t>(floats.size()), kMonoChannel);
  EXPECT_EQ(samples, BytesOf({127, 128, 127, 0, -64, 0}));
}

TEST(Channels, TakeEverySecondSampleOfStereo) {
  const Bytes bytes = BytesOf({128, 129, 130, 131});
  const Bytes words = Samples16({0, 32767, -32767, 0});
  std::vector<float> floats(2);
  UInt8ToFloat(bytes, floats, 2, kLeftChannel);
  EXPECT_EQ(floats, (std::vector{0.0F, 2.0F / 128}));
  UInt8ToFloat(bytes, floats, 2, kRightChannel);
  EXPECT_EQ(floats, (std::vector{1.0F / 128, 3.0F / 128}));
  Int16ToFloat(words, floats, 2, kLeftChannel);
  EXPECT_EQ(floats, (std::vector{0.0F, -1.0F}));
  Int16ToFloat(words, floats, 2, kRightChannel);
  EXPECT_EQ(floats, (std::vector{1.0F, 0.0F}));
  Bytes stored(4);
  floats = {0.5F, -0.5F};
  FloatToUInt8(stored, floats, 2, kRightChannel);
  EXPECT_EQ(stored, BytesOf({0, 192, 0, 64}));
  Bytes storedWords(8);
  floats = {0.5F, -0.5F};
  FloatToInt16(storedWords, floats, 2, kLeftChannel);
  EXPECT_EQ(storedWords, Samples16({16383, 0, -16383, 0}));
}

TEST(Channels, ConvertNothingForOtherSelectorsAndCounts) {
  const Bytes bytes(8);
  Bytes stored(8, std::byte{9});
  std::vector<float> floats(4, 7.0F);
  const std::vector<float> untouched = floats;
  const auto all = [&](std::int64_t count, std::uint32_t channel) {
    UInt8ToFloat(bytes, floats, count, channel);
    Int16ToFloat(bytes, floats, count, channel);
    FloatToUInt8(stored, floats, count, channel);
    FloatToInt16(stored, floats, count, channel);
  };
  all(4, 3);
  all(0, kMonoChannel);
  all(-1, kMonoChannel);
  all(5, kMonoChannel);  // more than the buffer holds
  EXPECT_EQ(floats, untouched);
  EXPECT_EQ(stored, Bytes(8, std::byte{9}));
  std::vector<float> many(100, 7.0F);
  Int16ToFloat(bytes, many, 4, kLeftChannel);  // more than the samples reach
  EXPECT_EQ(many.front(), 7.0F);
}

TEST(SamplesToFloat, GoesByTheBits) {
  const Bytes bytes = BytesOf({255, 127});
  std::vector<float> floats(1);
  SamplesToFloat(PcmFormat(8000, 8, 1), bytes, floats, 1, kMonoChannel);
  EXPECT_EQ(floats[0], 127.0F / 128);
  SamplesToFloat(PcmFormat(8000, 16, 1), bytes, floats, 1, kMonoChannel);
  EXPECT_EQ(floats[0], 1.0F);
  Bytes stored(2);
  FloatToSamples(PcmFormat(8000, 16, 1), stored, floats, 1, kMonoChannel);
  EXPECT_EQ(stored, bytes);
}

TEST(LimitToUnity, DividesByThePeakWhenItIsAbove1) {
  std::vector<float> loud{0.8F, -1.6F, 0.4F};
  LimitToUnity(loud);
  EXPECT_EQ(loud, (std::vector{0.8F / 1.6F, -1.0F, 0.4F / 1.6F}));
  std::vector<float> full{1.0F, -1.0F, 0.3F};
  LimitToUnity(full);
  EXPECT_EQ(full, (std::vector{1.0F, -1.0F, 0.3F}));
  LimitToUnity({});
}

}  // namespace
}  // namespace tembrel
