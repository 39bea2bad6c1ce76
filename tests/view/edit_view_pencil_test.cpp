#include "tests/view/MouseFixture.h"

namespace tembrel {
namespace {

class EditViewPencil : public MouseFixture {
 protected:
  EditViewPencil() {
    view.SetDocumentWidth(600);
    listener.pencilHits = true;
  }

  void Arm() {
    view.Move({100, 50});
    ASSERT_TRUE(view.PencilArmed());
    listener.Take();
  }
};

TEST_F(EditViewPencil, HoveringNearASampleArmsIt) {
  view.Move({100.5, 50.9});
  EXPECT_TRUE(view.PencilArmed());
  EXPECT_EQ(listener.Take(), (Calls{"hit? 100 50 201", "shape"}));
  view.Move({101, 50});
  EXPECT_EQ(listener.Take(), (Calls{"hit? 101 50 202"}));
  listener.pencilHits = false;
  view.Move({102, 50});
  EXPECT_FALSE(view.PencilArmed());
  EXPECT_TRUE(listener.Heard("shape"));
}

TEST_F(EditViewPencil, OnlyUpToFourFramesAPixelOfTheDocumentWindow) {
  view.Show(0, 2400);
  view.Move({100, 50});
  EXPECT_TRUE(view.PencilArmed());
  view.Show(0, 2401);
  listener.Take();
  view.Move({100, 50});
  EXPECT_FALSE(view.PencilArmed());
  EXPECT_EQ(listener.Count("hit?"), 0);
}

TEST_F(EditViewPencil, WithoutSoundNobodyIsAsked) {
  view.SetSound(0, std::nullopt, 0);
  view.Move({100, 50});
  EXPECT_EQ(listener.Count("hit?"), 0);
}

TEST_F(EditViewPencil, AStrokeBeginsAtThePressAndDrawsAtEveryMove) {
  Arm();
  Press(100);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 0", "pencil begins"}));
  view.Move({102, 60});
  EXPECT_EQ(listener.Take(), (Calls{"draw 102 60", "drawn 100 103"}));
  view.Move({110, -7});
  EXPECT_EQ(listener.Take(), (Calls{"draw 110 -7", "drawn 100 111"}));
  view.Move({95, 60});
  EXPECT_EQ(listener.Take(), (Calls{"draw 95 60", "drawn 94 111"}));
  Release(95);
  EXPECT_EQ(listener.Take(),
            (Calls{"cursor 0 190", "notify 190", "shape", "pencil ends", "repaint", "counter 190 44100"}));
  EXPECT_FALSE(view.PencilArmed());
  EXPECT_FALSE(view.HasSelection());
  EXPECT_FALSE(view.Selected().Exists());
}

TEST_F(EditViewPencil, AStrokeNeitherScrollsNorSelects) {
  view.Show(2000, 1000);
  Arm();
  Press(100);
  listener.Take();
  view.Move({-20, 50});
  view.Move({520, 50});
  EXPECT_EQ(listener.Take(), (Calls{"draw -20 50", "drawn -21 100", "draw 520 50", "drawn -21 521"}));
  EXPECT_TRUE(view.SelectionStrip().Empty());
}

TEST_F(EditViewPencil, ANewStrokeHasItsOwnRange) {
  Arm();
  Press(100);
  view.Move({200, 50});
  Release(200);
  view.Move({300, 50});
  Press(300);
  view.Move({301, 50});
  EXPECT_TRUE(listener.Heard("drawn 300 302"));
}

TEST_F(EditViewPencil, ItDrawsWithEveryTool) {
  view.SetTool(3);
  Arm();
  Press(100);
  EXPECT_TRUE(listener.Heard("pencil begins"));
}

TEST_F(EditViewPencil, ItMustBeArmedByANewHoverAfterAStroke) {
  Arm();
  Press(100);
  Release(100);
  listener.Take();
  Press(100);
  EXPECT_EQ(listener.Count("pencil"), 0);
}

TEST_F(EditViewPencil, WhenTheUndoRecordCannotBeHadNothingIsDrawn) {
  Arm();
  listener.pencilBegins = false;
  Press(100);
  view.Move({200, 50});
  EXPECT_EQ(listener.Count("draw "), 0);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{100, 200}));
  Release(200);
  EXPECT_EQ(listener.Count("pencil ends"), 0);
}

TEST_F(EditViewPencil, TheRightButtonDoesNotDraw) {
  Arm();
  view.Press(MouseButton::Right, {100, 50});
  view.Move({110, 50});
  view.Release(MouseButton::Right, {110, 50});
  EXPECT_EQ(listener.Count("pencil"), 0);
  EXPECT_EQ(listener.Count("draw"), 0);
  EXPECT_EQ(view.CursorFrame(), 220);
}

TEST_F(EditViewPencil, ZoomedOutSinceTheHoverItDoesNotDraw) {
  Arm();
  view.ZoomAll();
  Press(100);
  EXPECT_EQ(listener.Count("pencil"), 0);
}

TEST_F(EditViewPencil, ACancelledStrokeIsEnded) {
  Arm();
  Press(100);
  view.Move({110, 50});
  listener.Take();
  view.CancelDrag();
  EXPECT_TRUE(listener.Heard("pencil ends"));
  EXPECT_FALSE(view.Dragging());
  EXPECT_EQ(view.CursorFrame(), 0);
  view.Move({120, 50});
  EXPECT_EQ(listener.Count("draw "), 0);
}

TEST_F(EditViewPencil, LeavingTheViewDisarmsIt) {
  Arm();
  view.Leave();
  EXPECT_FALSE(view.PencilArmed());
  Arm();
  Press(100);
  view.Leave();
  EXPECT_TRUE(view.PencilArmed());
}

}  // namespace
}  // namespace tembrel
