#include "tests/view/MouseFixture.h"

namespace tembrel {
namespace {

class EditViewDragScroll : public MouseFixture {
 protected:
  // Four pixels a row: 50 rows fit.
  void ZoomRowsTo(int topRow) {
    view.VerticalZoomIn();
    view.VerticalScroll(VerticalScrollCode::Top);
    for (int i = 0; i < topRow; ++i) {
      view.VerticalScroll(VerticalScrollCode::RowDown);
    }
    ASSERT_EQ(view.VerticalTopRow(), topRow);
    listener.Take();
  }
};

TEST_F(EditViewDragScroll, BeyondTheLeftEdgeAQuarterScreenIsScrolled) {
  view.Show(2000, 1000);
  Press(100);
  view.Move({-10, 50});
  EXPECT_EQ(view.FirstVisibleFrame(), 1750);
  EXPECT_TRUE(listener.Heard("pointer 115 50"));
  EXPECT_EQ(view.Selected().AnchorFrame(), 2200);
  EXPECT_EQ(view.Selected().EndFrame(), 1980);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{115, 225}));
  Release(115);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{1980, 2200}));
}

TEST_F(EditViewDragScroll, BeyondTheRightEdgeLikewise) {
  view.Show(2000, 1000);
  Press(100);
  view.Move({520, 50});
  EXPECT_EQ(view.FirstVisibleFrame(), 2250);
  EXPECT_TRUE(listener.Heard("pointer 395 50"));
  EXPECT_EQ(view.Selected().EndFrame(), 3040);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{0, 395}));
  Release(395);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{2200, 3040}));
}

TEST_F(EditViewDragScroll, AtTheStartTheEdgeCountsAsZero) {
  Press(100);
  view.Move({-40, 50});
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(listener.Count("pointer"), 0);
  EXPECT_EQ(view.Selected().EndFrame(), 0);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{0, 100}));
}

TEST_F(EditViewDragScroll, NearTheStartThePointerStaysOnTheFirstFrame) {
  view.Show(100, 1000);
  Press(100);
  view.Move({-200, 50});
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_TRUE(listener.Heard("pointer 0 50"));
  EXPECT_EQ(view.Selected().EndFrame(), 0);
}

TEST_F(EditViewDragScroll, AtTheEndTheEdgeCountsAsTheEnd) {
  view.Show(9000, 1000);
  Press(100);
  view.Move({700, 50});
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
  EXPECT_EQ(listener.Count("pointer"), 0);
  EXPECT_EQ(view.Selected().EndFrame(), 10'000);
}

TEST_F(EditViewDragScroll, TheEdgesThemselvesDoNotScroll) {
  view.Show(2000, 1000);
  Press(100);
  view.Move({0, 50});
  view.Move({500, 50});
  EXPECT_EQ(view.FirstVisibleFrame(), 2000);
}

TEST_F(EditViewDragScroll, WithoutAButtonNothingScrolls) {
  view.Show(2000, 1000);
  view.Move({-10, -10});
  EXPECT_EQ(view.FirstVisibleFrame(), 2000);
  EXPECT_EQ(listener.Count("pointer"), 0);
}

TEST_F(EditViewDragScroll, ToolsTwoAndFiveDoNotScrollSideways) {
  for (int tool = 0; tool < 8; ++tool) {
    view.Show(2000, 1000);
    view.SetTool(tool);
    Press(100);
    view.Move({-10, 50});
    const bool scrolls = tool != 2 && tool != 5;
    EXPECT_EQ(view.FirstVisibleFrame(), scrolls ? 1750 : 2000) << tool;
    view.Move({510, 50});
    EXPECT_EQ(view.FirstVisibleFrame(), 2000) << tool;
    view.CancelDrag();
  }
}

TEST_F(EditViewDragScroll, AboveTheTopTheRowsArePagedUp) {
  ZoomRowsTo(20);
  view.SetTool(1);
  Press(100);
  view.Move({110, -5});
  EXPECT_EQ(view.VerticalTopRow(), 8);
  EXPECT_TRUE(listener.Heard("pointer 110 30"));
  view.Move({110, -5});
  EXPECT_EQ(view.VerticalTopRow(), 0);
  listener.Take();
  view.Move({110, -5});
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewDragScroll, BelowTheBottomTheRowsArePagedDown) {
  ZoomRowsTo(60);
  view.SetTool(1);
  Press(100);
  view.Move({110, 200});
  EXPECT_EQ(view.VerticalTopRow(), 60);
  view.Move({110, 205});
  EXPECT_EQ(view.VerticalTopRow(), 72);
  EXPECT_TRUE(listener.Heard("pointer 110 170"));
  view.Move({110, 205});
  EXPECT_EQ(view.VerticalTopRow(), 78);
  listener.Take();
  view.Move({110, 205});
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewDragScroll, WithTheSelectionToolTheRowsStay) {
  ZoomRowsTo(20);
  Press(100);
  view.Move({110, -5});
  view.Move({110, 205});
  EXPECT_EQ(view.VerticalTopRow(), 20);
  EXPECT_EQ(listener.Count("pointer"), 0);
}

TEST_F(EditViewDragScroll, WhereAllRowsFitNothingIsPaged) {
  view.SetTool(1);
  Press(100);
  view.Move({110, -5});
  view.Move({110, 205});
  EXPECT_EQ(listener.Count("pointer"), 0);
  EXPECT_EQ(listener.Count("rows"), 0);
}

TEST_F(EditViewDragScroll, OverACornerBothDirectionsScrollAtOnce) {
  ZoomRowsTo(20);
  view.Show(2000, 1000);
  view.SetTool(1);
  Press(100);
  listener.Take();
  view.Move({-10, -5});
  EXPECT_EQ(view.FirstVisibleFrame(), 1750);
  EXPECT_EQ(view.VerticalTopRow(), 8);
  EXPECT_EQ(listener.Count("pointer"), 1);
  EXPECT_TRUE(listener.Heard("pointer 115 30"));
}

}  // namespace
}  // namespace tembrel
