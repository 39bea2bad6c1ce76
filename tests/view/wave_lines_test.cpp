#include <gtest/gtest.h>

#include "tests/view/TestClips.h"
#include "view/WaveLines.h"

namespace tembrel {
namespace {

using Lines = std::vector<Line>;

TEST(WaveLines, SparseSamplesAreJoined) {
  // 220 high: 220 × 10 / 11 / 2 = 100 rows up and down of row 110.
  const AudioClip clip = ClipOfSamples(1, {0, 32767, -32767, 0});
  EXPECT_EQ(WaveLines(clip, {40, 220}, 0, 4),
            (Lines{{0, 110, 10, 10}, {10, 10, 20, 210}, {20, 210, 30, 110}}));
}

TEST(WaveLines, SparseSamplesOfOneColumnAreDrawnOnlyWhenTheyWidenIt) {
  // Two samples a column: the second of a column that repeats the first draws nothing.
  const AudioClip clip = ClipOfSamples(1, {0, 0, 0, 32767});
  EXPECT_EQ(WaveLines(clip, {2, 220}, 0, 4), (Lines{{0, 110, 1, 110}, {1, 110, 1, 10}}));
}

TEST(WaveLines, DenseColumnsRunFromTheirTopToTheirBottom) {
  const AudioClip clip = ClipOfSamples(1, {0, 32767, 0, -32767, 0, 0});
  EXPECT_EQ(WaveLines(clip, {2, 220}, 0, 6), (Lines{{0, 10, 0, 110}, {1, 110, 1, 210}}));
}

TEST(WaveLines, DenseColumnsOfOneLevelStepToTheNext) {
  const AudioClip clip = ClipOfSamples(1, std::vector<int>(9, 0));
  EXPECT_EQ(WaveLines(clip, {3, 220}, 0, 9), (Lines{{0, 110, 1, 110}, {1, 110, 2, 110}, {2, 110, 2, 110}}));
}

TEST(WaveLines, EightBitLevels127And128LieOnTheCentreLine) {
  const AudioClip clip = ClipOfBytes(8, 1, {127, 128, 126, 129, 0, 255});
  // 1408 × 10 / 11 / 2 = 640 rows for 128 levels.
  EXPECT_EQ(WaveLines(clip, {60, 1408}, 0, 6), (Lines{{0, 704, 10, 704},
                                                      {10, 704, 20, 709},
                                                      {20, 709, 30, 699},
                                                      {30, 699, 40, 1339},
                                                      {40, 1339, 50, 69}}));
}

TEST(WaveLines, PositiveSamplesLieAboveTheCentreInEveryLayout) {
  const int height = 232;  // 232 - 12 = 220 for two channels of 50 rows up and down
  EXPECT_EQ(WaveLines(ClipOfBytes(8, 1, {255, 255}), {2, height}, 0, 2), (Lines{{0, 12, 1, 12}}));
  EXPECT_EQ(WaveLines(ClipOfSamples(1, {32767, 32767}), {2, height}, 0, 2), (Lines{{0, 11, 1, 11}}));
  EXPECT_EQ(WaveLines(ClipOfBytes(8, 2, {255, 0, 255, 0}), {2, height}, 0, 2),
            (Lines{{0, 9, 1, 9}, {0, 223, 1, 223}}));
  EXPECT_EQ(WaveLines(ClipOfSamples(2, {32767, -32767, 32767, -32767}), {2, height}, 0, 2),
            (Lines{{0, 8, 1, 8}, {0, 224, 1, 224}}));
}

TEST(WaveLines, QuotientsAreTruncatedTowardZeroOnBothSides) {
  const AudioClip clip = ClipOfSamples(1, {100, -100, 400, -400});
  EXPECT_EQ(WaveLines(clip, {4, 220}, 0, 4), (Lines{{0, 110, 1, 110}, {1, 110, 2, 109}, {2, 109, 3, 111}}));
}

TEST(WaveLines, LowestSampleOfSixteenBitsIsDrawn) {
  const AudioClip clip = ClipOfSamples(1, {-32768, -32768});
  EXPECT_EQ(WaveLines(clip, {2, 220}, 0, 2), (Lines{{0, 210, 1, 210}}));
}

TEST(WaveLines, BothChannelsOfAFrameStandInItsColumn) {
  const AudioClip clip = ClipOfSamples(2, {0, 0, 0, 0, 0, 0});
  EXPECT_EQ(WaveLines(clip, {30, 232}, 0, 3),
            (Lines{{0, 58, 10, 58}, {10, 58, 20, 58}, {0, 174, 10, 174}, {10, 174, 20, 174}}));
}

TEST(WaveLines, ViewWiderThanTheSoundEndsWhereTheSoundEnds) {
  const AudioClip clip = ClipOfSamples(1, {0, 0, 0, 0});
  EXPECT_EQ(WaveLines(clip, {40, 220}, 0, 8),
            (Lines{{0, 110, 5, 110}, {5, 110, 10, 110}, {10, 110, 15, 110}}));
}

TEST(WaveLines, SamplesInViewCountAllChannels) {
  const AudioClip mono = ClipOfSamples(1, std::vector<int>(20, 0));
  const AudioClip stereo = ClipOfSamples(2, std::vector<int>(40, 0));
  EXPECT_FALSE(WaveIsDense(mono, {10, 220}, 0, 20));
  EXPECT_TRUE(WaveIsDense(mono, {9, 220}, 0, 20));
  EXPECT_FALSE(WaveIsDense(stereo, {20, 220}, 0, 20));
  EXPECT_TRUE(WaveIsDense(stereo, {19, 220}, 0, 20));
}

TEST(WaveLines, ExaminedSampleSteps) {
  EXPECT_EQ(ExaminedStep(true, 3'000'001, 4'000'000), 20);
  EXPECT_EQ(ExaminedStep(true, 3'000'000, 4'000'000), 1);
  EXPECT_EQ(ExaminedStep(true, 3'000'000, 100), 5);
  EXPECT_EQ(ExaminedStep(true, 8'001, 100), 5);
  EXPECT_EQ(ExaminedStep(true, 8'000, 100), 1);
  EXPECT_EQ(ExaminedStep(false, 3'000'001, 100), 1);
}

TEST(WaveLines, EveryFifthFrameCountsFromTheFirstVisibleOne) {
  // 90 frames of one column: of the two peaks only the one five frames after the first visible frame is seen.
  std::vector<int> samples(93, 0);
  samples[3 + 5] = 32767;
  samples[3 + 6] = -32767;
  EXPECT_EQ(WaveLines(ClipOfSamples(1, samples), {1, 220}, 3, 90), (Lines{{0, 10, 0, 110}}));
}

TEST(WaveLines, NothingIsDrawnWhereSoundAndViewDoNotMeet) {
  const AudioClip clip = ClipOfSamples(1, {1, 2, 3});
  EXPECT_TRUE(WaveLines(clip, {10, 220}, 3, 5).empty());
  EXPECT_TRUE(WaveLines(clip, {10, 220}, 1'000'000'000'000, 5).empty());
  EXPECT_TRUE(WaveLines(clip, {10, 220}, 0, 0).empty());
  EXPECT_TRUE(WaveLines(clip, {0, 220}, 0, 3).empty());
  EXPECT_TRUE(WaveLines(clip, {10, 0}, 0, 3).empty());
  EXPECT_TRUE(WaveLines(ClipOfSamples(1, {}), {10, 220}, 0, 3).empty());
  EXPECT_TRUE(WaveLines(AudioClip{}, {10, 220}, 0, 3).empty());
}

TEST(WaveLines, OneFrameLeftIsAPointWithoutALineToIt) {
  const AudioClip clip = ClipOfSamples(1, {0, 0, 0, 32767});
  EXPECT_TRUE(WaveLines(clip, {40, 220}, 3, 4).empty());
}

TEST(WaveLines, SoundNarrowerThanAPixelStandsInTheFirstColumn) {
  const AudioClip clip = ClipOfSamples(1, {32767, -32767});
  EXPECT_EQ(WaveLines(clip, {10, 220}, 0, 100), (Lines{{0, 10, 0, 210}}));
}

TEST(WaveLines, AreasTooLowForTwoChannelsShowTheirCentres) {
  const AudioClip clip = ClipOfSamples(2, {32767, -32767, 32767, -32767});
  EXPECT_EQ(WaveLines(clip, {2, 8}, 0, 2), (Lines{{0, 2, 1, 2}, {0, 6, 1, 6}}));
}

TEST(WaveLines, SamplesOfMoreBytesAreDrawnByTheirTopTwo) {
  const AudioClip wide = ClipOfBytes(24, 1, {9, 0xFF, 0x7F, 9, 0x01, 0x80});
  EXPECT_EQ(WaveLines(wide, {2, 220}, 0, 2), (Lines{{0, 10, 1, 210}}));
  const AudioClip odd = ClipOfBytes(12, 1, {0xFF, 0x7F, 0x01, 0x80});
  EXPECT_EQ(WaveLines(odd, {2, 220}, 0, 2), (Lines{{0, 10, 1, 210}}));
}

TEST(WaveLines, OfManyChannelsTheFirstTwoAreDrawn) {
  EXPECT_TRUE(DrawsAsStereo({kPcmTag, 3, 44100, 0, 6, 16}));
  EXPECT_FALSE(DrawsAsStereo({kPcmTag, 1, 44100, 0, 2, 16}));
  EXPECT_FALSE(DrawsAsStereo({kPcmTag, 0, 44100, 0, 0, 16}));
  const AudioClip clip = ClipOfSamples(3, {32767, -32767, 5, 32767, -32767, 5});
  EXPECT_EQ(WaveLines(clip, {3, 232}, 0, 2), (Lines{{0, 8, 1, 8}, {0, 224, 1, 224}}));
}

TEST(WaveLines, StereoMarginGrowsWithTheScale) {
  const AudioClip clip = ClipOfSamples(2, {32767, 0, 32767, 0});
  // 464 - 24 = 440: 100 rows up of row 116.
  EXPECT_EQ(WaveLines(clip, {2, 464, 2.0}, 0, 2), (Lines{{0, 16, 1, 16}, {0, 348, 1, 348}}));
}

}  // namespace
}  // namespace tembrel
