// Amplify, Silence, Fade and Compress.
#include <gtest/gtest.h>

#include "edit/LevelEffects.h"
#include "edit/LevelScale.h"
#include "tests/support/EffectSession.h"

namespace tembrel {
namespace {

using test::After;
using test::Bytes;
using test::BytesOf;
using test::Samples16;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
const WaveFormat kMono16 = PcmFormat(44100, 16, 1);
const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

ByteRange All(const Bytes& bytes) {
  return {0, static_cast<std::int64_t>(bytes.size())};
}

Bytes EveryByte() {
  Bytes bytes;
  for (int value = 0; value < 256; ++value) {
    bytes.push_back(static_cast<std::byte>(value));
  }
  return bytes;
}

Bytes EverySample() {
  Bytes samples(131072);
  for (int i = 0; i < 65536; ++i) {
    StoreSample16(samples.data(), static_cast<std::uint64_t>(i), i - 32768);
  }
  return samples;
}

Bytes Amplified(const WaveFormat& format, const Bytes& bytes, int percent) {
  return After(format, bytes, AmplifyEdit(All(bytes), percent));
}

Bytes LiteralAmplified(const WaveFormat& format, const Bytes& bytes, int percent) {
  test::LiteralClip clip{format, bytes};
  test::LiteralEffects(clip).Amplify(0, static_cast<std::int64_t>(bytes.size()), percent);
  return clip.data;
}

TEST(Amplify, By100PercentChangesNothingBelowFullScale) {
  Bytes samples = EverySample();
  samples.erase(samples.begin(), samples.begin() + 2);  // -32768
  EXPECT_EQ(Amplified(kMono16, samples, 100), samples);
  Bytes bytes = EveryByte();
  bytes.erase(bytes.begin());
  bytes.pop_back();
  EXPECT_EQ(Amplified(kMono8, bytes, 100), bytes);
}

TEST(Amplify, By100PercentLowersWhatReachesFullScale) {
  EXPECT_EQ(Amplified(kMono16, Samples16({-32768, 16384, 100}), 100), Samples16({-32767, 16383, 99}));
  EXPECT_EQ(Amplified(kMono8, BytesOf({0, 27, 228}), 100), BytesOf({1, 27, 228}));
  EXPECT_EQ(Amplified(kMono8, BytesOf({255, 27, 228}), 100), BytesOf({254, 27, 228}));
}

TEST(Amplify, By1000PercentStopsAtFullScale) {
  EXPECT_EQ(Amplified(kMono16, Samples16({16384, -16384, 8192, 1}), 1000),
            Samples16({32767, -32767, 16383, 1}));
}

TEST(Amplify, By0PercentLeavesTheTwoCentresOf8Bits) {
  const Bytes silent = Amplified(kMono8, EveryByte(), 0);
  for (std::size_t i = 0; i < 256; ++i) {
    EXPECT_EQ(silent[i], std::byte{static_cast<unsigned char>(i <= 127 ? 127 : 128)});
  }
  EXPECT_EQ(Amplified(kMono16, Samples16({5, -32768, 32767}), 0), Samples16({0, 0, 0}));
}

TEST(Amplify, DoublesAndHalves) {
  EXPECT_EQ(Amplified(kMono16, Samples16({5, -7, 16000}), 200), Samples16({10, -14, 32000}));
  EXPECT_EQ(Amplified(kMono16, Samples16({5, -7, 16000}), 50), Samples16({2, -3, 8000}));
  EXPECT_EQ(Amplified(kMono8, BytesOf({117, 138}), 200), BytesOf({107, 148}));
}

TEST(Amplify, IsTheLiteralFormForEverySampleAndPercentage) {
  Bytes samples = EverySample();
  Bytes bytes = EveryByte();
  for (int percent = 0; percent <= 1000; percent += 1) {
    ASSERT_EQ(Amplified(kMono8, bytes, percent), LiteralAmplified(kMono8, bytes, percent)) << percent;
  }
  for (int percent = 0; percent <= 1000; percent += 37) {
    ASSERT_EQ(Amplified(kMono16, samples, percent), LiteralAmplified(kMono16, samples, percent)) << percent;
  }
  // Peaks that leave other gains.
  for (int peak = 1; peak < 32768; peak = peak * 5 / 3 + 1) {
    const Bytes low = Samples16({peak, -peak / 2, peak / 3, -1, 0});
    for (const int percent : {1, 99, 101, 333, 1000}) {
      ASSERT_EQ(Amplified(kMono16, low, percent), LiteralAmplified(kMono16, low, percent)) << peak;
    }
  }
}

// The scaled samples themselves, with gains that no percentage gives.
TEST(Scale16, IsTheTruncatedExactProductForEverySample) {
  test::Dice dice(3);
  for (int round = 0; round < 60; ++round) {
    const auto gain = static_cast<float>(static_cast<double>(dice.Roll(1, 1000000)) / 150000.0);
    Bytes samples = EverySample();
    Scale16(samples, gain);
    for (int value = -32768; value <= 32767; ++value) {
      const auto expected = static_cast<std::int16_t>(
          static_cast<std::uint16_t>(test::Trunc(static_cast<long double>(gain) * value) & 0xFFFF));
      ASSERT_EQ(Sample16(samples.data(), static_cast<std::uint64_t>(value + 32768)), expected) << gain;
    }
  }
}

TEST(Amplify, RefusesOtherPercentagesAndChangesNothing) {
  for (const int percent : {-1, 1001, 65636}) {
    test::EffectSession session(kMono16, Samples16({1, 2}));
    const EditResult result = session.Run(AmplifyEdit({0, 4}, percent));
    EXPECT_FALSE(result.done);
    EXPECT_NE(result.message, "");
    EXPECT_EQ(session.Content(), Samples16({1, 2}));
    EXPECT_FALSE(session.undo.CanUndo());
  }
}

TEST(Silence, Is127In8BitsAnd0In16) {
  const Bytes bytes = BytesOf({1, 2, 3, 4, 5, 6, 7, 8});
  EXPECT_EQ(After(kMono8, bytes, SilenceEdit({1, 4})), BytesOf({1, 127, 127, 127, 5, 6, 7, 8}));
  EXPECT_EQ(After(PcmFormat(22050, 8, 2), bytes, SilenceEdit({2, 6})),
            BytesOf({1, 2, 127, 127, 127, 127, 7, 8}));
  EXPECT_EQ(After(kMono16, bytes, SilenceEdit({2, 4})), BytesOf({1, 2, 0, 0, 5, 6, 7, 8}));
  EXPECT_EQ(After(kStereo16, bytes, SilenceEdit({4, 8})), BytesOf({1, 2, 3, 4, 0, 0, 0, 0}));
}

TEST(Silence, TakesWholeFramesOfUnevenSelections) {
  const Bytes bytes = BytesOf({1, 2, 3, 4, 5, 6, 7, 8});
  EXPECT_EQ(After(PcmFormat(22050, 8, 2), bytes, SilenceEdit({3, 7})),
            BytesOf({1, 2, 127, 127, 127, 127, 7, 8}));
  EXPECT_EQ(After(kStereo16, bytes, SilenceEdit({1, 7})), BytesOf({0, 0, 0, 0, 5, 6, 7, 8}));
}

TEST(FadeIn, MultipliesTwoOf200SamplesByEachPercentage) {
  const Bytes samples(400, std::byte{0x10});  // 4112
  const Bytes faded = After(kMono16, samples, FadeInEdit({0, 400}));
  for (std::uint64_t i = 0; i < 200; ++i) {
    const std::uint64_t steps = i / 2;
    const auto percent = static_cast<long double>(steps);
    EXPECT_EQ(Sample16(faded.data(), i),
              static_cast<int>(static_cast<long double>(static_cast<float>(percent * 0.01L)) * 4112));
  }
  EXPECT_EQ(Sample16(faded.data(), 0), 0);
  EXPECT_EQ(Sample16(faded.data(), 1), 0);
  EXPECT_EQ(Sample16(faded.data(), 199), 4070);  // 0.99
}

TEST(FadeOut, StartsAt1AndEndsAt1Percent) {
  Bytes samples(400);
  for (std::uint64_t i = 0; i < 200; ++i) {
    StoreSample16(samples.data(), i, 20000);
  }
  const Bytes faded = After(kMono16, samples, FadeOutEdit({0, 400}));
  EXPECT_EQ(Sample16(faded.data(), 0), 20000);
  EXPECT_EQ(Sample16(faded.data(), 1), 20000);
  EXPECT_EQ(Sample16(faded.data(), 199), 199);  // the single 0.01 is a little less than a hundredth
}

TEST(FadeIn, AdvancesBetweenLeftAndRight) {
  Bytes samples(std::size_t{8} * 25);
  for (std::uint64_t i = 0; i < 100; ++i) {
    StoreSample16(samples.data(), i, 10000);
  }
  const Bytes faded = After(kStereo16, samples, FadeInEdit({0, 200}));
  EXPECT_EQ(Sample16(faded.data(), 50), 5000);
  EXPECT_EQ(Sample16(faded.data(), 51), 5099);  // the single 0.51 is a little less
}

TEST(Fade, IsTheLiteralFormOnAllSounds) {
  test::ForEachSound(1777, [](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    for (const ByteRange range :
         {All(bytes), ByteRange{3, 1000}, ByteRange{8, 8 + 7}, ByteRange{4, 4 + 102}}) {
      for (const bool in : {true, false}) {
        test::LiteralClip clip{format, bytes};
        test::LiteralEffects(clip).Fade(range.start, range.end, in);
        ASSERT_EQ(After(format, bytes, in ? FadeInEdit(range) : FadeOutEdit(range)), clip.data) << name;
      }
    }
  });
}

// Every byte at every percentage: a fade over 100 × 256 bytes.
TEST(Fade, IsTheLiteralFormForEveryByteAndPercentage) {
  Bytes bytes;
  for (int i = 0; i < 25600; ++i) {
    bytes.push_back(static_cast<std::byte>(i % 256));
  }
  test::LiteralClip clip{kMono8, bytes};
  test::LiteralEffects(clip).Fade(0, 25600, true);
  EXPECT_EQ(After(kMono8, bytes, FadeInEdit({0, 25600})), clip.data);
}

// Longer than 2^31 / 100 samples: the line stays a line.
TEST(Fade, RisesAllTheWayOverLongSound) {
  const std::int64_t count = 22000000;
  Bytes samples(static_cast<std::size_t>(2 * count), std::byte{0x20});  // 8224
  const Bytes faded = After(kMono16, samples, FadeInEdit({0, 2 * count}));
  EXPECT_EQ(Sample16(faded.data(), static_cast<std::uint64_t>(count - 1)), 8141);
  EXPECT_EQ(Sample16(faded.data(), static_cast<std::uint64_t>(count / 2)), 4112);
  EXPECT_EQ(Sample16(faded.data(), 219999), 0);
  EXPECT_EQ(Sample16(faded.data(), 220000), 82);
}

TEST(Compress, BendsTheCurveAtItsTwoKnees) {
  EXPECT_EQ(After(kMono16,
                  Samples16({0, 1, 2, 327, 328, 24575, 24576, 24577, 32767, -1, -2, -327, -328, -24575,
                             -24577, -32767, -32768}),
                  CompressEdit({0, 34})),
            Samples16({0, 0, 1, 163, 164, 24411, 24411, 24412, 28507, 0, -1, -163, -164, -24411, -24412,
                       -28507, -28507}));
}

TEST(Compress, BendsBytesAroundTheirTwoCentres) {
  EXPECT_EQ(After(kMono8, BytesOf({127, 128, 0, 255, 126, 124, 129, 131}), CompressEdit({0, 8})),
            BytesOf({128, 128, 18, 237, 127, 126, 128, 129}));
}

TEST(Compress, IsTheLiteralFormForEverySample) {
  test::LiteralClip words{kMono16, EverySample()};
  test::LiteralEffects(words).Compress(0, 131072);
  EXPECT_EQ(After(kMono16, EverySample(), CompressEdit({0, 131072})), words.data);
  test::LiteralClip bytes{kMono8, EveryByte()};
  test::LiteralEffects(bytes).Compress(0, 256);
  EXPECT_EQ(After(kMono8, EveryByte(), CompressEdit({0, 256})), bytes.data);
}

TEST(LevelEffects, AreTheLiteralFormsOnPartsOfAllSounds) {
  test::ForEachSound(900, [](const WaveFormat& format, const Bytes& bytes, const std::string& name) {
    const std::int64_t frame = std::int64_t{FrameSize(format)};
    const ByteRange part{100 * frame, 803 * frame};
    test::LiteralClip silent{format, bytes};
    test::LiteralEffects(silent).Silence(part.start, part.end);
    EXPECT_EQ(After(format, bytes, SilenceEdit(part)), silent.data) << name;
    test::LiteralClip loud{format, bytes};
    test::LiteralEffects(loud).Amplify(part.start, part.end, 340);
    EXPECT_EQ(After(format, bytes, AmplifyEdit(part, 340)), loud.data) << name;
    test::LiteralClip compressed{format, bytes};
    test::LiteralEffects(compressed).Compress(part.start, part.end);
    EXPECT_EQ(After(format, bytes, CompressEdit(part)), compressed.data) << name;
  });
}

}  // namespace
}  // namespace tembrel
