// Zooming and scrolling through the bins, and the marker among them.
#include <gtest/gtest.h>
#include <random>
#include <utility>

#include "analysis/SpectrumView.h"

namespace tembrel {
namespace {

void ZoomIn(SpectrumView& view, int times = 1) {
  for (int i = 0; i < times; ++i) {
    view.RunCommand(8194);
  }
}

void ZoomOut(SpectrumView& view, int times = 1) {
  for (int i = 0; i < times; ++i) {
    view.RunCommand(8193);
  }
}

TEST(SpectrumView, StartsWith256BinsFromTheFirstOn) {
  const SpectrumView view;
  EXPECT_EQ(view.Zoom(), 8);
  EXPECT_EQ(view.VisibleBins(), 256);
  EXPECT_EQ(view.FirstBin(), 0);
  EXPECT_EQ(view.MarkerBin(), 0);
  EXPECT_EQ(view.ScrollPosition(), 0);
  EXPECT_EQ(view.VisibleShare(), 0.25);
}

TEST(SpectrumView, ZoomsInByTwosUpTo512) {
  SpectrumView view;
  ZoomIn(view);
  EXPECT_EQ(view.VisibleBins(), 128);
  ZoomIn(view);
  EXPECT_EQ(view.VisibleBins(), 64);
  ZoomIn(view, 4);
  EXPECT_EQ(view.Zoom(), 512);
  EXPECT_EQ(view.VisibleBins(), 4);
  ZoomIn(view);
  EXPECT_EQ(view.Zoom(), 512);
}

TEST(SpectrumView, ZoomsOutByTwosDownTo2) {
  SpectrumView view;
  ZoomOut(view);
  EXPECT_EQ(view.Zoom(), 4);
  ZoomOut(view);
  EXPECT_EQ(view.Zoom(), 2);
  EXPECT_EQ(view.VisibleBins(), 1024);
  ZoomOut(view);
  EXPECT_EQ(view.Zoom(), 2);
}

TEST(SpectrumView, ResetsTheZoomFromBothSides) {
  SpectrumView view;
  ZoomIn(view, 3);
  EXPECT_TRUE(view.RunCommand(8195));
  EXPECT_EQ(view.Zoom(), 8);
  ZoomOut(view, 2);
  EXPECT_TRUE(view.RunCommand(8195));
  EXPECT_EQ(view.Zoom(), 8);
}

TEST(SpectrumView, KnowsNoOtherCommand) {
  SpectrumView view;
  for (const int command : {0, 8192, 8196, 8212, 8214, 400}) {
    EXPECT_FALSE(view.RunCommand(command)) << command;
  }
  EXPECT_EQ(view.Zoom(), 8);
}

TEST(SpectrumView, ScrollsByAQuarterAndByAllOfTheVisibleBins) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::LineRight);
  EXPECT_EQ(view.FirstBin(), 64);
  view.Scroll(SpectrumScroll::PageRight);
  EXPECT_EQ(view.FirstBin(), 320);
  view.Scroll(SpectrumScroll::LineLeft);
  EXPECT_EQ(view.FirstBin(), 256);
  view.Scroll(SpectrumScroll::PageLeft);
  EXPECT_EQ(view.FirstBin(), 0);
  ZoomIn(view, 6);
  view.Scroll(SpectrumScroll::LineRight);
  EXPECT_EQ(view.FirstBin(), 1);
}

TEST(SpectrumView, StopsScrollingAtBothEnds) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::LineLeft);
  EXPECT_EQ(view.FirstBin(), 0);
  view.Scroll(SpectrumScroll::PageLeft);
  EXPECT_EQ(view.FirstBin(), 0);
  for (int i = 0; i < 5; ++i) {
    view.Scroll(SpectrumScroll::PageRight);
  }
  EXPECT_EQ(view.FirstBin(), 768);
  view.Scroll(SpectrumScroll::LineRight);
  EXPECT_EQ(view.FirstBin(), 768);
  EXPECT_EQ(view.ScrollPosition(), 100);
}

