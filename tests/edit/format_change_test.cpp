// The conversion of a whole clip.
#include <gtest/gtest.h>

#include "edit/FormatChange.h"
#include "tests/support/EffectSession.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::EffectSession;
using test::Samples16;

TEST(FormatChange, HalvesTheRateByMeans) {
  EffectSession session(PcmFormat(44100, 16, 1), Samples16({10, 20, 30, 51, 7, 8}));
  ASSERT_TRUE(session.Run(FormatEdit({22050, 16, 1})).done);
  EXPECT_EQ(session.Content(), Samples16({15, 40, 7}));
  EXPECT_EQ(session.clip.format, PcmFormat(22050, 16, 1));
}

TEST(FormatChange, DoublesTheRateByStraightLines) {
  EffectSession session(PcmFormat(22050, 16, 1), Samples16({0, 10, 20}));
  ASSERT_TRUE(session.Run(FormatEdit({44100, 16, 1})).done);
  EXPECT_EQ(session.Content(), Samples16({0, 5, 10, 15, 20, 20}));
}

TEST(FormatChange, ConvertsTheBits) {
  EffectSession session(PcmFormat(44100, 8, 1), BytesOf({0, 128, 255}));
  ASSERT_TRUE(session.Run(FormatEdit({44100, 16, 1})).done);
  EXPECT_EQ(session.Content(), Samples16({-32768, 0, 32512}));
  ASSERT_TRUE(session.Run(FormatEdit({44100, 8, 1})).done);
  EXPECT_EQ(session.Content(), BytesOf({0, 128, 255}));
}

TEST(FormatChange, MixesToMonoTruncatingTowardZero) {
  EffectSession session(PcmFormat(44100, 16, 2), Samples16({-3, 0, 4, 7}));
  ASSERT_TRUE(session.Run(FormatEdit({44100, 16, 1})).done);
  EXPECT_EQ(session.Content(), Samples16({-1, 5}));
}

// The bits are converted once on their own and once more with the channels.
TEST(FormatChange, ConvertsTheBitsTwiceWhenTheChannelsChangeToo) {
  EffectSession session(PcmFormat(44100, 8, 1), BytesOf({129, 128}));
  ASSERT_TRUE(session.Run(FormatEdit({44100, 16, 2})).done);
  // 256, 0; then their bytes 0, 1, 0, 0 as 8-bit samples, each for both channels.
  EXPECT_EQ(session.Content(), Samples16({-32768, -32768, -32512, -32512, -32768, -32768, -32768, -32768}));
  EXPECT_EQ(session.clip.format, PcmFormat(44100, 16, 2));
}

TEST(FormatChange, StoresTheDerivedFieldsOfTheNewFormat) {
  EffectSession session(PcmFormat(44100, 16, 2), Samples16({1, 2, 3, 4}));
  ASSERT_TRUE(session.Run(FormatEdit({11025, 8, 1})).done);
  EXPECT_EQ(session.clip.format.nAvgBytesPerSec, 11025U);
  EXPECT_EQ(session.clip.format.nBlockAlign, 1U);
}

TEST(FormatChange, ToTheSameFormatIsAStepThatChangesNothing) {
  EffectSession session(PcmFormat(44100, 16, 2), Samples16({1, 2, 3, 4}));
  ASSERT_TRUE(session.Run(FormatEdit({44100, 16, 2})).done);
  EXPECT_EQ(session.Content(), Samples16({1, 2, 3, 4}));
  EXPECT_TRUE(session.undo.CanUndo());
}

