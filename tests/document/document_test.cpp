#include "document/Document.h"

#include <gmock/gmock.h>

#include "document/Opening.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/FileSizeLimit.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class DocumentLoading : public test::DocumentTest {};

TEST_F(DocumentLoading, TakesSoundLengthFormatAndName) {
  const auto path = MakeWave("song.wav", 123);
  Document document(paths, 7);
  ASSERT_EQ(document.LoadFile(path, "shown.wav", kDefaultPlayback), LoadOutcome::Loaded);
  ASSERT_NE(document.Clip(), nullptr);
  EXPECT_EQ(document.FrameCount(), 123U);
  EXPECT_TRUE(document.Stereo());
  EXPECT_TRUE(document.Editable());
  EXPECT_EQ(document.FileName(), "shown.wav");
  EXPECT_FALSE(document.Changed());
  EXPECT_EQ(document.Notice(), "");
}

TEST_F(DocumentLoading, DoesNotConvertToThePlaybackFormat) {
  const auto path = MakeWave("song.wav", 10, 8, 1, 11025);
  Document document(paths, 1);
  ASSERT_EQ(document.LoadFile(path, path, {44100, 16, 2}), LoadOutcome::Loaded);
  EXPECT_EQ(document.Clip()->dataSize, 10U);
  EXPECT_EQ(document.Clip()->format.nSamplesPerSec, 11025U);
  EXPECT_FALSE(document.Stereo());
}

TEST_F(DocumentLoading, WritesATemporaryCopyNamedByTheWindowAndRemovesIt) {
  const auto path = MakeWave("song.wav");
  {
    Document document(paths, 7);
    document.LoadFile(path, path, kDefaultPlayback);
    EXPECT_TRUE(document.HasTempCopy());
    EXPECT_EQ(document.TempFileName(), paths.tempFolder / "temp7.wav");
    EXPECT_EQ(Content(document.TempFileName()), Content(path));
  }
  EXPECT_THAT(TempFiles(), IsEmpty());
}

TEST_F(DocumentLoading, TakesTheNextNumberWhenACopyOfThatNameExists) {
  const auto path = MakeWave("song.wav");
  Document first(paths, 7);
  Document second(paths, 7);
  first.LoadFile(path, path, kDefaultPlayback);
  second.LoadFile(path, path, kDefaultPlayback);
  EXPECT_EQ(second.TempFileName(), paths.tempFolder / "temp8.wav");
}

TEST_F(DocumentLoading, GoesOnWithoutATemporaryCopyWhereNoneCanBeWritten) {
  const auto path = MakeWave("song.wav");
  std::filesystem::remove(paths.tempFolder);
  Document document(paths, 7);
  EXPECT_EQ(document.LoadFile(path, path, kDefaultPlayback), LoadOutcome::Loaded);
  EXPECT_EQ(document.TempFileName(), "");
  document.SetChanged(true);
  EXPECT_TRUE(document.Changed());
}

TEST_F(DocumentLoading, DropsACopyThatTheDiskHasNoRoomFor) {
  const auto path = MakeWave("song.wav");
  Document document(paths, 7);
  {
    const test::FileSizeLimit limit(200);
    EXPECT_EQ(document.LoadFile(path, path, kDefaultPlayback), LoadOutcome::Loaded);
  }
  EXPECT_NE(document.Clip(), nullptr);
  EXPECT_EQ(document.Notice(), "");
  EXPECT_FALSE(document.HasTempCopy());
  EXPECT_EQ(document.TempFileName(), "");
  EXPECT_THAT(TempFiles(), IsEmpty());
}

TEST_F(DocumentLoading, WritesNoCopyOfFramesWithGaps) {
  const auto path = MakeWave("gaps.wav", 50, 16, 1);
  std::string bytes = Content(path);
  bytes[32] = 4;
  MakeFile(path, bytes);
  Document document(paths, 7);
  EXPECT_EQ(document.LoadFile(path, path, kDefaultPlayback), LoadOutcome::Loaded);
  EXPECT_FALSE(document.HasTempCopy());
  EXPECT_THAT(TempFiles(), IsEmpty());
}

