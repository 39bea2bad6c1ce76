#include "document/Saving.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <memory>
#include <system_error>
#include <utility>

#include "edit/FormatChange.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScriptedPrompts.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class Saving : public test::DocumentTest {
 protected:
  // A changed document whose file has been spoiled since it was opened, so that a save shows.
  void Open(const std::string& name) {
    file = MakeWave(name);
    original = Content(file);
    document.LoadFile(file, file, kDefaultPlayback);
    document.SetChanged(true);
    MakeFile(file, "spoiled");
  }

  Document document{paths, 1};
  test::ScriptedPrompts prompts;
  std::filesystem::path file;
  std::string original;
};

TEST_F(Saving, WritesTheSoundBackAndClearsTheChangedFlag) {
  Open("song.wav");
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), original);
  EXPECT_FALSE(document.Changed());
  EXPECT_THAT(prompts.errors, IsEmpty());
}

TEST_F(Saving, ToAFolderThatIsGoneNamesFileAndReasonAndStaysChanged) {
  std::filesystem::create_directory(scratch.Path() / "gone");
  Open("gone/song.wav");
  std::filesystem::remove_all(scratch.Path() / "gone");
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_TRUE(document.Changed());
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(prompts.errors[0], HasSubstr(file.string()));
  EXPECT_THAT(prompts.errors[0],
              HasSubstr(std::make_error_code(std::errc::no_such_file_or_directory).message()));
}

TEST_F(Saving, CancelledLeavesTheOldFileAndSaysNothing) {
  Open("song.wav");
  prompts.onProgress = [](std::uint64_t, std::uint64_t) { return false; };
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), "spoiled");
  EXPECT_TRUE(document.Changed());
  EXPECT_THAT(prompts.errors, IsEmpty());
}

TEST_F(Saving, UnderANameWithoutADotIsRefusedAndStaysChanged) {
  const auto wave = MakeWave("song.wav");
  document.LoadFile(wave, scratch.Path() / "song", kDefaultPlayback);
  document.SetChanged(true);
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_TRUE(document.Changed());
  EXPECT_FALSE(std::filesystem::exists(scratch.Path() / "song"));
  EXPECT_EQ(prompts.errors.size(), 1U);
}

TEST_F(Saving, OfAnEmptyDocumentNeverTouchesTheFile) {
  const auto path = scratch.Path() / "broken.wav";
  MakeFile(path, "not sound, but somebody's");
  document.LoadFile(path, path, kDefaultPlayback);
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(path), "not sound, but somebody's");
  EXPECT_THAT(prompts.errors, ElementsAre("There is no sound to save."));
}

TEST_F(Saving, OfSoundThatAConversionLeftNothingOfNeverTouchesTheFile) {
  file = MakeWave("short.wav", 3);
  original = Content(file);
  document.LoadFile(file, file, {});
  ASSERT_TRUE(document.Edit(FormatEdit({11025, 16, 2})).done);
  ASSERT_EQ(document.Clip()->dataSize, 0U);
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), original);
  EXPECT_TRUE(document.Changed());
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(prompts.errors[0], HasSubstr(file.string() + " was not saved: nothing is left of this sound"));
  ASSERT_TRUE(document.Undo().done);
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), original);
}

TEST_F(Saving, AsWritesTheChosenNameWithTheFiltersExtension) {
  Open("song.wav");
  prompts.saveChoice = SaveChoice{scratch.Path() / "copy.x", 1};
  EXPECT_EQ(SaveDocumentAs(document, prompts), scratch.Path() / "copy.wav");
  EXPECT_EQ(Content(scratch.Path() / "copy.wav"), original);
  EXPECT_FALSE(document.Changed());
  EXPECT_EQ(prompts.startShown, file);
  EXPECT_EQ(prompts.filtersShown.size(), 5U);
}