TEST(SpectrumView, TheThumbGivesPercentOfWhatCanBeScrolled) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::ThumbPosition, 100);
  EXPECT_EQ(view.FirstBin(), 768);
  EXPECT_EQ(view.FirstBin() + view.VisibleBins() - 1, 1023);
  view.Scroll(SpectrumScroll::ThumbPosition, 37);
  EXPECT_EQ(view.FirstBin(), 284);       // 768 × 37 / 100
  EXPECT_EQ(view.ScrollPosition(), 36);  // 284 × 100 / 768
  view.Scroll(SpectrumScroll::LeftEnd, 0);
  EXPECT_EQ(view.FirstBin(), 0);
  view.Scroll(SpectrumScroll::RightEnd, 100);
  EXPECT_EQ(view.FirstBin(), 768);
  // Senders give both ends a position, and only that counts.
  view.Scroll(SpectrumScroll::RightEnd, 50);
  EXPECT_EQ(view.FirstBin(), 384);
}

TEST(SpectrumView, ThumbPositionsOutOfRangeAreHeldInItAndTheProductWraps) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::ThumbPosition, 101);
  EXPECT_EQ(view.FirstBin(), 768);
  view.Scroll(SpectrumScroll::ThumbPosition, 0xFFFFFFFFU);
  EXPECT_EQ(view.FirstBin(), 768);
  view.Scroll(SpectrumScroll::ThumbPosition, 5592406);  // 768 times it is 2^32 + 512
  EXPECT_EQ(view.FirstBin(), 5);
}

TEST(SpectrumView, IgnoresTheThumbBeforeItIsReleased) {
  SpectrumView view;
  EXPECT_TRUE(view.Scroll(SpectrumScroll::ThumbTrack, 50));
  EXPECT_EQ(view.FirstBin(), 0);
  EXPECT_FALSE(view.Scroll(static_cast<SpectrumScroll>(8), 50));
  EXPECT_EQ(view.FirstBin(), 0);
}

TEST(SpectrumView, AllBinsShownLeaveNothingToScroll) {
  SpectrumView view;
  ZoomOut(view, 2);
  for (const SpectrumScroll code : {SpectrumScroll::LineRight, SpectrumScroll::PageRight,
                                    SpectrumScroll::ThumbPosition, SpectrumScroll::RightEnd}) {
    view.Scroll(code, 100);
    EXPECT_EQ(view.FirstBin(), 0);
    EXPECT_EQ(view.ScrollPosition(), 0);
  }
  EXPECT_EQ(view.VisibleShare(), 1.0);
}

TEST(SpectrumView, ZoomingKeepsTheFirstBinAndOnlyMovesItBackFromTheEnd) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::ThumbPosition, 50);
  ZoomIn(view);
  EXPECT_EQ(view.FirstBin(), 384);
  view.Scroll(SpectrumScroll::ThumbPosition, 100);
  EXPECT_EQ(view.FirstBin(), 896);
  ZoomOut(view);
  EXPECT_EQ(view.FirstBin(), 768);
  ZoomOut(view, 2);
  EXPECT_EQ(view.FirstBin(), 0);
}

TEST(SpectrumView, TheMarkerGoesToTheFirstBinWhenItFallsOutside) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::LineRight);
  EXPECT_EQ(view.MarkerBin(), 64);
  view.MoveMarker(MarkerMove::Right);
  EXPECT_EQ(view.MarkerBin(), 65);
  view.Scroll(SpectrumScroll::LineLeft);
  EXPECT_EQ(view.MarkerBin(), 65);
  for (int i = 0; i < 70; ++i) {
    view.MoveMarker(MarkerMove::Right);
  }
  EXPECT_EQ(view.MarkerBin(), 135);
  ZoomIn(view);  // 128 bins
  EXPECT_EQ(view.FirstBin(), 0);
  EXPECT_EQ(view.MarkerBin(), 0);
}

