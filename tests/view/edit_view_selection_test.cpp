#include "tests/view/MouseFixture.h"

namespace tembrel {
namespace {

class EditViewSelection : public MouseFixture {};

TEST_F(EditViewSelection, ADragSelectsAndAsksForTheMenu) {
  Press(100);
  view.Move({150, 50});
  view.Move({200, 60});
  EXPECT_FALSE(view.HasSelection());
  Release(200, 60);
  EXPECT_TRUE(view.HasSelection());
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 400}));
  EXPECT_EQ(view.SelectionStart(), 800);
  EXPECT_EQ(view.SelectionEnd(), 1600);
  EXPECT_EQ(view.CursorFrame(), 200);
  EXPECT_FALSE(view.Dragging());
  EXPECT_EQ(listener.Take(),
            (Calls{"cursor 0 0", "strip 100 150", "strip 150 200", "cursor 0 400", "notify 400",
                   "cursor 400 200", "notify 200", "counter 200 44100", "menu 228 59"}));
}

TEST_F(EditViewSelection, ABackwardDragSelectsTheSame) {
  Drag(200, 100);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 400}));
  EXPECT_EQ(view.CursorFrame(), 200);
  EXPECT_TRUE(listener.Heard("strip 100 200"));
  EXPECT_TRUE(listener.Heard("menu 128 49"));
}

TEST_F(EditViewSelection, AMoveInvertsOnlyWhatIsNew) {
  Press(100);
  view.Move({150, 50});
  view.Move({130, 50});
  view.Move({90, 50});
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{90, 100}));
  view.Move({90, 80});
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 0", "strip 100 150", "strip 130 150", "strip 90 130"}));
}

TEST_F(EditViewSelection, TheStripStaysUntilTheMenuHasClosed) {
  EXPECT_TRUE(view.SelectionStrip().Empty());
  Press(100);
  EXPECT_TRUE(view.SelectionStrip().Empty());
  view.Move({200, 50});
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{100, 200}));
  Release(200);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{100, 200}));
  listener.Take();
  view.ActionMenuClosed();
  EXPECT_TRUE(view.SelectionStrip().Empty());
  EXPECT_EQ(listener.Take(), (Calls{"strip 100 200"}));
}

TEST_F(EditViewSelection, AfterTheMenuTheRawSelectionIsGoneAndTheBytesStay) {
  Drag(100, 200);
  view.ActionMenuClosed();
  EXPECT_FALSE(view.HasSelection());
  EXPECT_EQ(view.Selected().AnchorFrame(), -1);
  EXPECT_EQ(view.Selected().EndFrame(), -1);
  EXPECT_EQ(view.SelectionStart(), 800);
  EXPECT_EQ(view.SelectionEnd(), 1600);
  EXPECT_TRUE(view.HasLastRange());
}

TEST_F(EditViewSelection, FourPixelsAreAClickAndFiveAreNot) {
  Drag(100, 104);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_EQ(view.CursorFrame(), 200);
  EXPECT_EQ(listener.Count("menu"), 0);
  EXPECT_TRUE(view.SelectionStrip().Empty());
  EXPECT_FALSE(view.HasLastRange());
  Drag(100, 104.5);
  EXPECT_TRUE(view.HasSelection());
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 209}));
  EXPECT_EQ(listener.Count("menu"), 1);
}

TEST_F(EditViewSelection, FourFramesAreAClickInACloseView) {
  view.Show(0, 100);
  Drag(100, 120);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_EQ(view.CursorFrame(), 20);
  Drag(120, 100);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_EQ(view.CursorFrame(), 20);
  Drag(100, 125);
  EXPECT_TRUE(view.HasSelection());
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{20, 25}));
}

TEST_F(EditViewSelection, AClickClearsNothingButTheRawSelection) {
  Drag(100, 200);
  view.ActionMenuClosed();
  Drag(300, 301);
  EXPECT_EQ(view.CursorFrame(), 600);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 400}));
}

TEST_F(EditViewSelection, APressOverAnOpenSelectionStartsNoneAndClearsIt) {
  Drag(100, 200);
  listener.Take();
  Press(300);
  view.Move({400, 50});
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{100, 200}));
  Release(400);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_TRUE(listener.Heard("strip 100 200"));
  EXPECT_EQ(listener.Count("menu"), 0);
  EXPECT_EQ(view.CursorFrame(), 800);
  EXPECT_EQ(view.SelectionStart(), 800);
}

