#include "view/Scroller.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>

namespace tembrel {
namespace {

using Request = std::optional<ScrollerRequest>;

Scroller At(int percent) {
  Scroller scroller;
  scroller.SetPercent(percent);
  return scroller;
}

TEST(Scroller, ThumbFollowsThePercentage) {
  EXPECT_EQ(At(0).Thumb(), 1);
  EXPECT_EQ(At(2).Thumb(), 1);
  EXPECT_EQ(At(5).Thumb(), 2);
  EXPECT_EQ(At(50).Thumb(), 20);
  EXPECT_EQ(At(100).Thumb(), 40);
  EXPECT_EQ(At(1000).Thumb(), 40);
  EXPECT_EQ(At(-7).Thumb(), 1);
  EXPECT_EQ(At(std::numeric_limits<int>::max()).Thumb(), 40);
}

TEST(Scroller, PercentageFollowsTheThumb) {
  EXPECT_EQ(At(0).Percent(), 0);
  EXPECT_EQ(At(5).Percent(), 5);
  EXPECT_EQ(At(8).Percent(), 7);
  EXPECT_EQ(At(50).Percent(), 50);
  EXPECT_EQ(At(100).Percent(), 100);
}

TEST(Scroller, IsPaintedOnlyWhenTheThumbMoved) {
  Scroller scroller;
  EXPECT_FALSE(scroller.SetPercent(0));
  EXPECT_TRUE(scroller.SetPercent(50));
  EXPECT_FALSE(scroller.SetPercent(51));
  EXPECT_TRUE(scroller.SetPercent(53));
}

TEST(Scroller, APressBesideTheThumbPages) {
  Scroller scroller = At(50);
  EXPECT_EQ(scroller.Press(19, 0), (Request{{ScrollCode::PageLeft, 50}}));
  EXPECT_EQ(scroller.Press(31, 15), (Request{{ScrollCode::PageRight, 50}}));
  EXPECT_FALSE(scroller.Dragging());
  EXPECT_EQ(scroller.Press(20, 8), Request());
  EXPECT_TRUE(scroller.Dragging());
}

TEST(Scroller, OnlyRowsTwoToThirteenTakeHoldOfTheThumb) {
  for (int y = 0; y < 16; ++y) {
    Scroller scroller = At(50);
    EXPECT_EQ(scroller.Press(30, y), Request());
    EXPECT_EQ(scroller.Dragging(), y >= 2 && y <= 13) << y;
  }
}

TEST(Scroller, DraggingTellsWhereTheThumbIs) {
  Scroller scroller = At(50);
  scroller.Press(25, 8);
  EXPECT_EQ(scroller.Move(25), Request());
  EXPECT_EQ(scroller.Move(27), (Request{{ScrollCode::ThumbTrack, 55}}));
  EXPECT_EQ(scroller.Thumb(), 22);
  EXPECT_EQ(scroller.Move(27), Request());
  EXPECT_EQ(scroller.Release(), (Request{{ScrollCode::ThumbPosition, 55}}));
  EXPECT_FALSE(scroller.Dragging());
}

TEST(Scroller, TheThumbStaysOnTheTrack) {
  Scroller scroller = At(50);
  scroller.Press(25, 8);
  EXPECT_EQ(scroller.Move(-100), (Request{{ScrollCode::ThumbTrack, 0}}));
  EXPECT_EQ(scroller.Thumb(), 1);
  EXPECT_EQ(scroller.Move(44), (Request{{ScrollCode::ThumbTrack, 97}}));
  EXPECT_EQ(scroller.Thumb(), 39);
  EXPECT_EQ(scroller.Move(45), (Request{{ScrollCode::ThumbTrack, 100}}));
  EXPECT_EQ(scroller.Move(1000), Request());
  EXPECT_EQ(scroller.Thumb(), 40);
}

TEST(Scroller, TheThumbStaysWhereItIsLetGo) {
  for (int x = 1; x <= 40; ++x) {
    Scroller scroller = At(50);
    scroller.Press(20, 8);
    scroller.Move(x);
    const Request request = scroller.Release();
    ASSERT_TRUE(request);
    EXPECT_FALSE(scroller.SetPercent(request->percent)) << x;
    EXPECT_EQ(scroller.Thumb(), x);
    scroller.SetPercent(50);
    scroller.SetPercent(request->percent);
    EXPECT_EQ(scroller.Thumb(), std::max(1, request->percent * 40 / 100));
  }
}

TEST(Scroller, WithoutADragMovesAndReleasesSayNothing) {
  Scroller scroller = At(50);
  EXPECT_EQ(scroller.Move(30), Request());
  EXPECT_EQ(scroller.Release(), Request());
  scroller.Press(5, 8);
  EXPECT_EQ(scroller.Release(), Request());
}

}  // namespace
}  // namespace tembrel
