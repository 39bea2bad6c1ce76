#include <gmock/gmock.h>

#include "document/Saving.h"
#include "edit/ClipEdits.h"
#include "tests/document/EditFixture.h"
#include "tests/support/ScriptedPrompts.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const WaveFormat kMono8 = PcmFormat(22050, 8, 1);
const WaveFormat kStereo16 = PcmFormat(44100, 16, 2);

class Editing : public test::EditTest {};

TEST_F(Editing, RunsTheWholeFrame) {
  const auto document = Open(kStereo16, test::CountingBytes(400));
  Clipboard clipboard;
  const EditResult result = document->Edit(CutEdit({40, 80}, clipboard));
  EXPECT_TRUE(result.done);
  EXPECT_EQ(result.message, "");
  EXPECT_EQ(document->Clip()->dataSize, 360U);
  EXPECT_EQ(document->FrameCount(), 90U);
  EXPECT_TRUE(document->Changed());
  EXPECT_TRUE(document->CanUndo());
  EXPECT_THAT(listener.told, ElementsAre(true));
  ExpectCopyUpToDate(*document);
  EXPECT_THAT(TempFiles(), ElementsAre("temp7.txt", "temp7.wav"));
}

TEST_F(Editing, DoesNothingWithoutSound) {
  Document document(paths, 1);
  Clipboard clipboard;
  for (const EditResult& result :
       {document.Edit(CutEdit({0, 4}, clipboard)), document.Undo(), document.Redo(), document.BeginPencil(),
        document.DrawPencil({0, 100, 100, 100}, 5, 5)}) {
    EXPECT_FALSE(result.done);
    EXPECT_EQ(result.message, "");
  }
  document.EndPencil();
  EXPECT_FALSE(document.Changed());
  EXPECT_EQ(document.Clip(), nullptr);
}

TEST_F(Editing, IsRefusedForSoundThatCanOnlyBeLookedAt) {
  const auto path = MakeWave("surround.wav", 50, 24, 6, 96000);
  Document document(paths, 7);
  document.LoadFile(path, path, kDefaultPlayback);
  Clipboard clipboard;
  for (const EditResult& result : {document.Edit(CutEdit({0, 18}, clipboard)), document.BeginPencil(),
                                   document.Undo(), document.Redo()}) {
    EXPECT_FALSE(result.done);
    EXPECT_TRUE(result.isMistake);
    EXPECT_EQ(result.message, document.Notice());
  }
  EXPECT_EQ(document.Clip()->dataSize, 900U);
  EXPECT_FALSE(document.Changed());
  EXPECT_FALSE(document.CanUndo());
}

TEST_F(Editing, CopyIsAStepThatDoesNotMarkTheDocument) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  Clipboard clipboard;
  ASSERT_TRUE(document->Edit(CopyEdit({5, 10}, clipboard)).done);
  EXPECT_FALSE(document->Changed());
  EXPECT_TRUE(document->CanUndo());
  EXPECT_TRUE(clipboard.HasData());
  ASSERT_TRUE(document->Undo().done);
  EXPECT_FALSE(document->Changed());
  EXPECT_EQ(ContentOf(*document), test::CountingBytes(20));
  ExpectCopyUpToDate(*document);
}

TEST_F(Editing, MergeAndOverwriteDoNotRefreshTheLengths) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  Clipboard clipboard;
  document->Edit(CopyEdit({5, 10}, clipboard));
  document->Edit(PasteMergeEdit(clipboard, 3));
  document->Edit(PasteOverwriteEdit(clipboard, 3));
  document->Edit(PasteInsertEdit(clipboard, 3));
  document->Edit(InsertSilenceEdit({0, 3}));
  document->Undo();
  document->Redo();
  EXPECT_THAT(listener.told, ElementsAre(false, false, false, true, true, true, true));
  EXPECT_EQ(document->FrameCount(), 28U);
  ExpectCopyUpToDate(*document);
}

TEST_F(Editing, OfTheWholeClipLeavesOneByte) {
  const auto document = Open(kStereo16, test::CountingBytes(40));
  Clipboard clipboard;
  ASSERT_TRUE(document->Edit(CutEdit({0, 40}, clipboard)).done);
  EXPECT_EQ(document->Clip()->dataSize, 1U);
  EXPECT_EQ(document->FrameCount(), 0U);
  ExpectCopyUpToDate(*document);
  ASSERT_TRUE(document->Edit(PasteInsertEdit(clipboard, 0)).done);
  EXPECT_EQ(document->FrameCount(), 10U);
  ExpectCopyUpToDate(*document);
}

