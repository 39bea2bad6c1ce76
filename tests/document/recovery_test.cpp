#include "document/Recovery.h"

#include <gmock/gmock.h>
#include <memory>

#include "document/Document.h"
#include "tests/document/DocumentFixture.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Recovery : public test::DocumentTest {
 protected:
  // What a run that died left in the Temp folder.
  void Abandon(const std::string& stem, const std::string* note) {
    std::filesystem::copy_file(MakeWave("abandoned.wav"), paths.tempFolder / (stem + ".wav"));
    if (note != nullptr) {
      MakeFile(paths.tempFolder / (stem + ".txt"), *note);
    }
  }
};

TEST_F(Recovery, OffersCopiesWithUnsavedChanges) {
  const std::string name = "/music/a song.wav";
  Abandon("temp12", &name);
  const std::vector<AbandonedCopy> copies = FindAbandonedCopies(paths.tempFolder);
  ASSERT_EQ(copies.size(), 1U);
  EXPECT_EQ(copies[0].documentName, name);
  EXPECT_EQ(copies[0].wave, paths.tempFolder / "temp12.wav");
  EXPECT_THAT(RecoveryQuestion(copies), HasSubstr(name));
}

TEST_F(Recovery, RemovesCopiesWithoutChangesAndNotesWithoutACopy) {
  Abandon("temp12", nullptr);
  MakeFile(paths.tempFolder / "temp13.txt", "/music/song.wav");
  EXPECT_THAT(FindAbandonedCopies(paths.tempFolder), IsEmpty());
  EXPECT_THAT(TempFiles(), IsEmpty());
}

TEST_F(Recovery, LeavesOtherFilesAlone) {
  MakeFile(paths.tempFolder / "~audio.wav", "x");
  MakeFile(paths.tempFolder / "temp.wav", "x");
  MakeFile(paths.tempFolder / "temp1a.wav", "x");
  MakeFile(paths.tempFolder / "notes.txt", "x");
  EXPECT_THAT(FindAbandonedCopies(paths.tempFolder), IsEmpty());
  EXPECT_THAT(TempFiles(), ElementsAre("notes.txt", "temp.wav", "temp1a.wav", "~audio.wav"));
}

TEST_F(Recovery, LeavesTheCopiesOfRunningDocumentsAlone) {
  const auto path = MakeWave("song.wav");
  Document unchanged(paths, 1);
  Document changed(paths, 2);
  unchanged.LoadFile(path, path, kDefaultPlayback);
  changed.LoadFile(path, path, kDefaultPlayback);
  changed.SetChanged(true);
  EXPECT_THAT(FindAbandonedCopies(paths.tempFolder), IsEmpty());
  EXPECT_THAT(TempFiles(), ElementsAre("temp1.wav", "temp2.txt", "temp2.wav"));
}

TEST_F(Recovery, NoteFollowsTheChangedFlag) {
  const auto path = MakeWave("song.wav");
  Document document(paths, 2);
  document.LoadFile(path, path, kDefaultPlayback);
  document.SetChanged(true);
  EXPECT_EQ(Content(paths.tempFolder / "temp2.txt"), path.string());
  document.SetChanged(false);
  EXPECT_THAT(TempFiles(), ElementsAre("temp2.wav"));
}

TEST_F(Recovery, RemovesACopyWithItsNote) {
  const std::string name = "/music/song.wav";
  Abandon("temp12", &name);
  RemoveAbandonedCopy(FindAbandonedCopies(paths.tempFolder).at(0));
  EXPECT_THAT(TempFiles(), IsEmpty());
}

TEST_F(Recovery, KeepsACopyFromOthersUntilItIsDealtWith) {
  const std::string name = "/music/song.wav";
  Abandon("temp12", &name);
  std::vector<AbandonedCopy> copies = FindAbandonedCopies(paths.tempFolder);
  ASSERT_EQ(copies.size(), 1U);
  EXPECT_THAT(FindAbandonedCopies(paths.tempFolder), IsEmpty());
  copies.clear();
  EXPECT_EQ(FindAbandonedCopies(paths.tempFolder).size(), 1U);
}

TEST_F(Recovery, RemovesTheSuccessorsThatCopiesDidNotLiveToGet) {
  const std::string name = "/music/song.wav";
  Abandon("temp12", &name);
  MakeFile(paths.tempFolder / "temp12.part", "RIFF");
  MakeFile(paths.tempFolder / "temp13.part", "RIFF");
  MakeFile(paths.tempFolder / "temp14.part", "RIFF");
  const std::optional<FileLock> running = FileLock::TryLock(paths.tempFolder / "temp14.part");
  EXPECT_EQ(FindAbandonedCopies(paths.tempFolder).size(), 1U);
  EXPECT_THAT(TempFiles(), ElementsAre("temp12.txt", "temp12.wav", "temp14.part"));
}

TEST_F(Recovery, OfAMissingFolderFindsNothing) {
  EXPECT_THAT(FindAbandonedCopies(scratch.Path() / "nowhere"), IsEmpty());
}

TEST(RecoveryQuestion, NamesFiveDocumentsAndCountsTheRest) {
  std::vector<AbandonedCopy> copies;
  for (int i = 1; i <= 7; ++i) {
    copies.push_back({"", "song" + std::to_string(i) + ".wav"});
  }
  copies[0].documentName = "";
  const std::string text = RecoveryQuestion(copies);
  EXPECT_THAT(text, HasSubstr("(a new document)"));
  EXPECT_THAT(text, HasSubstr("song5.wav"));
  EXPECT_THAT(text, ::testing::Not(HasSubstr("song6.wav")));
  EXPECT_THAT(text, HasSubstr("and 2 more"));
}

}  // namespace
}  // namespace tembrel
