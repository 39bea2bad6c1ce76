// The spectrum at the cursor and the notes, printed.
#include <algorithm>
#include <gmock/gmock.h>

#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class BatchAnalysis : public BatchTest {
 protected:
  static std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
      lines.push_back(line);
    }
    return lines;
  }
};

TEST_F(BatchAnalysis, PrintsTheSpectrumAtTheCursor) {
  Bytes sound;
  for (int i = 0; i < 3000; ++i) {
    Append16(sound, static_cast<std::uint32_t>(i < 500 ? 0 : 1000));
  }
  WriteBytes(scratch / "a.wav", WaveFile(44100, 16, 1, sound));
  const auto lines = Lines(Printed({"open " + Quoted("a.wav"), "cursor 900", "spectrum"}));
  ASSERT_EQ(lines.size(), 2049U);
  EXPECT_EQ(lines[0], "bin,hz,power");
  EXPECT_EQ(lines[1], "0,0,4194304000000");  // (2048 × 1000)²
  EXPECT_THAT(lines[2], StartsWith("1,21.533203125,"));
  EXPECT_THAT(lines[2048], StartsWith("2047,44078.466796875,"));
}

TEST_F(BatchAnalysis, PrintsAFourthColumnForSixteenBitStereoOnly) {
  const auto stereo = Lines(Printed({"open " + MakeWave("a.wav", 3000), "spectrum"}));
  EXPECT_EQ(stereo[0], "bin,hz,power,power_right");
  EXPECT_EQ(std::ranges::count(stereo[100], ','), 3);
  const auto bytes = Lines(Printed({"open " + MakeWave("b.wav", 3000, 8, 2), "spectrum"}));
  EXPECT_EQ(bytes[0], "bin,hz,power");
  EXPECT_EQ(std::ranges::count(bytes[100], ','), 2);
}

TEST_F(BatchAnalysis, PrintsTheReadoutOfAFrequency) {
  EXPECT_EQ(Printed({"note 440"}), "440 Hz\nA5 (69)\n");
  EXPECT_EQ(Printed({"note -0"}), "0 Hz\nNo Pitch\n");
  EXPECT_EQ(Printed({"note 5000"}), "5000 Hz\nNo Pitch\n");
  EXPECT_EQ(Printed({"note 261.6"}), "262 Hz\nC5 (60)\n");
  EXPECT_THAT(Reason({"note -1"}), HasSubstr("HZ must be a number from 0"));
  EXPECT_THAT(Reason({"note A5"}), HasSubstr("HZ must be a number from 0"));
}

}  // namespace
}  // namespace tembrel::test
