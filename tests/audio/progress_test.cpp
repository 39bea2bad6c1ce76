#include "audio/Progress.h"

#include "gtest/gtest.h"

namespace tembrel {
namespace {

TEST(Progress, OfTwoHalvesRunsThroughTheWhole) {
  double share = -1;
  const Progress whole = [&share](std::uint64_t done, std::uint64_t total) {
    share = static_cast<double>(done) / static_cast<double>(total);
    return true;
  };
  FirstHalf(whole)(0, 10);
  EXPECT_EQ(share, 0.0);
  FirstHalf(whole)(10, 10);
  EXPECT_EQ(share, 0.5);
  SecondHalf(whole)(5, 10);
  EXPECT_EQ(share, 0.75);
  SecondHalf(whole)(0, 0);
  EXPECT_EQ(share, 1.0);
}

TEST(Progress, OfAHalfHandsTheCancellingOn) {
  const Progress whole = [](std::uint64_t, std::uint64_t) { return false; };
  EXPECT_FALSE(FirstHalf(whole)(1, 2));
  EXPECT_FALSE(SecondHalf(whole)(1, 2));
}

TEST(Progress, OfAPartRunsFromItsStartToItsEnd) {
  double share = -1;
  const Progress whole = [&share](std::uint64_t done, std::uint64_t total) {
    share = static_cast<double>(done) / static_cast<double>(total);
    return true;
  };
  PartOf(whole, 0.25, 0.75)(0, 10);
  EXPECT_EQ(share, 0.25);
  PartOf(whole, 0.25, 0.75)(5, 10);
  EXPECT_EQ(share, 0.5);
  PartOf(whole, 0.25, 0.75)(0, 0);
  EXPECT_EQ(share, 0.75);
  EXPECT_FALSE(PartOf({}, 0.0, 1.0));
}

TEST(Progress, OfNothingHasNoHalves) {
  EXPECT_FALSE(FirstHalf({}));
  EXPECT_FALSE(SecondHalf({}));
}

}  // namespace
}  // namespace tembrel
