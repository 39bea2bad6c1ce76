// What becomes of a file while another one is to take its place.
#include <filesystem>
#include <gmock/gmock.h>

#include "device/OldFileAside.h"
#include "tests/support/FileBytes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel::test {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class AnOldFile : public testing::Test {
 protected:
  AnOldFile() { WriteText(place, "old"); }

  ScratchFolder folder;
  fs::path place = folder / "take.WAV";
};

TEST_F(AnOldFile, ComesBackWhenThereIsNoNewOne) {
  OldFileAside old(place);
  EXPECT_EQ(old.Reason(), "");
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV.old1"));
  old.PutBack();
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_EQ(ReadText(place), "old");
}

TEST_F(AnOldFile, ComesBackOverWhatIsThereOfANewOne) {
  OldFileAside old(place);
  WriteText(place, "half of a new o");
  old.PutBack();
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_EQ(ReadText(place), "old");
}

TEST_F(AnOldFile, GoesWhenTheNewOneIsThere) {
  OldFileAside old(place);
  WriteText(place, "new");
  old.Remove();
  old.PutBack();
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_EQ(ReadText(place), "new");
}

TEST_F(AnOldFile, TakesNoNameThatIsThere) {
  WriteText(folder / "take.WAV.old1", "another");
  fs::create_symlink("nowhere", folder / "take.WAV.old2");
  fs::create_directory(folder / "take.WAV.old3");
  OldFileAside old(place);
  EXPECT_EQ(ReadText(folder / "take.WAV.old4"), "old");
  EXPECT_EQ(ReadText(folder / "take.WAV.old1"), "another");
  old.Remove();
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("take.WAV.old1", "take.WAV.old2", "take.WAV.old3"));
}

TEST_F(AnOldFile, ThatIsALinkComesBackAsTheLink) {
  fs::create_symlink("take.WAV", folder / "link");
  OldFileAside old(folder / "link");
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("take.WAV", "link.old1"));
  old.PutBack();
  EXPECT_EQ(fs::read_symlink(folder / "link"), "take.WAV");
}

TEST_F(AnOldFile, IsWantedOnlyIfItIsAFile) {
  fs::create_directory(folder / "folder");
  for (const char* name : {"folder", "missing"}) {
    OldFileAside old(folder / name);
    EXPECT_EQ(old.Reason(), "");
    old.PutBack();
    old.Remove();
  }
  EXPECT_THAT(folder.Names(), UnorderedElementsAre("take.WAV", "folder"));
}

TEST_F(AnOldFile, StaysInAFolderThatMayNotBeWritten) {
  fs::permissions(folder.Path(), fs::perms{0555});
  {
    const OrdinaryUser user;
    ASSERT_TRUE(user.Effective());
    OldFileAside old(place);
    EXPECT_EQ(old.Reason(), "Permission denied");
    old.Remove();
  }
  fs::permissions(folder.Path(), fs::perms::owner_all);
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
}

TEST_F(AnOldFile, WhoseFolderWentIsNoMore) {
  fs::create_directory(folder / "inner");
  WriteText(folder / "inner" / "take.WAV", "old");
  OldFileAside old(folder / "inner" / "take.WAV");
  fs::remove_all(folder / "inner");
  old.PutBack();
  EXPECT_THAT(folder.Names(), ElementsAre("take.WAV"));
  EXPECT_THAT(old.Reason(), IsEmpty());
}

}  // namespace
}  // namespace tembrel::test