TEST_F(Editing, CountsFramesByBitsAndChannels) {
  const auto document = Open(kStereo16, test::CountingBytes(42));
  const auto frames = [&](const WaveFormat& format) {
    const auto step = test::StepOf([&](ClipEditor& editor) {
      return editor.ReplaceAll(std::move(*MemoryBlock::Allocate(42)), 42, format);
    });
    EXPECT_TRUE(document->Edit(step).done);
    EXPECT_EQ(document->Stereo(), format.nChannels == 2);
    return document->FrameCount();
  };
  EXPECT_EQ(frames(PcmFormat(8000, 8, 1)), 42U);
  EXPECT_EQ(frames(PcmFormat(8000, 8, 2)), 21U);
  EXPECT_EQ(frames(PcmFormat(8000, 16, 1)), 21U);
  EXPECT_EQ(frames(PcmFormat(8000, 16, 2)), 10U);
  document->Undo();
  document->Undo();
  EXPECT_EQ(document->FrameCount(), 21U);
  EXPECT_TRUE(document->Stereo());
  ExpectCopyUpToDate(*document);
}

TEST_F(Editing, UndoAfterASaveMakesTheDocumentChangedAgain) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  Clipboard clipboard;
  document->Edit(CutEdit({5, 10}, clipboard));
  test::ScriptedPrompts prompts;
  ASSERT_TRUE(SaveDocument(*document, prompts));
  EXPECT_FALSE(document->Changed());
  document->Undo();
  EXPECT_TRUE(document->Changed());
  EXPECT_THAT(TempFiles(), ElementsAre("temp7.txt", "temp7.wav"));
}

TEST_F(Editing, UndoWithAnEmptyHistoryExchangesWithAnEmptyClipAndBack) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  ASSERT_TRUE(document->Undo().done);
  EXPECT_EQ(document->Clip()->dataSize, 0U);
  EXPECT_EQ(document->FrameCount(), 0U);
  EXPECT_FALSE(document->Editable());
  ExpectCopyUpToDate(*document);
  EXPECT_THAT(document->Edit(InsertSilenceEdit({0, 1})).message, HasSubstr("no sound"));
  ASSERT_TRUE(document->Undo().done);
  EXPECT_EQ(ContentOf(*document), test::CountingBytes(20));
  EXPECT_EQ(document->FrameCount(), 20U);
  ExpectCopyUpToDate(*document);
}

TEST_F(Editing, AMismatchChangesAndRecordsNothing) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  Clipboard clipboard;
  clipboard.clip = test::ClipOf(PcmFormat(22050, 16, 1), BytesOf({1, 2}));
  const EditResult result = document->Edit(PasteInsertEdit(clipboard, 0));
  EXPECT_FALSE(result.done);
  EXPECT_FALSE(result.isMistake);
  EXPECT_EQ(result.message, "Can't paste to 8 bit mono 22050 Hz audio file.");
  EXPECT_FALSE(document->CanUndo());
  EXPECT_FALSE(document->Changed());
  EXPECT_THAT(listener.told, IsEmpty());
}

TEST_F(Editing, ThatFailsLeavesDocumentAndHistoryAsTheyWere) {
  test::ScarceMemory scarce;
  const auto document = Open(kMono8, test::CountingBytes(20), scarce.Memory());
  Clipboard clipboard;
  document->Edit(InsertSilenceEdit({0, 5}));
  document->Edit(InsertSilenceEdit({0, 5}));
  document->Undo();
  document->SetChanged(false);
  listener.told.clear();
  const Bytes before = ContentOf(*document);
  scarce.refuse = [](std::size_t) { return true; };
  for (const EditStep& step :
       {CutEdit({0, 5}, clipboard), CopyEdit({0, 5}, clipboard), InsertSilenceEdit({0, 5})}) {
    const EditResult result = document->Edit(step);
    EXPECT_FALSE(result.done);
    EXPECT_TRUE(result.isMistake);
    EXPECT_THAT(result.message, HasSubstr("memory"));
    EXPECT_EQ(ContentOf(*document), before);
    EXPECT_FALSE(document->Changed());
    EXPECT_TRUE(document->CanUndo());
    EXPECT_TRUE(document->CanRedo());
  }
  EXPECT_FALSE(clipboard.HasData());
  const EditResult redo = document->Redo();
  EXPECT_FALSE(redo.done);
  EXPECT_THAT(redo.message, HasSubstr("memory"));
  EXPECT_THAT(listener.told, IsEmpty());
  ExpectCopyUpToDate(*document);
  scarce.refuse = [](std::size_t) { return false; };
  EXPECT_TRUE(document->Redo().done);
  EXPECT_EQ(document->Clip()->dataSize, 30U);
}

