#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TransportStage.h"

namespace tembrel::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TransportButtons kNoneDown{};
constexpr TransportButtons kPlayAndPauseDown{.play = true, .pause = true, .record = false};

TEST(TransportPausing, ClosesTheDeviceAndHoldsTheCursor) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.device.TakeCalls();
  stage.Document().cursorMoves.clear();
  stage.transport.Pause();
  EXPECT_TRUE(stage.transport.Paused());
  EXPECT_TRUE(stage.transport.Playing());
  EXPECT_TRUE(stage.host.ticking);
  EXPECT_EQ(stage.transport.Buttons(), kPlayAndPauseDown);
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("stop", "close"));
  stage.Run(3600'000);
  EXPECT_TRUE(stage.transport.Playing());
  EXPECT_THAT(stage.Document().cursorMoves, ElementsAre(44100));
}

TEST(TransportPausing, GoesOnWhereItStoodAfterFiveSeconds) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.transport.Pause();
  stage.Run(5000);
  stage.device.TakeCalls();
  stage.transport.Pause();
  EXPECT_FALSE(stage.transport.Paused());
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 1000", "play"));
  stage.Run(100);
  EXPECT_EQ(stage.Document().cursor, 44100 + 4410);
  stage.Run(58'899);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPausing, ManyTimesLosesNoTime) {
  TransportStage stage;
  stage.transport.Play();
  for (int pause = 0; pause < 10; ++pause) {
    stage.Run(730);
    stage.transport.Pause();
    stage.Run(1234);
    stage.transport.Pause();
  }
  stage.Run(100);
  EXPECT_EQ(stage.Document().cursor, 7400LL * 441 / 10);
}

TEST(TransportPausing, BetweenTicksNeitherLosesNorRepeats) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.clock.now += 90;
  stage.transport.Pause();
  EXPECT_EQ(stage.Document().cursor, 1090 * 441 / 10);
  stage.clock.now += 5000;
  stage.device.TakeCalls();
  stage.transport.Pause();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 1090", "play"));
  stage.Run(2010);
  stage.clock.now += 30;
  stage.transport.Pause();
  stage.clock.now += 5000;
  stage.device.TakeCalls();
  stage.transport.Pause();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 3130", "play"));
}

TEST(TransportPausing, TheCursorDoesNotLeaveTheScreenThatPlays) {
  TransportStage stage;
  stage.Document().onScreen = 44100;
  stage.transport.PlayScreen();
  stage.Run(900);
  stage.clock.now += 99;
  stage.transport.Pause();
  EXPECT_EQ(stage.Document().cursor, 999 * 441 / 10);
  stage.transport.Pause();
  stage.clock.now += 11;
  stage.transport.Pause();
  EXPECT_EQ(stage.Document().cursor, 999 * 441 / 10);
  EXPECT_EQ(stage.Document().first, 0);
}

TEST(TransportPausing, LeavesADocumentThatIsGoneAlone) {
  TransportStage stage;
  stage.transport.Play();
  stage.Document().open = false;
  stage.clock.now += 50;
  stage.transport.Pause();
  EXPECT_THAT(stage.Document().cursorMoves, IsEmpty());
}

TEST(TransportPausing, ACursorMovedOnTakesSoundAndPositionAlong) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.transport.Pause();
  stage.Run(5000);
  stage.Document().cursor = 441'000;
  stage.device.TakeCalls();
  stage.transport.Pause();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 10000", "play"));
  stage.Run(100);
  EXPECT_EQ(stage.Document().cursor, 441'000 + 4410);
  stage.Run(49'899);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPausing, ACursorMovedBackBeforeTheStartPlaysToTheEnd) {
  TransportStage stage;
  stage.Document().cursor = 441'000;
  stage.transport.PlayFromCursor();
  stage.Run(1000);
  stage.transport.Pause();
  stage.Document().cursor = 0;
  stage.device.TakeCalls();
  stage.transport.Pause();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 0", "play"));
  stage.Run(100);
  EXPECT_EQ(stage.Document().cursor, 4410);
  stage.Run(500);
  stage.transport.Pause();
  stage.Run(5000);
  stage.transport.Pause();
  stage.Run(59'399);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPausing, ACursorMovedToTheEndEndsPlaying) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.transport.Pause();
  stage.Document().cursor = stage.Document().frames;
  stage.transport.Pause();
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPausing, TheScreenStaysTheScreen) {
  TransportStage stage;
  stage.Document().onScreen = 44100;
  stage.transport.PlayScreen();
  stage.Run(500);
  stage.transport.Pause();
  stage.Run(500);
  stage.transport.Pause();
  EXPECT_TRUE(stage.transport.PlayScreenMode());
  stage.Run(499);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_EQ(stage.Document().first, 0);
}

TEST(TransportPausing, WithNothingDownDoesNothing) {
  TransportStage stage;
  stage.transport.Pause();
  EXPECT_EQ(stage.transport.Buttons(), kNoneDown);
  EXPECT_EQ(stage.host.changes, 0);
}

TEST(TransportPausing, StopInAPauseReleasesAllButtons) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.transport.Pause();
  stage.transport.Stop();
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_FALSE(stage.transport.Paused());
  EXPECT_EQ(stage.transport.Buttons(), kNoneDown);
  EXPECT_FALSE(stage.host.ticking);
  stage.Run(1000);
  stage.transport.Play();
  stage.Document().cursorMoves.clear();
  stage.Run(100);
  EXPECT_THAT(stage.Document().cursorMoves, ElementsAre(4410));
}

TEST(TransportPausing, PlayInAPauseStops) {
  TransportStage stage;
  stage.transport.Play();
  stage.transport.Pause();
  stage.transport.Play();
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_FALSE(stage.transport.Paused());
}

TEST(TransportPausing, ADocumentThatClosesInAPauseStopsPlaying) {
  TransportStage stage;
  stage.transport.Play();
  stage.transport.Pause();
  stage.Document().open = false;
  stage.transport.OnTick();
  EXPECT_FALSE(stage.transport.Playing());
  stage.transport.Pause();
  EXPECT_EQ(stage.transport.Buttons(), kNoneDown);
}

TEST(TransportPausing, AFileThatIsGoneByThenPlaysInSilence) {
  TransportStage stage;
  stage.transport.Play();
  stage.transport.Pause();
  stage.Document().file.clear();
  stage.device.TakeCalls();
  stage.transport.Pause();
  EXPECT_TRUE(stage.transport.Playing());
  EXPECT_TRUE(stage.host.silent);
  EXPECT_THAT(stage.device.TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace tembrel::test
