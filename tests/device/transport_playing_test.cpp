#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TransportStage.h"

namespace tembrel::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr TransportButtons kNoneDown{};
constexpr TransportButtons kPlayDown{.play = true, .pause = false, .record = false};

TEST(TransportPlaying, PlayGoesFromTheLeftEdgeOfTheViewToTheEnd) {
  TransportStage stage;
  stage.Document().first = 44100LL * 10;
  stage.Document().onScreen = 44100LL * 5;
  stage.transport.Play();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 10000", "play"));
  EXPECT_TRUE(stage.transport.Playing());
  EXPECT_FALSE(stage.transport.PlayScreenMode());
  EXPECT_TRUE(stage.host.ticking);
  EXPECT_EQ(stage.transport.Buttons(), kPlayDown);
  stage.Run(49'999);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("stop", "close"));
}

TEST(TransportPlaying, FromTheCursorToTheEnd) {
  TransportStage stage;
  stage.Document().cursor = 44100LL * 58;
  stage.transport.PlayFromCursor();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 58000", "play"));
  stage.Run(1999);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPlaying, AnEightBitMonoDocumentStartsAtItsOwnRate) {
  TransportStage stage;
  stage.Document().rate = 11025;
  stage.Document().cursor = 11025;
  stage.transport.PlayFromCursor();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 1000", "play"));
}

TEST(TransportPlaying, FromTheLastFrameItEndsAtTheFirstTick) {
  TransportStage stage;
  stage.Document().cursor = stage.Document().frames;
  stage.transport.PlayFromCursor();
  EXPECT_TRUE(stage.transport.Playing());
  stage.transport.OnTick();
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPlaying, ThePlayButtonIsDownBeforeTheDeviceIsAsked) {
  TransportStage stage;
  std::vector<std::size_t> callsAtChanges;
  stage.host.onChange = [&] {
    EXPECT_TRUE(stage.transport.Buttons().play);
    callsAtChanges.push_back(stage.device.calls.size());
  };
  stage.transport.Play();
  ASSERT_FALSE(callsAtChanges.empty());
  EXPECT_EQ(callsAtChanges.front(), 0U);
}

TEST(TransportPlaying, TheCursorFollowsTheClock) {
  TransportStage stage;
  stage.clock.now = 5'000;
  stage.transport.Play();
  stage.Run(300);
  EXPECT_THAT(stage.Document().cursorMoves, ElementsAre(4410, 8820, 13230));
  EXPECT_THAT(stage.Document().forced, Each(false));
}

// However late and irregular the ticks come.
TEST(TransportPlaying, ThePositionIsTheClocksAtEveryTick) {
  TransportStage stage;
  stage.Document().first = 22050;
  stage.transport.Play();
  const std::uint32_t start = stage.clock.now;
  for (const std::uint32_t late : {100U, 1U, 250U, 99U, 1000U, 100U, 3U}) {
    stage.clock.now += late;
    stage.transport.OnTick();
    const std::int64_t exact = 22050 + (stage.clock.now - start) * 441LL / 10;
    EXPECT_EQ(stage.Document().cursor, exact);
  }
}

TEST(TransportPlaying, TheViewScrollsAlong) {
  TransportStage stage;
  stage.Document().onScreen = 44100;
  stage.transport.Play();
  stage.Run(1500);
  EXPECT_EQ(stage.Document().cursor, 66150);
  EXPECT_EQ(stage.Document().first, 44100);
}

TEST(TransportPlaying, AtTheEndTheCursorGoesBackToTheLeftEdgeAsItThenStands) {
  TransportStage stage;
  stage.Document().frames = 44100LL * 2;
  stage.Document().onScreen = 44100;
  stage.transport.Play();
  stage.Run(2000);
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_EQ(stage.Document().first, 44100);
  EXPECT_EQ(stage.Document().cursorMoves.back(), 44100);
  EXPECT_EQ(stage.transport.Buttons(), kNoneDown);
  EXPECT_FALSE(stage.host.ticking);
}

TEST(TransportPlaying, TheScreenRunsExactlyOneScreenfulAndTheViewStandsStill) {
  TransportStage stage;
  stage.Document().first = 44100LL * 20;
  stage.Document().onScreen = 44100LL * 2;
  stage.transport.PlayScreen();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open song.wav 20000", "play"));
  EXPECT_TRUE(stage.transport.PlayScreenMode());
  stage.Run(1900);
  EXPECT_EQ(stage.Document().cursor, 44100LL * 20 + 83790);
  stage.Document().cursorMoves.clear();
  stage.Run(99);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_FALSE(stage.transport.PlayScreenMode());
  // The position at the end is the right edge: it is not moved there any more.
  EXPECT_THAT(stage.Document().cursorMoves, ElementsAre(44100LL * 20 + 88155, 44100LL * 20));
  EXPECT_EQ(stage.Document().first, 44100LL * 20);
}

TEST(TransportPlaying, ALateTickDoesNotScrollTheScreenThatPlays) {
  TransportStage stage;
  stage.Document().onScreen = 44100;
  stage.transport.PlayScreen();
  stage.clock.now += 5000;
  stage.transport.OnTick();
  EXPECT_THAT(stage.Document().cursorMoves, ElementsAre(0));
  EXPECT_EQ(stage.Document().first, 0);
}

TEST(TransportPlaying, OnAScreenScrolledByHandTheCursorRunsOn) {
  TransportStage stage;
  stage.Document().onScreen = 44100;
  stage.transport.PlayScreen();
  stage.Run(500);
  stage.Document().first = 441;
  stage.Run(400);
  EXPECT_EQ(stage.Document().cursor, 39690);
}

TEST(TransportPlaying, PlayAgainStops) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.device.TakeCalls();
  stage.transport.Play();
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_EQ(stage.transport.Buttons(), kNoneDown);
  EXPECT_FALSE(stage.host.ticking);
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("stop", "close"));
  // Stopped by hand the cursor stays.
  EXPECT_EQ(stage.Document().cursor, 44100);
}

