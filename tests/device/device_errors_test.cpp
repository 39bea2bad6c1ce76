#include <gmock/gmock.h>

#include "device/DeviceErrors.h"

namespace tembrel::test {
namespace {

using ::testing::EndsWith;

TEST(DeviceErrors, HaveATextOfTheirOwn) {
  std::string before;
  for (int error = kServerAbsent; error <= kTakeNotSaved; ++error) {
    const std::string text = DeviceErrorText(error, "a reason");
    EXPECT_THAT(text, EndsWith("."));
    EXPECT_NE(text, before);
    EXPECT_NE(text, DeviceErrorText(9999, {}));
    before = text;
  }
}

TEST(DeviceErrors, SuccessSaysNothing) {
  EXPECT_EQ(DeviceErrorText(kDeviceSuccess, "a reason"), "");
}

TEST(DeviceErrors, AReasonThatIsNotKnownIsSaidToBe) {
  EXPECT_EQ(DeviceErrorText(kFileUnreadable, {}), "The sound could not be played: the reason is not known.");
}

TEST(DeviceErrors, NeverPassTwoHundredCharacters) {
  const std::string text = DeviceErrorText(kTakeNotSaved, std::string(500, 'x'));
  EXPECT_EQ(text.size(), 200U);
  EXPECT_THAT(text, EndsWith("starts again."));
}

TEST(DeviceErrors, ALongReasonIsNotCutWithinACharacter) {
  std::string reason = "x";
  for (int i = 0; i < 200; ++i) {
    reason += "é";
  }
  for (const std::string& shifted : {reason, "x" + reason}) {
    const std::string text = DeviceErrorText(kServerRefused, shifted);
    EXPECT_LE(text.size(), 200U);
    EXPECT_THAT(text, EndsWith("é."));
  }
}

TEST(DeviceErrors, FaultsOfTheServerHaveNumbers) {
  EXPECT_EQ(ErrorOfFault(SoundFault::None), kDeviceSuccess);
  EXPECT_EQ(ErrorOfFault(SoundFault::Absent), kServerAbsent);
  EXPECT_EQ(ErrorOfFault(SoundFault::Hung), kServerHung);
  EXPECT_EQ(ErrorOfFault(SoundFault::Refused), kServerRefused);
}

}  // namespace
}  // namespace tembrel::test
