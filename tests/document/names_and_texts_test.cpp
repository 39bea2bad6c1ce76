#include <cctype>
#include <clocale>
#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/FileFilter.h"
#include "document/FileKind.h"
#include "document/Saving.h"
#include "document/StatusTexts.h"
#include "document/StringTable.h"
#include "tests/support/EnvironmentValue.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

constexpr const char* kTurkish = "tr_TR.ISO-8859-9";

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

// In Turkish the small I has no dot. The locale is made here: hardly a machine has it ready.
TEST(FileKind, DoesNotDependOnTheUsersLanguage) {
  const test::ScratchFolder folder;
  const std::string make = "localedef -i tr_TR -f ISO-8859-9 " + (folder / kTurkish).string();
  if (std::system(make.c_str()) != 0) {
    GTEST_SKIP() << "needs localedef and the sources of the Turkish locale";
  }
  const test::EnvironmentValue path("LOCPATH", folder.Path().string());
  const std::string before = std::setlocale(LC_ALL, nullptr);
  EXPECT_NE(std::setlocale(LC_ALL, kTurkish), nullptr);
  EXPECT_NE(std::tolower('I'), 'i') << "this is not the Turkish locale";
  EXPECT_EQ(FileKindOf("X.AIF"), FileKind::Aiff);
  std::setlocale(LC_ALL, before.c_str());
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

TEST(StringTable, HoldsTheFilters) {
  EXPECT_EQ(StringResource(3), "Wave files (*.wav)|*.wav|");
  EXPECT_EQ(StringResource(4),
            "Wave files (*.wav)|*.wav|MP3 files (*.mp3)|*.mp3|Ogg Vorbis files (*.ogg)|*.ogg|"
            "AIFF files (*.aiff)|*.aiff|CDR files (*.cdr)|*.cdr|");
  EXPECT_EQ(StringResource(5),
            "Audio files |*.wav;*.mp3;*.ogg;*.aiff;*.cdr|Wave files (*.wav)|*.wav|MP3 files (*.mp3)|*.mp3|"
            "Ogg Vorbis files (*.ogg)|*.ogg|AIFF files (*.aiff)|*.aiff|CDR files (*.cdr)|*.cdr|");
}

TEST(StringTable, HoldsTitlesAndWarnings) {
  EXPECT_EQ(StringResource(908), "The given file extension will be changed to .WAV.");
  EXPECT_EQ(StringResource(1003), "Save");
  EXPECT_EQ(StringResource(1014), "Leaving Corvane");
  EXPECT_EQ(StringResource(32550), "Document");
}

TEST(StringTable, HoldsTheToolTips) {
  EXPECT_EQ(StringResource(833), "Play");
  EXPECT_EQ(StringResource(834), "Stop");
  EXPECT_EQ(StringResource(835), "Pause");
  EXPECT_EQ(StringResource(836), "Record");
  EXPECT_EQ(StringResource(837), "Time Display");
  EXPECT_EQ(StringResource(845), "Rewind");
  EXPECT_EQ(StringResource(846), "Move In Time");
}

TEST(StringTable, IsEmptyForEveryOtherId) {
  EXPECT_EQ(StringResource(0), "");
  EXPECT_EQ(StringResource(12345), "");
}

TEST(SavePromptTitle, HasAtMostNineteenCharacters) {
  EXPECT_EQ(SavePromptTitle("Leaving Corvane"), "Leaving Corvane");
  EXPECT_EQ(SavePromptTitle("1234567890123456789"), "1234567890123456789");
  EXPECT_EQ(SavePromptTitle("12345678901234567890"), "1234567890123456789");
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
