#include "view/Selection.h"

#include <gtest/gtest.h>

namespace tembrel {
namespace {

// Whether the raw pair counts in a sound of 1000 frames.
bool Counts(std::int64_t anchor, std::int64_t end) {
  Selection selection;
  selection.SetRaw(anchor, end);
  return selection.Normalise(1000);
}

TEST(Selection, BeginsWithNothing) {
  const Selection selection;
  EXPECT_EQ(selection.AnchorFrame(), -1);
  EXPECT_EQ(selection.EndFrame(), -1);
  EXPECT_FALSE(selection.Exists());
  EXPECT_FALSE(selection.Valid());
  EXPECT_FALSE(selection.Remembered());
}

TEST(Selection, CountsFromTwoFramesOn) {
  EXPECT_FALSE(Counts(100, 100));
  EXPECT_FALSE(Counts(100, 101));
  EXPECT_TRUE(Counts(100, 102));
}

TEST(Selection, BackwardPairsAreSwapped) {
  Selection selection;
  selection.SetRaw(300, 100);
  EXPECT_TRUE(selection.Normalise(1000));
  EXPECT_EQ(selection.AnchorFrame(), 100);
  EXPECT_EQ(selection.EndFrame(), 300);
  EXPECT_EQ(selection.Remembered(), (FrameRange{100, 300}));
}

TEST(Selection, APairOneFrameBackwardIsLeftUnswapped) {
  Selection selection;
  selection.SetRaw(101, 100);
  EXPECT_FALSE(selection.Normalise(1000));
  EXPECT_EQ(selection.AnchorFrame(), 101);
  EXPECT_EQ(selection.EndFrame(), 100);
  EXPECT_TRUE(Counts(102, 100));
}

TEST(Selection, BeyondTheSoundNothingCounts) {
  EXPECT_FALSE(Counts(1000, 1500));
  EXPECT_FALSE(Counts(1500, 1200));
  EXPECT_TRUE(Counts(998, 1500));
}

TEST(Selection, BeforeTheSoundNothingCounts) {
  EXPECT_FALSE(Counts(-50, 0));
  EXPECT_FALSE(Counts(-50, -20));
  EXPECT_FALSE(Counts(-1, -1));
  EXPECT_TRUE(Counts(-50, 1));
}

TEST(Selection, IsClippedToTheSoundAfterItCounts) {
  Selection selection;
  selection.SetRaw(-20, 1200);
  EXPECT_TRUE(selection.Normalise(1000));
  EXPECT_EQ(selection.AnchorFrame(), -20);
  EXPECT_EQ(selection.Remembered(), (FrameRange{0, 1000}));
  selection.SetRaw(1000, 2000);
  EXPECT_FALSE(selection.Normalise(1000));
  selection.SetRaw(999, 2000);
  EXPECT_TRUE(selection.Normalise(1000));
  EXPECT_EQ(selection.Remembered(), (FrameRange{999, 1000}));
}

TEST(Selection, InAnEmptySoundNothingCounts) {
  Selection selection;
  selection.SetRaw(0, 100);
  EXPECT_FALSE(selection.Normalise(0));
}

TEST(Selection, TheRememberedRangeSurvivesClearingAndPairsThatDoNotCount) {
  Selection selection;
  selection.SetRaw(10, 20);
  selection.Normalise(1000);
  selection.Clear();
  EXPECT_FALSE(selection.Exists());
  EXPECT_FALSE(selection.Valid());
  EXPECT_EQ(selection.Remembered(), (FrameRange{10, 20}));
  selection.SetRaw(30, 31);
  selection.Normalise(1000);
  EXPECT_EQ(selection.Remembered(), (FrameRange{10, 20}));
  selection.Reset();
  EXPECT_FALSE(selection.Remembered());
}

TEST(Selection, ANewPairDoesNotCountBeforeItIsNormalised) {
  Selection selection;
  selection.SetRaw(10, 20);
  selection.Normalise(1000);
  selection.SetRaw(10, 30);
  EXPECT_FALSE(selection.Valid());
}

TEST(ClickFrames, AreFourPixelsWorthButAtLeastFour) {
  EXPECT_EQ(ClickFrames(1000, 500), 8);
  EXPECT_EQ(ClickFrames(1001, 500), 8);
  EXPECT_EQ(ClickFrames(1124, 500), 8);
  EXPECT_EQ(ClickFrames(1125, 500), 9);
  EXPECT_EQ(ClickFrames(500, 500), 4);
  EXPECT_EQ(ClickFrames(100, 500), 4);
  EXPECT_EQ(ClickFrames(158'760'000, 593), 1'070'893);
  EXPECT_EQ(ClickFrames(100, 0), 400);
}

}  // namespace
}  // namespace tembrel
