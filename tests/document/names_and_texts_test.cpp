#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/FileFilter.h"
#include "document/FileKind.h"
#include "document/StatusTexts.h"
#include "document/StringTable.h"

namespace tembrel {
namespace {

TEST(FileKind, IsToldByFourCharactersOfTheExtensionInAnyCase) {
  EXPECT_EQ(FileKindOf("song.wav"), FileKind::Wave);
  EXPECT_EQ(FileKindOf("song.MP3"), FileKind::Mp3);
  EXPECT_EQ(FileKindOf("take.ogg"), FileKind::Ogg);
  EXPECT_EQ(FileKindOf("take.aiff"), FileKind::Aiff);
  EXPECT_EQ(FileKindOf("take.CdR"), FileKind::Cdr);
  EXPECT_EQ(FileKindOf("x.aif"), FileKind::Aiff);
  EXPECT_EQ(FileKindOf("x.wave"), FileKind::Wave);
  EXPECT_EQ(FileKindOf("x.aiffx"), FileKind::Aiff);
}

TEST(FileKind, IsUnknownWithoutAKnownExtension) {
  EXPECT_EQ(FileKindOf("song"), FileKind::Unknown);
  EXPECT_EQ(FileKindOf("song.flac"), FileKind::Unknown);
  EXPECT_EQ(FileKindOf("song.wa"), FileKind::Unknown);
  EXPECT_EQ(FileKindOf(""), FileKind::Unknown);
  EXPECT_EQ(FileKindOf("song."), FileKind::Unknown);
  EXPECT_EQ(FileKindOf("folder.wav/song"), FileKind::Unknown);
}

TEST(FileKind, TakesTheLastDotOfTheName) {
  EXPECT_EQ(FileKindOf("a.mp3.wav"), FileKind::Wave);
}

TEST(SaveAsPath, ReplacesTheTypedExtensionByTheFilters) {
  EXPECT_EQ(SaveAsPath("/music/x.wav", 2), "/music/x.mp3");
  EXPECT_EQ(SaveAsPath("/music/x.wav", 1), "/music/x.wav");
  EXPECT_EQ(SaveAsPath("/music/x", 3), "/music/x.ogg");
  EXPECT_EQ(SaveAsPath("/music/x.y.z", 4), "/music/x.y.aiff");
  EXPECT_EQ(SaveAsPath("/music/x.WAV", 5), "/music/x.cdr");
}

TEST(SaveAsPath, LeavesDotsOfFoldersAndHiddenNamesAlone) {
  EXPECT_EQ(SaveAsPath("/my.music/x", 1), "/my.music/x.wav");
  EXPECT_EQ(SaveAsPath("/music/.hidden", 1), "/music/.hidden.wav");
}

TEST(SaveAsPath, TakesTheFirstFilterForAnUnknownOne) {
  EXPECT_EQ(SaveAsPath("x", 0), "x.wav");
  EXPECT_EQ(SaveAsPath("x", 6), "x.wav");
}

TEST(FileFilters, OfOpenShowAllFormatsTogetherAndThenEach) {
  const std::vector<FileFilter> filters = ParseFileFilters(StringResource(kStringOpenFilter));
  ASSERT_EQ(filters.size(), 6U);
  EXPECT_EQ(filters[0], (FileFilter{"Audio files ", {"*.wav", "*.mp3", "*.ogg", "*.aiff", "*.cdr"}}));
  EXPECT_EQ(filters[1], (FileFilter{"Wave files (*.wav)", {"*.wav"}}));
  EXPECT_EQ(filters[5], (FileFilter{"CDR files (*.cdr)", {"*.cdr"}}));
}

TEST(FileFilters, OfSaveAsHaveOneEntryAFormat) {
  const std::vector<FileFilter> filters = ParseFileFilters(StringResource(kStringSaveFilter));
  ASSERT_EQ(filters.size(), 5U);
  EXPECT_EQ(filters[1], (FileFilter{"MP3 files (*.mp3)", {"*.mp3"}}));
  EXPECT_EQ(filters[2].name, "Ogg Vorbis files (*.ogg)");
  EXPECT_EQ(filters[3].name, "AIFF files (*.aiff)");
}

TEST(FileFilters, UseTheLastCharacterAsSeparator) {
  EXPECT_EQ(ParseFileFilters("One#*.one#"), (std::vector<FileFilter>{{"One", {"*.one"}}}));
  EXPECT_TRUE(ParseFileFilters("").empty());
  EXPECT_TRUE(ParseFileFilters("name without patterns|").empty());
}

TEST(StringTable, HoldsTheTextsByTheirIds) {
  EXPECT_EQ(StringResource(1014), "Leaving Corvane");
  EXPECT_EQ(StringResource(32550), "Document");
  EXPECT_EQ(StringResource(12345), "");
}

TEST(StatusTexts, NameRateBitsAndChannels) {
  EXPECT_EQ(FormatStatusTexts(44100, 16, 2), (StatusTexts{"44100 Hz", "16 Bits", "Stereo"}));
  EXPECT_EQ(FormatStatusTexts(8000, 8, 1), (StatusTexts{"8000 Hz", "8 Bits", "Mono"}));
}

TEST(StatusTexts, CallEveryOtherShapeEightBitsAndMono) {
  EXPECT_EQ(FormatStatusTexts(96000, 24, 6), (StatusTexts{"96000 Hz", "8 Bits", "Mono"}));
}

TEST(StatusTexts, BeginAtTheSmallestFormat) {
  EXPECT_EQ(InitialStatusTexts(), (StatusTexts{"11025 Hz", "8 Bits", "Mono"}));
}

}  // namespace
}  // namespace tembrel
