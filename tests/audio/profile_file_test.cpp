#include "audio/ProfileFile.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

namespace fs = std::filesystem;
using test::ScratchFolder;
using testing::UnorderedElementsAre;

constexpr const char* kTypical =
    "; settings of the editor\r\n"
    "[Digital Audio Playback]\r\n"
    "Rate = 3\r\n"
    "; a comment\r\n"
    "Bits=8\r\n"
    "\r\n"
    "[Window]\r\n"
    "unknown line\r\n"
    "Zoom=7\r\n";

std::string After(std::string_view text, std::string_view section, std::string_view key,
                  std::string_view value) {
  ProfileText profile(text);
  profile.SetValue(section, key, value);
  return profile.Text();
}

TEST(ProfileText, FindsValuesWhateverTheCaseAndTheBlanks) {
  const ProfileText profile(kTypical);
  EXPECT_EQ(profile.Value("Digital Audio Playback", "Rate"), "3");
  EXPECT_EQ(profile.Value("digital audio PLAYBACK", "rATE"), "3");
  EXPECT_EQ(profile.Value("Window", "Zoom"), "7");
  EXPECT_EQ(profile.Value("Window", "Rate"), std::nullopt);
  EXPECT_EQ(profile.Value("Digital Audio Playback", "; a comment"), std::nullopt);
  EXPECT_EQ(profile.Value("Nowhere", "Rate"), std::nullopt);
  EXPECT_EQ(ProfileText("  [ A ] \n \t b \t= c d \t\n").Value("a", "B"), "c d");
}

TEST(ProfileText, TakesTheFirstOfEqualKeysAndLooksThroughRepeatedSections) {
  const ProfileText profile("[a]\nx=1\nx=2\n[b]\ny=3\n[A]\nx=4\nz=5\n");
  EXPECT_EQ(profile.Value("a", "x"), "1");
  EXPECT_EQ(profile.Value("a", "z"), "5");
}

TEST(ProfileText, IgnoresAByteOrderMark) {
  EXPECT_EQ(ProfileText("\xEF\xBB\xBF[a]\nx=1").Value("a", "x"), "1");
}

TEST(ProfileText, KeepsEqualSignsOfTheValue) {
  EXPECT_EQ(ProfileText("[a]\nx=1=2=\n").Value("a", "x"), "1=2=");
}

TEST(ProfileText, GivesBackItsTextByteForByte) {
  for (const std::string_view text :
       {std::string_view(kTypical), std::string_view(""), std::string_view("\n\n"),
        std::string_view("[a]\nx=1"), std::string_view("a\r\nb\nc\rd"), std::string_view("\0[\n=\n", 5),
        std::string_view("[[]]=\n]\n[")}) {
    EXPECT_EQ(ProfileText(text).Text(), text);
  }
}

TEST(ProfileText, ReplacesAValueAndNothingElse) {
  EXPECT_EQ(After("; c\r\n[A]\r\nRate = 3\r\n\r\n[B]\r\nRate=9\r\n", "a", "rate", "12"),
            "; c\r\n[A]\r\nRate = 12\r\n\r\n[B]\r\nRate=9\r\n");
  EXPECT_EQ(After("[A]\nx=", "A", "x", "1"), "[A]\nx=1");
  EXPECT_EQ(After("[A]\nx=  \n", "A", "x", "1"), "[A]\nx=  1\n");
}

TEST(ProfileText, AddsAKeyAtTheEndOfItsSection) {
  EXPECT_EQ(After("[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n", "A", "z", "3"),
            "[A]\r\nx=1\r\nz=3\r\n\r\n[B]\r\ny=2\r\n");
  EXPECT_EQ(After("[A]", "A", "z", "3"), "[A]\nz=3\n");
  EXPECT_EQ(After("[A]\nx=1", "A", "z", "3"), "[A]\nx=1\nz=3\n");
}

TEST(ProfileText, AddsASectionAtTheEnd) {
  EXPECT_EQ(After("", "A", "x", "1"), "[A]\nx=1\n");
  EXPECT_EQ(After("[B]\r\ny=2", "A", "x", "1"), "[B]\r\ny=2\r\n\r\n[A]\r\nx=1\r\n");
  EXPECT_EQ(After("[B]\ny=2\n\n", "A", "x", "1"), "[B]\ny=2\n\n[A]\nx=1\n");
}

