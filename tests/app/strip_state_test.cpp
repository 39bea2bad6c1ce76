#include <gtest/gtest.h>

#include "app/StripState.h"
#include "view/StripButtons.h"

namespace tembrel {
namespace {

constexpr StripButtonState kUseless{.enabled = false, .down = false};
constexpr StripButtonState kUseful{.enabled = true, .down = false};
constexpr StripButtonState kDown{.enabled = true, .down = true};

TEST(StripState, WithoutADocumentOneCanOnlyRecord) {
  const StripContext context;
  for (const StripButton& button : StripButtons()) {
    EXPECT_EQ(StripButtonStateOf(button.tipId, context), button.tipId == kStripRecord ? kUseful : kUseless)
        << button.tipId;
  }
}

TEST(StripState, ADocumentCanBePlayedAndRewound) {
  const StripContext context{.canPlay = true};
  EXPECT_EQ(StripButtonStateOf(kStripRewind, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripPlay, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripPause, context), kUseless);
  EXPECT_EQ(StripButtonStateOf(kStripStop, context), kUseless);
  EXPECT_EQ(StripButtonStateOf(kStripRecord, context), kUseful);
}

TEST(StripState, PlayingCanBeStoppedByPlayToo) {
  StripContext context{.down = {.play = true}, .playing = true, .canPlay = true};
  EXPECT_EQ(StripButtonStateOf(kStripPlay, context), kDown);
  EXPECT_EQ(StripButtonStateOf(kStripPause, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripStop, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripRewind, context), kUseless);
  // Another window is active that has nothing to play.
  context.canPlay = false;
  EXPECT_EQ(StripButtonStateOf(kStripPlay, context), kDown);
}

TEST(StripState, ASelectionThatIsHeardCanBeStopped) {
  const StripContext context{.canPlay = true, .auditioning = true};
  EXPECT_EQ(StripButtonStateOf(kStripStop, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripPause, context), kUseless);
  EXPECT_EQ(StripButtonStateOf(kStripPlay, context), kUseful);
}

TEST(StripState, PauseIsDownWhileItPauses) {
  const StripContext context{.down = {.play = true, .pause = true}, .playing = true, .canPlay = true};
  EXPECT_EQ(StripButtonStateOf(kStripPause, context), kDown);
}

TEST(StripState, NothingPlaysWhileARecordingRuns) {
  const StripContext context{.down = {.record = true}, .recording = true, .canPlay = true};
  EXPECT_EQ(StripButtonStateOf(kStripRecord, context), kDown);
  EXPECT_EQ(StripButtonStateOf(kStripStop, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripPause, context), kUseful);
  EXPECT_EQ(StripButtonStateOf(kStripPlay, context), kUseless);
}

TEST(StripState, WhatIsNotBuiltHasNoUse) {
  const StripContext context{.playing = true, .recording = true, .canPlay = true};
  for (const StripButton& button : StripButtons()) {
    if (!button.built) {
      EXPECT_EQ(StripButtonStateOf(button.tipId, context), kUseless) << button.tipId;
    }
  }
}

}  // namespace
}  // namespace tembrel
