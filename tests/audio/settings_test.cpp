#include "audio/Settings.h"

#include "gtest/gtest.h"
#include "tests/support/EnvironmentValue.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

namespace fs = std::filesystem;

class SettingsTest : public testing::Test {
 protected:
  Settings Load(std::string_view text) const {
    test::WriteText(file, text);
    return LoadSettings(file);
  }
  test::ScratchFolder scratch;
  fs::path file = scratch / "TEMBREL.INI";
};

TEST_F(SettingsTest, AMissingOrEmptyFileGivesTheDefaults) {
  for (const Settings& settings : {LoadSettings(file), Load("")}) {
    EXPECT_EQ(settings.playback, (FormatChoice{22050, 16, 2}));
    EXPECT_EQ(settings.recording.mixer, 0);
    EXPECT_EQ(settings.recording.recordingLine, -1);
    EXPECT_EQ(settings.recording.recordingVolume, 32767);
    EXPECT_EQ(settings.recording.savingLine, -1);
    EXPECT_EQ(settings.recording.savingVolume, 32767);
    EXPECT_TRUE(settings.recording.showDialog);
  }
}

TEST_F(SettingsTest, RatesAreStoredAsCodes) {
  EXPECT_EQ(Load("[Digital Audio Playback]\nRate=1\n").playback.rate, 11025U);
  EXPECT_EQ(Load("[Digital Audio Playback]\nRate=2\n").playback.rate, 22050U);
  EXPECT_EQ(Load("[Digital Audio Playback]\nRate=3\n").playback.rate, 44100U);
}

TEST_F(SettingsTest, AnyOtherCodeKeepsTheBuiltInRate) {
  EXPECT_EQ(Settings().playback.rate, 44100U);
  for (const char* code : {"7", "0", "-1", "4", "fast", "44100"}) {
    EXPECT_EQ(Load(std::string("[Digital Audio Playback]\nRate=") + code + "\n").playback.rate, 44100U)
        << code;
  }
}

TEST_F(SettingsTest, BitsAndChannelsThatCannotBePlayedKeepTheBuiltInOnes) {
  EXPECT_EQ(Load("[Digital Audio Playback]\nBits=8\nChannels=1\n").playback, (FormatChoice{22050, 8, 1}));
  for (const char* value : {"0", "-8", "24", "65544", "65537", "x"}) {
    const std::string text =
        std::string("[Digital Audio Playback]\nBits=") + value + "\nChannels=" + value + "\n";
    EXPECT_EQ(Load(text).playback, (FormatChoice{22050, 16, 2})) << value;
  }
}

TEST_F(SettingsTest, AreWrittenInTheirSectionsInTheirOrder) {
  Settings settings;
  settings.playback = {11025, 8, 1};
  settings.recording = {1, 2, 3000, 4, 5000, false};
  EXPECT_TRUE(SaveSettings(file, settings).ok);
  EXPECT_EQ(test::ReadText(file),
            "[Digital Audio Playback]\nRate=1\nBits=8\nChannels=1\n\n"
            "[Digital Audio Recording]\nMixer=1\nRecording Line=2\nRecording Volume=3000\nSaving Line=4\n"
            "Saving Volume=5000\nShow Dialog=0\n");
  EXPECT_EQ(LoadSettings(file), settings);
}

TEST_F(SettingsTest, SurviveARestartAndLeaveOtherSectionsAlone) {
  test::WriteText(file, "[Mine]\nkeep=this\n");
  for (const std::uint32_t rate : {11025U, 22050U, 44100U}) {
    Settings settings;
    settings.playback.rate = rate;
    settings.recording.recordingLine = -1;
    EXPECT_TRUE(SaveSettings(file, settings).ok);
    EXPECT_EQ(LoadSettings(file), settings);
    EXPECT_EQ(test::ReadText(file).substr(0, 17), "[Mine]\nkeep=this\n");
  }
}

TEST_F(SettingsTest, ARateWithoutACodeIsWrittenAsTheDefaultCode) {
  Settings settings;
  settings.playback.rate = 48000;
  EXPECT_TRUE(SaveSettings(file, settings).ok);
  EXPECT_EQ(LoadSettings(file).playback.rate, 22050U);
  EXPECT_NE(test::ReadText(file).find("Rate=2\n"), std::string::npos);
}

TEST_F(SettingsTest, RecentFilesAreFourStringsOfAnyBytes) {
  SettingStore store(scratch / "registry");
  EXPECT_EQ(LoadLastFiles(store), LastFiles());
  const LastFiles files = {"/a/\"q\" \xE9\x9F\xB3\n.wav", "/b/" + std::string(400, 'n') + ".wav", "",
                           "/d.wav"};
  EXPECT_TRUE(SaveLastFiles(store, files).ok);
  EXPECT_EQ(LoadLastFiles(store), files);
  EXPECT_EQ(store.ReadSettingString("Last Files", "4", ""), "/d.wav");
}

TEST_F(SettingsTest, TheLastFolderIsStoredWithoutADrive) {
  SettingStore store(scratch / "registry");
  EXPECT_TRUE(SaveLastFolder(store, "/music/late night").ok);
  EXPECT_EQ(store.ReadSettingString("Last Path", "Drive", "none"), "");
  EXPECT_EQ(store.ReadSettingString("Last Path", "Directory", "none"), "/music/late night");
  EXPECT_EQ(LoadLastFolder(store, "/program"), "/music/late night");
}

TEST_F(SettingsTest, TheFirstFolderIsTheUsersDocuments) {
  const test::EnvironmentValue home("HOME", scratch.Path().string());
  const test::EnvironmentValue config("XDG_CONFIG_HOME", std::nullopt);
  EXPECT_EQ(LoadLastFolder(SettingStore(scratch / "registry"), "/program"), scratch / "Documents");
  EXPECT_TRUE(fs::is_directory(scratch / "Documents"));
}

TEST_F(SettingsTest, TheFirstFolderIsTheProgramsWhenThereAreNoDocuments) {
  const test::EnvironmentValue home("HOME", scratch.Path().string());
  const test::EnvironmentValue config("XDG_CONFIG_HOME", std::nullopt);
  test::WriteText(scratch / "Documents", "a file");
  EXPECT_EQ(LoadLastFolder(SettingStore(scratch / "registry"), "/program"), "/program");
}

}  // namespace
}  // namespace tembrel
