#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ConsolePrompts.h"

namespace tembrel {
namespace {

using ::testing::HasSubstr;
using ::testing::internal::CaptureStderr;
using ::testing::internal::GetCapturedStderr;

TEST(ConsolePrompts, SaysErrorsAndNotesOnStandardError) {
  ConsolePrompts prompts;
  CaptureStderr();
  prompts.Error("song.wav does not exist.");
  prompts.Inform("Can't paste.");
  EXPECT_EQ(GetCapturedStderr(), "tembrel: song.wav does not exist.\ntembrel: Can't paste.\n");
}

TEST(ConsolePrompts, AnswersNoAndSaysTheQuestion) {
  ConsolePrompts prompts;
  CaptureStderr();
  EXPECT_FALSE(prompts.AskYesNo("Overwrite?"));
  EXPECT_FALSE(prompts.AskOkCancel("Another ending?", "Title"));
  EXPECT_EQ(prompts.AskYesNoCancel("Save?", "Title"), Answer::No);
  const std::string said = GetCapturedStderr();
  EXPECT_THAT(said, HasSubstr("Overwrite? No."));
  EXPECT_THAT(said, HasSubstr("Save? No."));
}

TEST(ConsolePrompts, ChooseNoFileAndCancelNothing) {
  ConsolePrompts prompts;
  EXPECT_EQ(prompts.AskOpenPath({}), std::nullopt);
  EXPECT_FALSE(prompts.AskSavePath({}, "").has_value());
  EXPECT_TRUE(prompts.ShowProgress("Opening")->Report(1, 2));
}

}  // namespace
}  // namespace tembrel