TEST_F(EditViewSelection, OtherToolsOnlyPlaceTheCursor) {
  for (int tool = 1; tool < 8; ++tool) {
    view.SetTool(tool);
    listener.Take();
    Drag(100, 200);
    EXPECT_FALSE(view.HasSelection());
    EXPECT_EQ(view.CursorFrame(), 400);
    EXPECT_EQ(listener.Count("strip"), 0);
    EXPECT_EQ(listener.Count("menu"), 0);
  }
}

TEST_F(EditViewSelection, TheRightButtonOnlyPlacesTheCursor) {
  Drag(100, 200);
  listener.Take();
  EXPECT_TRUE(view.Press(MouseButton::Right, {300, 50}));
  view.Move({350, 50});
  EXPECT_TRUE(view.Release(MouseButton::Right, {350, 50}));
  EXPECT_EQ(view.CursorFrame(), 700);
  EXPECT_TRUE(view.HasSelection());
  EXPECT_EQ(listener.Take(), (Calls{"cursor 200 200", "cursor 200 700", "notify 700", "counter 700 44100"}));
}

TEST_F(EditViewSelection, ADragBesideTheSoundAsksForNoMenu) {
  view.Show(0, 30'000);
  Drag(200, 400);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_EQ(listener.Count("menu"), 0);
  EXPECT_TRUE(view.SelectionStrip().Empty());
  EXPECT_EQ(view.CursorFrame(), 10'000);
}

TEST_F(EditViewSelection, ADragAcrossTheEndIsClippedToTheSound) {
  view.Show(0, 30'000);
  Drag(400, 100);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{6000, 10'000}));
  EXPECT_EQ(view.SelectionEnd(), 40'000);
  EXPECT_TRUE(listener.Heard("menu 128 49"));
}

TEST_F(EditViewSelection, ADragToTheRightEdgeReachesTheLastFrame) {
  view.ZoomAll();
  Press(100);
  view.Move({650, 50});
  Release(650);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{2000, 10'000}));
  EXPECT_TRUE(listener.Heard("menu 678 49"));
}

TEST_F(EditViewSelection, AReleaseElsewhereThanTheLastMoveCounts) {
  Press(100);
  Release(200);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 400}));
}

TEST_F(EditViewSelection, ACancelledDragLeavesNoTrace) {
  Press(100);
  view.Move({200, 50});
  listener.Take();
  view.CancelDrag();
  EXPECT_FALSE(view.HasSelection());
  EXPECT_FALSE(view.Selected().Exists());
  EXPECT_EQ(view.CursorFrame(), 0);
  EXPECT_EQ(listener.Take(), (Calls{"cursor 0 0", "strip 100 200"}));
}

TEST_F(EditViewSelection, TheStripMovesWithTheView) {
  Press(100);
  view.Move({200, 50});
  view.HorizontalScroll(ScrollCode::LineRight);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{0, 75}));
  view.Move({300, 50});
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{0, 300}));
  Release(300);
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 850}));
  view.ZoomAll();
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{10, 42}));
  view.SetClientSize(1000, 200);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{20, 85}));
}

TEST_F(EditViewSelection, SelectAllTakesTheWholeSound) {
  view.SelectAll({10, 20});
  EXPECT_TRUE(view.HasSelection());
  EXPECT_EQ(view.SelectionStart(), 0);
  EXPECT_EQ(view.SelectionEnd(), 40'000);
  EXPECT_EQ(listener.Take(), (Calls{"strip 0 500", "menu 38 19"}));
}

TEST_F(EditViewSelection, SelectAllOfNothingOrOneFrameDoesNothing) {
  view.SetSound(0, std::nullopt, 0);
  listener.Take();
  view.SelectAll({});
  view.SetSound(1, 44100, 4);
  view.SelectAll({});
  EXPECT_EQ(listener.Count("menu"), 0);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_FALSE(view.HasLastRange());
  view.SetSound(2, 44100, 4);
  view.SelectAll({});
  EXPECT_EQ(listener.Count("menu"), 1);
}

TEST_F(EditViewSelection, TheLastRangeIsSelectedAgain) {
  view.SelectLastRange({10, 20});
  EXPECT_TRUE(listener.Take().empty());
  EXPECT_FALSE(view.HasLastRange());
  Drag(200, 100);
  view.ActionMenuClosed();
  listener.Take();
  view.SelectLastRange({10, 20});
  EXPECT_TRUE(view.HasSelection());
  EXPECT_EQ(view.Selected().AnchorFrame(), 200);
  EXPECT_EQ(view.Selected().EndFrame(), 400);
  EXPECT_EQ(listener.Take(), (Calls{"strip 100 200", "menu 38 19"}));
}

TEST_F(EditViewSelection, TheLastRangeIsClippedToAShorterSound) {
  Drag(100, 200);
  view.ActionMenuClosed();
  view.SoundChanged(300, 44100, 4);
  EXPECT_EQ(view.SelectionStart(), 800);
  EXPECT_EQ(view.SelectionEnd(), 1200);
  view.SelectLastRange({});
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 300}));
  EXPECT_EQ(view.SelectionEnd(), 1200);
}

