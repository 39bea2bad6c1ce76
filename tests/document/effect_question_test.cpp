#include <gtest/gtest.h>

#include "document/EffectQuestion.h"
#include "tests/support/ScriptedPrompts.h"

namespace tembrel::test {
namespace {

class EffectQuestion : public ::testing::Test {
 protected:
  EffectQuestion() { clip.format = PcmFormat(22050, 8, 2); }

  std::optional<EffectParameters> Ask(EffectParameter wanted) {
    return AskEffectParameters(prompts, wanted, clip, preset);
  }

  AudioClip clip;
  ScriptedPrompts prompts;
  RememberedPreset preset;
};

TEST_F(EffectQuestion, AnEffectWithoutParameterAsksNothing) {
  EXPECT_TRUE(Ask(EffectParameter::None));
  EXPECT_TRUE(prompts.parametersAsked.empty());
}

TEST_F(EffectQuestion, AmplifyStartsFromAHundredPercentEveryTime) {
  prompts.amplifyAnswer = 250;
  EXPECT_EQ(Ask(EffectParameter::Percent).value().percent, 250);
  Ask(EffectParameter::Percent);
  EXPECT_EQ(prompts.parametersAsked, (std::vector<std::string>{"amplify 100", "amplify 100"}));
}

TEST_F(EffectQuestion, FormatStartsFromTheFormatOfTheSound) {
  prompts.formatAnswer = FormatChoice{44100, 16, 1};
  EXPECT_EQ(Ask(EffectParameter::Format).value().format, (FormatChoice{44100, 16, 1}));
  EXPECT_EQ(prompts.parametersAsked, std::vector<std::string>{"format 22050 8 2"});
}

TEST_F(EffectQuestion, ThePresetChosenWithOkIsOfferedNextTime) {
  prompts.filterAnswer = 7;
  EXPECT_EQ(Ask(EffectParameter::FilterPreset).value().preset, 7);
  prompts.filterAnswer = std::nullopt;
  EXPECT_FALSE(Ask(EffectParameter::FilterPreset));
  Ask(EffectParameter::FilterPreset);
  EXPECT_EQ(prompts.parametersAsked, (std::vector<std::string>{"filter 0", "filter 7", "filter 7"}));
}

TEST_F(EffectQuestion, SteppingBackGivesNothing) {
  EXPECT_FALSE(Ask(EffectParameter::Percent));
  EXPECT_FALSE(Ask(EffectParameter::FilterPreset));
  EXPECT_FALSE(Ask(EffectParameter::Format));
  EXPECT_EQ(preset.index, 0);
}

TEST(EffectTitles, AreTheMenuTextsWithoutMarksOrTheWordsWithACapital) {
  EXPECT_EQ(EffectTitle(*FindEffect("amplify")), "Amplify");
  EXPECT_EQ(EffectTitle(*FindEffect("fade-in")), "Fade In");
  EXPECT_EQ(EffectTitle(*FindEffect("silence")), "Silence");
  EXPECT_EQ(EffectTitle(*FindEffect("format")), "Format");
  EXPECT_EQ(EffectTitle(*FindEffect("cut-rumble")), "Cut-rumble");
}

}  // namespace
}  // namespace tembrel::test