TEST(FormatChange, IsUndoneWithItsFormat) {
  EffectSession session(PcmFormat(44100, 16, 2), Samples16({1, 2, 3, 4, 5, 6}));
  ASSERT_TRUE(session.Run(FormatEdit({22050, 8, 1})).done);
  ASSERT_TRUE(session.Undo());
  EXPECT_EQ(session.Content(), Samples16({1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(session.clip.format, PcmFormat(44100, 16, 2));
}

// All pairs of formats, on lengths that end within frames and within the pieces that are converted at a time.
TEST(FormatChange, IsTheLiteralFormBetweenAllFormats) {
  test::Dice dice(21);
  constexpr std::array<std::uint32_t, 5> kRates{8000, 11025, 22050, 44100, 48000};
  for (const std::int64_t size : {0, 1, 2, 3, 4, 7, 9, 40, 16383, 16384, 16385, 16387, 70001}) {
    const Bytes bytes = dice.Noise(size);
    for (const std::uint32_t from : kRates) {
      for (const WaveFormat& old : test::kLayouts) {
        for (const WaveFormat& wanted : test::kLayouts) {
          const std::uint32_t to = kRates.at(static_cast<std::size_t>(dice.Roll(0, 4)));
          const WaveFormat format = PcmFormat(from, old.wBitsPerSample, old.nChannels);
          test::LiteralClip clip{format, bytes};
          test::LiteralEffects(clip).ChangeFormat(to, wanted.wBitsPerSample, wanted.nChannels);
          EffectSession session(format, bytes);
          ASSERT_TRUE(session.Run(FormatEdit({to, wanted.wBitsPerSample, wanted.nChannels})).done);
          ASSERT_EQ(test::LiteralCopy(session.clip), clip)
              << size << " bytes from " << from << " " << old.wBitsPerSample << " " << old.nChannels << " to "
              << to << " " << wanted.wBitsPerSample << " " << wanted.nChannels;
        }
      }
    }
  }
}

TEST(FormatChange, RefusesFormatsThatCannotBe) {
  for (const FormatChoice& wanted :
       {FormatChoice{0, 16, 1}, FormatChoice{44100, 24, 1}, FormatChoice{44100, 0, 1},
        FormatChoice{44100, 16, 0}, FormatChoice{44100, 16, 3}, FormatChoice{4000000000U, 16, 2}}) {
    EffectSession session(PcmFormat(44100, 16, 2), Samples16({1, 2, 3, 4}));
    const EditResult result = session.Run(FormatEdit(wanted));
    EXPECT_FALSE(result.done);
    EXPECT_NE(result.message, "");
    EXPECT_EQ(session.Content(), Samples16({1, 2, 3, 4}));
    EXPECT_FALSE(session.undo.CanUndo());
  }
}

TEST(FormatChange, SaysHowHighTheRateCanBe) {
  for (const auto& [wanted, most] : {std::pair(FormatChoice{4294967295U, 16, 2}, 1073741823U),
                                     std::pair(FormatChoice{1073741824U, 16, 2}, 1073741823U),
                                     std::pair(FormatChoice{4294967295U, 8, 2}, 2147483647U)}) {
    EffectSession session(PcmFormat(1073741823, 16, 2), Samples16({1, 2, 3, 4}));
    EXPECT_EQ(session.Run(FormatEdit(wanted)).message,
              "The rate is too high: in this format it can be at most " + std::to_string(most) + " Hz.");
    EXPECT_TRUE(session.Run(FormatEdit({most, wanted.bits, wanted.channels})).done);
  }
}

TEST(FormatChange, RefusesWhatWouldBecomeTooLarge) {
  EffectSession session(PcmFormat(1, 16, 1), Samples16({1, 2, 3, 4}));
  const EditResult result = session.Run(FormatEdit({2000000000, 16, 1}));
  EXPECT_FALSE(result.done);
  EXPECT_NE(result.message, "");
  EXPECT_EQ(session.clip.format.nSamplesPerSec, 1U);
  EXPECT_FALSE(session.undo.CanUndo());
}

TEST(FormatChange, RefusesWhatTheClipMayNotGrowTo) {
  EffectSession session(PcmFormat(22050, 16, 1), Samples16({1, 2, 3, 4}));
  session.memory.largestClip = 15;
  const EditResult result = session.Run(FormatEdit({44100, 16, 1}));
  EXPECT_FALSE(result.done);
  EXPECT_NE(result.message, "");
  EXPECT_EQ(session.Content(), Samples16({1, 2, 3, 4}));
}

}  // namespace
}  // namespace tembrel
