#include <gtest/gtest.h>

#include "device/RecordingName.h"

namespace tembrel {
namespace {

TEST(RecordingName, AlwaysEndsInWav) {
  EXPECT_EQ(RecordingPath("/music/take"), "/music/take.WAV");
  EXPECT_EQ(RecordingPath("/music/take.wav"), "/music/take.WAV");
  EXPECT_EQ(RecordingPath("/music/take.mp3"), "/music/take.WAV");
  EXPECT_EQ(RecordingPath("/music/take 1.2.wav"), "/music/take 1.2.WAV");
  EXPECT_EQ(RecordingPath("take."), "take.WAV");
}

TEST(RecordingName, ADotInAFolderIsNoExtension) {
  EXPECT_EQ(RecordingPath("/music.old/take"), "/music.old/take.WAV");
  EXPECT_FALSE(LosesItsExtension("/music.mp3/take"));
}

TEST(RecordingName, AnExtensionThatBeginsWithWavIsKept) {
  EXPECT_FALSE(LosesItsExtension("take"));
  EXPECT_FALSE(LosesItsExtension("take.wav"));
  EXPECT_FALSE(LosesItsExtension("take.WaV"));
  EXPECT_FALSE(LosesItsExtension("take.wave"));
  EXPECT_TRUE(LosesItsExtension("take.mp3"));
  EXPECT_TRUE(LosesItsExtension("take.wa"));
  EXPECT_TRUE(LosesItsExtension("take."));
  EXPECT_TRUE(LosesItsExtension("take.wav.mp3"));
}

}  // namespace
}  // namespace tembrel
