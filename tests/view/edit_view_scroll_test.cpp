#include <gtest/gtest.h>
#include <limits>

#include "tests/view/RecordingListener.h"
#include "view/EditView.h"

namespace tembrel {
namespace {

class EditViewScroll : public testing::Test {
 protected:
  EditViewScroll() {
    view.SetClientSize(500, 175);
    view.SetSound(10'000, 44100, 4);
    view.Show(0, 1000);
    listener.Take();
  }

  void ShowAndPutCursor(std::int64_t first, std::int64_t frames, std::int64_t cursor) {
    view.Show(0, view.TotalFrames());
    view.SetCursorPosition(cursor, false);
    view.Show(first, frames);
    listener.Take();
  }

  RecordingListener listener;
  EditView view{listener};
};

TEST_F(EditViewScroll, ANewViewShowsAHundredFrames) {
  EditView fresh(listener);
  EXPECT_EQ(fresh.FramesOnScreen(), 100);
  EXPECT_EQ(fresh.FirstVisibleFrame(), 0);
  EXPECT_EQ(fresh.CursorFrame(), 0);
  EXPECT_EQ(fresh.TotalFrames(), 100);
  EXPECT_EQ(fresh.ToolIndex(), 0);
}

TEST_F(EditViewScroll, ALoadedSoundIsShownWhole) {
  ShowAndPutCursor(5000, 100, 5050);
  view.SetSound(777, 22050, 4);
  EXPECT_EQ(view.FramesOnScreen(), 777);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(view.CursorFrame(), 0);
  EXPECT_EQ(listener.Take(), (Calls{"rows 0 128 off", "bar 0", "repaint", "counter 0 22050"}));
}

TEST_F(EditViewScroll, AnEmptyDocumentCountsAsAHundredFrames) {
  view.SetSound(0, std::nullopt, 0);
  EXPECT_EQ(view.FramesOnScreen(), 100);
  EXPECT_TRUE(listener.Heard("counter 0 none"));
  view.HorizontalScroll(ScrollCode::PageRight);
  view.ZoomIn();
  view.ZoomOut();
  view.KeyPress(EditKey::F12, false, false);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(view.CursorFrame(), 0);
}

TEST_F(EditViewScroll, LinesAreAQuarterScreenAndPagesAScreen) {
  view.HorizontalScroll(ScrollCode::LineRight);
  EXPECT_EQ(view.FirstVisibleFrame(), 250);
  view.HorizontalScroll(ScrollCode::PageRight);
  EXPECT_EQ(view.FirstVisibleFrame(), 1250);
  view.HorizontalScroll(ScrollCode::LineLeft);
  EXPECT_EQ(view.FirstVisibleFrame(), 1000);
  view.HorizontalScroll(ScrollCode::PageLeft);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
}

TEST_F(EditViewScroll, NearTheEndAPageStopsWithTheLastFrame) {
  view.Show(8700, 1000);
  view.HorizontalScroll(ScrollCode::PageRight);
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
  view.HorizontalScroll(ScrollCode::PageRight);
  view.HorizontalScroll(ScrollCode::LineRight);
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
}

TEST_F(EditViewScroll, NearTheStartNoCodeGivesANegativeFrame) {
  view.Show(100, 1000);
  view.HorizontalScroll(ScrollCode::LineLeft);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  view.Show(100, 1000);
  view.HorizontalScroll(ScrollCode::PageLeft);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
}

TEST_F(EditViewScroll, ThumbPositionIsAPercentageOfWhatCanBeScrolled) {
  for (const ScrollCode code : {ScrollCode::ThumbPosition, ScrollCode::LeftEnd, ScrollCode::RightEnd}) {
    view.HorizontalScroll(code, 50);
    EXPECT_EQ(view.FirstVisibleFrame(), 4500);
    EXPECT_TRUE(listener.Heard("bar 50"));
    view.HorizontalScroll(code, 100);
    EXPECT_EQ(view.FirstVisibleFrame(), 9000);
    view.HorizontalScroll(code, 0);
    EXPECT_EQ(view.FirstVisibleFrame(), 0);
  }
}

// Of 9001 frames no percentage but 0 and 100 is a whole number of frames: going there and back loses one.
TEST_F(EditViewScroll, TheScrollBarStaysAtThePercentageAskedFor) {
  view.Show(0, 999);
  for (const ScrollCode code : {ScrollCode::ThumbPosition, ScrollCode::LeftEnd, ScrollCode::RightEnd}) {
    for (int percent = 0; percent <= 100; ++percent) {
      listener.Take();
      view.HorizontalScroll(code, percent);
      EXPECT_EQ(view.FirstVisibleFrame(), 9001 * percent / 100);
      EXPECT_TRUE(listener.Heard("bar " + std::to_string(percent))) << percent;
    }
  }
}

TEST_F(EditViewScroll, InTheWholeSoundTheScrollBarStaysAtItsStart) {
  view.ZoomAll();
  listener.Take();
  view.HorizontalScroll(ScrollCode::ThumbPosition, 70);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_TRUE(listener.Heard("bar 0"));
}

TEST_F(EditViewScroll, OnlyTheLowWordOfAThumbPositionCounts) {
  view.HorizontalScroll(ScrollCode::ThumbPosition, 0x7FFF0000 + 10);
  EXPECT_EQ(view.FirstVisibleFrame(), 900);
  view.HorizontalScroll(ScrollCode::ThumbPosition, 0xFFFF);
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
}

TEST_F(EditViewScroll, TrackingMovesOnlyTheCounter) {
  EXPECT_TRUE(view.HorizontalScroll(ScrollCode::ThumbTrack, 50));
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(listener.Take(), (Calls{"counter 4500 44100"}));
}

TEST_F(EditViewScroll, RefreshChangesNothingAndRepaints) {
  view.Show(4500, 1000);
  listener.Take();
  view.HorizontalScroll(ScrollCode::Refresh);
  EXPECT_EQ(view.FirstVisibleFrame(), 4500);
  EXPECT_EQ(listener.Take(), (Calls{"bar 50", "repaint", "counter 0 44100"}));
}

TEST_F(EditViewScroll, AFrameIsShownOnItsWholeScreen) {
  view.HorizontalScroll(ScrollCode::ShowFrame, 3999);
  EXPECT_EQ(view.FirstVisibleFrame(), 3000);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 3000", "bar 33", "repaint"}));
  view.HorizontalScroll(ScrollCode::ShowFrame, 4000);
  EXPECT_EQ(view.FirstVisibleFrame(), 4000);
  view.HorizontalScroll(ScrollCode::ShowFrame, 9999);
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
  view.HorizontalScroll(ScrollCode::ShowFrame, -7);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  view.HorizontalScroll(ScrollCode::ShowFrame, std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
}

TEST_F(EditViewScroll, ACursorLeftBehindGoesToTheFirstVisibleFrame) {
  view.HorizontalScroll(ScrollCode::PageRight);
  EXPECT_EQ(view.CursorFrame(), 1000);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 1000", "bar 11", "repaint", "counter 1000 44100"}));
  view.HorizontalScroll(ScrollCode::ThumbPosition, 50);
  EXPECT_EQ(view.CursorFrame(), 4500);
}

TEST_F(EditViewScroll, AVisibleCursorStays) {
  ShowAndPutCursor(0, 1000, 600);
  view.HorizontalScroll(ScrollCode::LineRight);
  EXPECT_EQ(view.CursorFrame(), 600);
  EXPECT_EQ(view.FirstVisibleFrame(), 250);
}

TEST_F(EditViewScroll, UnknownCodesDoNothing) {
  for (const int code : {8, 9, 12, -1, 1000}) {
    EXPECT_FALSE(view.HorizontalScroll(static_cast<ScrollCode>(code), 50));
    EXPECT_FALSE(view.VerticalScroll(static_cast<VerticalScrollCode>(code), 50));
  }
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewScroll, ZoomingInHalvesAroundTheCursor) {
  ShowAndPutCursor(0, 10'000, 6000);
  view.SetDocumentWidth(624);
  view.ZoomIn();
  EXPECT_EQ(view.FramesOnScreen(), 5000);
  EXPECT_EQ(view.FirstVisibleFrame(), 3500);
  view.ZoomIn();
  EXPECT_EQ(view.FramesOnScreen(), 2500);
  EXPECT_EQ(view.FirstVisibleFrame(), 4750);
}

TEST_F(EditViewScroll, ZoomingInEndsAtHalfTheDocumentWindowsWidth) {
  view.SetDocumentWidth(624);
  view.Show(500, 312);
  listener.Take();
  view.ZoomIn();
  EXPECT_EQ(view.FramesOnScreen(), 312);
  EXPECT_EQ(view.FirstVisibleFrame(), 500);
  EXPECT_TRUE(listener.Take().empty());
  view.Show(500, 313);
  view.ZoomIn();
  EXPECT_EQ(view.FramesOnScreen(), 156);
}

TEST_F(EditViewScroll, ZoomingOutStepsOverTheWholeAndSnapsBack) {
  view.Show(0, 5000);
  view.ZoomOut();
  EXPECT_EQ(view.FramesOnScreen(), 10'000);
  view.ZoomOut();
  EXPECT_EQ(view.FramesOnScreen(), 20'000);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  view.ZoomOut();
  EXPECT_EQ(view.FramesOnScreen(), 10'000);
}

TEST_F(EditViewScroll, ZoomingOutMayShowAlmostFourTimesTheSound) {
  view.Show(0, 6000);
  for (const std::int64_t frames : {12'000, 24'000, 10'000}) {
    view.ZoomOut();
    EXPECT_EQ(view.FramesOnScreen(), frames);
  }
}

TEST_F(EditViewScroll, ZoomingOutNearTheEndsStaysInside) {
  ShowAndPutCursor(0, 1000, 100);
  view.ZoomOut();
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  ShowAndPutCursor(9000, 1000, 9900);
  view.ZoomOut();
  EXPECT_EQ(view.FramesOnScreen(), 2000);
  EXPECT_EQ(view.FirstVisibleFrame(), 8000);
}

TEST_F(EditViewScroll, ZoomAllShowsTheWholeSound) {
  view.Show(5000, 100);
  view.ZoomAll();
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(view.FramesOnScreen(), 10'000);
  EXPECT_TRUE(listener.Heard("repaint"));
}

TEST_F(EditViewScroll, AViewWiderThanTheSoundCannotBeScrolled) {
  view.Show(0, 30'000);
  for (const int code : {0, 1, 2, 3, 4, 6, 7, 10, 11}) {
    view.HorizontalScroll(static_cast<ScrollCode>(code), 100);
    EXPECT_EQ(view.FirstVisibleFrame(), 0) << code;
    EXPECT_EQ(listener.Take().at(0), "bar 0") << code;
  }
  view.HorizontalScroll(ScrollCode::ThumbTrack, 100);
  EXPECT_EQ(listener.Take(), (Calls{"counter 0 44100"}));
}

TEST_F(EditViewScroll, AViewAsWideAsTheSoundStaysAtItsStart) {
  view.Show(0, 10'000);
  listener.Take();
  view.HorizontalScroll(ScrollCode::PageRight);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(listener.Take(), (Calls{"bar 0", "repaint", "counter 0 44100"}));
}

TEST_F(EditViewScroll, ASoundOfOneFrameIsSafe) {
  view.SetSound(1, 44100, 4);
  view.SetDocumentWidth(1);
  for (int i = 0; i < 10; ++i) {
    view.ZoomIn();
    EXPECT_EQ(view.FramesOnScreen(), 1);
  }
  for (int i = 0; i < 10; ++i) {
    view.ZoomOut();
    view.HorizontalScroll(ScrollCode::PageRight);
    EXPECT_GE(view.FramesOnScreen(), 1);
    EXPECT_LE(view.FramesOnScreen(), 3);
    EXPECT_EQ(view.FirstVisibleFrame(), 0);
  }
}

TEST_F(EditViewScroll, AClientAreaWithoutWidthIsSafe) {
  for (const int width : {0, 1, -5}) {
    view.SetClientSize(width, 0);
    EXPECT_EQ(view.FrameAt(0), view.FirstVisibleFrame());
    view.Press(MouseButton::Left, {3, 50});
    view.Release(MouseButton::Left, {3, 50});
    EXPECT_EQ(view.CursorFrame(), view.FirstVisibleFrame());
    view.KeyPress(EditKey::Right, false, false);
    view.KeyPress(EditKey::Left, false, false);
    EXPECT_LE(view.CursorPixel(), 1);
  }
}

TEST_F(EditViewScroll, AnEditHoldsTheViewInsideTheSound) {
  ShowAndPutCursor(0, 10'000, 9000);
  view.SoundChanged(4000, 44100, 4);
  EXPECT_EQ(view.FramesOnScreen(), 4000);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(view.CursorFrame(), 4000);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 9000 4000", "bar 0", "repaint", "counter 4000 44100"}));
}

TEST_F(EditViewScroll, AnEditThatLeavesRoomKeepsTheView) {
  ShowAndPutCursor(2000, 1000, 2500);
  view.SoundChanged(12'000, 44100, 4);
  EXPECT_EQ(view.FramesOnScreen(), 1000);
  EXPECT_EQ(view.FirstVisibleFrame(), 2000);
  EXPECT_EQ(view.CursorFrame(), 2500);
  view.SoundChanged(2200, 44100, 4);
  EXPECT_EQ(view.FirstVisibleFrame(), 1200);
  EXPECT_EQ(view.CursorFrame(), 2200);
}

TEST_F(EditViewScroll, SoundsOfFourGigabytesAreCountedIn64Bits) {
  view.SetSound(4'294'967'295, 44100, 4);
  view.Show(0, 1000);
  view.HorizontalScroll(ScrollCode::ThumbPosition, 99);
  EXPECT_EQ(view.FirstVisibleFrame(), (4'294'967'295 - 1000) * 99 / 100);
  view.HorizontalScroll(ScrollCode::ThumbPosition, 100);
  EXPECT_EQ(view.FirstVisibleFrame(), 4'294'966'295);
  EXPECT_TRUE(listener.Heard("bar 100"));
}

TEST_F(EditViewScroll, PositionsFromOutsideAreHeldInBounds) {
  view.Show(-5, 0);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(view.FramesOnScreen(), 1);
  const std::int64_t huge = std::numeric_limits<std::int64_t>::max();
  view.SetSound(huge, 44100, 4);
  view.Show(huge, huge);
  EXPECT_EQ(view.FirstVisibleFrame(), kMaxFrames);
  EXPECT_EQ(view.FramesOnScreen(), kMaxFrames);
  view.ZoomOut();
  view.ZoomOut();
  view.ZoomOut();
  view.HorizontalScroll(ScrollCode::PageRight);
  view.SetCursorPosition(huge, true);
  EXPECT_LE(view.CursorFrame(), kMaxFrames);
}

}  // namespace
}  // namespace tembrel