TEST_F(DocumentLoading, TakesSoundThatIsInMemory) {
  auto clip = std::make_unique<AudioClip>();
  clip->format = PcmFormat(8000, 16, 2);
  clip->data = std::move(MemoryBlock::Allocate(8).value());
  clip->dataSize = 8;
  std::ranges::fill(clip->Bytes(), std::byte{5});
  Document document(paths, 7);
  EXPECT_EQ(document.TakeSound(std::move(clip), "name.wav"), LoadOutcome::Loaded);
  EXPECT_EQ(document.FrameCount(), 2U);
  EXPECT_TRUE(document.Stereo());
  EXPECT_EQ(document.FileName(), "name.wav");
  EXPECT_TRUE(document.HasTempCopy());
  EXPECT_EQ(Content(document.TempFileName()).size(), 52U);
}

TEST_F(DocumentLoading, AgainReplacesTheSound) {
  const auto stereo = MakeWave("stereo.wav", 10);
  const auto mono = MakeWave("mono.wav", 20, 8, 1);
  Document document(paths, 7);
  document.LoadFile(stereo, stereo, kDefaultPlayback);
  document.SetChanged(true);
  ASSERT_EQ(document.LoadFile(mono, mono, kDefaultPlayback), LoadOutcome::Loaded);
  EXPECT_EQ(document.FrameCount(), 20U);
  EXPECT_FALSE(document.Stereo());
  EXPECT_FALSE(document.Changed());
  EXPECT_THAT(TempFiles(), ElementsAre("temp7.wav"));
}

TEST_F(DocumentLoading, OfNonsenseLeavesItEmptyAndSaysWhy) {
  const auto path = scratch.Path() / "noise.wav";
  MakeFile(path, "this is no sound");
  Document document(paths, 7);
  ASSERT_EQ(document.LoadFile(path, path, kDefaultPlayback), LoadOutcome::Failed);
  EXPECT_EQ(document.Clip(), nullptr);
  EXPECT_EQ(document.FileName(), path);
  EXPECT_EQ(document.FrameCount(), 0U);
  EXPECT_FALSE(document.Editable());
  EXPECT_THAT(document.Notice(), HasSubstr("noise.wav could not be read: "));
  EXPECT_THAT(TempFiles(), IsEmpty());
}

TEST_F(DocumentLoading, OfOtherPcmShapesSaysTheyCanOnlyBeLookedAt) {
  const auto path = MakeWave("surround.wav", 50, 24, 6, 96000);
  Document document(paths, 7);
  ASSERT_EQ(document.LoadFile(path, path, kDefaultPlayback), LoadOutcome::Loaded);
  EXPECT_FALSE(document.Editable());
  EXPECT_FALSE(document.Stereo());
  EXPECT_EQ(document.Notice(), "This sound (24 bits, 6 channels) can be looked at but not edited.");
}

TEST_F(DocumentLoading, OfFramesWithGapsSaysTheyCanOnlyBeLookedAt) {
  const auto path = MakeWave("gaps.wav", 50, 16, 1);
  std::string bytes = Content(path);
  bytes[32] = 7;
  MakeFile(path, bytes);
  Document document(paths, 7);
  ASSERT_EQ(document.LoadFile(path, path, kDefaultPlayback), LoadOutcome::Loaded);
  EXPECT_FALSE(document.Editable());
  EXPECT_THAT(document.Notice(), HasSubstr("(16 bits, 1 channel, 7 bytes per frame)"));
}

TEST_F(DocumentLoading, CountsTheFramesItLoadedWhenTheFileIsReplacedMeanwhile) {
  const auto path = MakeWave("song.wav", 100);
  const auto other = MakeWave("other.wav", 5000);
  Document document(paths, 7);
  document.LoadFile(path, path, {}, [&](std::uint64_t, std::uint64_t) {
    std::error_code ignored;
    std::filesystem::rename(other, path, ignored);
    return true;
  });
  ASSERT_FALSE(std::filesystem::exists(other));
  EXPECT_EQ(document.Clip()->dataSize, 400U);
  EXPECT_EQ(document.FrameCount(), 100U);
}