TEST_F(Editing, TakesBackAStepThatFailsHalfWay) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  const EditResult result = document->Edit(test::StepOf([](ClipEditor& editor) {
    std::ranges::fill(*editor.Overwrite(3, 5), std::byte{0});
    std::ranges::fill(*editor.Splice(2, 1, 9), std::byte{0});
    return false;
  }));
  EXPECT_FALSE(result.done);
  EXPECT_EQ(ContentOf(*document), test::CountingBytes(20));
  EXPECT_FALSE(document->CanUndo());
  ExpectCopyUpToDate(*document);
}

TEST_F(Editing, ForgetsTheHistoryWhenAnotherFileIsLoaded) {
  const auto document = Open(kMono8, test::CountingBytes(20));
  document->Edit(InsertSilenceEdit({0, 5}));
  const auto other = MakeWave("other.wav", 10);
  document->LoadFile(other, other, kDefaultPlayback);
  EXPECT_FALSE(document->CanUndo());
  EXPECT_FALSE(document->CanRedo());
}

TEST_F(Editing, GoesOnWithoutATemporaryCopy) {
  std::filesystem::remove_all(paths.tempFolder);
  const auto document = Open(kMono8, test::CountingBytes(20));
  ASSERT_EQ(document->TempFileName(), "");
  EXPECT_TRUE(document->Edit(InsertSilenceEdit({0, 5})).done);
  EXPECT_TRUE(document->Undo().done);
  EXPECT_TRUE(document->Changed());
}

class PencilDrag : public test::EditTest {
 protected:
  static constexpr PencilArea kArea{0, 100, 100, 200};
};

TEST_F(PencilDrag, IsOneStep) {
  const auto document = Open(kMono8, Bytes(100, std::byte{128}));
  ASSERT_TRUE(document->BeginPencil().done);
  EXPECT_TRUE(document->Changed());
  EXPECT_TRUE(document->CanUndo());
  for (int x = 10; x < 20; ++x) {
    ASSERT_TRUE(document->DrawPencil(kArea, x, 60).done);
  }
  EXPECT_TRUE(document->Changed());
  document->EndPencil();
  EXPECT_TRUE(document->Changed());
  const Bytes content = ContentOf(*document);
  EXPECT_EQ(std::ranges::count(content, static_cast<std::byte>(128 + 57)), 11);
  ExpectCopyUpToDate(*document);
  ASSERT_TRUE(document->Undo().done);
  EXPECT_FALSE(document->CanUndo());
  EXPECT_EQ(ContentOf(*document), Bytes(100, std::byte{128}));
  ExpectCopyUpToDate(*document);
}

TEST_F(PencilDrag, ThatDrawsNothingMarksTheDocumentAllTheSame) {
  const auto document = Open(kMono8, Bytes(100, std::byte{128}));
  document->BeginPencil();
  document->EndPencil();
  EXPECT_TRUE(document->Changed());
}

TEST_F(PencilDrag, EndsWithAnyOtherEdit) {
  const auto document = Open(kMono8, Bytes(100, std::byte{128}));
  document->BeginPencil();
  document->DrawPencil(kArea, 10, 60);
  ASSERT_TRUE(document->Undo().done);
  EXPECT_FALSE(document->DrawPencil(kArea, 20, 60).done);
  EXPECT_EQ(ContentOf(*document), Bytes(100, std::byte{128}));
  ExpectCopyUpToDate(*document);
}

TEST_F(PencilDrag, DrawsOnlyAfterThePress) {
  const auto document = Open(kMono8, Bytes(100, std::byte{128}));
  EXPECT_FALSE(document->DrawPencil(kArea, 10, 60).done);
  document->EndPencil();
  EXPECT_FALSE(document->Changed());
  EXPECT_EQ(ContentOf(*document), Bytes(100, std::byte{128}));
  EXPECT_THAT(listener.told, IsEmpty());
}

}  // namespace
}  // namespace tembrel