TEST_F(EditViewSelection, ALastRangeCutAwayComesBackWithTheSound) {
  Drag(100, 200);
  view.ActionMenuClosed();
  view.SoundChanged(200, 44100, 4);
  listener.Take();
  view.SelectLastRange({});
  EXPECT_EQ(listener.Count("menu"), 0);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_EQ(view.SelectionStart(), 800);
  EXPECT_EQ(view.SelectionEnd(), 800);
  view.SoundChanged(10'000, 44100, 4);
  view.SelectLastRange({});
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{200, 400}));
}

TEST_F(EditViewSelection, BytesFollowTheFrameSize) {
  view.SetSelection(10, 20, {});
  EXPECT_EQ(view.SelectionStart(), 40);
  view.SoundChanged(10'000, 44100, 1);
  EXPECT_EQ(view.SelectionStart(), 10);
  EXPECT_EQ(view.SelectionEnd(), 20);
}

TEST_F(EditViewSelection, ASelectionSetByTheCallerIsNormalised) {
  view.SetSelection(300, -5, {0, 0});
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{0, 300}));
  listener.Take();
  view.SetSelection(7, 6, {0, 0});
  EXPECT_FALSE(view.HasSelection());
  EXPECT_FALSE(view.Selected().Exists());
  EXPECT_EQ(listener.Take(), (Calls{"strip 0 150"}));
  view.SetSelection(6, 8, {0, 0});
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{6, 8}));
  constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
  view.SetSelection(-kHuge, kHuge, {0, 0});
  EXPECT_EQ(view.Selected().Remembered(), (FrameRange{0, 10'000}));
}

TEST_F(EditViewSelection, ASelectionOffTheScreenStillAsksForTheMenu) {
  view.SetSelection(5000, 6000, {0, 0});
  EXPECT_TRUE(view.SelectionStrip().Empty());
  EXPECT_EQ(listener.Take(), (Calls{"menu 28 -1"}));
}

TEST_F(EditViewSelection, DuringADragSelectionsAreRefused) {
  Press(100);
  view.Move({110, 50});
  view.SelectAll({});
  view.ActionMenuClosed();
  EXPECT_EQ(listener.Count("menu"), 0);
  EXPECT_EQ(view.SelectionStrip(), (PixelColumns{100, 110}));
}

TEST_F(EditViewSelection, ANewSoundForgetsEverything) {
  Drag(100, 200);
  view.SetSound(500, 44100, 2);
  EXPECT_FALSE(view.HasSelection());
  EXPECT_FALSE(view.HasLastRange());
  EXPECT_EQ(view.SelectionStart(), 0);
  EXPECT_EQ(view.SelectionEnd(), 0);
  EXPECT_TRUE(view.SelectionStrip().Empty());
}

TEST_F(EditViewSelection, TheReadoutFollowsTheMouseInside) {
  view.Move({100, 50});
  EXPECT_EQ(listener.readout, 200);
  view.Move({500, 50});
  EXPECT_EQ(listener.readout, 1000);
  view.Move({0, 50});
  view.Move({501, 50});
  EXPECT_EQ(listener.readout, 1000);
  Press(10);
  view.Move({20, 50});
  EXPECT_EQ(listener.readout, 40);
}

}  // namespace
}  // namespace tembrel
