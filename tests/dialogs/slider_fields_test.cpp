#include <gtest/gtest.h>
#include <string>

#include "dialogs/PercentField.h"
#include "dialogs/PitchField.h"
#include "dialogs/StretchField.h"
#include "edit/LevelEffects.h"

namespace tembrel {
namespace {

// What a slider field shows, as "position text".
std::string Shown(const SliderField& field) {
  return std::to_string(field.Position()) + " " + field.Text();
}

TEST(AmplifyField, OpensAtItsStartOverTheWholeRange) {
  const PercentField field(kLargestGainPercent, 100);
  EXPECT_EQ(field.Minimum(), 0);
  EXPECT_EQ(field.Maximum(), 1000);
  EXPECT_EQ(Shown(field), "100 100");
}

TEST(AmplifyField, FollowsTheSlider) {
  PercentField field(kLargestGainPercent, 100);
  field.Slide(731);
  EXPECT_EQ(Shown(field), "731 731");
  field.Slide(-5);
  EXPECT_EQ(Shown(field), "0 0");
  field.Slide(1001);
  EXPECT_EQ(Shown(field), "1000 1000");
}

TEST(AmplifyField, TakesEveryNumberUpToAThousand) {
  PercentField field(kLargestGainPercent, 100);
  for (int percent = 0; percent <= 1000; ++percent) {
    field.Type(std::to_string(percent));
    ASSERT_EQ(field.Percent(), percent);
  }
  field.Type("1001");
  EXPECT_EQ(Shown(field), "1000 1000");
}

TEST(AmplifyField, RestoresTheLastGoodValueForANumberTooLarge) {
  PercentField field(kLargestGainPercent, 100);
  field.Type("120");
  field.Type("1200");
  EXPECT_EQ(Shown(field), "120 120");
}

TEST(AmplifyField, TakesTheLowSixteenBitsAndLeavesTheText) {
  PercentField field(kLargestGainPercent, 50);
  field.Type("65636");
  EXPECT_EQ(Shown(field), "100 65636");
  field.Type("65536");
  EXPECT_EQ(Shown(field), "0 65536");
  field.Type("4294902760");  // 0xFFFF0000 + 1000
  EXPECT_EQ(Shown(field), "1000 4294902760");
  field.Type("65535");
  EXPECT_EQ(Shown(field), "1000 1000");
}

TEST(AmplifyField, RestoresTheLastGoodValueForWhatIsNoNumber) {
  for (const char* text :
       {"", "-5", "-", "+5", "abc", "5a", "5.5", "5 5", "4294967296", "99999999999999999999"}) {
    PercentField field(kLargestGainPercent, 100);
    field.Slide(77);
    field.Type(text);
    EXPECT_EQ(Shown(field), "77 77") << text;
  }
}

TEST(AmplifyField, ReadsANumberWithZerosOrBlanksAroundItAndLeavesTheText) {
  PercentField field(kLargestGainPercent, 100);
  field.Type("007");
  EXPECT_EQ(Shown(field), "7 007");
  field.Type(" 12 ");
  EXPECT_EQ(Shown(field), "12  12 ");
}

TEST(AmplifyField, AStartOutOfRangeIsMovedIntoIt) {
  EXPECT_EQ(Shown(PercentField(kLargestGainPercent, 2000)), "1000 1000");
  EXPECT_EQ(Shown(PercentField(kLargestGainPercent, -1)), "0 0");
}

TEST(StrengthField, EndsAtAHundred) {
  PercentField field(kLargestStrength, 50);
  EXPECT_EQ(field.Minimum(), 0);
  EXPECT_EQ(field.Maximum(), 100);
  EXPECT_EQ(Shown(field), "50 50");
  field.Type("100");
  EXPECT_EQ(Shown(field), "100 100");
  field.Type("101");
  EXPECT_EQ(Shown(field), "100 100");
  field.Type("65537");
  EXPECT_EQ(Shown(field), "1 65537");
}

TEST(DurationField, OpensAtItsStartOverTheWholeRange) {
  const StretchField field(100);
  EXPECT_EQ(field.Minimum(), 25);
  EXPECT_EQ(field.Maximum(), 400);
  EXPECT_EQ(Shown(field), "100 100");
}

TEST(DurationField, TakesAnEndForANumberBeyondItAndLeavesTheText) {
  StretchField field(100);
  field.Type("500");
  EXPECT_EQ(Shown(field), "400 500");
  field.Type("2");
  EXPECT_EQ(Shown(field), "25 2");
  field.Type("24");
  EXPECT_EQ(Shown(field), "25 24");
  field.Type("25");
  EXPECT_EQ(Shown(field), "25 25");
  field.Type("400");
  EXPECT_EQ(Shown(field), "400 400");
  field.Type("65636");
  EXPECT_EQ(Shown(field), "400 65636");
}

TEST(DurationField, RestoresTheLastGoodValueForWhatIsNoNumber) {
  for (const char* text : {"", "-30", "x", "12.5"}) {
    StretchField field(100);
    field.Type("500");
    field.Type(text);
    EXPECT_EQ(Shown(field), "400 400") << text;
  }
}

TEST(DurationField, FollowsTheSlider) {
  StretchField field(100);
  field.Slide(25);
  EXPECT_EQ(Shown(field), "25 25");
  field.Slide(0);
  EXPECT_EQ(Shown(field), "25 25");
  field.Slide(333);
  EXPECT_EQ(Shown(field), "333 333");
}

TEST(PitchFieldOfADialog, OpensInTheMiddleForNoChange) {
  const PitchField field(0.0F);
  EXPECT_EQ(field.Minimum(), 0);
  EXPECT_EQ(field.Maximum(), 480);
  EXPECT_EQ(Shown(field), "240 0.0");
  EXPECT_EQ(field.Semitones(), 0.0F);
}

TEST(PitchFieldOfADialog, KeepsTheStartInsideTheRange) {
  EXPECT_EQ(PitchField(-24.0F).Position(), 0);
  EXPECT_EQ(PitchField(24.0F).Position(), 480);
  EXPECT_EQ(PitchField(-100.0F).Position(), 0);
  EXPECT_EQ(PitchField(1e30F).Position(), 480);
  EXPECT_EQ(PitchField(12.5F).Position(), 365);
}

TEST(PitchFieldOfADialog, CutsATypedNumberToATenthTowardTheLowerEnd) {
  PitchField field(0.0F);
  field.Type("-3.25");
  EXPECT_EQ(Shown(field), "207 -3.25");
  EXPECT_FLOAT_EQ(field.Semitones(), -3.3F);
  field.Type("3.25");
  EXPECT_EQ(Shown(field), "272 3.25");
  EXPECT_FLOAT_EQ(field.Semitones(), 3.2F);
}

TEST(PitchFieldOfADialog, RestoresTheLastGoodValueForANumberBeyondTheEnds) {
  PitchField field(0.0F);
  field.Type("3");
  EXPECT_EQ(Shown(field), "270 3");
  field.Type("30");
  EXPECT_EQ(Shown(field), "270 3.0");
  field.Type("-24.1");
  EXPECT_EQ(Shown(field), "270 3.0");
  field.Type("24.1");
  EXPECT_EQ(Shown(field), "270 3.0");
  field.Type("1e99");
  EXPECT_EQ(Shown(field), "270 3.0");
  field.Type("9e99999999");
  EXPECT_EQ(Shown(field), "270 3.0");
}

TEST(PitchFieldOfADialog, AcceptsWhatIsCutToAnEnd) {
  PitchField field(0.0F);
  field.Type("24.09");
  EXPECT_EQ(field.Position(), 480);
  field.Type("-24.09");  // -0.9 cut toward zero is 0
  EXPECT_EQ(field.Position(), 0);
}

TEST(PitchFieldOfADialog, CountsTheBeginningOfANumberAsZero) {
  for (const char* text : {"", "-", "+", ".", "-.", "abc", "inf", "nan"}) {
    PitchField field(5.0F);
    field.Type(text);
    EXPECT_EQ(Shown(field), std::string("240 ") + text);
  }
}

TEST(PitchFieldOfADialog, ReadsTenCharactersAndUpToTheFirstThatIsNoPartOfTheNumber) {
  PitchField field(0.0F);
  field.Type("1.00000000e1");  // the exponent is the eleventh character
  EXPECT_EQ(field.Position(), 250);
  field.Type("2,5");
  EXPECT_EQ(field.Position(), 260);
  field.Type("0000000001234");
  EXPECT_EQ(field.Position(), 250);
  field.Type("+1.5 st");
  EXPECT_EQ(field.Position(), 255);
}

TEST(PitchFieldOfADialog, EveryPositionIsTheOneItsOwnTextStandsFor) {
  for (int position = 0; position <= 480; ++position) {
    PitchField field(0.0F);
    field.Slide(position);
    PitchField typed(0.0F);
    typed.Type(field.Text());
    EXPECT_EQ(typed.Position(), position) << field.Text();
    EXPECT_EQ(PitchField(field.Semitones()).Position(), position) << field.Text();
  }
}

}  // namespace
}  // namespace tembrel