TEST(SpectrumView, TheViewFollowsTheMarkerByAsLittleAsNeeded) {
  SpectrumView view;
  ZoomIn(view, 6);  // 4 bins
  for (int i = 0; i < 3; ++i) {
    view.MoveMarker(MarkerMove::Right);
  }
  EXPECT_EQ(view.FirstBin(), 0);
  view.MoveMarker(MarkerMove::Right);
  EXPECT_EQ(view.MarkerBin(), 4);
  EXPECT_EQ(view.FirstBin(), 1);
  for (int i = 0; i < 4; ++i) {
    view.MoveMarker(MarkerMove::Left);
  }
  EXPECT_EQ(view.MarkerBin(), 0);
  EXPECT_EQ(view.FirstBin(), 0);
  view.MoveMarker(MarkerMove::Left);
  EXPECT_EQ(view.MarkerBin(), 0);
}

TEST(SpectrumView, TheMarkerGoesByScreensAndToBothEnds) {
  SpectrumView view;
  view.MoveMarker(MarkerMove::Right);
  view.MoveMarker(MarkerMove::PageRight);
  EXPECT_EQ(view.MarkerBin(), 257);
  EXPECT_EQ(view.FirstBin(), 256);
  view.MoveMarker(MarkerMove::Last);
  EXPECT_EQ(view.MarkerBin(), 1023);
  EXPECT_EQ(view.FirstBin(), 768);
  view.MoveMarker(MarkerMove::Right);
  view.MoveMarker(MarkerMove::PageRight);
  EXPECT_EQ(view.MarkerBin(), 1023);
  EXPECT_EQ(view.FirstBin(), 768);
  view.MoveMarker(MarkerMove::PageLeft);
  EXPECT_EQ(view.MarkerBin(), 767);
  EXPECT_EQ(view.FirstBin(), 512);
  view.MoveMarker(MarkerMove::First);
  EXPECT_EQ(view.MarkerBin(), 0);
  EXPECT_EQ(view.FirstBin(), 0);
  view.MoveMarker(MarkerMove::PageLeft);
  EXPECT_EQ(view.MarkerBin(), 0);
}

TEST(SpectrumView, TheMarkerIsPlacedOnVisibleBinsOnly) {
  SpectrumView view;
  view.Scroll(SpectrumScroll::PageRight);
  for (const auto& [wanted, placed] : {std::pair(300, 300), {256, 256}, {511, 511}, {255, 256}, {512, 511}}) {
    view.PlaceMarker(wanted);
    EXPECT_EQ(view.MarkerBin(), placed);
    EXPECT_EQ(view.FirstBin(), 256);
  }
}

TEST(SpectrumView, WhateverIsDoneItStaysInsideAndTheMarkerVisible) {
  std::mt19937 engine(1);
  const auto roll = [&engine](int last) { return std::uniform_int_distribution<int>(0, last)(engine); };
  SpectrumView view;
  for (int i = 0; i < 20000; ++i) {
    switch (roll(3)) {
      case 0:
        view.RunCommand(8193 + roll(2));
        break;
      case 1:
        view.Scroll(static_cast<SpectrumScroll>(roll(8)), static_cast<std::uint32_t>(engine()));
        break;
      case 2:
        view.MoveMarker(static_cast<MarkerMove>(roll(5)));
        break;
      default:
        view.PlaceMarker(roll(1100) - 10);
        break;
    }
    ASSERT_EQ(view.VisibleBins() * view.Zoom(), 2048);
    ASSERT_GE(view.FirstBin(), 0);
    ASSERT_LE(view.FirstBin() + view.VisibleBins(), 1024);
    ASSERT_GE(view.MarkerBin(), view.FirstBin());
    ASSERT_LT(view.MarkerBin(), view.FirstBin() + view.VisibleBins());
    ASSERT_GE(view.ScrollPosition(), 0);
    ASSERT_LE(view.ScrollPosition(), 100);
  }
}

}  // namespace
}  // namespace tembrel