TEST(ProfileNumber, IsWhatTheValueStartsWith) {
  EXPECT_EQ(ProfileNumber("12"), 12);
  EXPECT_EQ(ProfileNumber("-1"), -1);
  EXPECT_EQ(ProfileNumber("+7"), 7);
  EXPECT_EQ(ProfileNumber("  42 apples"), 42);
  EXPECT_EQ(ProfileNumber("16bits"), 16);
  EXPECT_EQ(ProfileNumber("\"22\""), 22);
  EXPECT_EQ(ProfileNumber("sixteen"), 0);
  EXPECT_EQ(ProfileNumber("-"), 0);
  EXPECT_EQ(ProfileNumber("- 3"), 0);
  EXPECT_EQ(ProfileNumber("\""), 0);
}

TEST(ProfileNumber, StopsAtTheLimitsOfAnInt) {
  EXPECT_EQ(ProfileNumber("2147483647"), 2147483647);
  EXPECT_EQ(ProfileNumber("2147483648"), 2147483647);
  EXPECT_EQ(ProfileNumber("-2147483648"), -2147483647 - 1);
  EXPECT_EQ(ProfileNumber("-99999999999999999999999999"), -2147483647 - 1);
  EXPECT_EQ(ProfileNumber(std::string(1000, '9')), 2147483647);
}

TEST(ProfileFile, GivesDefaultsForWhatIsMissingOrEmpty) {
  const ScratchFolder scratch;
  EXPECT_EQ(ProfileFile(scratch / "missing").ReadInt("a", "b", 17), 17);
  test::WriteText(scratch / "ini", "[a]\nempty=\nword=x\n");
  const ProfileFile file(scratch / "ini");
  EXPECT_EQ(file.ReadInt("a", "b", 17), 17);
  EXPECT_EQ(file.ReadInt("a", "empty", 17), 17);
  EXPECT_EQ(file.ReadInt("a", "word", 17), 0);
}

TEST(ProfileFile, WritesAllItsValuesAndKeepsTheRest) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "ini", kTypical);
  ProfileFile file(scratch / "ini");
  const std::vector<ProfileEntry> entries = {{"Digital Audio Playback", "Rate", "1"}, {"New", "Key", "-5"}};
  EXPECT_TRUE(file.Write(entries).ok);
  EXPECT_EQ(file.ReadInt("New", "Key", 0), -5);
  std::string expected = kTypical;
  expected.replace(expected.find("Rate = 3"), 8, "Rate = 1");
  EXPECT_EQ(test::ReadText(scratch / "ini"), expected + "\r\n[New]\r\nKey=-5\r\n");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("ini"));
}

TEST(ProfileFile, KeepsWhatAnotherProgramWroteMeanwhile) {
  const ScratchFolder scratch;
  ProfileFile file(scratch / "ini");
  test::WriteText(scratch / "ini", "[other]\nx=1\n");
  const ProfileEntry entry{"a", "b", "2"};
  EXPECT_TRUE(file.Write({&entry, 1}).ok);
  EXPECT_EQ(test::ReadText(scratch / "ini"), "[other]\nx=1\n\n[a]\nb=2\n");
}

TEST(ProfileFile, CreatesTheFileAndItsFolder) {
  const ScratchFolder scratch;
  const ProfileEntry entry{"a", "b", "2"};
  EXPECT_TRUE(ProfileFile(scratch / "x/y/ini").Write({&entry, 1}).ok);
  EXPECT_EQ(test::ReadText(scratch / "x/y/ini"), "[a]\nb=2\n");
}

TEST(ProfileFile, DoesNotTouchAFileWhoseValuesAreRightAlready) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "ini", "[a]\nb=2\n");
  const fs::file_time_type long_ago = fs::last_write_time(scratch / "ini") - std::chrono::hours(1);
  fs::last_write_time(scratch / "ini", long_ago);
  const ProfileEntry entry{"a", "b", "2"};
  EXPECT_TRUE(ProfileFile(scratch / "ini").Write({&entry, 1}).ok);
  EXPECT_EQ(fs::last_write_time(scratch / "ini"), long_ago);
}

TEST(ProfileFile, DoesNotReplaceWhatItCannotRead) {
  const ScratchFolder scratch;
  const ProfileEntry entry{"a", "b", "2"};
  const ReplaceResult folder = ProfileFile(scratch.Path()).Write({&entry, 1});
  EXPECT_FALSE(folder.ok);
  EXPECT_EQ(folder.reason, "Is a directory");
  const std::string huge(2000000, 'x');
  test::WriteText(scratch / "huge", huge);
  EXPECT_FALSE(ProfileFile(scratch / "huge").Write({&entry, 1}).ok);
  EXPECT_EQ(test::ReadText(scratch / "huge"), huge);
}

}  // namespace
}  // namespace tembrel
