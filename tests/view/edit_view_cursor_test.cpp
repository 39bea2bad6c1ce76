#include <gtest/gtest.h>

#include "tests/view/RecordingListener.h"
#include "view/EditView.h"

namespace tembrel {
namespace {

class EditViewCursor : public testing::Test {
 protected:
  EditViewCursor() {
    view.SetClientSize(500, 175);
    view.SetSound(10'000, 44100, 4);
    view.Show(0, 1000);
    listener.Take();
  }

  bool Key(EditKey key) { return view.KeyPress(key, false, false); }
  bool ShiftKey(EditKey key) { return view.KeyPress(key, true, false); }
  bool ControlKey(EditKey key) { return view.KeyPress(key, false, true); }
  void Click(double x, MouseButton button = MouseButton::Left) {
    view.Press(button, {x, 50});
    view.Release(button, {x, 50});
  }

  RecordingListener listener;
  EditView view{listener};
};

TEST_F(EditViewCursor, AVisibleFrameIsSetWithoutScrolling) {
  view.SetCursorPosition(600, false);
  EXPECT_EQ(view.CursorFrame(), 600);
  EXPECT_EQ(view.CursorPixel(), 300);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 600", "counter 600 44100"}));
}

TEST_F(EditViewCursor, AnInvisibleFrameIsScrolledTo) {
  view.SetCursorPosition(3500, false);
  EXPECT_EQ(view.CursorFrame(), 3500);
  EXPECT_EQ(view.FirstVisibleFrame(), 3000);
  EXPECT_TRUE(listener.Heard("repaint"));
}

TEST_F(EditViewCursor, TheFrameAfterTheLastVisibleOneIsScrolledTo) {
  view.SetCursorPosition(999, false);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  view.SetCursorPosition(1000, false);
  EXPECT_EQ(view.FirstVisibleFrame(), 1000);
}

TEST_F(EditViewCursor, TheSameFrameWithoutForceIsIgnored) {
  view.SetCursorPosition(0, false);
  view.SetCursorPosition(-3, false);
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewCursor, ForceAlwaysScrollsToTheFramesScreen) {
  view.Show(500, 1000);
  view.SetCursorPosition(600, false);
  EXPECT_EQ(view.FirstVisibleFrame(), 500);
  view.SetCursorPosition(600, true);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
  EXPECT_EQ(view.CursorFrame(), 600);
}

TEST_F(EditViewCursor, FramesOutsideTheSoundBecomeItsEnds) {
  view.SetCursorPosition(500, false);
  view.SetCursorPosition(-1, false);
  EXPECT_EQ(view.CursorFrame(), 0);
  view.SetCursorPosition(50'000, false);
  EXPECT_EQ(view.CursorFrame(), 10'000);
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
}

TEST_F(EditViewCursor, TheEndOfTheSoundIsVisibleAtTheRightEdge) {
  view.SetCursorPosition(10'000, false);
  EXPECT_TRUE(view.IsVisible(10'000));
  EXPECT_EQ(view.CursorPixel(), 500);
  view.HorizontalScroll(ScrollCode::LineRight);
  EXPECT_EQ(view.CursorFrame(), 10'000);
}

TEST_F(EditViewCursor, AClickPutsTheCursorUnderTheMouse) {
  EXPECT_TRUE(view.Press(MouseButton::Left, {100, 50}));
  EXPECT_TRUE(view.Dragging());
  EXPECT_FALSE(view.CursorShown());
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 0"}));
  EXPECT_TRUE(view.Release(MouseButton::Left, {100, 50}));
  EXPECT_FALSE(view.Dragging());
  EXPECT_TRUE(view.CursorShown());
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 200", "notify 200", "counter 200 44100"}));
}

TEST_F(EditViewCursor, HalfPixelsOfDenseScreensCount) {
  Click(100.5);
  EXPECT_EQ(view.CursorFrame(), 201);
}

TEST_F(EditViewCursor, AReleaseOutsideIsMovedToTheEdge) {
  Click(-50);
  EXPECT_EQ(view.CursorFrame(), 0);
  Click(5000);
  EXPECT_EQ(view.CursorFrame(), 998);
}

TEST_F(EditViewCursor, AClickBeyondTheSoundGoesToItsEnd) {
  view.Show(0, 30'000);
  Click(400);
  EXPECT_EQ(view.CursorFrame(), 10'000);
}

TEST_F(EditViewCursor, DuringADragTheCursorCannotBeSet) {
  view.Press(MouseButton::Left, {10, 50});
  listener.Take();
  view.SetCursorPosition(700, true);
  EXPECT_EQ(view.CursorFrame(), 0);
  EXPECT_TRUE(listener.Take().empty());
  view.Release(MouseButton::Left, {10, 50});
  EXPECT_EQ(view.CursorFrame(), 20);
}

TEST_F(EditViewCursor, TheRightButtonPutsTheCursorWithToolZeroOnly) {
  Click(100, MouseButton::Right);
  EXPECT_EQ(view.CursorFrame(), 200);
  view.SetTool(3);
  listener.Take();
  EXPECT_FALSE(view.Press(MouseButton::Right, {300, 50}));
  EXPECT_FALSE(view.Release(MouseButton::Right, {300, 50}));
  EXPECT_EQ(view.CursorFrame(), 200);
  EXPECT_TRUE(listener.Take().empty());
  Click(300);
  EXPECT_EQ(view.CursorFrame(), 600);
}

TEST_F(EditViewCursor, AnotherButtonDuringADragIsIgnored) {
  view.Press(MouseButton::Left, {100, 50});
  EXPECT_FALSE(view.Press(MouseButton::Right, {300, 50}));
  EXPECT_FALSE(view.Release(MouseButton::Right, {300, 50}));
  EXPECT_TRUE(view.Dragging());
  EXPECT_TRUE(view.Release(MouseButton::Left, {102, 50}));
  EXPECT_FALSE(view.Dragging());
}

TEST_F(EditViewCursor, AReleaseWithoutAPressIsIgnored) {
  EXPECT_FALSE(view.Release(MouseButton::Left, {100, 50}));
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewCursor, ACancelledDragLeavesTheCursor) {
  Click(100);
  view.Press(MouseButton::Left, {300, 50});
  listener.Take();
  view.CancelDrag();
  EXPECT_FALSE(view.Dragging());
  EXPECT_EQ(view.CursorFrame(), 200);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 200 200"}));
}

TEST_F(EditViewCursor, HomeAndEndBothGoToFrameZero) {
  for (const EditKey key : {EditKey::Home, EditKey::End}) {
    view.SetCursorPosition(7000, false);
    listener.Take();
    EXPECT_TRUE(Key(key));
    EXPECT_EQ(view.CursorFrame(), 0);
    EXPECT_EQ(view.FirstVisibleFrame(), 0);
    EXPECT_EQ(listener.Take(), (Calls{"cursor 7000 0", "bar 0", "repaint", "counter 0 44100", "notify 0"}));
  }
}

TEST_F(EditViewCursor, F12GoesAScreenOnAndF11AScreenBack) {
  EXPECT_TRUE(Key(EditKey::F12));
  EXPECT_EQ(view.CursorFrame(), 1000);
  EXPECT_EQ(view.FirstVisibleFrame(), 1000);
  EXPECT_TRUE(listener.Heard("notify 1000"));
  EXPECT_TRUE(listener.Heard("counter 1000 44100"));
  Key(EditKey::F12);
  Key(EditKey::F11);
  EXPECT_EQ(view.CursorFrame(), 1000);
  EXPECT_EQ(view.FirstVisibleFrame(), 1000);
  Key(EditKey::F11);
  Key(EditKey::F11);
  EXPECT_EQ(view.CursorFrame(), 0);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
}

TEST_F(EditViewCursor, F12NearTheEndStopsAtTheEnd) {
  view.Show(8500, 1000);
  Key(EditKey::F12);
  EXPECT_EQ(view.CursorFrame(), 9500);
  EXPECT_EQ(view.FirstVisibleFrame(), 9000);
  for (int i = 0; i < 3; ++i) {
    Key(EditKey::F12);
    EXPECT_EQ(view.CursorFrame(), 10'000);
    EXPECT_EQ(view.FirstVisibleFrame(), 9000);
  }
  view.Show(0, 30'000);
  Key(EditKey::F12);
  EXPECT_EQ(view.CursorFrame(), 10'000);
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
}

TEST_F(EditViewCursor, LeftAndRightStepOnePixelsWorthOfFrames) {
  Key(EditKey::Right);
  EXPECT_EQ(view.CursorFrame(), 2);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 2", "counter 2 44100", "notify 2"}));
  Key(EditKey::Left);
  EXPECT_EQ(view.CursorFrame(), 0);
  listener.Take();
  Key(EditKey::Left);
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewCursor, AStepIsAtLeastOneFrame) {
  view.Show(0, 100);
  Key(EditKey::Right);
  EXPECT_EQ(view.CursorFrame(), 1);
}

TEST_F(EditViewCursor, AStepOffTheScreenScrolls) {
  view.SetCursorPosition(999, false);
  Key(EditKey::Right);
  EXPECT_EQ(view.CursorFrame(), 1001);
  EXPECT_EQ(view.FirstVisibleFrame(), 1000);
  view.SetCursorPosition(10'000, false);
  Key(EditKey::Right);
  EXPECT_EQ(view.CursorFrame(), 10'000);
}

TEST_F(EditViewCursor, ShiftWithLeftAndRightPressesTheNeighbouringTool) {
  EXPECT_TRUE(ShiftKey(EditKey::Left));
  EXPECT_EQ(view.ToolIndex(), 7);
  EXPECT_TRUE(ShiftKey(EditKey::Right));
  EXPECT_TRUE(ShiftKey(EditKey::Right));
  EXPECT_EQ(view.ToolIndex(), 1);
  EXPECT_EQ(listener.Take(), (Calls{"tool 7", "tool 0", "tool 1"}));
  EXPECT_EQ(view.CursorFrame(), 0);
}

TEST_F(EditViewCursor, ToolsCannotBeChangedByKeysDuringADrag) {
  view.Press(MouseButton::Left, {5, 50});
  listener.Take();
  ShiftKey(EditKey::Right);
  EXPECT_EQ(view.ToolIndex(), 0);
  EXPECT_TRUE(listener.Take().empty());
}

TEST_F(EditViewCursor, ToolsOutsideTheEightAreRefused) {
  view.SetTool(7);
  view.SetTool(8);
  view.SetTool(-1);
  EXPECT_EQ(view.ToolIndex(), 7);
}

TEST_F(EditViewCursor, ControlWithPageKeysScrollsByAQuarterScreen) {
  EXPECT_TRUE(ControlKey(EditKey::PageDown));
  EXPECT_EQ(view.FirstVisibleFrame(), 250);
  EXPECT_TRUE(ControlKey(EditKey::PageUp));
  EXPECT_EQ(view.FirstVisibleFrame(), 0);
}

TEST_F(EditViewCursor, PageUpDownAndTheArrowsScrollTheRows) {
  view.SetClientSize(500, 200);
  view.VerticalZoomIn();
  Key(EditKey::PageDown);
  EXPECT_EQ(view.VerticalTopRow(), 12);
  Key(EditKey::Down);
  EXPECT_EQ(view.VerticalTopRow(), 13);
  Key(EditKey::Up);
  EXPECT_EQ(view.VerticalTopRow(), 12);
  Key(EditKey::PageUp);
  EXPECT_EQ(view.VerticalTopRow(), 0);
  ControlKey(EditKey::End);
  EXPECT_EQ(view.VerticalTopRow(), 78);
  ControlKey(EditKey::Home);
  EXPECT_EQ(view.VerticalTopRow(), 0);
  EXPECT_EQ(view.CursorFrame(), 0);
  EXPECT_EQ(listener.Count("notify"), 0);
}

}  // namespace
}  // namespace tembrel