TEST_F(Saving, AsKeepsTheDocumentsOldNameSoThatSaveGoesThere) {
  Open("song.wav");
  prompts.saveChoice = SaveChoice{scratch.Path() / "copy", 1};
  SaveDocumentAs(document, prompts);
  EXPECT_EQ(document.FileName(), file);
  EXPECT_EQ(Content(file), "spoiled");
  SaveDocument(document, prompts);
  EXPECT_EQ(Content(file), original);
}

TEST_F(Saving, AsAsksBeforeItOverwrites) {
  Open("song.wav");
  const auto other = scratch.Path() / "other.wav";
  MakeFile(other, "precious");
  prompts.saveChoice = SaveChoice{scratch.Path() / "other.mp3", 1};
  prompts.answers = {Answer::No};
  EXPECT_EQ(SaveDocumentAs(document, prompts), std::nullopt);
  EXPECT_EQ(Content(other), "precious");
  EXPECT_TRUE(document.Changed());
  prompts.answers = {Answer::Yes};
  EXPECT_EQ(SaveDocumentAs(document, prompts), other);
  EXPECT_EQ(Content(other), original);
  EXPECT_EQ(prompts.questions[0], other.string() + " exists. Overwrite?");
}

TEST_F(Saving, AsCancelledDoesNothing) {
  Open("song.wav");
  EXPECT_EQ(SaveDocumentAs(document, prompts), std::nullopt);
  EXPECT_TRUE(document.Changed());
}

TEST_F(Saving, InAForeignFormatSaysThatItCannotYet) {
  Open("song.wav");
  prompts.saveChoice = SaveChoice{scratch.Path() / "x.wav", 2};
  EXPECT_EQ(SaveDocumentAs(document, prompts), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(scratch.Path() / "x.mp3"));
  EXPECT_TRUE(document.Changed());
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(prompts.errors[0], HasSubstr("x.mp3"));
}

TEST_F(Saving, OfFramesWithGapsIsRefusedAndTouchesNothing) {
  file = MakeWave("gaps.wav", 50, 16, 1);
  std::string bytes = Content(file);
  bytes[32] = 4;
  MakeFile(file, bytes);
  document.LoadFile(file, file, kDefaultPlayback);
  document.SetChanged(true);
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), bytes);
  EXPECT_TRUE(document.Changed());
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(prompts.errors[0], HasSubstr(file.string() + " was not saved: every frame"));
}

TEST_F(Saving, OfFramesThatAreTooSmallForTheirSamplesIsRefusedAsSuch) {
  file = MakeWave("small.wav", 50, 16, 2);
  std::string bytes = Content(file);
  bytes[32] = 2;
  MakeFile(file, bytes);
  document.LoadFile(file, file, {});
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), bytes);
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(prompts.errors[0],
              HasSubstr("every frame of this sound has fewer bytes than its samples take"));
}

TEST_F(Saving, ThroughASymbolicLinkWritesTheFileItPointsTo) {
  Open("song.wav");
  const auto target = scratch.Path() / "target.wav";
  std::filesystem::rename(file, target);
  std::filesystem::create_symlink("target.wav", file);
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(Content(target), original);
}

TEST_F(Saving, KeepsTheFilesPermissions) {
  Open("song.wav");
  const auto permissions = static_cast<std::filesystem::perms>(0640);
  std::filesystem::permissions(file, permissions);
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), original);
  EXPECT_EQ(std::filesystem::status(file).permissions(), permissions);
}

TEST_F(Saving, WithoutRoomLeavesFileAndDocumentAsTheyWere) {
  Open("song.wav");
  {
    const test::FileSizeLimit limit(200);
    EXPECT_FALSE(SaveDocument(document, prompts));
  }
  EXPECT_EQ(Content(file), "spoiled");
  EXPECT_TRUE(document.Changed());
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_THAT(prompts.errors[0], HasSubstr(file.string() + " could not be saved: File too large."));
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("program", "song.wav"));
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(file), original);
}