TEST_F(DocumentLoading, ReportsProgressFromStartToEnd) {
  const auto path = MakeWave("song.wav");
  Document document(paths, 7);
  std::vector<double> shares;
  document.LoadFile(path, path, kDefaultPlayback, [&shares](std::uint64_t done, std::uint64_t total) {
    shares.push_back(static_cast<double>(done) / static_cast<double>(total));
    return true;
  });
  ASSERT_GE(shares.size(), 2U);
  EXPECT_TRUE(std::ranges::is_sorted(shares));
  EXPECT_LE(shares.front(), 0.5);
  EXPECT_EQ(shares.back(), 1.0);
}

TEST_F(DocumentLoading, ReportsProgressToTheEndWhereNoCopyCanBeMade) {
  const auto path = MakeWave("song.wav");
  std::filesystem::remove_all(paths.tempFolder);
  Document document(paths, 7);
  double share = 0;
  document.LoadFile(path, path, kDefaultPlayback, [&share](std::uint64_t done, std::uint64_t total) {
    share = static_cast<double>(done) / static_cast<double>(total);
    return true;
  });
  EXPECT_NE(document.Clip(), nullptr);
  EXPECT_EQ(share, 1.0);
}

TEST_F(DocumentLoading, ReportsProgressToTheEndWhereTheCopyFails) {
  const auto path = MakeWave("song.wav", 5'000'000);
  Document document(paths, 7);
  double share = 0;
  const test::FileSizeLimit limit(1000);
  document.LoadFile(path, path, {}, [&share](std::uint64_t done, std::uint64_t total) {
    share = static_cast<double>(done) / static_cast<double>(total);
    return true;
  });
  EXPECT_NE(document.Clip(), nullptr);
  EXPECT_EQ(share, 1.0);
}

TEST_F(DocumentLoading, LeavesNothingBehindWhenCancelledAtAnyPoint) {
  const auto path = MakeWave("song.wav");
  int reports = 0;
  Document whole(paths, 1);
  whole.LoadFile(path, path, kDefaultPlayback,
                 [&reports](std::uint64_t, std::uint64_t) { return ++reports > 0; });
  for (int last = 1; last <= reports; ++last) {
    Document document(paths, 7);
    int seen = 0;
    const LoadOutcome outcome = document.LoadFile(
        path, path, kDefaultPlayback, [&](std::uint64_t, std::uint64_t) { return ++seen < last; });
    EXPECT_EQ(outcome, LoadOutcome::Cancelled) << last;
    EXPECT_EQ(document.Clip(), nullptr);
    EXPECT_THAT(TempFiles(), ElementsAre("temp1.wav"));
  }
}

TEST_F(DocumentLoading, ByExtensionReadsWaveFilesOnly) {
  const auto wave = MakeWave("song.WAVE");
  Document document(paths, 7);
  EXPECT_EQ(ImportFile(document, wave, {}), LoadOutcome::Loaded);
  const auto text = MakeWave("song.txt");
  EXPECT_EQ(ImportFile(document, text, {}), LoadOutcome::Failed);
  EXPECT_EQ(document.Clip(), nullptr);
  EXPECT_THAT(document.Notice(), HasSubstr("song.txt could not be read"));
  const auto encoded = MakeWave("song.mp3");
  EXPECT_EQ(ImportFile(document, encoded, {}), LoadOutcome::Failed);
  EXPECT_THAT(document.Notice(), HasSubstr("MP3"));
}

TEST_F(DocumentLoading, ChecksFirstWhetherTheFileCanBeRead) {
  EXPECT_TRUE(CanBeRead(MakeWave("song.wav")));
  EXPECT_FALSE(CanBeRead(scratch.Path() / "missing.wav"));
  EXPECT_FALSE(CanBeRead(scratch.Path()));
  EXPECT_EQ(DoesNotExistText("/music/a b.wav"), "/music/a b.wav does not exist.");
}

}  // namespace
}  // namespace tembrel
