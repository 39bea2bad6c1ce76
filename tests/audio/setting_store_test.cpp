#include <random>

#include "audio/SettingStore.h"
#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "tests/support/EnvironmentValue.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

using test::ScratchFolder;

TEST(SettingStore, KeepsEverySettingUnderItsWholeKeyPath) {
  const ScratchFolder scratch;
  SettingStore store(scratch / "config/registry");
  EXPECT_TRUE(store.WriteSettingString("Last Files", "1", "/home/me/song.wav").ok);
  EXPECT_EQ(test::ReadText(scratch / "config/registry"),
            "[Software\\Veloran Software\\Tembrel\\1.0\\Settings\\Last Files\\1]\n1=\"/home/me/song.wav\"\n");
}

TEST(SettingStore, GivesTheDefaultForWhatIsMissing) {
  const ScratchFolder scratch;
  const SettingStore store(scratch / "registry");
  EXPECT_EQ(store.ReadSettingString("Last Files", "1", "none"), "none");
  EXPECT_FALSE(std::filesystem::exists(scratch / "registry"));
}

TEST(SettingStore, AnEmptyValueIsNotMissing) {
  const ScratchFolder scratch;
  SettingStore store(scratch / "registry");
  EXPECT_TRUE(store.WriteSettingString("Last Path", "Drive", "").ok);
  EXPECT_EQ(store.ReadSettingString("Last Path", "Drive", "none"), "");
}

TEST(SettingStore, ReadsTheFirstValueWhateverItsName) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "registry",
                  "[Software\\Veloran Software\\Tembrel\\1.0\\Settings\\Last Files\\2]\n"
                  "; comment\nother=\"first\"\n2=\"second\"\n");
  EXPECT_EQ(SettingStore(scratch / "registry").ReadSettingString("Last Files", "2", ""), "first");
}

TEST(SettingStore, TakesUnquotedTextAsItIs) {
  const ScratchFolder scratch;
  test::WriteText(
      scratch / "registry",
      "[Software\\Veloran Software\\Tembrel\\1.0\\Settings\\Last Files\\1]\n1=C:\\new song.wav\n");
  EXPECT_EQ(SettingStore(scratch / "registry").ReadSettingString("Last Files", "1", ""), "C:\\new song.wav");
}

TEST(SettingStore, KeepsAnyValueByteForByte) {
  const ScratchFolder scratch;
  SettingStore store(scratch / "registry");
  std::vector<std::string> values = {"",
                                     " ",
                                     "  two blanks  ",
                                     "\"quoted\"",
                                     "\\",
                                     "\\\\n",
                                     "a\nb\r\nc",
                                     "[section]",
                                     "; comment",
                                     "k=v",
                                     "tab\there",
                                     "\xFF\xFE\x80",
                                     "\xE9\x9F\xB3",
                                     "-rf",
                                     "\\x41",
                                     "end\\",
                                     std::string("nul\0nul", 7),
                                     std::string(5000, 'l')};
  std::mt19937 random(3);
  for (int i = 0; i < 50; ++i) {
    std::string value;
    for (auto length = random() % 40; length > 0; --length) {
      value += static_cast<char>(random() % 256);
    }
    values.push_back(value);
  }
  for (const std::string& value : values) {
    ASSERT_TRUE(store.WriteSettingString("Last Files", "1", value).ok);
    ASSERT_EQ(store.ReadSettingString("Last Files", "1", "none"), value);
  }
}

TEST(SettingStore, UnquotesBrokenTextWithoutLeavingIt) {
  EXPECT_EQ(UnquoteSetting("\""), "\"");
  EXPECT_EQ(UnquoteSetting("\"\""), "");
  EXPECT_EQ(UnquoteSetting("\"a\\\""), "a\\");
  EXPECT_EQ(UnquoteSetting("\"\\x4\""), "x4");
  EXPECT_EQ(UnquoteSetting("\"\\x\""), "x");
  EXPECT_EQ(UnquoteSetting("\"\\xzz\""), "xzz");
  EXPECT_EQ(UnquoteSetting("\"open"), "\"open");
}

TEST(SettingStore, ReadsNumbersFromTheFirst19Characters) {
  const ScratchFolder scratch;
  SettingStore store(scratch / "registry");
  EXPECT_EQ(store.ReadSettingInt("S", "n", -12), -12);
  store.WriteSettingString("S", "n", "345 and more");
  EXPECT_EQ(store.ReadSettingInt("S", "n", 0), 345);
  store.WriteSettingString("S", "n", "00000000000000000012");
  EXPECT_EQ(store.ReadSettingInt("S", "n", 0), 1);
  store.WriteSettingString("S", "n", "words");
  EXPECT_EQ(store.ReadSettingInt("S", "n", 5), 0);
}

TEST(SettingStore, SaysWhyItCouldNotStore) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "file", "x");
  const ReplaceResult result = SettingStore(scratch / "file/registry").WriteSettingString("S", "n", "1");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.reason, "Not a directory");
}

TEST(SettingStore, StandsInTheUsersConfigurationFolder) {
  const test::EnvironmentValue config("XDG_CONFIG_HOME", "/somewhere/config");
  EXPECT_EQ(SettingStorePath(), "/somewhere/config/tembrel/registry");
}

}  // namespace
}  // namespace tembrel