class SavingTheNameless : public Saving {
 protected:
  SavingTheNameless() {
    auto clip = std::make_unique<AudioClip>();
    clip->format = PcmFormat(22050, 8, 1);
    clip->data = std::move(MemoryBlock::Allocate(2).value());
    clip->dataSize = 2;
    clip->Bytes()[0] = std::byte{1};
    clip->Bytes()[1] = std::byte{2};
    document.TakeSound(std::move(clip), "");
    document.SetChanged(true);
  }
};

TEST_F(SavingTheNameless, AsksForANameAndKeepsIt) {
  const auto path = scratch.Path() / "named.wav";
  prompts.saveChoice = SaveChoice{path, 1};
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_EQ(document.FileName(), path);
  EXPECT_FALSE(document.Changed());
  EXPECT_EQ(Content(path).size(), 46U);
  prompts.saveChoice.reset();
  std::filesystem::remove(path);
  EXPECT_TRUE(SaveDocument(document, prompts));
  EXPECT_EQ(Content(path).size(), 46U);
}

TEST_F(SavingTheNameless, SteppedBackFromLeavesItNamelessAndChanged) {
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(document.FileName(), "");
  EXPECT_TRUE(document.Changed());
  EXPECT_THAT(prompts.errors, IsEmpty());
}

TEST_F(SavingTheNameless, InVainLeavesItNamelessAndChanged) {
  prompts.saveChoice = SaveChoice{scratch.Path() / "gone" / "named.wav", 1};
  EXPECT_FALSE(SaveDocument(document, prompts));
  EXPECT_EQ(document.FileName(), "");
  EXPECT_TRUE(document.Changed());
  EXPECT_EQ(prompts.errors.size(), 1U);
}

TEST_F(SavingTheNameless, NamesItInTheNoteOfLaterChangesToo) {
  const auto path = scratch.Path() / "named.wav";
  prompts.saveChoice = SaveChoice{path, 1};
  SaveDocument(document, prompts);
  document.SetChanged(true);
  EXPECT_EQ(Content(NotePath(document.TempFileName())), path.string());
}

TEST_F(SavingTheNameless, IsAskedAboutInWords) {
  document.SetChanged(true);
  prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(CanClose(document, prompts, [] { return true; }));
  EXPECT_THAT(prompts.questions, ElementsAre("This document has been changed.  Do you wish to save?"));
}

class Closing : public Saving {
 protected:
  bool Close(bool saveWorks = true) {
    return CanClose(document, prompts, [this, saveWorks] {
      ++saves;
      return saveWorks;
    });
  }
  int saves = 0;
};

TEST_F(Closing, AnUnchangedDocumentAsksNothing) {
  EXPECT_TRUE(Close());
  EXPECT_THAT(prompts.questions, IsEmpty());
}

TEST_F(Closing, AsksWithTwoBlanksAndTheTitle) {
  Open("song.wav");
  prompts.answers = {Answer::No};
  EXPECT_TRUE(Close());
  EXPECT_THAT(prompts.questions, ElementsAre(file.string() + " has been changed.  Do you wish to save?"));
  EXPECT_THAT(prompts.titles, ElementsAre("Leaving Corvane"));
  EXPECT_EQ(saves, 0);
}

TEST_F(Closing, YesRunsTheSaveCommand) {
  Open("song.wav");
  prompts.answers = {Answer::Yes};
  EXPECT_TRUE(Close());
  EXPECT_EQ(saves, 1);
}

TEST_F(Closing, AFailedSaveKeepsItOpen) {
  Open("song.wav");
  prompts.answers = {Answer::Yes};
  EXPECT_FALSE(Close(false));
}

TEST_F(Closing, CancelKeepsItOpenAndChanged) {
  Open("song.wav");
  prompts.answers = {Answer::Cancel};
  EXPECT_FALSE(Close());
  EXPECT_TRUE(document.Changed());
}

}  // namespace
}  // namespace tembrel
