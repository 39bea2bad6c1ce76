#include "platform/Paths.h"

#include <string>

#include "gtest/gtest.h"
#include "tests/support/EnvironmentValue.h"
#include "tests/support/FileBytes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

namespace fs = std::filesystem;
using test::EnvironmentValue;
using test::ScratchFolder;

class UserFolders : public testing::Test {
 protected:
  ScratchFolder scratch;
  EnvironmentValue home{"HOME", scratch.Path().string()};
  EnvironmentValue data{"XDG_DATA_HOME", std::nullopt};
  EnvironmentValue config{"XDG_CONFIG_HOME", std::nullopt};

  void WriteUserDirs(const std::string& text) const {
    fs::create_directories(scratch / ".config");
    test::WriteText(scratch / ".config/user-dirs.dirs", text);
  }
};

TEST_F(UserFolders, StandBelowTheHomeUnlessTheEnvironmentSaysOtherwise) {
  EXPECT_EQ(UserDataFolder(), scratch / ".local/share/tembrel");
  EXPECT_EQ(UserConfigFolder(), scratch / ".config/tembrel");
  const EnvironmentValue otherData("XDG_DATA_HOME", "/other/data");
  const EnvironmentValue otherConfig("XDG_CONFIG_HOME", "/other/config");
  EXPECT_EQ(UserDataFolder(), "/other/data/tembrel");
  EXPECT_EQ(UserConfigFolder(), "/other/config/tembrel");
}

TEST_F(UserFolders, IgnoreARelativeOrEmptyFolderInTheEnvironment) {
  const EnvironmentValue relative("XDG_DATA_HOME", "data");
  const EnvironmentValue empty("XDG_CONFIG_HOME", "");
  EXPECT_EQ(UserDataFolder(), scratch / ".local/share/tembrel");
  EXPECT_EQ(UserConfigFolder(), scratch / ".config/tembrel");
}

TEST_F(UserFolders, HaveAHomeEvenWhenTheEnvironmentNamesNone) {
  const EnvironmentValue none("HOME", std::nullopt);
  EXPECT_TRUE(UserDataFolder().is_absolute());
}

TEST_F(UserFolders, DocumentsAreCreatedBelowTheHome) {
  EXPECT_EQ(DocumentsFolder(), scratch / "Documents");
  EXPECT_TRUE(fs::is_directory(scratch / "Documents"));
}

TEST_F(UserFolders, DocumentsAreWhereTheUsersListSays) {
  WriteUserDirs(
      "# comment\nXDG_MUSIC_DIR=\"$HOME/Music\"\n  XDG_DOCUMENTS_DIR=\"$HOME/My \\\"Papers\\\"\"\n");
  EXPECT_EQ(DocumentsFolder(), scratch / "My \"Papers\"");
  EXPECT_TRUE(fs::is_directory(scratch / "My \"Papers\""));
  WriteUserDirs("XDG_DOCUMENTS_DIR=\"" + (scratch / "absolute").string() + "\"");
  EXPECT_EQ(DocumentsFolder(), scratch / "absolute");
}

TEST_F(UserFolders, DocumentsIgnoreAListThatNamesNoAbsoluteFolder) {
  WriteUserDirs("XDG_DOCUMENTS_DIR=\"relative\"\n");
  EXPECT_EQ(DocumentsFolder(), scratch / "Documents");
}

TEST_F(UserFolders, NoDocumentsWhereAFileStandsInTheWay) {
  test::WriteText(scratch / "Documents", "a file");
  EXPECT_EQ(DocumentsFolder(), std::nullopt);
}

TEST(Paths, TheExecutableIsTheRunningProgram) {
  EXPECT_TRUE(ExecutablePath().is_absolute());
  EXPECT_EQ(ExecutablePath().filename().string().substr(0, 14), "platform_tests");
}

TEST(Paths, AWritableFolderExistsAndMayBeWritten) {
  const ScratchFolder scratch;
  EXPECT_TRUE(IsWritableFolder(scratch.Path()));
  EXPECT_FALSE(IsWritableFolder(scratch / "missing"));
  EXPECT_FALSE(IsWritableFolder(""));
  test::WriteText(scratch / "file", "x");
  EXPECT_FALSE(IsWritableFolder(scratch / "file"));
  const test::OrdinaryUser user;
  ASSERT_TRUE(user.Effective());
  EXPECT_FALSE(IsWritableFolder("/usr/bin"));
}

}  // namespace
}  // namespace tembrel
