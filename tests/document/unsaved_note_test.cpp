// The note beside a document's copy, without which its unsaved changes would not be recovered.
#include <gmock/gmock.h>

#include "document/Recovery.h"
#include "edit/ClipEdits.h"
#include "tests/document/EditFixture.h"
#include "tests/support/FileSizeLimit.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;

class UnsavedNote : public test::EditTest {
 protected:
  EditResult EditOnce() { return document->Edit(InsertSilenceEdit({10, 14})); }

  std::unique_ptr<Document> document = Open(PcmFormat(22050, 8, 1), test::CountingBytes(100));
  std::filesystem::path note = NotePath(document->TempFileName());
};

TEST_F(UnsavedNote, ThatCouldNotBeWrittenIsTriedAgainAtTheNextChange) {
  std::filesystem::create_directory(note);
  ASSERT_TRUE(EditOnce().done);
  EXPECT_TRUE(document->Changed());
  std::filesystem::remove(note);
  ASSERT_TRUE(EditOnce().done);
  EXPECT_EQ(Content(note), document->FileName());
}

TEST_F(UnsavedNote, ThatIsGoneIsWrittenAgainByEveryKindOfChange) {
  const std::vector<std::function<EditResult()>> changes = {
      [this] { return EditOnce(); }, [this] { return document->Undo(); }, [this] { return document->Redo(); },
      [this] { return document->BeginPencil(); }};
  for (const auto& change : changes) {
    ASSERT_TRUE(EditOnce().done);
    ASSERT_TRUE(document->Undo().done);
    std::filesystem::remove(note);
    EXPECT_TRUE(change().done);
    EXPECT_EQ(Content(note), document->FileName());
  }
}

TEST_F(UnsavedNote, ComesWithACopyForWhichThereIsRoomByNow) {
  const auto path = MakeWave("song.wav");
  Document late(paths, 9);
  {
    const test::FileSizeLimit limit(200);
    late.LoadFile(path, path, {});
    ASSERT_TRUE(late.Edit(InsertSilenceEdit({40, 80})).done);
    EXPECT_FALSE(late.HasTempCopy());
    EXPECT_THAT(TempFiles(), ElementsAre("temp7.wav"));
  }
  ASSERT_TRUE(late.Edit(InsertSilenceEdit({40, 80})).done);
  EXPECT_THAT(TempFiles(), ElementsAre("temp7.wav", "temp9.txt", "temp9.wav"));
  ExpectCopyUpToDate(late);
}

TEST_F(UnsavedNote, IsWrittenOnceOnly) {
  ASSERT_TRUE(EditOnce().done);
  MakeFile(note, "not written again");
  ASSERT_TRUE(EditOnce().done);
  EXPECT_EQ(Content(note), "not written again");
}

TEST_F(UnsavedNote, IsNotWrittenByAStepThatChangesNothing) {
  Clipboard clipboard;
  ASSERT_TRUE(document->Edit(CopyEdit({5, 10}, clipboard)).done);
  EXPECT_THAT(TempFiles(), ElementsAre("temp7.wav"));
}

}  // namespace
}  // namespace tembrel