TEST(TransportPlaying, TheOtherCommandsDoNothingMeanwhile) {
  TransportStage stage;
  stage.transport.Play();
  stage.device.TakeCalls();
  stage.transport.PlayFromCursor();
  stage.transport.PlayScreen();
  EXPECT_TRUE(stage.transport.Playing());
  EXPECT_FALSE(stage.transport.PlayScreenMode());
  EXPECT_THAT(stage.device.TakeCalls(), IsEmpty());
}

TEST(TransportPlaying, WithoutADocumentNothingHappens) {
  TransportStage stage;
  stage.host.hasDocument = false;
  stage.transport.Play();
  stage.transport.PlayFromCursor();
  stage.transport.PlayScreen();
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_EQ(stage.transport.Buttons(), kNoneDown);
  EXPECT_THAT(stage.device.calls, IsEmpty());
}

TEST(TransportPlaying, AnEmptyDocumentEndsAtTheFirstTick) {
  TransportStage stage;
  stage.Document().frames = 0;
  stage.Document().file.clear();
  stage.transport.Play();
  EXPECT_FALSE(stage.host.silent);
  stage.transport.OnTick();
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPlaying, StopWithNothingToStopDoesNothing) {
  TransportStage stage;
  stage.transport.Stop();
  EXPECT_THAT(stage.device.calls, IsEmpty());
  EXPECT_EQ(stage.host.changes, 0);
}

