#include <gtest/gtest.h>

#include "tests/view/RecordingListener.h"
#include "view/EditView.h"

namespace tembrel {
namespace {

class EditViewRows : public testing::Test {
 protected:
  EditViewRows() {
    view.SetClientSize(500, 200);
    view.SetSound(10'000, 44100, 4);
    listener.Take();
  }

  // Zoomed to 4: 200 / 4 = 50 of 128 rows fit.
  void ZoomOnce() {
    view.VerticalZoomIn();
    listener.Take();
  }

  RecordingListener listener;
  EditView view{listener};
};

TEST_F(EditViewRows, ZoomStepsThroughOneFourFiveSeven) {
  for (const int zoom : {4, 5, 7, 7}) {
    view.VerticalZoomIn();
    EXPECT_EQ(view.VerticalZoom(), zoom);
  }
  for (const int zoom : {5, 4, 1, 1}) {
    view.VerticalZoomOut();
    EXPECT_EQ(view.VerticalZoom(), zoom);
  }
}

TEST_F(EditViewRows, EveryChangeOfZoomLaysOutTheDocumentAgain) {
  view.VerticalZoomOut();
  EXPECT_TRUE(listener.Take().empty());
  view.VerticalZoomIn();
  EXPECT_EQ(listener.Take(), (Calls{"rows 0 50 on", "relayout"}));
  view.VerticalZoomIn();
  view.VerticalZoomIn();
  listener.Take();
  view.VerticalZoomIn();
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewRows, VisibleRowsFollowHeightAndZoom) {
  EXPECT_EQ(view.VisibleRows(), 128);
  view.VerticalZoomIn();
  EXPECT_EQ(view.VisibleRows(), 50);
  view.VerticalZoomIn();
  EXPECT_EQ(view.VisibleRows(), 40);
  view.VerticalZoomIn();
  EXPECT_EQ(view.VisibleRows(), 28);
  view.SetClientSize(500, 3);
  EXPECT_EQ(view.VisibleRows(), 0);
  view.SetClientSize(500, 100'000);
  EXPECT_EQ(view.VisibleRows(), 128);
}

TEST_F(EditViewRows, UnzoomedOnlyRefreshIsActedOn) {
  for (const int code : {0, 1, 2, 3, 4, 6, 7}) {
    view.VerticalScroll(static_cast<VerticalScrollCode>(code), 50);
    EXPECT_EQ(view.VerticalTopRow(), 0);
    EXPECT_TRUE(listener.Take().empty());
  }
  view.VerticalScroll(VerticalScrollCode::Refresh);
  EXPECT_EQ(listener.Take(), (Calls{"rows 0 128 off"}));
}

TEST_F(EditViewRows, OneRowMovesTheImageByTheZoom) {
  ZoomOnce();
  view.VerticalScroll(VerticalScrollCode::RowDown);
  EXPECT_EQ(listener.Take(), (Calls{"rows 1 50 on", "image -4"}));
  view.VerticalScroll(VerticalScrollCode::RowUp);
  EXPECT_EQ(listener.Take(), (Calls{"rows 0 50 on", "image 4"}));
  view.VerticalScroll(VerticalScrollCode::RowUp);
  EXPECT_TRUE(listener.Take().empty());
  view.VerticalScroll(VerticalScrollCode::Bottom);
  listener.Take();
  view.VerticalScroll(VerticalScrollCode::RowDown);
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewRows, PagesAreTwelveRowsAndStopAtTheEnds) {
  ZoomOnce();
  view.VerticalScroll(VerticalScrollCode::PageDown);
  EXPECT_EQ(view.VerticalTopRow(), 12);
  EXPECT_EQ(listener.Take(), (Calls{"rows 12 50 on", "repaint"}));
  view.VerticalScroll(VerticalScrollCode::ThumbPosition, 90);
  EXPECT_EQ(view.VerticalTopRow(), 70);
  view.VerticalScroll(VerticalScrollCode::PageDown);
  EXPECT_EQ(view.VerticalTopRow(), 78);
  view.VerticalScroll(VerticalScrollCode::ThumbPosition, 10);
  EXPECT_EQ(view.VerticalTopRow(), 7);
  view.VerticalScroll(VerticalScrollCode::PageUp);
  EXPECT_EQ(view.VerticalTopRow(), 0);
}

TEST_F(EditViewRows, TopAndBottom) {
  ZoomOnce();
  view.VerticalScroll(VerticalScrollCode::Bottom);
  EXPECT_EQ(view.VerticalTopRow(), 78);
  view.VerticalScroll(VerticalScrollCode::Top);
  EXPECT_EQ(view.VerticalTopRow(), 0);
}

TEST_F(EditViewRows, ThumbTakesTheLowWordUpToAHundred) {
  ZoomOnce();
  view.VerticalScroll(VerticalScrollCode::ThumbPosition, 0x30000 + 50);
  EXPECT_EQ(view.VerticalTopRow(), 39);
  view.VerticalScroll(VerticalScrollCode::ThumbPosition, 0xFFFF);
  EXPECT_EQ(view.VerticalTopRow(), 78);
}

TEST_F(EditViewRows, RefreshHoldsTheTopRowInRange) {
  ZoomOnce();
  view.VerticalScroll(VerticalScrollCode::Bottom);
  view.SetClientSize(500, 400);
  EXPECT_EQ(view.VisibleRows(), 100);
  EXPECT_EQ(view.VerticalTopRow(), 28);
}

TEST_F(EditViewRows, ALoadedSoundStartsAtRowFiftyOneWhereRowsCanBeScrolled) {
  ZoomOnce();
  view.SetSound(100, 44100, 4);
  EXPECT_EQ(view.VerticalTopRow(), 51);
  view.SetClientSize(500, 400);
  view.SetSound(100, 44100, 4);
  EXPECT_EQ(view.VerticalTopRow(), 28);
  view.VerticalZoomOut();
  view.SetSound(100, 44100, 4);
  EXPECT_EQ(view.VerticalTopRow(), 0);
}

}  // namespace
}  // namespace tembrel
