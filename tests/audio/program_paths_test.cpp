#include "audio/ProgramPaths.h"
#include "gtest/gtest.h"
#include "platform/Paths.h"
#include "tests/support/EnvironmentValue.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

namespace fs = std::filesystem;
using test::ScratchFolder;

TEST(ProgramFolder, IsThePathWithoutItsLastElevenCharacters) {
  EXPECT_EQ(ProgramFolder("/opt/tembrel/bin/tembrel-qt"), "/opt/tembrel/bin");
  EXPECT_EQ(ProgramFolder("/tembrel-qt"), "");
  EXPECT_EQ(ProgramFolder("a/tembrel-qt"), "a");
}

TEST(ProgramFolder, IsEmptyForFewerThanElevenCharacters) {
  EXPECT_EQ(ProgramFolder(""), "");
  EXPECT_EQ(ProgramFolder("tembrel-qt"), "");
}

TEST(ProgramFolder, HasAtMost150Characters) {
  EXPECT_EQ(ProgramFolder(std::string(150, 'p') + "/tembrel-qt"), std::string(150, 'p'));
  EXPECT_EQ(ProgramFolder(std::string(151, 'p') + "/tembrel-qt"), std::string(150, 'p'));
  EXPECT_EQ(ProgramFolder(std::string(1000, 'p') + "/tembrel-qt"), std::string(150, 'p'));
}

TEST(ProgramPaths, AreFormedFromTheProgramFolder) {
  const ProgramPaths paths = PathsBelow("/opt/tembrel/bin");
  EXPECT_EQ(paths.programFolder, "/opt/tembrel/bin");
  EXPECT_EQ(paths.settingsFile, "/opt/tembrel/bin/TEMBREL.INI");
  EXPECT_EQ(paths.helpPath, "/opt/tembrel/bin/Tembrel.chm");
  EXPECT_EQ(paths.tempFolder, "/opt/tembrel/bin/Temp");
  EXPECT_EQ(paths.sharedTempPath, "/opt/tembrel/bin/Temp/~audio.wav");
  EXPECT_EQ(paths.TempWavePath(7), "/opt/tembrel/bin/Temp/temp7.wav");
  EXPECT_EQ(paths.TempWavePath(-12345678901LL), "/opt/tembrel/bin/Temp/temp-12345678901.wav");
  EXPECT_EQ(paths.toolInput, "/opt/tembrel/bin/Temp/fin.wav");
  EXPECT_EQ(paths.toolOutput, "/opt/tembrel/bin/Temp/fout.wav");
  EXPECT_EQ(paths.toolInput16, "/opt/tembrel/bin/Temp/fin16.wav");
  EXPECT_EQ(paths.toolOutput16, "/opt/tembrel/bin/Temp/fout16.wav");
}

TEST(ProgramPaths, StandBesideAProgramThatMayWriteThere) {
  const ScratchFolder scratch;
  const ProgramPaths paths = ChooseProgramPaths(scratch / "tembrel-qt", scratch / "data");
  EXPECT_EQ(paths.programFolder, scratch.Path());
  EXPECT_FALSE(fs::exists(scratch / "Temp"));
  EXPECT_FALSE(fs::exists(scratch / "data"));
}

TEST(ProgramPaths, StandInTheUsersFolderForAnInstalledProgram) {
  const ScratchFolder scratch;
  fs::permissions(scratch.Path(), fs::perms::all);
  fs::create_directory(scratch / "bin");
  fs::permissions(scratch / "bin", static_cast<fs::perms>(0555));
  const test::OrdinaryUser user;
  ASSERT_TRUE(user.Effective());
  const ProgramPaths paths = ChooseProgramPaths(scratch / "bin/tembrel-qt", scratch / "data/tembrel");
  EXPECT_EQ(paths.programFolder, scratch / "data/tembrel");
  EXPECT_EQ(paths.settingsFile, scratch / "data/tembrel/TEMBREL.INI");
  EXPECT_EQ(paths.tempFolder, scratch / "data/tembrel/Temp");
  EXPECT_FALSE(fs::exists(scratch / "data"));
}

TEST(ProgramPaths, StandInTheUsersFolderWhenTheProgramFolderIsTooLongOrUnknown) {
  const ScratchFolder scratch;
  const fs::path deep = scratch / std::string(200, 'd');
  fs::create_directory(deep);
  EXPECT_EQ(ChooseProgramPaths(deep / "tembrel-qt", scratch / "data").programFolder, scratch / "data");
  EXPECT_EQ(ChooseProgramPaths("", scratch / "data").programFolder, scratch / "data");
}

TEST(ProgramPaths, OfTheRunningProgramCanBeWritten) {
  const ScratchFolder scratch;
  const test::EnvironmentValue data("XDG_DATA_HOME", scratch.Path().string());
  EXPECT_TRUE(IsWritableFolder(FindProgramPaths().tempFolder));
}

}  // namespace
}  // namespace tembrel
