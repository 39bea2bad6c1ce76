#include <gmock/gmock.h>
#include <utility>

#include "document/Document.h"
#include "document/Recovery.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/FileSizeLimit.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string kName = "/music/a song.wav";

class Recovering : public test::DocumentTest {
 protected:
  // Leaves the copy temp12 with a note, as a run that died.
  void Abandon(const std::string& content, const std::string& name = kName) const {
    MakeFile(wave, content);
    MakeFile(paths.tempFolder / "temp12.txt", name);
  }
  AbandonedCopy TheCopy() const { return std::move(FindAbandonedCopies(paths.tempFolder).at(0)); }
  std::size_t CopiesFound() const { return FindAbandonedCopies(paths.tempFolder).size(); }

  std::filesystem::path wave = paths.tempFolder / "temp12.wav";
  std::string whole = Content(MakeWave("whole.wav", 100));
  Document document{paths, 1};
};

TEST_F(Recovering, GivesTheDocumentItsSoundAndNameAsAChange) {
  Abandon(whole);
  const RecoveryResult result = RecoverCopy(TheCopy(), document);
  EXPECT_TRUE(result.recovered);
  EXPECT_EQ(result.message, "");
  EXPECT_EQ(document.FrameCount(), 100U);
  EXPECT_EQ(document.FileName(), kName);
  EXPECT_TRUE(document.Changed());
  EXPECT_TRUE(document.Editable());
}

TEST_F(Recovering, LeavesOnlyTheDocumentsOwnCopyAndNote) {
  Abandon(whole);
  RecoverCopy(TheCopy(), document);
  EXPECT_THAT(TempFiles(), ElementsAre("temp1.txt", "temp1.wav"));
  EXPECT_EQ(Content(paths.tempFolder / "temp1.wav"), whole);
  EXPECT_EQ(Content(paths.tempFolder / "temp1.txt"), kName);
}

TEST_F(Recovering, OfADocumentWithoutANameLeavesItNameless) {
  Abandon(whole, "");
  EXPECT_TRUE(RecoverCopy(TheCopy(), document).recovered);
  EXPECT_EQ(document.FileName(), "");
  EXPECT_TRUE(document.Changed());
}

TEST_F(Recovering, TakesWhatIsThereOfACopyThatWasCutShort) {
  Abandon(whole.substr(0, 44 + 203));
  const RecoveryResult result = RecoverCopy(TheCopy(), document);
  EXPECT_TRUE(result.recovered);
  EXPECT_EQ(document.FrameCount(), 50U);
  EXPECT_THAT(result.message, HasSubstr("The end of " + kName + " may be missing"));
  EXPECT_THAT(TempFiles(), ElementsAre("temp1.txt", "temp1.wav"));
}

TEST_F(Recovering, KeepsTheOldCopyWhereThereIsNoRoomForANewOne) {
  Abandon(whole);
  {
    const test::FileSizeLimit limit(200);
    const RecoveryResult result = RecoverCopy(TheCopy(), document);
    EXPECT_TRUE(result.recovered);
    EXPECT_THAT(result.message, HasSubstr(kName + " could not be written to the disk again"));
  }
  EXPECT_EQ(document.FrameCount(), 100U);
  EXPECT_EQ(Content(wave), whole);
  EXPECT_EQ(CopiesFound(), 1U);
}

TEST_F(Recovering, KeepsTheOldCopyWhereTheNewNoteCannotBeWritten) {
  Abandon(whole);
  AbandonedCopy copy = TheCopy();
  std::filesystem::create_symlink("no such folder/note", paths.tempFolder / "temp1.txt");
  const RecoveryResult result = RecoverCopy(std::move(copy), document);
  EXPECT_TRUE(result.recovered);
  EXPECT_NE(result.message, "");
  EXPECT_EQ(Content(wave), whole);
}

TEST_F(Recovering, CancelledAtAnyPointKeepsTheCopyForTheNextStart) {
  Abandon(whole);
  int reports = 0;
  {
    Document first(paths, 50);
    RecoverCopy(TheCopy(), first, [&reports](std::uint64_t, std::uint64_t) { return ++reports > 0; });
  }
  ASSERT_GE(reports, 2);
  for (int last = 1; last <= reports; ++last) {
    Abandon(whole);
    int seen = 0;
    const RecoveryResult result =
        RecoverCopy(TheCopy(), document, [&](std::uint64_t, std::uint64_t) { return ++seen < last; });
    EXPECT_FALSE(result.recovered);
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(document.Clip(), nullptr);
    EXPECT_THAT(TempFiles(), ElementsAre("temp12.txt", "temp12.wav"));
    EXPECT_EQ(CopiesFound(), 1U);
  }
}

TEST_F(Recovering, PutsAnUnreadableCopyAsideAndSaysSo) {
  Abandon("no sound at all");
  const RecoveryResult result = RecoverCopy(TheCopy(), document);
  EXPECT_FALSE(result.recovered);
  EXPECT_THAT(result.message, HasSubstr("The unsaved changes of " + kName + " could not be recovered: "));
  EXPECT_THAT(result.message, HasSubstr((paths.tempFolder / "temp12.broken").string()));
  EXPECT_EQ(document.Clip(), nullptr);
  EXPECT_FALSE(document.Changed());
  EXPECT_EQ(CopiesFound(), 0U);
  EXPECT_THAT(TempFiles(), ElementsAre("temp12.broken"));
  EXPECT_EQ(Content(paths.tempFolder / "temp12.broken"), "no sound at all");
}

TEST_F(Recovering, DeletesNoUnreadableCopyForAnother) {
  for (const char* content : {"first", "second", "third"}) {
    Abandon(content, "");
    EXPECT_THAT(RecoverCopy(TheCopy(), document).message, HasSubstr("of a new document"));
  }
  EXPECT_THAT(TempFiles(), ElementsAre("temp12-2.broken", "temp12-3.broken", "temp12.broken"));
  EXPECT_EQ(Content(paths.tempFolder / "temp12.broken"), "first");
  EXPECT_EQ(Content(paths.tempFolder / "temp12-3.broken"), "third");
}

}  // namespace
}  // namespace tembrel