TEST(TransportPlaying, ADeviceThatFailsIsNotHeardOfAndTheCursorRuns) {
  TransportStage stage;
  stage.device.openPlaybackResult = 5;
  stage.transport.Play();
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(59'900);
  EXPECT_EQ(stage.Document().cursor, 44100LL * 599 / 10);
  stage.Run(100);
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_THAT(stage.prompts.errors, IsEmpty());
  EXPECT_FALSE(stage.host.silent);
}

TEST(TransportPlaying, WithoutAFileToPlayTheCursorRunsAndItIsSaid) {
  TransportStage stage;
  stage.Document().file.clear();
  stage.transport.Play();
  EXPECT_THAT(stage.device.TakeCalls(), IsEmpty());
  EXPECT_TRUE(stage.host.silent);
  stage.Run(1000);
  EXPECT_EQ(stage.Document().cursor, 44100);
  stage.transport.Stop();
  EXPECT_FALSE(stage.host.silent);
}

TEST(TransportPlaying, AClockThatStartsAnewMovesNothing) {
  TransportStage stage;
  stage.clock.now = 0xFFFF'FE00;  // 512 ms before it starts from 0
  stage.transport.Play();
  for (int tick = 1; tick <= 20; ++tick) {
    stage.Run(100);
    ASSERT_EQ(stage.Document().cursor, 4410 * tick);
    ASSERT_TRUE(stage.transport.Playing());
  }
  stage.transport.Pause();
  stage.Run(5000);
  stage.transport.Pause();
  stage.Run(57'999);
  EXPECT_TRUE(stage.transport.Playing());
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPlaying, AClockThatStartsAnewInAPauseMovesNothing) {
  TransportStage stage;
  stage.clock.now = 0xFFFF'FFFF - 1000;
  stage.transport.Play();
  stage.Run(500);
  stage.transport.Pause();
  stage.Run(5000);
  stage.transport.Pause();
  stage.Run(100);
  EXPECT_EQ(stage.Document().cursor, 441 * 60);
}

TEST(TransportPlaying, ALateEndIsTheEnd) {
  TransportStage stage;
  stage.transport.Play();
  stage.clock.now += 100'000;
  stage.transport.OnTick();
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPlaying, ATickAfterTheEndDoesNothing) {
  TransportStage stage;
  stage.transport.Play();
  stage.transport.Stop();
  stage.clock.now += 100;
  stage.transport.OnTick();
  EXPECT_THAT(stage.Document().cursorMoves, IsEmpty());
}

TEST(TransportPlaying, TheDocumentIsReadAnewAtEveryPlay) {
  TransportStage stage;
  stage.transport.Play();
  stage.transport.Stop();
  stage.Document().file = "other.wav";
  stage.Document().rate = 22050;
  stage.Document().first = 22050;
  stage.device.TakeCalls();
  stage.transport.Play();
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("open other.wav 1000", "play"));
}

TEST(TransportPlaying, ADocumentThatClosesStopsPlaying) {
  TransportStage stage;
  stage.transport.Play();
  stage.device.TakeCalls();
  stage.transport.DocumentClosing();
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_THAT(stage.device.TakeCalls(), ElementsAre("stop", "close"));
  EXPECT_FALSE(stage.host.ticking);
}

TEST(TransportPlaying, ADocumentThatIsGoneStopsAtTheNextTick) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(100);
  stage.Document().cursorMoves.clear();
  stage.Document().open = false;
  stage.transport.OnTick();
  EXPECT_FALSE(stage.transport.Playing());
  EXPECT_THAT(stage.Document().cursorMoves, IsEmpty());
}

TEST(TransportPlaying, ADocumentThatGetsShorterPlaysToTheEndItHad) {
  TransportStage stage;
  stage.transport.Play();
  stage.Run(1000);
  stage.Document().frames = 100;
  stage.Document().first = 0;
  stage.Document().onScreen = 100;
  stage.Run(58'999);
  EXPECT_TRUE(stage.transport.Playing());
  EXPECT_EQ(stage.Document().cursor, 100);
  stage.Run(1);
  EXPECT_FALSE(stage.transport.Playing());
}

TEST(TransportPlaying, TheDeviceIsFreedWithTheTransport) {
  FakeAudioDevice device;
  FakeMixer mixer;
  const ManualClock clock;
  const Settings settings;
  ScriptedPrompts prompts;
  FakeTransportHost host;
  {
    Transport transport(device, mixer, clock, settings, prompts, host);
    transport.Play();
    device.TakeCalls();
  }
  EXPECT_THAT(device.TakeCalls(), ElementsAre("stop", "close"));
}

}  // namespace
}  // namespace tembrel::test
